#pragma once

#include <QPalette>
#include <QString>
#include <QStringList>

#include <optional>

/// The colours of a program's windows.
enum class Theme : quint8
{
    /// The desktop's own.
    System,
    Light,
    Dark,
    /// White and yellow on black, with an outline around all that can be used.
    Contrast,
};

/// Shows all windows in a theme, those that are open too. Thread: the one of the user interface.
void ApplyTheme(Theme theme);
/// The colours of a theme; of System those that the program started with.
[[nodiscard]] QPalette ThemePalette(Theme theme);

/// "system", "light", "dark", "contrast": as commands and settings name them.
[[nodiscard]] QString ThemeName(Theme theme);
[[nodiscard]] std::optional<Theme> ThemeOfName(const QString& name);
[[nodiscard]] QStringList ThemeNames();
