#include "model/TextHelpers.h"

#include "platform/MachineSeams.h"

#include <cmath>
#include <limits>
#include <optional>

namespace {

constexpr QChar Blank = u' ';

bool IsDigit(QChar character)
{
    return character >= u'0' && character <= u'9';
}

/// The number of a text that is nothing but a few digits.
std::optional<qint32> PlainNumber(QStringView text)
{
    constexpr qsizetype surelyInRange = 9;
    if (text.isEmpty() || text.size() > surelyInRange)
        return std::nullopt;
    qint32 number = 0;
    for (const QChar character : text) {
        if (!IsDigit(character))
            return std::nullopt;
        number = number * 10 + (character.unicode() - u'0');
    }
    return number;
}

} // namespace

QStringView TrimBlanks(QStringView text)
{
    qsizetype start = 0;
    qsizetype end = text.size();
    while (start < end && text[start] == Blank)
        ++start;
    while (end > start && text[end - 1] == Blank)
        --end;
    return text.sliced(start, end - start);
}

double Val(QStringView text)
{
    qsizetype position = 0;
    while (position < text.size() && text[position] == Blank)
        ++position;
    const qsizetype start = position;
    if (position < text.size() && (text[position] == u'-' || text[position] == u'+'))
        ++position;
    bool point = false;
    bool digits = false;
    for (; position < text.size(); ++position) {
        if (IsDigit(text[position]))
            digits = true;
        else if (text[position] == u'.' && !point)
            point = true;
        else
            break;
    }
    return digits ? text.sliced(start, position - start).toDouble() : 0.0;
}

double RoundHalfEven(double value)
{
    return value - std::remainder(value, 1.0);
}

qint32 ValInt(QStringView text)
{
    // Nearly all are ids, thousands in a list.
    if (const std::optional<qint32> whole = PlainNumber(text))
        return *whole;
    const double value = RoundHalfEven(Val(text));
    if (value <= std::numeric_limits<qint32>::min())
        return std::numeric_limits<qint32>::min();
    if (value >= std::numeric_limits<qint32>::max())
        return std::numeric_limits<qint32>::max();
    return static_cast<qint32>(value);
}

QString Str(qint64 value)
{
    return value < 0 ? QString::number(value) : Blank + QString::number(value);
}

bool TextContains(QStringView text, QStringView searched)
{
    return searched.isEmpty() || text.contains(searched, Qt::CaseInsensitive);
}

bool ConTypeHasWord(QStringView conTypeName, QStringView word)
{
    return TextContains(TrimBlanks(conTypeName), TrimBlanks(word));
}

QString PadText(const QString& text, int width, bool atEnd)
{
    return atEnd ? text.leftJustified(width, Blank, true) : text.rightJustified(width, Blank, true);
}

QString DoubleAnyChar(QString& text, const QString& character)
{
    if (!character.isEmpty())
        text.replace(character.front(), QString(2, character.front()));
    return text;
}

QString ConvertWordsBeginningUpperCase(const QString& text, const QString& separators)
{
    QString result;
    result.reserve(text.size());
    bool wordBegins = true;
    for (const QChar character : text) {
        result += wordBegins ? character.toUpper() : character.toLower();
        wordBegins = separators.contains(character);
    }
    return result;
}

bool IsRequiredParameter(QStringView digit)
{
    return Val(digit) >= 1;
}

bool IsExclusiveParameter(QStringView digit)
{
    return Val(digit) > 1;
}

bool FindComboItem(const QStringList& entries, const QString& text)
{
    return entries.contains(text, Qt::CaseInsensitive);
}

int SelectComboItem(const QStringList& entries, const QString& text)
{
    if (entries.isEmpty())
        return -1;
    for (int position = 0; position < entries.size(); ++position) {
        const QString& entry = entries[position];
        if (!TrimBlanks(entry).isEmpty() && entry.compare(text, Qt::CaseInsensitive) == 0)
            return position;
    }
    return 0;
}

int FilterDigitKey(int keyCode)
{
    constexpr int Backspace = 8;
    if ((keyCode >= '0' && keyCode <= '9') || keyCode == Backspace)
        return keyCode;
    Machine().Beep();
    return 0;
}
