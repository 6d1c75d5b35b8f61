#pragma once

#include "tools/reference/CommandWords.h"

/// The script by which bash completes a program's commands, options, their values, files, and the names of
/// stored connections and nodes (which `zelka list` gives).
std::string BashCompletion(const CommandWords& program);
