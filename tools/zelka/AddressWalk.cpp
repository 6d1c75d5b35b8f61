#include "tools/zelka/AddressWalk.h"

#include "components/syncconn/SyncFailure.h"
#include "platform/ComponentFailure.h"
#include "platform/MachineSeams.h"
#include "scan/network/NodeQuery.h"
#include "scan/network/ScanTargets.h"
#include "tools/zelka/NetworkSession.h"
#include "tools/zelka/Pause.h"

namespace {

/// The failure of a request concerns its address alone; further ones can be asked.
bool IsOfTheAddress(const ComponentFailure& failure)
{
    switch (failure.major) {
    case SyncFailure::Major::Target:
    case SyncFailure::Major::Gateway:
    case SyncFailure::Major::Protocol:
    case SyncFailure::Major::Usage:
        return false;
    default:
        return true;
    }
}

} // namespace

void WalkAddresses(const NetworkSession& session, const AddressRange& range,
                   const std::function<void(const AnsweringNode& node)>& found)
{
    const auto isOver = [&session] { return session.IsOver(); };
    for (int address = range.begin; address <= range.end && !isOver(); ++address) {
        const qint64 begun = Machine().MonotonicMs();
        AnsweringNode node;
        node.address = address;
        const bool answered =
            QueryNode(session.Connection(), session.Utility(),
                      AddressTarget(address, range.retries, range.timeOut), node.type, node.identification);
        if (answered)
            found(node);
        // One of the two requests has failed; at the end of a session nothing else can be expected.
        if ((!answered || node.type.isEmpty()) && !isOver() &&
            !IsOfTheAddress(LastFailureOf(session.Connection())))
            session.Fail(QStringLiteral("The scan ended at address %1.").arg(address));
        if (address < range.end)
            PauseUntil(begun + range.interval, isOver);
    }
}
