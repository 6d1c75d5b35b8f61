#include "host/workstation/TalkLog.h"

#include "platform/MachineSeams.h"

#include <algorithm>

namespace {

QString SignOf(TalkLog::Mark mark)
{
    switch (mark) {
    case TalkLog::Mark::Request:
        return QStringLiteral(">");
    case TalkLog::Mark::Reply:
        return QStringLiteral("<");
    case TalkLog::Mark::Failure:
        return QStringLiteral("!");
    case TalkLog::Mark::Note:
        break;
    }
    return QStringLiteral("-");
}

bool IsPrintable(QChar character)
{
    return character.isPrint() && character != QChar::Nbsp && character != QChar::SoftHyphen;
}

QString Printable(QString text)
{
    std::replace_if(
        text.begin(), text.end(), [](QChar character) { return !IsPrintable(character); }, u'.');
    return text;
}

QString HexOf(const QString& text)
{
    const QByteArray bytes = text.left(TalkLog::MostHexBytes).toLatin1().toHex(' ').toUpper();
    const QString more =
        text.size() > TalkLog::MostHexBytes ? QStringLiteral(" ... (%1 bytes)").arg(text.size()) : QString();
    return QString::fromLatin1(bytes) + more;
}

} // namespace

QStringList TalkLog::Lines(Mark mark, const QString& text)
{
    const QString begin = Machine().WallClock().toString(QStringLiteral("HH:mm:ss ")) + SignOf(mark) + u' ';
    QStringList lines{begin + Printable(text)};
    if (mark == Mark::Reply && !std::all_of(text.begin(), text.end(), IsPrintable))
        lines << begin + QStringLiteral("hex ") + HexOf(text);
    return lines;
}
