#include "model/ConOrderClass.h"

#include "model/ItemList.h"
#include "model/ModelDatabase.h"
#include "model/TextHelpers.h"
#include "platform/IndexError.h"

namespace {

/// Most items of a plain list; see ItemListToArray.
constexpr int MaxTypes = 100;

/// Item `number` from 1; empty behind the last.
QString ItemAt(const std::vector<QString>& items, int number)
{
    return number <= static_cast<int>(items.size()) ? items[static_cast<size_t>(number - 1)] : QString();
}

} // namespace

bool ConOrderClass::AddItem(const QString& shortName, const QString& longName, int resourcePosition,
                            int browserPosition, int pictureIndex)
{
    if (ConnectionCount() >= MaxRows)
        return false;
    m_rows.push_back({shortName, longName, resourcePosition, browserPosition, pictureIndex});
    return true;
}

int ConOrderClass::GetPicIndxByBrowserPos(int position) const
{
    int picture = UnknownPicture;
    for (const Row& row : m_rows) {
        if (row.browserPosition == position)
            picture = row.pictureIndex;
    }
    return picture;
}

int ConOrderClass::GetPicIndxByResourcePos(int position) const
{
    int picture = UnknownPicture;
    for (const Row& row : m_rows) {
        if (row.resourcePosition == position)
            picture = row.pictureIndex;
    }
    return picture;
}

bool ConOrderClass::LoadConTypesInOrder(ModelDatabase& database, const QString& order,
                                        const QString& pictures)
{
    m_rows.clear();
    std::vector<QString> positions;
    std::vector<QString> pictureIndices;
    std::vector<QString> types;
    int positionCount = 0;
    int pictureCount = 0;
    int typeCount = 0;
    QString typeList;
    if (!SplitText(order, u',', positions, positionCount) ||
        !SplitText(pictures, u',', pictureIndices, pictureCount) || !database.GetConTypeListDb(typeList) ||
        !ItemListToArray(typeList, types, typeCount))
        return false;
    for (int k = 1; k <= positionCount; ++k) {
        const int position = ValInt(ItemAt(positions, k));
        CheckIndex("connection type position", position, 0, MaxTypes - 1);
        const QString shortName = ItemAt(types, position + 1);
        QString longName;
        if (!database.GetConTypeLongNameDb(shortName, longName) ||
            !AddItem(shortName, longName, position, k - 1, ValInt(ItemAt(pictureIndices, k))))
            return false;
    }
    return true;
}

QString ConOrderClass::LongName(int row) const
{
    CheckIndex("connection type row", row, 1, MaxRows);
    return row <= ConnectionCount() ? m_rows[static_cast<size_t>(row - 1)].longName : QString();
}
