#include "components/hvxdb/DatabaseCheck.h"

#include "components/hvxdb/DefinitionTables.h"
#include "components/hvxdb/HvxAdministration.h"
#include "components/hvxdb/HvxSchema.h"
#include "components/hvxdb/JournalTable.h"
#include "platform/ComponentError.h"

#include <algorithm>

namespace {

QString FileProblem(const QString& text)
{
    return QStringLiteral("File: %1").arg(text);
}

bool NamesType(const std::vector<TypeDefinition>& types, const QString& name)
{
    return std::any_of(types.cbegin(), types.cend(), [&name](const TypeDefinition& type) {
        return type.shortName.compare(name, Qt::CaseInsensitive) == 0;
    });
}

} // namespace

QStringList DatabaseCheck::Run()
{
    m_problems.clear();
    // Where others go on writing meanwhile, all steps see one state; a transaction there keeps nobody out.
    const bool isServer = m_store->Session().Engine().IsServer();
    if (isServer)
        m_store->Begin();
    for (const auto step :
         {&DatabaseCheck::CheckFile, &DatabaseCheck::CheckSchema, &DatabaseCheck::CheckDefinitions,
          &DatabaseCheck::CheckReferences, &DatabaseCheck::CheckNames, &DatabaseCheck::ReadSequence,
          &DatabaseCheck::ReadManagers, &DatabaseCheck::CheckConnections, &DatabaseCheck::CheckNodes,
          &DatabaseCheck::CheckJournal}) {
        try {
            (this->*step)();
        } catch (const ComponentError& error) {
            // What one step cannot read does not keep the others from theirs.
            const QString problem = FileProblem(error.Description());
            if (!m_problems.contains(problem))
                Report(problem);
            if (isServer) {
                m_store->Rollback();
                m_store->Begin();
            }
        }
    }
    if (isServer)
        m_store->Rollback();
    return m_problems;
}

void DatabaseCheck::CheckFile()
{
    for (const QString& text : m_store->Session().Engine().IntegrityTexts()) {
        m_store->Session().ReadText(text, [this](const QSqlQuery& row) {
            const QString answer = row.value(0).toString();
            if (answer != QLatin1String("ok"))
                Report(FileProblem(answer));
        });
    }
}

void DatabaseCheck::CheckSchema()
{
    SqlSession& session = m_store->Session();
    HvxSchema schema(session, HvxSchema::ScriptsOf(session.Engine()));
    const qint32 version = schema.StoredVersion();
    if (version != HvxSchema::CurrentVersion) {
        Report(
            QStringLiteral("Schema: version %1 instead of %2.").arg(version).arg(HvxSchema::CurrentVersion));
    }
    for (const QString& object : schema.MissingObjects())
        Report(QStringLiteral("Schema: %1 is missing.").arg(object));
}

void DatabaseCheck::CheckDefinitions()
{
    Catalogue catalogue = ReadDefinitions(m_store->Session());
    for (const QString& problem : CheckCatalogue(catalogue))
        Report(QStringLiteral("Definitions: %1").arg(problem));
    m_definitions = Definitions(std::move(catalogue));
}

void DatabaseCheck::CheckReferences()
{
    SqlSession& session = m_store->Session();
    session.ReadText(
        QStringLiteral("SELECT name FROM node WHERE connection_key NOT IN"
                       " (SELECT row_key FROM connection) ORDER BY id"),
        [this](const QSqlQuery& row) {
            Report(QStringLiteral("Node %1: its connection is missing.").arg(row.value(0).toString()));
        });
    session.ReadText(QStringLiteral("SELECT name, manager_index FROM node WHERE manager_index IS NOT NULL AND"
                                    " manager_index NOT IN (SELECT manager_index FROM manager) ORDER BY id"),
                     [this](const QSqlQuery& row) {
                         Report(QStringLiteral("Node %1: there is no manager %2.")
                                    .arg(row.value(0).toString(), row.value(1).toString()));
                     });
}

void DatabaseCheck::CheckNames()
{
    SqlRows names = m_store->Session().Read(HvxStatement::NamesInBothTables);
    while (names.Next())
        Report(QStringLiteral("Name %1: a connection and a node have it.").arg(names.Text(0)));
    SqlRows ids = m_store->Session().Read(HvxStatement::IdsInBothTables);
    while (ids.Next())
        Report(QStringLiteral("Id %1: a connection and a node have it.").arg(ids.Number(0)));
}

void DatabaseCheck::ReadSequence()
{
    SqlRows rows = m_store->Session().Read(HvxStatement::SequenceLastId);
    m_lastId = rows.Next() ? rows.LongNumber(0) : 0;
}

void DatabaseCheck::ReadManagers()
{
    m_devices.clear();
    SqlRows rows = m_store->Session().Read(HvxStatement::ManagerList);
    while (rows.Next())
        m_devices << rows.Text(1);
}

void DatabaseCheck::CheckConnections()
{
    const QString kind = QStringLiteral("Connection");
    m_store->Session().ReadText(
        QStringLiteral("SELECT id, name, name_key, target FROM connection ORDER BY id"),
        [this, &kind](const QSqlQuery& row) {
            CheckRecord(kind, row.value(0).toLongLong(), row.value(1).toString(), row.value(2).toString(),
                        row.value(3).toString());
        });
}

void DatabaseCheck::CheckNodes()
{
    const QString kind = QStringLiteral("Node");
    const std::vector<TypeDefinition>& types = m_definitions.Data().nodeTypes;
    m_store->Session().ReadText(
        QStringLiteral("SELECT id, name, name_key, target, node_type FROM node ORDER BY id"),
        [&](const QSqlQuery& row) {
            const QString name = row.value(1).toString();
            CheckRecord(kind, row.value(0).toLongLong(), name, row.value(2).toString(),
                        row.value(3).toString());
            const QString device = row.value(4).toString();
            if (!device.isEmpty() && !m_devices.contains(device, Qt::CaseInsensitive) &&
                !NamesType(types, device))
                Report(QStringLiteral("Node %1: there is no manager for %2.").arg(name, device));
        });
}

void DatabaseCheck::CheckRecord(const QString& kind, qint64 id, const QString& name, const QString& key,
                                const QString& target)
{
    if (id <= 0 || id > m_lastId) {
        Report(
            QStringLiteral("%1 %2: its id %3 is not one of 1 to %4.").arg(kind, name).arg(id).arg(m_lastId));
    }
    if (key != FoldedName(name))
        Report(QStringLiteral("%1 %2: its name key is %3.").arg(kind, name, key));
    QString reformatted;
    if (!m_definitions.CheckTarget(target, reformatted))
        Report(QStringLiteral("%1 %2: its target %3 cannot be read.").arg(kind, name, target));
}

void DatabaseCheck::CheckJournal()
{
    const JournalTable journal(*m_store);
    if (!journal.Record(1).text1.contains(QLatin1String("HVX R"), Qt::CaseInsensitive))
        Report(QStringLiteral("Journal: record 1 does not name the version."));
    const QString beyond =
        QStringLiteral("SELECT count(*) FROM journal WHERE number < 0 OR number > %1").arg(m_lastId);
    if (const qint64 count = m_store->Session().NumberOfText(beyond); count > 0)
        Report(QStringLiteral("Journal: %1 records name ids that were never given.").arg(count));
}
