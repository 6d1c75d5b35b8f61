#include "browser/TargetSyntax.h"

#include "platform/TargetText.h"
#include "platform/Words.h"

namespace {

/// Of an item that is named in a message.
constexpr qsizetype LongestNamed = 40;

QString Named(QStringView target, const TargetItem& item)
{
    const QStringView text = target.sliced(item.start, item.end - item.start);
    return text.size() <= LongestNamed ? text.toString()
                                       : text.first(LongestNamed).toString() + QChar(0x2026);
}

} // namespace

QString TargetProblem(const QString& target)
{
    if (target.isEmpty())
        return {};
    TargetText reader(target);
    TargetItem item;
    for (bool first = true; reader.Next(item); first = false) {
        if (first && !item.IsHop())
            return Words::tr("A target begins with \"WP=\" and the name of a waypoint.");
        if (!item.hasEquals)
            return Words::tr("\"%1\" has no \"=\". Items are written as keyword=value, with commas "
                             "between them.")
                .arg(Named(target, item));
    }
    if (item.end == 0)
        return Words::tr("The target has no items, only commas.");
    return {};
}

QString TargetAddress(const QString& target)
{
    QString address;
    QString host;
    TargetText reader(target);
    TargetItem item;
    while (reader.Next(item)) {
        if (item.keyword.compare(QLatin1String("ADDR"), Qt::CaseInsensitive) == 0)
            address = item.value.toString();
        else if (item.keyword.compare(QLatin1String("HOST"), Qt::CaseInsensitive) == 0)
            host = item.value.toString();
    }
    return address.isEmpty() ? host : address;
}
