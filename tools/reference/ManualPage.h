#pragma once

#include "tools/reference/CommandWords.h"

/// What a manual page says beside the commands.
struct ManualWords
{
    /// What the program is, in a few words: the NAME line.
    std::string summary;
    /// "zelka 4.2.0".
    std::string version;
    /// Environment variables and what they do.
    std::vector<std::pair<std::string, std::string>> environment;
    /// Other pages: "zelka(1)".
    std::vector<std::string> seeAlso;
};

/// The manual page of a program, section 1, in roff with the man macros.
std::string ManualPage(const CommandWords& program, const ManualWords& words);
