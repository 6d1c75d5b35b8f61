#pragma once

#include <QString>
#include <QStringView>

#include <vector>

/// Item lists: the one kind of text that the database component answers with. Items are separated by one
/// tab; there is no quoting and no terminator; an item may be empty.

/// The separator of item lists.
inline constexpr QChar TabChar{u'\t'};

/// A row of a pair list.
struct ItemPair
{
    QString first;
    QString second;
};
using PairTable = std::vector<ItemPair>;

/// Converts a list into rows. Pair mode: items fill the two columns in turn (an odd last row keeps an empty
/// second column); otherwise each item is a row of its own. A tab that is the last character of the text
/// belongs to the last item. Always True.
bool ConvertItemListToArray(const QString& list, bool pairMode, PairTable& table, int& count);
bool PairListToTable(const QString& list, PairTable& table, int& count);

/// Converts a plain list into items (items[0] is item 1). Raises IndexError at the 101st item.
bool ItemListToArray(const QString& list, std::vector<QString>& items, int& count);

/// Splits at any separator, without a limit; the same rules for the end of the text.
bool SplitText(const QString& text, QChar separator, std::vector<QString>& items, int& count);

/// Field `number` (from 1) of a text; empty when there are fewer fields.
QString GetItem(QStringView text, int number, QChar separator);
