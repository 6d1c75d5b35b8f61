#pragma once

#include <QtGlobal>

#include <functional>

/// Waits until the machine's monotonic clock shows `end`, or until `isOver`, at which it looks every 100 ms.
void PauseUntil(qint64 end, const std::function<bool()>& isOver);

/// How soon the end of a command is noticed, in milliseconds.
constexpr int LongestDeafness = 100;
