#include "scan/ScanConnectionCheck.h"

#include "database/Gateway.h"
#include "dialogs/frmDatabaseConProp.h"
#include "model/ConData.h"
#include "model/ModelState.h"
#include "model/TextHelpers.h"
#include "platform/MsgBox.h"
#include "platform/Words.h"
#include "platform/controls/ModalForm.h"

#include <QPointer>
#include <QWidget>

namespace {

QString OnlyDirect()
{
    return Words::tr("Connection used in scanning must be saved before the found nodes can be saved.");
}

QString ChangedElsewhere()
{
    return Words::tr(
        "Another application has changed the scanned connection in the database. It must be saved "
        "before the found nodes can be saved.");
}

/// False as well when the window has gone while the operator was asked.
bool MaySave(const QString& question, const QPointer<QWidget>& window)
{
    const bool hasWindow = !window.isNull();
    return MsgBox(question, BoxFlags::OkCancel) == BoxAnswer::Ok && hasWindow == !window.isNull();
}

bool IsUnchanged(const ConData& connection)
{
    QString id;
    return Gateway().GetParentIDDb(connection.ConName, id) && !id.isEmpty() &&
           ValInt(id) == connection.ConDbID;
}

} // namespace

bool CheckScanConnection(ConData& direct, ConData& newDirect, QWidget* window)
{
    const QPointer<QWidget> parent(window);
    if (!newDirect.ConName.isEmpty()) {
        if (!MaySave(OnlyDirect(), parent))
            return false;
        // Under its own name the scanned connection is whole in `direct`, bus included, while the other copy
        // may hold nothing but that name.
        const bool isScanned = newDirect.ConName == direct.ConName;
        return SaveScanConnection(isScanned ? direct : newDirect, direct, newDirect, parent);
    }
    const bool unchanged = IsUnchanged(direct);
    if (window && !parent)
        return false;
    return unchanged ||
           (MaySave(ChangedElsewhere(), parent) && SaveScanConnection(direct, direct, newDirect, parent));
}

bool SaveScanConnection(const ConData& connection, ConData& direct, ConData& newDirect, QWidget* window)
{
    ConData* const con = Model().ConObject.get();
    if (!con || !con->ConTree)
        return false;
    con->Copy(connection);
    const qint32 idBefore = con->ConDbID;
    con->NewCon = true;
    con->SaveFromScan = true;
    const bool alive = ShowModalForm<frmDatabaseConProp>(*con, window);
    // The host may have started the control anew meanwhile.
    if (Model().ConObject.get() != con)
        return false;
    con->SaveFromScan = false;
    if (!alive || con->ConDbID == idBefore)
        return false;
    con->NewCon = false;
    newDirect.ConName.clear();
    newDirect.ConDbID = con->ConDbID;
    direct.Copy(*con);
    return true;
}
