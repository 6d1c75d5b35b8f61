#pragma once

#include <QString>

#include <optional>

/// Exit codes of the workstation; the command line uses the same.
namespace ExitCode {
constexpr int Done = 0;
constexpr int Refused = 1;
constexpr int Usage = 2;
constexpr int DatabaseUnavailable = 3;
} // namespace ExitCode

/// What the operator asked for on the command line.
struct WorkstationOptions
{
    /// Empty: the source that the machine names.
    QString database;
    /// Folder for the pictures of the scripted run; empty: none was asked for.
    QString screenshots;
    /// Code of the language; empty: as stored.
    QString language;
    /// Name of the theme; empty: the one that the operator chose last.
    QString theme;
};

/// Reads the arguments that Qt has left. A value is the exit code with which to end at once: help and version
/// have been printed (0), or the mistake and the usage (2).
[[nodiscard]] std::optional<int> ReadOptions(int argc, char** argv, WorkstationOptions& options);
