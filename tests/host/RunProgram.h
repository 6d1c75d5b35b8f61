#pragma once

#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

/// What a program left when it ended.
struct Outcome
{
    /// -1: it crashed or did not end.
    int code = -1;
    QString output;
    QString errors;
};

/// The environment of a machine without a display, with a home (folders config, data and temp below it).
/// `source`: the database in it; empty: none.
QProcessEnvironment EnvironmentWithoutDisplay(const QString& home, const QString& source = QString());

/// Runs a program in such an environment and waits for its end.
Outcome RunWithoutDisplay(const QString& program, const QStringList& arguments, const QString& home,
                          const QString& source = QString());
