#include "dialogs/ManagerInfo.h"

#include "dialogs/DialogState.h"
#include "model/ModelState.h"

#include <QPointer>
#include <QWidget>

#include <utility>

bool ShowManagerInfo(ConData& con, QWidget& window)
{
    const QPointer<QWidget> alive(&window);
    const ConData* const shown = Model().ConObject.get();
    if (!Dialogs().ShowManagerInfo || !shown)
        return true;
    const auto exchange = [&con] {
        std::swap(con.NodeType, Model().ConObject->NodeType);
        std::swap(con.CommandLine, Model().ConObject->CommandLine);
    };
    const bool isOther = shown != &con;
    if (isOther)
        exchange();
    Dialogs().ShowManagerInfo(&window);
    // A control that ended meanwhile has left with its ConObject.
    if (isOther && Model().ConObject.get() == shown)
        exchange();
    return !alive.isNull();
}
