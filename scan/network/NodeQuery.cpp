#include "scan/network/NodeQuery.h"

#include "platform/ComponentError.h"
#include "platform/HvxUtility.h"
#include "platform/SyncConnection.h"

namespace {

const QString IdentificationRequest = QStringLiteral("40");
const QString TypeRequest = QStringLiteral("03");

/// False: no answer, or one that is no text; `text` is then empty.
bool Ask(SyncConnection& connection, HvxUtility& utility, const QString& target, const QString& request,
         QString& text)
{
    text.clear();
    try {
        QString reply;
        connection.Send(target, request, reply);
        utility.Hex2U(reply, text);
        return true;
    } catch (const ComponentError&) {
        return false;
    }
}

} // namespace

bool QueryNode(SyncConnection& connection, HvxUtility& utility, const QString& target, QString& type,
               QString& identification)
{
    type.clear();
    if (!Ask(connection, utility, target, IdentificationRequest, identification))
        return false;
    (void)Ask(connection, utility, target, TypeRequest, type);
    return true;
}
