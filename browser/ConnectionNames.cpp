#include "browser/ConnectionNames.h"

#include "database/Gateway.h"
#include "model/TreeFilling.h"

#include <QComboBox>
#include <QSignalBlocker>

bool LoadConNames(QComboBox& combo, TreeEntries* tree)
{
    QString list;
    PairTable items;
    int count = 0;
    if (!Gateway().QueryParentsDb(list) || !ConvertItemListToArray(list, true, items, count))
        return false;
    {
        const QSignalBlocker quiet(combo);
        combo.clear();
        for (const ItemPair& item : items)
            combo.addItem(item.first);
    }
    if (tree && tree->Count() == 0)
        FillConnectionTree(QStringLiteral("Connections"), QStringLiteral("C"), count, items, *tree, true);
    return true;
}
