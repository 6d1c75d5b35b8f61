#include "database/DatabaseClass.h"
#include "database/DatabaseState.h"
#include "model/ItemList.h"
#include "model/TextHelpers.h"
#include "platform/IndexError.h"

#include <utility>

namespace {

/// Kinds of parameters, as the component numbers them.
namespace ParameterKind {
constexpr qint32 Free = 1;
constexpr qint32 Text = 2;
constexpr qint32 Number = 3;
constexpr qint32 List = 4;
} // namespace ParameterKind

/// Reads the items of a target's list; positions count from 1. Raises IndexError outside the list.
class TargetItems
{
public:
    explicit TargetItems(const QString& list)
    {
        int count = 0;
        ItemListToArray(list, m_items, count);
    }

    [[nodiscard]] int Count() const { return static_cast<int>(m_items.size()); }

    [[nodiscard]] const QString& At(int position) const
    {
        CheckIndex("target item", position, 1, Count());
        return m_items[static_cast<size_t>(position) - 1];
    }

    /// A number of hops or pairs: never more than there are items.
    [[nodiscard]] int CountAt(int position) const
    {
        const int count = ValInt(At(position));
        CheckIndex("count in a target list", count, 0, Count());
        return count;
    }

private:
    std::vector<QString> m_items;
};

/// One row per hop: its name and "1".
PairTable WaypointsOfTarget(const TargetItems& items)
{
    PairTable waypoints;
    const int hops = items.CountAt(1);
    int position = 2;
    for (int hop = 1; hop <= hops; ++hop) {
        const int pairs = items.CountAt(position);
        ++position;
        waypoints.push_back({items.At(position + 1), QStringLiteral("1")});
        position += 2 * pairs;
    }
    return waypoints;
}

void ReadListValues(HvxDatabase& component, const QString& waypoint, const QString& keyword,
                    DatabaseClass::GridParameter& data)
{
    QString list;
    component.TargetParamDiscreteValues(waypoint, keyword, data.valueCount, list);
    int count = 0;
    SplitText(list, TabChar, data.values, count);
    // A count that does not fit would let the grid offer values that are not there.
    if (count > 0 && count == data.valueCount)
        return;
    const qint32 announced = std::exchange(data.valueCount, 0);
    data.values.clear();
    throw IndexError("values of a parameter", count, 1, announced);
}

void ReadGridParameter(HvxDatabase& component, const QString& waypoint, const QString& keyword,
                       DatabaseClass::GridParameter& data)
{
    component.TargetParamProperties(waypoint, keyword, data.required, data.flag2, data.kind, data.text);
    if (data.kind == ParameterKind::Text) {
        component.TargetParamTextLength(waypoint, keyword, data.textLength);
    } else if (data.kind == ParameterKind::Number) {
        qint32 low = 0;
        qint32 high = 0;
        data.valueCount = 2;
        component.TargetParamValueBoundsLong(waypoint, keyword, low, high);
        data.values = {Str(low), Str(high)};
    } else if (data.kind == ParameterKind::List) {
        ReadListValues(component, waypoint, keyword, data);
    }
}

} // namespace

bool DatabaseClass::GetTargetItemListDb(const QString& target, QString& list)
{
    return RunDirect([&](HvxDatabase& component) { component.GetTargetItemList(target, list); });
}

bool DatabaseClass::GetTargetWpListDb(const QString& conName, PairTable& waypoints, int& count)
{
    if (!Database().DatabaseOpen)
        return false;
    if (TrimBlanks(conName).isEmpty()) {
        count = 0;
        return true;
    }
    QString list;
    if (!GetParentWPListDb(conName, list))
        return false;
    try {
        waypoints = WaypointsOfTarget(TargetItems(list));
    } catch (const IndexError&) {
        return false;
    }
    count = static_cast<int>(waypoints.size());
    return true;
}

bool DatabaseClass::CheckTargetSyntaxDb(const QString& target, int flag, QString& reformatted, bool& valid)
{
    valid = false;
    return RunDirect([&](HvxDatabase& component) {
        QString answer;
        component.CheckTargetSyntax(target, flag, reformatted, answer);
        // The answer is looked for in "OK", not the other way round: parts of it pass too, an empty one as
        // well.
        valid = QStringLiteral("OK").contains(answer);
    });
}

bool DatabaseClass::GetGridParameterDataDb(const QString& waypoint, const QString& keyword,
                                           GridParameter& data)
{
    data.valueCount = 0;
    data.values.clear();
    data.required = 1;
    data.kind = ParameterKind::Free;
    return RunDirect([&](HvxDatabase& component) { ReadGridParameter(component, waypoint, keyword, data); });
}
