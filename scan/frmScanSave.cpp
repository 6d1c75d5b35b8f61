#include "dialogs/frmSaveDirectNode.h"
#include "model/ConData.h"
#include "model/ModelState.h"
#include "model/TextHelpers.h"
#include "platform/MsgBox.h"
#include "platform/controls/ModalForm.h"
#include "scan/SaveAll.h"
#include "scan/SaveOne.h"
#include "scan/ScanConnectionCheck.h"
#include "scan/ScanTexts.h"
#include "scan/frmScan.h"
#include "scan/ui_frmScan.h"

#include <QPointer>

// Found nodes on their way into the database.

bool frmScan::SaveConnectionFirst()
{
    // A click in the grid enables the commands during a scan too, whose connection must not change.
    if (!IsIdle() || !Model().NewDirectObject)
        return false;
    const QPointer<frmScan> alive(this);
    if (!CheckScanConnection(m_direct, *Model().NewDirectObject, this) || !alive)
        return false;
    ShowTitle();
    return true;
}

void frmScan::cmdSave_Click()
{
    if (!SaveConnectionFirst())
        return;
    FoundNodesGrid& grid = *m_ui->grdFoundNodes;
    const auto selected = static_cast<qint16>(grid.Row());
    const FoundNode node = NodeAtRow(selected);
    const QPointer<frmScan> alive(this);
    if (selected < 1 || selected > grid.FoundCount() || node.address.isEmpty()) {
        grid.SelectGridRow(selected);
        MsgBox(ScanTexts::NothingSelected());
        if (alive)
            grid.SelectGridRow(selected);
        return;
    }
    grid.SelectGridRow(selected);
    // A box may come first.
    const auto show = [this, alive] {
        return alive && ShowModalForm<frmSaveDirectNode>(m_direct, *Model().NewDirectObject, this);
    };
    if (!SaveOneFound(
            {m_direct, node, m_ui->txtTimingRetries->text(), m_ui->txtTimingTimeout->text(), show}) ||
        !alive)
        return;
    grid.setFocus();
    grid.SelectGridRow(selected);
    UpdateCommandButtons();
}

void frmScan::cmdSaveAll_Click()
{
    FoundNodesGrid& grid = *m_ui->grdFoundNodes;
    const int selected = grid.Row();
    if (!SaveConnectionFirst())
        return;
    std::vector<FoundNode> nodes;
    for (qint16 row = 1; row <= grid.FoundCount(); ++row)
        nodes.push_back(NodeAtRow(row));
    const auto select = [&grid](int row) { grid.SelectGridRow(static_cast<qint16>(row)); };
    const QPointer<frmScan> alive(this);
    if (SaveAllFound({m_direct, *Model().NewDirectObject, std::move(nodes), m_ui->txtTimingRetries->text(),
                      m_ui->txtTimingTimeout->text(), selected, select, this}) &&
        alive)
        UpdateCommandButtons();
}

FoundNode frmScan::NodeAtRow(int row) const
{
    const FoundNodesGrid& grid = *m_ui->grdFoundNodes;
    return {Trim(grid.TextMatrix(row, FoundNodesGrid::AddressColumn)),
            grid.TextMatrix(row, FoundNodesGrid::TypeColumn),
            grid.TextMatrix(row, FoundNodesGrid::IdentificationColumn)};
}
