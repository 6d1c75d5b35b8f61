#pragma once

#include <functional>

/// Runs a handler of a form. An error that it raises ends in an error box with its description, and the form
/// lives on. Thread: the control's.
void RunGuarded(const std::function<void()>& handler);
