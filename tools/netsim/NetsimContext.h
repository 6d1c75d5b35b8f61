#pragma once

#include <QIODevice>
#include <QString>

#include <CLI/CLI.hpp>
#include <exception>
#include <functional>

/// How `zelka-netsim` ends.
enum class NetsimExit
{
    Done = 0,
    /// Refused or not found; no gateway runs; the port is taken.
    Refused = 1,
    Usage = 2,
};

/// Ends a command with Refused and words, one failure a line.
class NetsimError : public std::exception
{
public:
    explicit NetsimError(const QString& text) : m_text(text) {}

    [[nodiscard]] const QString& Text() const { return m_text; }
    [[nodiscard]] const char* what() const noexcept override { return "command failed"; }

private:
    QString m_text;
};

/// What all commands share: where they print, and the command that the arguments chose.
struct NetsimContext
{
    QIODevice& data;
    QIODevice& words;
    /// Runs the chosen command; raises NetsimError.
    std::function<void()> chosen;

    /// One line of data. Raises NetsimError when it cannot be written.
    void Line(const QString& text) const;
    void Bytes(const QByteArray& bytes) const;
    /// Lines about what happens or what failed, each with the program's name in front.
    void Words(const QString& text) const;
};

/// Place of a gateway unless the arguments name one.
constexpr const char* DefaultGateway = "127.0.0.1:4004";

/// Adds "--listen HOST:PORT" and its check.
void AddListenOption(CLI::App& command, std::string& listen, const std::string& description);
