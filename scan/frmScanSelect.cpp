#include "model/ConData.h"
#include "model/TextHelpers.h"
#include "platform/MsgBox.h"
#include "scan/ScanTexts.h"
#include "scan/frmScan.h"
#include "scan/network/FoundNodeSave.h"
#include "scan/ui_frmScan.h"

#include <QPointer>

void frmScan::cmdSelect_Click()
{
    // A click in the grid enables the button during a scan too, where the window cannot be closed.
    if (!Form_QueryUnload())
        return;
    const FoundNodesGrid& grid = *m_ui->grdFoundNodes;
    const int selected = grid.Row();
    const QString address = Trim(grid.TextMatrix(selected, FoundNodesGrid::AddressColumn));
    if (selected < 1 || selected > grid.FoundCount() || address.isEmpty()) {
        MsgBox(ScanTexts::NothingSelected());
        return;
    }
    const QPointer<frmScan> alive(this);
    // The address is of use without the type too.
    (void)TakeFoundNodeType(m_direct);
    if (!alive)
        return;
    m_direct.NodeAddress = address;
    m_direct.Retry = Trim(m_ui->txtTimingRetries->text());
    m_direct.Time = Trim(m_ui->txtTimingTimeout->text());
    m_direct.SelectPressed = true;
    accept();
}
