#include "components/hvxdb/HvxStatements.h"

#include <QStringList>

namespace {

const QString OfConnection =
    QStringLiteral("connection_key = (SELECT row_key FROM connection WHERE name_key = ?)");
const QString OfType = QStringLiteral("node_type = ? COLLATE NOCASE");
const QString NextId = QStringLiteral("(SELECT last_id + 1 FROM record_sequence)");
/// Milliseconds since 1970.
const QString Now = QStringLiteral("CAST(round((julianday('now') - 2440587.5) * 86400000) AS INTEGER)");
const QString StoredNode =
    QStringLiteral("SELECT n.id, n.name, c.name, n.node_type, n.target, n.manager_index,"
                   " n.command_tail FROM node n"
                   " LEFT JOIN connection c ON c.row_key = n.connection_key");

const QString PlainNameKey = QStringLiteral("lower(trim(j.text1))");

/// All that a click on a node asks.
const QStringList NodeFieldTexts = {QStringLiteral("n.id"),
                                    QStringLiteral("n.target"),
                                    QStringLiteral("n.node_type"),
                                    QStringLiteral("n.command_tail"),
                                    QStringLiteral("coalesce(n.manager_index, '')"),
                                    QStringLiteral("coalesce(c.id, '')"),
                                    QStringLiteral("coalesce(c.name, '')"),
                                    QStringLiteral("coalesce(c.target, '')"),
                                    QStringLiteral("coalesce(m.manager_index, '')"),
                                    QStringLiteral("coalesce(m.path, '')"),
                                    QStringLiteral("coalesce(m.command_text, '')"),
                                    QStringLiteral("coalesce((SELECT value FROM setting"
                                                   " WHERE name = 'definitions_version'), 0)")};

QString NodeText(const QString& fields)
{
    return QStringLiteral("SELECT %1 FROM node n LEFT JOIN connection c ON c.row_key = n.connection_key"
                          " LEFT JOIN manager m ON m.device = n.node_type WHERE n.name_key = ?")
        .arg(fields);
}

QString RowsText(const QString& table, const QString& filter)
{
    return QStringLiteral("SELECT id, name FROM %1 WHERE %2 AND id > ? ORDER BY id LIMIT ?")
        .arg(table, filter);
}

/// An answer of a list in one row: count of rows, the last id, the pairs as an item list, whether more rows
/// follow. The engine joins the texts, which costs less than a row for each name.
QString PageText(const QString& table, const QString& filter, const QString& pairs)
{
    return QStringLiteral("SELECT taken, last_id, items,"
                          " EXISTS (SELECT 1 FROM %1 WHERE %2 AND id > last_id)"
                          " FROM (SELECT count(*) AS taken, max(id) AS last_id, %4 AS items"
                          " FROM (%3) AS listed) AS page")
        .arg(table, filter, RowsText(table, filter), pairs);
}

QString SessionText(HvxStatement statement)
{
    switch (statement) {
    case HvxStatement::Begin:
    case HvxStatement::BeginWriting:
    case HvxStatement::BeginAlone:
        // The write lock at once: a transaction that has begun is not refused at its first write.
        return QStringLiteral("BEGIN IMMEDIATE");
    case HvxStatement::BeginSnapshot:
        return QStringLiteral("BEGIN DEFERRED");
    case HvxStatement::Commit:
        return QStringLiteral("COMMIT");
    case HvxStatement::Rollback:
        return QStringLiteral("ROLLBACK");
    case HvxStatement::SessionState:
        return QStringLiteral("SELECT (SELECT value FROM setting WHERE name = 'definitions_version'),"
                              " (SELECT token FROM cam_lock), NULL, NULL, NULL");
    case HvxStatement::Versions:
        return QStringLiteral("SELECT (SELECT value FROM setting WHERE name = 'schema_version')");
    case HvxStatement::RightsOfUser:
        return QStringLiteral("SELECT may_scan, may_edit FROM user_rights WHERE user_name IN (?, '*')"
                              " ORDER BY user_name = '*' LIMIT 1");
    case HvxStatement::ReadCamLock:
        return QStringLiteral("SELECT token, host, process, %1 - heartbeat FROM cam_lock").arg(Now);
    case HvxStatement::TakeCamLock:
        return QStringLiteral("INSERT INTO cam_lock (one, token, owner, host, process, heartbeat)"
                              " VALUES (1, ?, ?, ?, ?, %1)")
            .arg(Now);
    case HvxStatement::BeatCamLock:
        return QStringLiteral("UPDATE cam_lock SET heartbeat = %1 WHERE token = ?").arg(Now);
    case HvxStatement::RemoveCamLock:
    case HvxStatement::FreeCamLock:
        return QStringLiteral("DELETE FROM cam_lock WHERE token = ?");
    default:
        return {};
    }
}

QString ListText(HvxStatement statement)
{
    switch (statement) {
    case HvxStatement::NodeSearchEnd:
        return QStringLiteral("SELECT id FROM node WHERE id > ? ORDER BY id LIMIT 1 OFFSET %1")
            .arg(NodesPerSearch - 1);
    case HvxStatement::NodeCandidates:
        return NodeCandidatesText(QStringLiteral("instr(upper(n.name), ?) > 0"
                                                 " OR length(CAST(n.name AS BLOB)) <> length(n.name)"));
    case HvxStatement::ConnectionTargets:
        return QStringLiteral("SELECT id, name, target FROM connection WHERE id > ? ORDER BY id LIMIT ?");
    case HvxStatement::NodeCount:
        return QStringLiteral("SELECT count(*) FROM node");
    case HvxStatement::NodeCountOfConnection:
        return QStringLiteral("SELECT count(*) FROM node WHERE ") + OfConnection;
    default:
        return ListStatementText(statement, OfType,
                                 QStringLiteral("group_concat(name || char(9) || id, char(9))"));
    }
}

QString RecordText(HvxStatement statement)
{
    switch (statement) {
    case HvxStatement::NodeByName:
        // One packed column: the driver's work for each column is most of what such a read costs. It reads
        // the column's name each time, which without one of its own is the whole expression.
        return NodeText(
            NodeFieldTexts.join(QStringLiteral(" || char(%1) || ").arg(PackedFieldSeparator.unicode())) +
            QStringLiteral(" AS fields"));
    case HvxStatement::NodeByNameInColumns:
        return NodeText(NodeFieldTexts.join(QStringLiteral(", ")));
    case HvxStatement::NodeExists:
        return QStringLiteral("SELECT 1 FROM node WHERE name_key = ?");
    case HvxStatement::ConnectionByName:
        return QStringLiteral("SELECT id, target,"
                              " (SELECT value FROM setting WHERE name = 'definitions_version') AS version"
                              " FROM connection WHERE name_key = ?");
    case HvxStatement::ManagerByDevice:
        return QStringLiteral("SELECT manager_index, path, command_text FROM manager WHERE device = ?");
    case HvxStatement::ManagerList:
        return QStringLiteral("SELECT manager_index, device, path, command_text FROM manager"
                              " ORDER BY manager_index");
    case HvxStatement::ManagerExists:
        return QStringLiteral("SELECT 1 FROM manager WHERE manager_index = ?");
    case HvxStatement::UsersText:
        return QStringLiteral("SELECT users FROM users_text WHERE kind = ? AND name_key = ?");
    default:
        return {};
    }
}

QString WriteText(HvxStatement statement)
{
    switch (statement) {
    case HvxStatement::InsertConnection:
        return QStringLiteral("INSERT INTO connection (name, name_key, target) VALUES (?, ?, ?)"
                              " RETURNING row_key");
    case HvxStatement::InsertNode:
        return QStringLiteral("INSERT INTO node (id, name, name_key, node_type, target, command_tail,"
                              " connection_key) SELECT %1, ?, ?, ?, ?, ?, row_key FROM connection"
                              " WHERE name_key = ?")
            .arg(NextId);
    case HvxStatement::RenameConnection:
        return QStringLiteral("UPDATE connection SET name = ?, name_key = ? WHERE name_key = ?");
    case HvxStatement::SetConnectionKey:
        return QStringLiteral("UPDATE connection SET name_key = ?"
                              " WHERE id = (SELECT last_id FROM record_sequence)");
    case HvxStatement::SetConnectionTarget:
        return QStringLiteral("UPDATE connection SET target = ? WHERE name_key = ?");
    case HvxStatement::RenameNode:
        return QStringLiteral("UPDATE node SET name = ?, name_key = ? WHERE name_key = ?");
    case HvxStatement::SetNodeKey:
        return QStringLiteral(
            "UPDATE node SET name_key = ? WHERE id = (SELECT last_id FROM record_sequence)");
    case HvxStatement::SetNodeTarget:
        return QStringLiteral("UPDATE node SET target = ?, connection_key = c.row_key"
                              " FROM (SELECT row_key FROM connection WHERE name_key = ?) AS c"
                              " WHERE name_key = ?");
    case HvxStatement::SetNodeManager:
        return QStringLiteral("UPDATE node SET manager_index = ? WHERE name_key = ?");
    case HvxStatement::DeleteConnection:
        return QStringLiteral("DELETE FROM connection WHERE name_key = ?");
    case HvxStatement::DeleteNode:
        return QStringLiteral("DELETE FROM node WHERE name_key = ?");
    case HvxStatement::DeleteNodesOfConnection:
        return QStringLiteral("DELETE FROM node WHERE ") + OfConnection;
    case HvxStatement::DeleteUsersTextsOfNodes:
        return QStringLiteral("DELETE FROM users_text WHERE kind = ? AND name_key IN"
                              " (SELECT name_key FROM node WHERE %1)")
            .arg(OfConnection);
    case HvxStatement::StoreUsersText:
        return QStringLiteral("INSERT INTO users_text (kind, name_key, users) VALUES (?, ?, ?)"
                              " ON CONFLICT (kind, name_key) DO UPDATE SET users = excluded.users");
    case HvxStatement::DeleteUsersText:
        return QStringLiteral("DELETE FROM users_text WHERE kind = ? AND name_key = ?");
    case HvxStatement::MoveUsersText:
        return QStringLiteral("UPDATE users_text SET name_key = ? WHERE kind = ? AND name_key = ?");
    default:
        return {};
    }
}

/// The fields of a chunk of records in one text.
QString JoinedFields()
{
    const QString separator = QStringLiteral("char(%1)").arg(PackedFieldSeparator.unicode());
    QStringList fields;
    for (const QString& field : JournalChunkFields())
        fields << QStringLiteral("coalesce(%1, '')").arg(field);
    return QStringLiteral("group_concat(%1, %2)")
        .arg(fields.join(QStringLiteral(" || %1 || ").arg(separator)), separator);
}

QString JournalText(HvxStatement statement)
{
    switch (statement) {
    case HvxStatement::JournalEnds:
        return QStringLiteral("SELECT id, (SELECT min(id) FROM journal WHERE id > 1),"
                              " (SELECT changed FROM journal WHERE id > 1 ORDER BY id LIMIT 1),"
                              " record_type, text1, number, text2 FROM journal ORDER BY id DESC LIMIT 1");
    case HvxStatement::JournalIdsAfter:
        return QStringLiteral("SELECT group_concat(id, char(9)) FROM"
                              " (SELECT id FROM journal WHERE id > ? ORDER BY id LIMIT -1)");
    case HvxStatement::JournalRecord:
        return QStringLiteral("SELECT record_type, text1, number, text2 FROM journal WHERE id = ?");
    case HvxStatement::JournalChunk:
        return PackedJournalChunkText(JoinedFields(), PlainNameKey);
    case HvxStatement::JournalChunkInColumns:
        return JournalChunkText(PlainNameKey);
    // Record 1 is the version text and counts as none.
    case HvxStatement::JournalEntriesAfter:
        return QStringLiteral("SELECT id, record_type, text1, number, changed FROM journal"
                              " WHERE id > 1 AND id > ? ORDER BY id LIMIT ?");
    case HvxStatement::JournalCount:
        return QStringLiteral("SELECT count(*) FROM journal WHERE id > 1");
    case HvxStatement::JournalFirstToKeep:
        return QStringLiteral("SELECT id FROM journal WHERE id > 1 ORDER BY id DESC LIMIT 1 OFFSET ?");
    case HvxStatement::JournalFirstYoungerThan:
        return QStringLiteral(
            "SELECT min(coalesce((SELECT min(id) FROM journal WHERE id > 1 AND changed >= ?),"
            " max(id)), max(id)) FROM journal");
    case HvxStatement::JournalDeleteBefore:
        return QStringLiteral("DELETE FROM journal WHERE id > 1 AND id < ?");
    case HvxStatement::JournalMarkCleaned:
        return QStringLiteral("UPDATE journal SET record_type = 0 WHERE id = 1 AND record_type <> 0");
    default:
        return {};
    }
}

QString AdministrationText(HvxStatement statement)
{
    switch (statement) {
    case HvxStatement::AllConnections:
        return QStringLiteral("SELECT id, name, target, name_key FROM connection ORDER BY id");
    case HvxStatement::AllNodes:
        return StoredNode + QStringLiteral(" ORDER BY n.id");
    case HvxStatement::AllNodesOfConnection:
        return StoredNode + QStringLiteral(" WHERE n.") + OfConnection + QStringLiteral(" ORDER BY n.id");
    case HvxStatement::ConnectionKey:
        return QStringLiteral("SELECT row_key FROM connection WHERE name_key = ?");
    case HvxStatement::UpdateConnection:
        return QStringLiteral("UPDATE connection SET name = ?, target = ? WHERE name_key = ?");
    case HvxStatement::BulkInsertNode:
        return QStringLiteral("INSERT INTO node (id, name, name_key, node_type, target, command_tail,"
                              " manager_index, connection_key) VALUES (?, ?, ?, ?, ?, ?, ?, ?)");
    case HvxStatement::UpdateNode:
        return QStringLiteral("UPDATE node SET name = ?, node_type = ?, target = ?, command_tail = ?,"
                              " manager_index = ?, connection_key = ? WHERE name_key = ?");
    case HvxStatement::SequenceLastId:
        return QStringLiteral("SELECT last_id FROM record_sequence");
    case HvxStatement::InsertManager:
        return QStringLiteral("INSERT INTO manager (device, path, command_text) VALUES (?, ?, ?)"
                              " RETURNING manager_index");
    case HvxStatement::DeleteManager:
        return QStringLiteral("DELETE FROM manager WHERE device = ?");
    case HvxStatement::ForgetManager:
        return QStringLiteral("UPDATE node SET manager_index = NULL WHERE manager_index ="
                              " (SELECT manager_index FROM manager WHERE device = ?)");
    case HvxStatement::StoreRights:
        return QStringLiteral("INSERT INTO user_rights (user_name, may_scan, may_edit) VALUES (?, ?, ?)"
                              " ON CONFLICT (user_name) DO UPDATE SET may_scan = excluded.may_scan,"
                              " may_edit = excluded.may_edit");
    case HvxStatement::NamesInBothTables:
        return QStringLiteral("SELECT n.name FROM connection c JOIN node n ON n.name_key = c.name_key"
                              " ORDER BY n.id");
    case HvxStatement::IdsInBothTables:
        return QStringLiteral("SELECT n.id FROM connection c JOIN node n ON n.id = c.id ORDER BY n.id");
    default:
        return {};
    }
}

} // namespace

