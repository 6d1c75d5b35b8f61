#include "model/ItemList.h"

#include "platform/IndexError.h"

#include <algorithm>

namespace {

constexpr int MaxPlainItems = 100;

/// Calls `take` with each item. A separator that is the last character does not end an item: it belongs to
/// it.
template <typename Take>
void ForEachItem(QStringView text, QChar separator, Take take)
{
    qsizetype start = 0;
    while (start < text.size()) {
        const qsizetype end = text.indexOf(separator, start);
        if (end < 0 || end == text.size() - 1) {
            take(text.sliced(start));
            return;
        }
        take(text.sliced(start, end - start));
        start = end + 1;
    }
}

size_t ItemEstimate(QStringView text, QChar separator)
{
    return static_cast<size_t>(std::count(text.begin(), text.end(), separator)) + 1;
}

} // namespace

bool ConvertItemListToArray(const QString& list, bool pairMode, PairTable& table, int& count)
{
    table.clear();
    const size_t items = ItemEstimate(list, TabChar);
    table.reserve(pairMode ? (items + 1) / 2 : items);
    bool firstColumn = true;
    ForEachItem(list, TabChar, [&](QStringView item) {
        if (firstColumn)
            table.push_back({item.toString(), QString()});
        else
            table.back().second = item.toString();
        if (pairMode)
            firstColumn = !firstColumn;
    });
    count = static_cast<int>(table.size());
    return true;
}

bool PairListToTable(const QString& list, PairTable& table, int& count)
{
    return ConvertItemListToArray(list, true, table, count);
}

bool ItemListToArray(const QString& list, std::vector<QString>& items, int& count)
{
    items.clear();
    count = 0;
    ForEachItem(list, TabChar, [&](QStringView item) {
        CheckIndex("item", count + 1, 1, MaxPlainItems);
        items.push_back(item.toString());
        ++count;
    });
    return true;
}

bool SplitText(const QString& text, QChar separator, std::vector<QString>& items, int& count)
{
    items.clear();
    items.reserve(ItemEstimate(text, separator));
    ForEachItem(text, separator, [&](QStringView item) { items.push_back(item.toString()); });
    count = static_cast<int>(items.size());
    return true;
}

QString GetItem(QStringView text, int number, QChar separator)
{
    qsizetype start = 0;
    for (int skipped = 1; skipped < number; ++skipped) {
        const qsizetype end = text.indexOf(separator, start);
        if (end < 0)
            return {};
        start = end + 1;
    }
    const qsizetype end = text.indexOf(separator, start);
    return (end < 0 ? text.sliced(start) : text.sliced(start, end - start)).toString();
}
