#include "components/hvxdb/PostgresStatements.h"

namespace {

/// Devices compare as on every engine: without the case of plain letters.
QString Folded(const QString& expression)
{
    return QStringLiteral("lower(%1 COLLATE \"C\")").arg(expression);
}

const QString FoldedValue = Folded(QStringLiteral("CAST(? AS text)"));
const QString OfType = Folded(QStringLiteral("node_type")) + QStringLiteral(" = ") + FoldedValue;
const QString OfDevice = Folded(QStringLiteral("device")) + QStringLiteral(" = ") + FoldedValue;

/// Milliseconds since 1970.
const QString Now = QStringLiteral("CAST(extract(epoch FROM clock_timestamp()) * 1000 AS bigint)");

/// The id that this session's last write gave.
const QString OwnLastId = QStringLiteral("(SELECT currval('record_sequence'))");

QString HasRole(const QString& allows)
{
    return QStringLiteral("coalesce(pg_has_role((SELECT to_regrole(quote_ident(role_name)) FROM rights_role"
                          " WHERE allows = '%1'), 'USAGE'), false)")
        .arg(allows);
}

QString RightsFields()
{
    return QStringLiteral("%1, %2, CAST(current_user AS text)")
        .arg(HasRole(QStringLiteral("scan")), HasRole(QStringLiteral("edit")));
}

QString StateText()
{
    return QStringLiteral("SELECT (SELECT value FROM setting WHERE name = 'definitions_version'),"
                          " (SELECT token FROM cam_lock), %1")
        .arg(RightsFields());
}

QString SessionText(HvxStatement statement)
{
    switch (statement) {
    case HvxStatement::Begin: {
        // What is read stays as it was when the transaction began; the state comes in the same round trip.
        static const QString text = QStringLiteral("BEGIN ISOLATION LEVEL REPEATABLE READ; ") + StateText();
        return text;
    }
    case HvxStatement::BeginWriting: {
        // Locking a table does not fix yet what the transaction sees, so that it sees what those have
        // committed who wrote before it.
        static const QString text = QStringLiteral("BEGIN ISOLATION LEVEL REPEATABLE READ;"
                                                   " LOCK TABLE write_turn IN EXCLUSIVE MODE; ") +
                                    StateText();
        return text;
    }
    case HvxStatement::BeginAlone:
        // Before the writers of records, who may not be there yet, then before others of this kind.
        return QStringLiteral("BEGIN ISOLATION LEVEL READ COMMITTED;"
                              " DO $$ BEGIN IF to_regclass('write_turn') IS NOT NULL THEN"
                              " LOCK TABLE write_turn IN EXCLUSIVE MODE; END IF; END $$;"
                              " SELECT pg_advisory_xact_lock(7236450)");
    case HvxStatement::BeginSnapshot:
        return QStringLiteral("BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY");
    case HvxStatement::SessionState:
        return StateText();
    case HvxStatement::RightsOfUser:
        return QStringLiteral("SELECT ") + RightsFields();
    case HvxStatement::ReadCamLock:
        return QStringLiteral("SELECT token, host, process, %1 - heartbeat FROM cam_lock").arg(Now);
    case HvxStatement::TakeCamLock:
        return QStringLiteral("INSERT INTO cam_lock (one, token, owner, host, process, heartbeat)"
                              " VALUES (1, ?, ?, ?, ?, %1)")
            .arg(Now);
    case HvxStatement::BeatCamLock:
        return QStringLiteral("UPDATE cam_lock SET heartbeat = %1 WHERE token = ?").arg(Now);
    case HvxStatement::FreeCamLock:
        return QStringLiteral("SELECT 1 WHERE free_cam_lock(?) > 0");
    default:
        return {};
    }
}

QString ListText(HvxStatement statement)
{
    if (statement == HvxStatement::NodeCandidates) {
        return NodeCandidatesText(QStringLiteral("strpos(upper(n.name COLLATE \"C\"), CAST(? AS text)) > 0"
                                                 " OR octet_length(n.name) <> char_length(n.name)"));
    }
    return ListStatementText(statement, OfType,
                             QStringLiteral("string_agg(name || chr(9) || id, chr(9) ORDER BY id)"));
}

/// The fields of a node as the other engine's statement gives them.
const QStringList NodeFieldTexts = {QStringLiteral("CAST(n.id AS text)"),
                                    QStringLiteral("n.target"),
                                    QStringLiteral("n.node_type"),
                                    QStringLiteral("n.command_tail"),
                                    QStringLiteral("coalesce(CAST(n.manager_index AS text), '')"),
                                    QStringLiteral("coalesce(CAST(c.id AS text), '')"),
                                    QStringLiteral("coalesce(c.name, '')"),
                                    QStringLiteral("coalesce(c.target, '')"),
                                    QStringLiteral("coalesce(CAST(m.manager_index AS text), '')"),
                                    QStringLiteral("coalesce(m.path, '')"),
                                    QStringLiteral("coalesce(m.command_text, '')"),
                                    QStringLiteral("CAST(coalesce((SELECT value FROM setting"
                                                   " WHERE name = 'definitions_version'), 0) AS text)")};

QString NodeText(const QString& fields)
{
    return QStringLiteral("SELECT %1 FROM node n LEFT JOIN connection c ON c.row_key = n.connection_key"
                          " LEFT JOIN manager m ON %2 = %3 WHERE n.name_key = ?")
        .arg(fields, Folded(QStringLiteral("m.device")), Folded(QStringLiteral("n.node_type")));
}

/// An insertion that finds the name taken inserts nothing: a failure of the server would spoil the whole
/// transaction, in which a bulk writer goes on.
QString InsertText(const QString& table, const QStringList& columns, const QStringList& values)
{
    QStringList named;
    for (qsizetype i = 0; i < columns.size(); ++i)
        named << values[i] + QStringLiteral(" AS ") + columns[i];
    const QString list = columns.join(QStringLiteral(", "));
    return QStringLiteral("INSERT INTO %1 (%2) SELECT %2 FROM (SELECT %3) AS given WHERE NOT EXISTS"
                          " (SELECT 1 FROM record_name k WHERE k.name_key = given.name_key)")
        .arg(table, list, named.join(QStringLiteral(", ")));
}

QString InsertConnectionText()
{
    const QString text = QStringLiteral("CAST(? AS text)");
    return InsertText(QStringLiteral("connection"),
                      {QStringLiteral("name"), QStringLiteral("name_key"), QStringLiteral("target")},
                      {text, text, text}) +
           QStringLiteral(" RETURNING row_key");
}

QString BulkInsertNodeText()
{
    const QString text = QStringLiteral("CAST(? AS text)");
    const QString number = QStringLiteral("CAST(? AS integer)");
    return InsertText(QStringLiteral("node"),
                      {QStringLiteral("id"), QStringLiteral("name"), QStringLiteral("name_key"),
                       QStringLiteral("node_type"), QStringLiteral("target"), QStringLiteral("command_tail"),
                       QStringLiteral("manager_index"), QStringLiteral("connection_key")},
                      {number, text, text, text, text, text, number, QStringLiteral("CAST(? AS bigint)")});
}

QString RecordText(HvxStatement statement)
{
    switch (statement) {
    case HvxStatement::InsertConnection: {
        static const QString insert = InsertConnectionText();
        return insert;
    }
    case HvxStatement::BulkInsertNode: {
        static const QString insert = BulkInsertNodeText();
        return insert;
    }
    case HvxStatement::NodeByName:
        return NodeText(
            NodeFieldTexts.join(QStringLiteral(" || chr(%1) || ").arg(PackedFieldSeparator.unicode())));
    case HvxStatement::NodeByNameInColumns:
        return NodeText(NodeFieldTexts.join(QStringLiteral(", ")));
    case HvxStatement::ManagerByDevice:
        return QStringLiteral("SELECT manager_index, path, command_text FROM manager WHERE ") + OfDevice;
    case HvxStatement::InsertNode:
        return QStringLiteral("INSERT INTO node (name, name_key, node_type, target, command_tail,"
                              " connection_key) SELECT ?, ?, ?, ?, ?, row_key FROM connection"
                              " WHERE name_key = ?");
    case HvxStatement::SetConnectionKey:
        return QStringLiteral("UPDATE connection SET name_key = ? WHERE id = ") + OwnLastId;
    case HvxStatement::SetNodeKey:
        return QStringLiteral("UPDATE node SET name_key = ? WHERE id = ") + OwnLastId;
    case HvxStatement::DeleteManager:
        return QStringLiteral("DELETE FROM manager WHERE ") + OfDevice;
    case HvxStatement::ForgetManager:
        return QStringLiteral("UPDATE node SET manager_index = NULL WHERE manager_index ="
                              " (SELECT manager_index FROM manager WHERE %1)")
            .arg(OfDevice);
    case HvxStatement::SequenceLastId:
        return QStringLiteral(
            "SELECT CASE WHEN is_called THEN last_value ELSE last_value - 1 END FROM record_sequence");
    default:
        return {};
    }
}

QString NameKeyOfRecord()
{
    return Folded(QStringLiteral("trim(j.text1)"));
}

/// The fields of a chunk of records in one text.
QString JoinedFields()
{
    const QString separator = QStringLiteral("chr(%1)").arg(PackedFieldSeparator.unicode());
    QStringList fields;
    for (const QString& field : JournalChunkFields())
        fields << QStringLiteral("coalesce(CAST(%1 AS text), '')").arg(field);
    return QStringLiteral("string_agg(concat_ws(%2, %1), %2 ORDER BY id)")
        .arg(fields.join(QStringLiteral(", ")), separator);
}

QString JournalText(HvxStatement statement)
{
    switch (statement) {
    case HvxStatement::JournalIdsAfter:
        return QStringLiteral("SELECT string_agg(CAST(id AS text), chr(9) ORDER BY id) FROM journal"
                              " WHERE id > ?");
    case HvxStatement::JournalChunk:
        return PackedJournalChunkText(JoinedFields(), NameKeyOfRecord());
    case HvxStatement::JournalChunkInColumns:
        return JournalChunkText(NameKeyOfRecord());
    case HvxStatement::JournalFirstYoungerThan:
        return QStringLiteral(
            "SELECT least(coalesce((SELECT min(id) FROM journal WHERE id > 1 AND changed >= ?),"
            " max(id)), max(id)) FROM journal");
    case HvxStatement::JournalDeleteBefore:
        return QStringLiteral("SELECT 1 WHERE remove_journal_before(?) > 0");
    case HvxStatement::JournalMarkCleaned:
        // The removal has marked it.
        return QStringLiteral("SELECT 1");
    default:
        return {};
    }
}

QString SequenceText(const QString& table, const QString& sequence, const QString& words)
{
    return QStringLiteral("SELECT '%3' FROM %2 WHERE last_value < (SELECT max(id) FROM %1)")
        .arg(table, sequence, words);
}

} // namespace

