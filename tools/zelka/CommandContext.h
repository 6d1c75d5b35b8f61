#pragma once

#include "tools/zelka/CommandOutput.h"

#include <QString>

#include <CLI/CLI.hpp>
#include <functional>
#include <memory>
#include <string>

class ComponentError;
class HvxAdministration;

/// What all commands share: the chosen source, the output, and the command that the arguments chose.
struct CommandContext
{
    CommandOutput& output;
    std::string source;
    bool json = false;
    /// Runs the chosen command; raises CommandError or ComponentError.
    std::function<void()> chosen;

    /// The database that the command works on.
    [[nodiscard]] QString Source() const;
    /// Opens it for administration; raises ComponentError.
    [[nodiscard]] std::unique_ptr<HvxAdministration> OpenAdministration() const;

    void AddSourceOption(CLI::App& command);
    void AddJsonOption(CLI::App& command);
};

/// A failure of the database in words for an operator.
QString WordsOf(const ComponentError& error);
