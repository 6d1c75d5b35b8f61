#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

/// An option or a positional argument of a command, as its help tells of it.
struct ArgumentWords
{
    /// All names, "-h" before "--help"; the one name of a positional argument.
    std::vector<std::string> names;
    /// Placeholder of its value, such as "NAME" or "fail|skip"; empty when it takes none.
    std::string value;
    std::string description;
    bool positional = false;
    bool required = false;

    /// The values that it can have, where its placeholder lists them.
    [[nodiscard]] std::vector<std::string> Choices() const;
};

/// A command with all that it takes.
struct CommandWords
{
    /// "zelka db import".
    std::string path;
    std::string description;
    std::string footer;
    std::vector<ArgumentWords> arguments;
    std::vector<CommandWords> commands;

    /// Its own name, the last word of its path.
    [[nodiscard]] std::string Name() const;
};

/// Reads a program's commands and options from what it parses its arguments with.
CommandWords ReadCommandWords(const CLI::App& app);
