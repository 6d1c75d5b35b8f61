#pragma once

/// Whether a program with windows has a screen to show them on.

/// Chooses the offscreen platform when the machine has no display; to be called before the application object
/// is made. A platform that was chosen by hand stays.
void UseOffscreenWithoutDisplay();

/// Nobody can see the windows: they are drawn in memory.
[[nodiscard]] bool IsOffscreen();
