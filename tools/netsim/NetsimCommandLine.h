#pragma once

#include "tools/netsim/NetsimContext.h"

/// Parses the arguments of `zelka-netsim`, runs the command and gives its exit code. Data go to `data`, words
/// to `words`. Needs a QCoreApplication.
NetsimExit RunNetsimCommandLine(int argc, const char* const* argv, QIODevice& data, QIODevice& words);

/// Lets `read` look at the commands and options of `zelka-netsim`, for texts about them; runs nothing.
void ReadNetsimCommandLine(const std::function<void(const CLI::App& app)>& read);
