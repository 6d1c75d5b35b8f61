#include "scan/SaveAll.h"

#include "model/ConData.h"
#include "platform/MachineSeams.h"
#include "platform/MsgBox.h"
#include "platform/Words.h"
#include "platform/controls/ModalForm.h"
#include "scan/DirectObjectKeeper.h"
#include "scan/frmScanSaveAll.h"
#include "scan/network/ScanState.h"

#include <QPointer>
#include <QWidget>

namespace {

QString NothingFound()
{
    return Words::tr("The nodes list is empty. First scan network and then save the found nodes.");
}

/// False: the type of the nodes is not known; the operator has been told.
bool FillSaveList(const SaveAllRequest& request)
{
    const BusyPointer pointer;
    Scan().ScanSaveList.clear();
    if (!LoadFoundNodeType(request.direct))
        return false;
    Scan().ScanSaveList = FoundNodeRows(request.nodes, request.retries, request.timeOut);
    return true;
}

} // namespace

bool SaveAllFound(const SaveAllRequest& request)
{
    const QPointer<QWidget> window(request.window);
    const auto isThere = [&] { return window || !request.window; };
    const auto select = [&](int row) {
        if (isThere() && request.SelectGridRow)
            request.SelectGridRow(row);
    };
    std::unique_ptr<ConData> kept;
    const DirectObjectKeeper keeper(request.direct, kept);
    if (!FillSaveList(request))
        return isThere();
    if (Scan().ScanSaveList.empty()) {
        select(0);
        MsgBox(NothingFound());
        select(0);
        return isThere();
    }
    select(request.selected);
    if (isThere())
        ShowModalForm<frmScanSaveAll>(request.direct, request.newDirect, request.window);
    select(request.selected);
    return isThere();
}
