#pragma once

/// Key codes of the grid's editors, and bits of what is held down with them.
namespace GridKeys {
inline constexpr int Backspace = 8;
inline constexpr int Enter = 13;
inline constexpr int Escape = 27;
inline constexpr int Blank = 32;
inline constexpr int Up = 38;
inline constexpr int Down = 40;

inline constexpr int Shift = 1;
inline constexpr int Control = 2;
inline constexpr int Alt = 4;
} // namespace GridKeys
