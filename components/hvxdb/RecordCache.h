#pragma once

#include "components/hvxdb/JournalRows.h"
#include "components/hvxdb/RecordRows.h"

#include <QString>

#include <optional>
#include <unordered_map>

/// Where the Journal ends. Record 1, the version text, counts as last but never as oldest.
struct JournalEnds
{
    /// 0 for a Journal without records.
    qint64 lastId = 0;
    /// 0 when there is none.
    qint64 oldestId = 0;
    /// When the oldest was written, in seconds since 1970.
    qint64 oldestChanged = 0;
    JournalRecord last;
};

/// Records of the Journal that were read together, and the nodes of which they tell.
struct JournalChunk
{
    /// Every record with an id above `after` and up to `upTo` is here.
    qint64 after = 0;
    qint64 upTo = 0;
    /// The last id of the list whose records are read chunk by chunk.
    qint64 listEnd = 0;
    JournalRows rows;
};

/// The rows that one transaction has read; names that are not there too. Nobody else can change them while
/// the transaction is open; its own writes and its end clear them.
struct RecordCache
{
    std::unordered_map<QString, NodeRow> nodes;
    /// Of names that were asked for nothing else.
    std::unordered_map<QString, bool> nodeExists;
    std::unordered_map<QString, ConnectionRow> connections;
    std::unordered_map<QString, ManagerRow> managers;
    std::optional<JournalEnds> journalEnds;
    /// The last chunk that was read; an earlier one has gone, so that a long Journal takes little room.
    std::optional<JournalChunk> journalChunk;

    void Clear()
    {
        nodes.clear();
        nodeExists.clear();
        connections.clear();
        managers.clear();
        journalEnds.reset();
        journalChunk.reset();
    }
};