QString NodeCandidatesText(const QString& test)
{
    return QStringLiteral("SELECT n.id, n.name, c.id, c.name FROM node n"
                          " LEFT JOIN connection c ON c.row_key = n.connection_key"
                          " WHERE n.id > ? AND n.id <= ? AND (%1) ORDER BY n.id LIMIT ?")
        .arg(test);
}

QString JournalChunkText(const QString& nameKey)
{
    // The number names no node any more once the node was saved again, so the name goes first. Where a name
    // holds other letters than the engine folds, the number finds the node that nobody has saved since.
    // A record has one node at the most, so the limit counts records, and the engine need not sort them.
    return QStringLiteral("SELECT j.id AS id, j.record_type AS record_type, j.text1 AS text1,"
                          " j.number AS number, j.text2 AS text2, n.name_key AS name_key, n.id AS node_id,"
                          " coalesce(c.name, '') AS connection_name, n.target AS target,"
                          " n.node_type AS node_type, n.command_tail AS command_tail,"
                          " n.manager_index AS manager_index FROM journal j"
                          " LEFT JOIN node n ON j.record_type IN (30, 40) AND n.id = coalesce((SELECT id"
                          " FROM node WHERE name_key = %2), j.number)"
                          " LEFT JOIN connection c ON c.row_key = n.connection_key"
                          " WHERE j.id > ? ORDER BY j.id LIMIT %1")
        .arg(QString::number(JournalRecordsPerChunk), nameKey);
}

