#pragma once

#include <QString>

/// What the text of a target tells by itself, without the database.

/// What is wrong with the text, in the operator's words, as far as its form goes; empty: nothing, or there is
/// no text yet. Names and values are not judged.
[[nodiscard]] QString TargetProblem(const QString& target);

/// The address of the last network element that a target names, or its host where it has no address; empty:
/// it has neither.
[[nodiscard]] QString TargetAddress(const QString& target);
