#pragma once

#include <QString>

#include <exception>

/// How a command ends.
enum class ExitCode
{
    Done = 0,
    /// Refused or not found.
    Refused = 1,
    Usage = 2,
    DatabaseUnavailable = 3,
    NetworkUnavailable = 4,
    /// By Ctrl+C; what a shell gives for that.
    Interrupted = 130,
};

/// Ends a command with an exit code and one line of words.
class CommandError : public std::exception
{
public:
    /// `told`: the words stand on standard error already.
    CommandError(ExitCode code, const QString& text, bool told = false)
        : m_code(code), m_text(text), m_told(told)
    {}

    [[nodiscard]] ExitCode Code() const { return m_code; }
    [[nodiscard]] const QString& Text() const { return m_text; }
    [[nodiscard]] bool Told() const { return m_told; }
    [[nodiscard]] const char* what() const noexcept override { return "command failed"; }

private:
    ExitCode m_code;
    QString m_text;
    bool m_told;
};