QString PackedJournalChunkText(const QString& joined, const QString& nameKey)
{
    // One row: the driver's work for twelve columns of each record is a third of what a refresh costs.
    return QStringLiteral("SELECT count(*), %1 FROM (%2) AS chunk").arg(joined, JournalChunkText(nameKey));
}

QStringList JournalChunkFields()
{
    return QStringLiteral(
               "id record_type text1 number text2 name_key node_id connection_name target node_type"
               " command_tail manager_index")
        .split(u' ');
}

QString ListStatementText(HvxStatement statement, const QString& ofType, const QString& pairs)
{
    const QString connections = QStringLiteral("connection");
    const QString nodes = QStringLiteral("node");
    const QString all = QStringLiteral("true");
    const QString ofName = QStringLiteral("name_key = ?");
    const QString ofBoth = OfConnection + QStringLiteral(" AND ") + ofType;
    switch (statement) {
    case HvxStatement::ConnectionList:
        return PageText(connections, all, pairs);
    case HvxStatement::ConnectionListOfName:
        return PageText(connections, ofName, pairs);
    case HvxStatement::NodeList:
        return PageText(nodes, all, pairs);
    case HvxStatement::NodeListOfConnection:
        return PageText(nodes, OfConnection, pairs);
    case HvxStatement::NodeListOfType:
        return PageText(nodes, ofType, pairs);
    case HvxStatement::NodeListOfConnectionAndType:
        return PageText(nodes, ofBoth, pairs);
    case HvxStatement::ConnectionListRows:
        return RowsText(connections, all);
    case HvxStatement::ConnectionListOfNameRows:
        return RowsText(connections, ofName);
    case HvxStatement::NodeListRows:
        return RowsText(nodes, all);
    case HvxStatement::NodeListOfConnectionRows:
        return RowsText(nodes, OfConnection);
    case HvxStatement::NodeListOfTypeRows:
        return RowsText(nodes, ofType);
    case HvxStatement::NodeListOfConnectionAndTypeRows:
        return RowsText(nodes, ofBoth);
    default:
        return {};
    }
}

QString StandardStatementText(HvxStatement statement)
{
    using GroupText = QString (*)(HvxStatement);
    for (const GroupText group :
         {SessionText, ListText, RecordText, WriteText, JournalText, AdministrationText}) {
        const QString text = group(statement);
        if (!text.isEmpty())
            return text;
    }
    return {};
}
