#pragma once

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

/// Runs a program on a machine without a display, in a home of its own (folders config, data and temp below
/// it), and waits for its end. `source`: the database in its environment; empty: none.
Outcome RunWithoutDisplay(const QString& program, const QStringList& arguments, const QString& home,
                          const QString& source = QString());
