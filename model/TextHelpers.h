#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

/// Small text routines that all subsystems share. Where one of them says "blanks" it means the blank
/// character alone, not tabs or line ends.

// Numbers and text ----------------------------------------------------------------------------------------

/// The text without the blanks at both ends; a view of it, so nothing is copied.
[[nodiscard]] QStringView TrimBlanks(QStringView text);
[[nodiscard]] inline QString Trim(QStringView text)
{
    return TrimBlanks(text).toString();
}

/// The number that a text begins with, behind any blanks: an optional sign, digits, at most one point. What
/// follows does not count. 0 when there is none.
[[nodiscard]] double Val(QStringView text);
/// The same as a whole number, halves rounded to even, held to the range of 32 bits.
[[nodiscard]] qint32 ValInt(QStringView text);
/// Halves go to the even neighbour.
[[nodiscard]] double RoundHalfEven(double value);
/// Decimal text; zero and positive numbers have one blank in front.
[[nodiscard]] QString Str(qint64 value);

// Texts ---------------------------------------------------------------------------------------------------

/// True when `searched` occurs in `text`, ignoring case. Empty `searched`: True.
[[nodiscard]] bool TextContains(QStringView text, QStringView searched);
/// The same on texts without the blanks at their ends.
[[nodiscard]] bool ConTypeHasWord(QStringView conTypeName, QStringView word);
/// Exactly `width` characters: filled with blanks behind (`atEnd`) or in front, or cut.
[[nodiscard]] QString PadText(const QString& text, int width, bool atEnd);
/// Doubles each occurrence of the first character of `character`, in `text` itself and as the result.
QString DoubleAnyChar(QString& text, const QString& character);
/// First character, and each behind a character of `separators`, in upper case; all others in lower case.
[[nodiscard]] QString ConvertWordsBeginningUpperCase(const QString& text, const QString& separators);

// Requirement digits: 0 or empty optional, 1 mandatory, 2 and more the number of an exclusive group ---------

[[nodiscard]] bool IsRequiredParameter(QStringView digit);
[[nodiscard]] bool IsExclusiveParameter(QStringView digit);

// Controls ------------------------------------------------------------------------------------------------

/// True when one entry equals the text, ignoring case.
[[nodiscard]] bool FindComboItem(const QStringList& entries, const QString& text);
/// Position from 0 of the first entry that is not blank and equals the text, ignoring case; 0 when there is
/// none, -1 when the list is empty.
[[nodiscard]] int SelectComboItem(const QStringList& entries, const QString& text);
/// The key code of a digit or of backspace; for any other key sounds the bell and gives 0.
[[nodiscard]] int FilterDigitKey(int keyCode);
