#pragma once

#include <QCoreApplication>

/// Words that an operator reads and that no window of its own speaks, in the language in force:
/// `Words::tr("Nothing selected.")`. Members of windows use their own `tr`.
class Words
{
    Q_DECLARE_TR_FUNCTIONS(Words)
};
