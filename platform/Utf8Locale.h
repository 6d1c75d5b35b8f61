#pragma once

/// Has names and texts be UTF-8 whatever the shell says; scheduled scripts often run without a locale. To be
/// called before the application object is made.
void ChooseUtf8Locale();
