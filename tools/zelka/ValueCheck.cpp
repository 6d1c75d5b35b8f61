#include "tools/zelka/ValueCheck.h"

#include "database/DatabaseClass.h"
#include "model/TextHelpers.h"
#include "tools/zelka/CommandError.h"
#include "tools/zelka/DatabaseSession.h"

#include <algorithm>

namespace {

using GridParameter = DatabaseClass::GridParameter;

/// Kinds of parameters.
constexpr qint32 TextKind = 2;
constexpr qint32 NumberKind = 3;
constexpr qint32 ListKind = 4;

[[noreturn]] void Refuse(const QString& shown, const QString& why)
{
    throw CommandError(ExitCode::Refused, shown + QStringLiteral(": ") + why);
}

QString CheckedNumber(const GridParameter& parameter, const QString& value, const QString& shown)
{
    bool isNumber = false;
    const qint64 number = value.toLongLong(&isNumber);
    if (parameter.values.size() < 2)
        Refuse(shown, QStringLiteral("The bounds of the parameter cannot be read."));
    const QString& low = parameter.values[0];
    const QString& high = parameter.values[1];
    if (!isNumber)
        Refuse(shown,
               QStringLiteral("The value must be a whole number from %1 to %2.").arg(Trim(low), Trim(high)));
    if (number < ValInt(low) || number > ValInt(high))
        Refuse(shown, QStringLiteral("Value %1 out of range [%2,%3]. Give a new value.")
                          .arg(QString::number(number), low, high));
    return QString::number(number);
}

QString CheckedListText(const GridParameter& parameter, const QString& value, const QString& shown)
{
    const auto found =
        std::find_if(parameter.values.begin(), parameter.values.end(),
                     [&value](const QString& text) { return text.compare(value, Qt::CaseInsensitive) == 0; });
    if (found != parameter.values.end())
        return *found;
    QStringList allowed;
    for (const QString& text : parameter.values)
        allowed << text;
    Refuse(shown, QStringLiteral("The value must be one of %1.").arg(allowed.join(QStringLiteral(", "))));
}

/// What would end the value early in a target or in a list.
bool HasSeparator(const QString& value)
{
    return std::any_of(value.begin(), value.end(), [](QChar character) {
        return character == u',' || character.category() == QChar::Other_Control;
    });
}

} // namespace

QString CheckedValue(const DatabaseSession& session, const QString& waypoint, const QString& keyword,
                     const QString& value, const QString& shown)
{
    const QString trimmed = Trim(value);
    if (trimmed.isEmpty())
        return trimmed;
    if (HasSeparator(trimmed))
        Refuse(shown, QStringLiteral("A value cannot hold a comma or a control character."));
    GridParameter parameter;
    if (!session.Gateway().GetGridParameterDataDb(waypoint, keyword, parameter))
        Refuse(shown, QStringLiteral("What the parameter allows cannot be read."));
    switch (parameter.kind) {
    case TextKind:
        if (trimmed.size() > parameter.textLength)
            Refuse(shown, QStringLiteral("The value has %1 characters, %2 are allowed.")
                              .arg(trimmed.size())
                              .arg(parameter.textLength));
        return trimmed;
    case NumberKind:
        return CheckedNumber(parameter, trimmed, shown);
    case ListKind:
        return CheckedListText(parameter, trimmed, shown);
    default:
        return trimmed;
    }
}
