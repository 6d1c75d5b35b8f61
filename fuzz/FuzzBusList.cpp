#include "fuzz/Fuzzing.h"
#include "model/TextHelpers.h"
#include "scan/network/BusList.h"

#include <algorithm>

/// Lists of buses in any text.

namespace {

constexpr qint32 BroadcastBus = 254;

bool IsBroadcast(const QString& line)
{
    return ValInt(line) == BroadcastBus;
}

/// Lines of 254 at the end of a text, behind its first line; blank lines at the end do not count.
int BroadcastsAtTheEnd(const QString& text)
{
    QStringList lines = text.split(u'\r').mid(1);
    while (!lines.isEmpty() && Trim(QString(lines.constLast()).replace(u'\n', u' ')).isEmpty())
        lines.removeLast();
    int count = 0;
    while (!lines.isEmpty() && IsBroadcast(QString(lines.takeLast()).replace(u'\n', u' ')))
        ++count;
    return count;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    int count = -1;
    QStringList items;
    Require(ParseBusList(text, count, items), "any text is a list");
    Require(count == items.size(), "as many items as are counted");
    Require(items.size() <= text.count(u'\r'), "the first line is no bus");
    for (const QString& item : items)
        Require(!item.contains(u'\r') && !item.contains(u'\n') && item == Trim(item),
                "an item is one line without blanks at its ends");
    // One at the end stands for the bus itself and is gone.
    if (!items.isEmpty() && IsBroadcast(items.constLast()))
        Require(BroadcastsAtTheEnd(text) >= 2, "a list does not end in 254");

    // With that line behind it, a list is the same with nothing taken away.
    QStringList longer;
    Require(ParseBusList(text + QStringLiteral("\r254\r"), count, longer), "any text is a list");
    Require(longer.size() >= items.size() && longer.mid(0, items.size()) == items,
            "what follows changes no item");
    return 0;
}
