#pragma once

#include <QString>

/// The folder of the library that holds this control, or of the program where it is built into one.
[[nodiscard]] QString ModuleFolder();
