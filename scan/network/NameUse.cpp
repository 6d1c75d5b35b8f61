#include "scan/network/NameUse.h"

#include "database/Gateway.h"
#include "model/ItemList.h"
#include "model/TextHelpers.h"
#include "scan/network/SaveList.h"

#include <algorithm>

namespace {

const QString NodeWaypoint = QStringLiteral("NET4");
const QString AddressKeyword = QStringLiteral("ADDR");

/// Items of one parameter: its keyword and its value. A waypoint begins with the number of them.
constexpr std::size_t PairItems = 2;

/// The address in a node's target; empty where it has none.
bool ReadAddress(const QString& target, QString& address)
{
    address.clear();
    QString list;
    std::vector<QString> items;
    int count = 0;
    if (!Gateway().GetTargetItemListDb(target, list) || !SplitText(list, TabChar, items, count))
        return false;
    bool inNode = false;
    // Behind the hop count: per hop the number of pairs, then the pairs.
    for (std::size_t at = 1; at < items.size();) {
        const auto pairs = static_cast<std::size_t>(std::max(ValInt(items[at]), 0));
        ++at;
        for (std::size_t pair = 0; pair < pairs && at + 1 < items.size(); ++pair, at += PairItems) {
            if (pair == 0)
                inNode = items[at + 1].compare(NodeWaypoint, Qt::CaseInsensitive) == 0;
            else if (inNode && items[at].compare(AddressKeyword, Qt::CaseInsensitive) == 0)
                address = Trim(items[at + 1]);
        }
    }
    return true;
}

bool SameName(const QString& one, const QString& other)
{
    return Trim(one).compare(Trim(other), Qt::CaseInsensitive) == 0;
}

bool FindNode(const QString& conName, const ScanSaveRow& row, NameFinding& finding)
{
    QString target;
    QString nodeType;
    QString commandLine;
    if (!Gateway().GetNodeExDb(row.name, finding.conName, target, nodeType, commandLine) ||
        !ReadAddress(target, finding.address))
        return false;
    if (!SameName(finding.conName, conName) || finding.address.isEmpty())
        finding.use = NameUse::OtherNode;
    else
        finding.use =
            ValInt(finding.address) == ValInt(row.address) ? NameUse::SameNode : NameUse::NodeElsewhere;
    return true;
}

} // namespace

bool FindNameUse(const QString& conName, const ScanSaveRow& row, NameFinding& finding)
{
    finding = NameFinding();
    bool exists = false;
    if (!Gateway().ConNameExistDb(row.name, exists))
        return false;
    if (exists) {
        finding.use = NameUse::Connection;
        return true;
    }
    if (!Gateway().NodeNameExistDb(row.name, exists))
        return false;
    return !exists || FindNode(conName, row, finding);
}
