#include "tools/zelka/FoundNodePlan.h"

#include "components/hvxdb/HvxAdministration.h"
#include "components/hvxdb/ItemText.h"
#include "database/NodeSave.h"
#include "model/TextHelpers.h"
#include "scan/network/NameUse.h"
#include "tools/zelka/CommandError.h"
#include "tools/zelka/DatabaseSession.h"
#include "tools/zelka/Interruption.h"

#include <QHash>

#include <algorithm>

namespace {

/// Why no node can have a name; empty: one can.
QString ProblemOf(const QString& name)
{
    if (Trim(name).isEmpty())
        return QStringLiteral("The name is blank.");
    if (name.size() > LongestNodeName)
        return QStringLiteral("The name has %1 characters, %2 are allowed.")
            .arg(name.size())
            .arg(LongestNodeName);
    if (IsReservedNodeName(name))
        return QStringLiteral("\"%1\" cannot be used as a node name.").arg(name);
    if (std::any_of(name.begin(), name.end(), IsControl))
        return QStringLiteral("The name holds control characters.");
    return {};
}

void SetConflict(PlannedNode& node, NameStanding standing, bool replaceable, const QString& reason)
{
    node.standing = standing;
    node.replaceable = replaceable;
    node.reason = reason;
}

void TakeFinding(PlannedNode& node, const NameFinding& finding)
{
    switch (finding.use) {
    case NameUse::Free:
        node.standing = NameStanding::New;
        return;
    case NameUse::SameNode:
        node.standing = NameStanding::Known;
        return;
    case NameUse::NodeElsewhere:
        SetConflict(
            node, NameStanding::Elsewhere, true,
            QStringLiteral("The node at address %1 of this connection has the name.").arg(finding.address));
        return;
    case NameUse::OtherNode:
        SetConflict(node, NameStanding::Taken, true,
                    QStringLiteral("A node of the connection \"%1\" has the name.").arg(finding.conName));
        return;
    case NameUse::Connection:
        SetConflict(node, NameStanding::Taken, false, QStringLiteral("A connection has the name."));
        return;
    }
}

void FindStanding(const DatabaseSession& session, const QString& conName, PlannedNode& node)
{
    const QString problem = ProblemOf(node.row.name);
    if (!problem.isEmpty()) {
        SetConflict(node, NameStanding::Unusable, false, problem);
        return;
    }
    NameFinding finding;
    session.Require(FindNameUse(conName, node.row, finding));
    TakeFinding(node, finding);
}

/// The node could get its name, by itself or in the place of another.
bool CouldBe(const PlannedNode& node)
{
    return node.standing == NameStanding::New || node.standing == NameStanding::Known || node.replaceable;
}

/// No found node takes the name of another one, let alone its place.
void RefuseDoubles(std::vector<PlannedNode>& nodes)
{
    QHash<QString, const PlannedNode*> owners;
    for (const PlannedNode& node : nodes) {
        const QString name = FoldedName(node.row.name);
        if (CouldBe(node) && (!owners.contains(name) || node.standing == NameStanding::Known))
            owners.insert(name, &node);
    }
    for (PlannedNode& node : nodes) {
        if (!CouldBe(node))
            continue;
        const PlannedNode* const owner = owners.value(FoldedName(node.row.name));
        if (owner != &node)
            SetConflict(node, NameStanding::Taken, false,
                        QStringLiteral("The node found at address %1 has the name.").arg(owner->row.address));
    }
}

} // namespace

void PlanFoundNodes(const DatabaseSession& session, const QString& conName, std::vector<PlannedNode>& nodes)
{
    for (PlannedNode& node : nodes) {
        Interruption::Require();
        FindStanding(session, conName, node);
    }
    RefuseDoubles(nodes);
}
