#pragma once

#include <QString>

class DatabaseSession;

/// The value as the database has it: without blanks at its ends, numbers in plain digits, texts of a list in
/// the list's spelling. Empty is always allowed: it leaves the parameter without a value.
/// Raises CommandError (Refused) for a value that the definitions do not allow; `shown` stands for the
/// parameter and its value in the words.
[[nodiscard]] QString CheckedValue(const DatabaseSession& session, const QString& waypoint,
                                   const QString& keyword, const QString& value, const QString& shown);
