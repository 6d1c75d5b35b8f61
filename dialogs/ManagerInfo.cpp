#include "dialogs/ManagerInfo.h"

#include "dialogs/DialogState.h"
#include "model/ModelState.h"

#include <QPointer>
#include <QWidget>

#include <utility>

bool ShowManagerInfo(ConData& con, QWidget& window)
{
    const QPointer<QWidget> alive(&window);
    ConData* const carrier = Model().ConObject.get();
    if (!Dialogs().ShowManagerInfo || !carrier)
        return true;
    if (carrier == &con) {
        Dialogs().ShowManagerInfo(&window);
        return !alive.isNull();
    }
    const QString nodeType = std::exchange(carrier->NodeType, con.NodeType);
    const QString commandLine = std::exchange(carrier->CommandLine, con.CommandLine);
    Dialogs().ShowManagerInfo(&window);
    // A control that ended meanwhile has left with its ConObject.
    if (Model().ConObject.get() != carrier)
        return !alive.isNull();
    const QString chosenType = std::exchange(carrier->NodeType, nodeType);
    const QString chosenLine = std::exchange(carrier->CommandLine, commandLine);
    if (alive) {
        con.NodeType = chosenType;
        con.CommandLine = chosenLine;
    }
    return !alive.isNull();
}
