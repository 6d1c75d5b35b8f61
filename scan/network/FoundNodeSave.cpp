#include "scan/network/FoundNodeSave.h"

#include "database/Gateway.h"
#include "database/NodeTargetSaving.h"
#include "database/SaveSupport.h"
#include "database/UnitOfWork.h"
#include "model/ConData.h"
#include "model/ModelState.h"
#include "model/TextHelpers.h"
#include "platform/MsgBox.h"
#include "platform/Words.h"
#include "scan/network/SaveList.h"

namespace {

const QString FoundNodeType = QStringLiteral("NET4");

QString NoNodeType()
{
    return Words::tr("Node type NET4 not found.");
}

QString UnknownNodeType()
{
    return Words::tr("Unknown node type:%1").arg(FoundNodeType);
}

/// The trees that a save patches.
std::vector<TreeEntries*> PatchedTrees()
{
    const ConData* con = Model().ConObject.get();
    return con ? std::vector<TreeEntries*>{con->ConTree, con->NodesTree} : std::vector<TreeEntries*>{};
}

void RequireConnection(UnitOfWork& unit, const ConData& direct, ConData& newDirect)
{
    QString id;
    if (Gateway().GetParentIDDb(direct.ConName, id) && !id.isEmpty() && ValInt(id) == direct.ConDbID)
        return;
    newDirect.ConName = direct.ConName;
    unit.Refuse(ScannedConnectionChanged(direct.ConName));
}

} // namespace

// Before the saves ------------------------------------------------------------------------------------------

bool TakeFoundNodeType(ConData& direct)
{
    direct.NodeTypeName = FoundNodeType;
    QString id;
    const bool found = Gateway().GetNodeTypeIdDb(FoundNodeType, id);
    direct.NodeDbID = found ? ValInt(id) : 0;
    if (!found)
        MsgBox(NoNodeType());
    return found;
}

bool LoadFoundNodeType(ConData& direct)
{
    if (!TakeFoundNodeType(direct))
        return false;
    QString longName;
    if (!Gateway().GetNodeTypeLongNameDb(FoundNodeType, longName)) {
        MsgBox(UnknownNodeType());
        return false;
    }
    // Without its rows no node could tell its address.
    if (direct.SetWpDataFromNodeType(longName))
        return true;
    MsgBox(UnknownNodeType());
    return false;
}

std::vector<ScanSaveRow> FoundNodeRows(const std::vector<FoundNode>& nodes, const QString& retries,
                                       const QString& timeOut)
{
    std::vector<ScanSaveRow> rows;
    for (const FoundNode& node : nodes) {
        ScanSaveRow row;
        row.address = Trim(node.address);
        if (row.address.isEmpty())
            break;
        row.shownAddress = row.address;
        row.name = Trim(node.identification);
        row.retries = Trim(retries);
        row.timeOut = Trim(timeOut);
        row.type = Trim(node.type);
        rows.push_back(row);
    }
    return rows;
}

// Save ------------------------------------------------------------------------------------------------------

QString ScannedConnectionChanged(const QString& name)
{
    return Words::tr("Node saving is prevented, because another application has changed (deleted) "
                     "connection %1.")
        .arg(name);
}

FoundNodeOutcome SaveFoundNode(ConData& direct, ConData& newDirect, const ScanSaveRow& row, bool mayReplace)
{
    SaveFlags flags(direct);
    FoundNodeOutcome outcome = FoundNodeOutcome::Denied;
    UnitOfWork unit(PatchedTrees());
    (void)unit.Run([&](UnitOfWork& work) {
        work.Begin();
        outcome = FoundNodeOutcome::ConnectionChanged;
        RequireConnection(work, direct, newDirect);
        outcome = FoundNodeOutcome::Failed;
        if (!SaveNodeWithValues(direct, mayReplace, row.name, row.address, row.shownAddress, row.retries,
                                row.timeOut)) {
            // What it would replace may be gone by now.
            if (!work.Rollback())
                UnitOfWork::Fail();
            outcome = FoundNodeOutcome::NotSaved;
            return;
        }
        work.Commit();
        flags.Keep();
        outcome = FoundNodeOutcome::Saved;
    });
    return outcome;
}
