#include "scan/network/BusList.h"

#include "model/ItemList.h"
#include "model/TextHelpers.h"
#include "platform/HvxUtility.h"
#include "platform/SyncConnection.h"

namespace {

constexpr QChar LineFeed{10};
constexpr QChar CarriageReturn{13};
/// The broadcast identity of a bus.
constexpr qint32 BroadcastBus = 254;

/// The target before the first of the two that it holds; the whole when it holds neither.
QString CutBefore(const QString& target, const QString& first, const QString& second)
{
    for (const QString& mark : {first, second}) {
        const qsizetype at = target.indexOf(mark, 0, Qt::CaseInsensitive);
        if (at >= 0)
            return target.left(at);
    }
    return target;
}

} // namespace

QString ConvertBusTarget(const QString& target)
{
    if (!TextContains(target, u"WP=KD7"))
        return target;
    return CutBefore(target, QStringLiteral(",BUSID="), QStringLiteral(",WP=OPT,")) +
           QStringLiteral(",BUSID=254,WP=NET4,ADDR=4094,WP=OPT,PR=T4DT");
}

QString ReplaceCharacter(const QString& text, QChar character, const QString& by)
{
    QString replaced = text;
    return replaced.replace(character, by);
}

bool ParseBusList(const QString& text, int& count, QStringList& items)
{
    std::vector<QString> lines;
    if (!SplitText(ReplaceCharacter(text, LineFeed, QStringLiteral(" ")), CarriageReturn, lines, count))
        return false;
    items.clear();
    // A line end behind the last line belongs to that line.
    for (std::size_t line = 1; line < lines.size(); ++line)
        items << Trim(lines[line].remove(CarriageReturn));
    while (!items.isEmpty() && items.constLast().isEmpty())
        items.removeLast();
    count = static_cast<int>(items.size());
    if (count >= 1 && ValInt(items.constLast()) == BroadcastBus) {
        items.removeLast();
        --count;
    }
    return true;
}

QString AskForBuses(SyncConnection& connection, HvxUtility& utility)
{
    QString request;
    utility.U2A(QStringLiteral("m:11,1,3") + CarriageReturn, request);
    QString reply;
    connection.Send(QString(), request, reply);
    QString payload;
    utility.GetBERData(reply, 0, payload);
    QString text;
    utility.A2U(payload, text);
    return text;
}
