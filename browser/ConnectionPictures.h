#pragma once

#include <QIcon>

/// The pictures of the connection types.

/// Pictures there are; their indices run from 0.
inline constexpr int ConnectionPictureCount = 17;

/// A picture; empty for an index that there is none for.
[[nodiscard]] QIcon ConnectionPicture(int index);

/// Makes the pictures known to a program that links them; to be called before the first is asked for.
void RegisterPictures();
