#pragma once

#include "tools/zelka/CommandError.h"

#include <QIODevice>

#include <functional>

namespace CLI {
class App;
}

/// Parses the arguments of `zelka`, runs the command and gives its exit code. Data go to `data`, words about
/// failures to `words`. Needs a QCoreApplication.
ExitCode RunCommandLine(int argc, const char* const* argv, QIODevice& data, QIODevice& words);

/// Lets `read` look at the commands and options of `zelka`, for texts about them; runs nothing.
void ReadCommandLine(const std::function<void(const CLI::App& app)>& read);
