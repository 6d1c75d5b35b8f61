#include "browser/ConnectionNames.h"

#include "database/Gateway.h"
#include "model/TextHelpers.h"
#include "model/TreeFilling.h"
#include "platform/Words.h"
#include "platform/controls/LongList.h"

#include <QComboBox>
#include <QSignalBlocker>
#include <QStringListModel>

#include <algorithm>

namespace {

/// The names that a list shows; a list that has other entries loses them.
QStringListModel& NamesOf(QComboBox& combo)
{
    if (auto* names = qobject_cast<QStringListModel*>(combo.model()))
        return *names;
    auto* names = new QStringListModel(&combo);
    PrepareLongList(combo, *names);
    return *names;
}

void SetNames(QComboBox& combo, const QStringList& names)
{
    const QSignalBlocker quiet(combo);
    NamesOf(combo).setStringList(names);
    combo.setCurrentIndex(-1);
}

} // namespace

bool LoadConNames(QComboBox& combo, TreeEntries* tree)
{
    QString list;
    PairTable items;
    int count = 0;
    if (!Gateway().QueryParentsDb(list) || !ConvertItemListToArray(list, true, items, count))
        return false;
    QStringList names;
    names.reserve(static_cast<qsizetype>(items.size()));
    for (const ItemPair& item : items)
        names << item.first;
    SetNames(combo, names);
    if (tree && tree->Count() == 0)
        FillConnectionTree(Words::tr("Connections"), QStringLiteral("C"), count, items, *tree, true);
    return true;
}

void ClearConNames(QComboBox& combo)
{
    SetNames(combo, {});
}

void AddConName(QComboBox& combo, const QString& name)
{
    const QSignalBlocker quiet(combo);
    const int chosen = combo.currentIndex();
    QStringListModel& names = NamesOf(combo);
    const int row = names.rowCount();
    names.insertRow(row);
    names.setData(names.index(row), name);
    combo.setCurrentIndex(chosen);
}

int FindConName(QComboBox& combo, const QString& name)
{
    if (TrimBlanks(name).isEmpty())
        return -1;
    const QStringList names = NamesOf(combo).stringList();
    const auto found = std::find_if(names.begin(), names.end(), [&](const QString& listed) {
        return listed.compare(name, Qt::CaseInsensitive) == 0;
    });
    return found == names.end() ? -1 : static_cast<int>(found - names.begin());
}