QString PostgresStatementText(HvxStatement statement)
{
    using GroupText = QString (*)(HvxStatement);
    for (const GroupText group : {SessionText, ListText, RecordText, JournalText}) {
        const QString text = group(statement);
        if (!text.isEmpty())
            return text;
    }
    return {};
}

QStringList PostgresIntegrityTexts()
{
    return {
        QStringLiteral("SELECT 'the name key ' || name_key || ' is not kept in record_name'"
                       " FROM (SELECT name_key FROM connection UNION ALL SELECT name_key FROM node) AS used"
                       " WHERE NOT EXISTS (SELECT 1 FROM record_name k WHERE k.name_key = used.name_key)"
                       " ORDER BY name_key"),
        QStringLiteral("SELECT 'record_name keeps ' || name_key || ', which no record has' FROM record_name k"
                       " WHERE NOT EXISTS (SELECT 1 FROM connection c WHERE c.name_key = k.name_key)"
                       " AND NOT EXISTS (SELECT 1 FROM node n WHERE n.name_key = k.name_key)"
                       " ORDER BY name_key"),
        QStringLiteral("SELECT 'the trigger ' || t.tgname || ' is switched off' FROM pg_trigger t"
                       " JOIN pg_class c ON c.oid = t.tgrelid"
                       " WHERE c.relnamespace = to_regnamespace('public') AND NOT t.tgisinternal"
                       " AND t.tgenabled NOT IN ('O', 'A') ORDER BY t.tgname"),
        QStringLiteral("SELECT 'the index ' || c.relname || ' is not valid' FROM pg_index i"
                       " JOIN pg_class c ON c.oid = i.indexrelid"
                       " WHERE c.relnamespace = to_regnamespace('public') AND NOT i.indisvalid"
                       " ORDER BY c.relname"),
        QStringLiteral("SELECT 'there is no role ' || role_name FROM rights_role"
                       " WHERE to_regrole(quote_ident(role_name)) IS NULL ORDER BY role_name"),
        SequenceText(QStringLiteral("journal"), QStringLiteral("journal_sequence"),
                     QStringLiteral("journal_sequence is behind the Journal")),
    };
}

QString PostgresObjectNamesText()
{
    return QStringLiteral("SELECT relname FROM pg_class WHERE relnamespace = to_regnamespace('public')"
                          " UNION ALL SELECT proname FROM pg_proc WHERE pronamespace ="
                          " to_regnamespace('public') UNION ALL SELECT t.tgname FROM pg_trigger t"
                          " JOIN pg_class c ON c.oid = t.tgrelid"
                          " WHERE c.relnamespace = to_regnamespace('public') AND NOT t.tgisinternal");
}
