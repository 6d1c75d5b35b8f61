#pragma once

#include <QString>
#include <QStringList>

/// The program that operates a node, as it is to be started.
struct ManagerCommand
{
    QString program;
    QStringList arguments;

    /// As it would be typed: options plain, their values between double quotes.
    [[nodiscard]] QString Text() const;
};

/// Parts of a node's command line: the manager's index before "|" (empty without one) and the tail.
[[nodiscard]] QString ManagerIndexOf(const QString& commandLine);
[[nodiscard]] QString ManagerTailOf(const QString& commandLine);

/// The command of a node's manager: "-sobriquet", the node's name, "-device", "cdfq01" and the manager's own
/// text where it has one. `extra` may hold blanks and quotes and stays one argument.
[[nodiscard]] ManagerCommand ComposeManagerCommand(const QString& path, const QString& nodeName,
                                                   const QString& extra);

/// Reads the manager of a stored node in one transaction. False: it has none, or a failure; the operator has
/// been told.
[[nodiscard]] bool ReadManagerCommand(const QString& nodeName, ManagerCommand& command);

/// Starts it, without a shell. False: it cannot be started; the operator has been told.
bool LaunchManager(const ManagerCommand& command);
