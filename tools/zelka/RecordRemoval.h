#pragma once

#include "tools/zelka/EditSession.h"

/// What a removal took away.
struct RemovedRecord
{
    FoundRecord record;
    /// Nodes that went with a connection.
    qint32 nodes = 0;
};

/// Removes a connection or a node in one transaction. Raises CommandError (Refused) when the record's id is
/// not `ifId` any more, and for a connection with nodes unless `force`.
[[nodiscard]] RemovedRecord RemoveRecord(EditSession& session, const FoundRecord& record, bool force,
                                         const std::optional<qint32>& ifId);
