#pragma once

#include <QString>
#include <QStringList>

/// Stands between the fields of a packed row; a row that holds it itself is read in columns.
inline constexpr QChar PackedFieldSeparator{u'\x1f'};

/// Records of one JournalChunk.
inline constexpr int JournalRecordsPerChunk = 4000;

/// Nodes that one call of a search looks at.
inline constexpr int NodesPerSearch = 20000;

/// The statements of the database component, by what they do. All values are bound.
enum class HvxStatement
{
    // Session
    Begin,
    /// See TransactionKind.
    BeginWriting,
    BeginAlone,
    BeginSnapshot,
    Commit,
    Rollback,
    /// Version of the definitions, token of the maintenance lock; where the engine tells the rights of who is
    /// connected: may scan, may edit, name; else NULLs.
    SessionState,
    Versions,
    RightsOfUser,
    /// Times are those of the engine's clock: who reads and who beats may be on different machines.
    ReadCamLock,
    TakeCamLock,
    BeatCamLock,
    RemoveCamLock,
    /// Removes a lock whose holder is dead.
    FreeCamLock,

    // Lists
    ConnectionList,
    ConnectionListOfName,
    NodeList,
    NodeListOfConnection,
    NodeListOfType,
    NodeListOfConnectionAndType,
    // The same lists a row a record: id, name.
    ConnectionListRows,
    ConnectionListOfNameRows,
    NodeListRows,
    NodeListOfConnectionRows,
    NodeListOfTypeRows,
    NodeListOfConnectionAndTypeRows,
    /// The id up to which the next NodesPerSearch nodes reach; no row: to the end.
    NodeSearchEnd,
    /// Nodes between two ids that may contain a text, a number of them: id, name, connection's id and name.
    /// The text is in upper case; the engine knows that of plain letters only, so a name with others is a
    /// candidate.
    NodeCandidates,
    /// A number of connections behind an id: id, name, target.
    ConnectionTargets,
    NodeCount,
    NodeCountOfConnection,

    // Single records
    /// One column: the fields of NodeByNameInColumns, separated by PackedFieldSeparator.
    NodeByName,
    NodeByNameInColumns,
    NodeExists,
    ConnectionByName,
    ManagerByDevice,
    ManagerList,
    ManagerExists,
    UsersText,

    // Writes
    InsertConnection,
    InsertNode,
    RenameConnection,
    SetConnectionKey,
    SetConnectionTarget,
    RenameNode,
    SetNodeKey,
    SetNodeTarget,
    SetNodeManager,
    DeleteConnection,
    DeleteNode,
    DeleteNodesOfConnection,
    DeleteUsersTextsOfNodes,
    StoreUsersText,
    DeleteUsersText,
    MoveUsersText,

    // Journal
    /// One row: the last id, the oldest one behind record 1 and when that was written.
    JournalEnds,
    JournalIdsAfter,
    JournalRecord,
    /// One row: how many rows JournalChunkInColumns gives, and all their fields in one text, separated by
    /// PackedFieldSeparator, NULL as an empty one.
    JournalChunk,
    /// The next JournalRecordsPerChunk records: id, record_type, text1, number, text2; and of records that
    /// tell of a node that was saved: its name_key, id, connection's name, target, node_type, command_tail,
    /// manager_index. The node is the one of that name, else the one of that number, else NULL.
    JournalChunkInColumns,
    /// A number of records behind an id: id, record_type, text1, number, changed.
    JournalEntriesAfter,
    JournalCount,
    JournalFirstToKeep,
    JournalFirstYoungerThan,
    JournalDeleteBefore,
    JournalMarkCleaned,

    // Administration
    AllConnections,
    AllNodes,
    AllNodesOfConnection,
    ConnectionKey,
    UpdateConnection,
    BulkInsertNode,
    UpdateNode,
    SequenceLastId,
    InsertManager,
    DeleteManager,
    ForgetManager,
    StoreRights,
    NamesInBothTables,
    IdsInBothTables,

    Count
};

/// The statement in the SQL that the engines share; where an engine needs another text it gives its own.
QString StandardStatementText(HvxStatement statement);

/// A statement of lists, given the engine's filter by node type and its aggregate that joins the pairs of
/// name and id; empty for other statements.
QString ListStatementText(HvxStatement statement, const QString& ofType, const QString& pairs);

/// HvxStatement::NodeCandidates, given the engine's test of n.name.
QString NodeCandidatesText(const QString& test);

/// HvxStatement::JournalChunkInColumns, given the engine's expression for the key of the name j.text1.
QString JournalChunkText(const QString& nameKey);

/// HvxStatement::JournalChunk, given the engine's aggregate that joins JournalChunkFields, and the same key.
QString PackedJournalChunkText(const QString& joined, const QString& nameKey);

/// Names of the columns of JournalChunkInColumns.
QStringList JournalChunkFields();
