#pragma once

#include <QString>

/// The file that this code was loaded from: the program, or the library or plugin that it is linked into.
/// Absolute; a link under which a library was found is kept, so that it stays valid when the library is
/// replaced by a newer one. Empty when the machine does not tell.
[[nodiscard]] QString ModuleFile();
