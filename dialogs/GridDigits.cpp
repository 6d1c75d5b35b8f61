#include "dialogs/GridDigits.h"

namespace {

bool IsDigit(QChar character)
{
    return character >= u'0' && character <= u'9';
}

QString WithoutDigits(const QString& text)
{
    QString rest;
    for (const QChar character : text) {
        if (!IsDigit(character))
            rest += character;
    }
    return rest;
}

/// True when `part` is what is left of `whole` after characters were taken out.
bool IsLeftOf(const QString& part, const QString& whole)
{
    qsizetype found = 0;
    for (const QChar character : whole) {
        if (found < part.size() && part[found] == character)
            ++found;
    }
    return found == part.size();
}

} // namespace

GridDigits::GridDigits(const QString& takenText, QObject* parent)
    : QValidator(parent), m_takenStrange(WithoutDigits(takenText))
{}

QValidator::State GridDigits::validate(QString& input, int& position) const
{
    if (IsLeftOf(WithoutDigits(input), m_takenStrange))
        return Acceptable;
    QString digits;
    int moved = position;
    for (qsizetype index = 0; index < input.size(); ++index) {
        if (!input[index].isSpace())
            digits += input[index];
        else if (index < position)
            --moved;
    }
    if (!IsLeftOf(WithoutDigits(digits), m_takenStrange))
        return Invalid;
    input = digits;
    position = moved;
    return Acceptable;
}
