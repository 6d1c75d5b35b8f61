#pragma once

#include "tools/zelka/CommandError.h"

#include <QIODevice>

/// Parses the arguments of `zelka`, runs the command and gives its exit code. Data go to `data`, words about
/// failures to `words`. Needs a QCoreApplication.
ExitCode RunCommandLine(int argc, const char* const* argv, QIODevice& data, QIODevice& words);
