#include "components/hvxdb/HvxSchema.h"

#include "components/hvxdb/DefinitionTables.h"
#include "components/hvxdb/SqlFailure.h"
#include "components/hvxdb/SqlScript.h"
#include "components/hvxdb/TransactionScope.h"

#include <QFile>
#include <QRegularExpression>

/// The scripts are in this library, whose resources nobody else would register.
static void RegisterScripts()
{
    Q_INIT_RESOURCE(hvxschema);
}

namespace {

QString ReadScript(const QString& name)
{
    RegisterScripts();
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QStringList CreatedObjects(const QString& script)
{
    static const QRegularExpression create(
        QStringLiteral("^CREATE (?:UNIQUE |OR REPLACE )?(?:TABLE|INDEX|TRIGGER|SEQUENCE|FUNCTION)"
                       " (?:IF NOT EXISTS )?(\\w+)"),
        QRegularExpression::MultilineOption);
    QStringList names;
    QRegularExpressionMatchIterator matches = create.globalMatch(script);
    while (matches.hasNext())
        names << matches.next().captured(1);
    return names;
}

QString Lacking(const QStringList& names)
{
    return QStringLiteral("The database lacks %1.").arg(names.join(QStringLiteral(", ")));
}

} // namespace

SchemaScripts HvxSchema::ScriptsOf(const HvxEngine& engine)
{
    const QString folder = engine.ScriptFolder();
    SchemaScripts scripts;
    scripts.version = CurrentVersion;
    scripts.create = ReadScript(folder + QStringLiteral("/schema.sql"));
    scripts.upgrade = [folder](qint32 version) {
        return ReadScript(QStringLiteral("%1/upgrade-%2.sql").arg(folder).arg(version));
    };
    return scripts;
}

HvxSchema::HvxSchema(SqlSession& session, SchemaScripts scripts)
    : m_session(&session), m_scripts(std::move(scripts))
{}

void HvxSchema::Create()
{
    m_session->RunScript(m_scripts.create);
}

void HvxSchema::Prepare()
{
    const QStringList names = ObjectNames();
    const bool tellsVersion = names.contains(QStringLiteral("setting"));
    const qint32 version = tellsVersion ? StoredVersion() : 0;
    if (version > m_scripts.version) {
        RaiseFailure(DatabaseErrorNumber::UpgradeFailed,
                     QStringLiteral("The database has version %1, this program knows %2.")
                         .arg(version)
                         .arg(m_scripts.version));
    }
    QStringList lost;
    for (const QString& table : DefinitionTableNames()) {
        if (!names.contains(table))
            lost << table;
    }
    if (!lost.isEmpty())
        RaiseFailure(DatabaseErrorNumber::TablesMissing, Lacking(lost));
    if (!HasDefinitions())
        RaiseFailure(DatabaseErrorNumber::TablesMissing, QStringLiteral("The database has no definitions."));
    if (version > 0 && version < m_scripts.version)
        Upgrade(version);
    QStringList missing = MissingObjects();
    if (missing.isEmpty() && !HasFirstRows())
        missing << QStringLiteral("its first rows");
    if (!missing.isEmpty()) {
        Repair();
        RaiseFailure(DatabaseErrorNumber::TablesMissing, Lacking(missing));
    }
}

qint32 HvxSchema::StoredVersion()
{
    SqlRows rows = m_session->Read(HvxStatement::Versions);
    return rows.Next() ? rows.Number(0) : 0;
}

QStringList HvxSchema::MissingObjects()
{
    const QStringList names = ObjectNames();
    QStringList missing;
    for (const QString& object : CreatedObjects(m_scripts.create)) {
        if (!names.contains(object))
            missing << object;
    }
    return missing;
}

bool HvxSchema::HasTables()
{
    const QStringList names = ObjectNames();
    const QStringList created = CreatedObjects(m_scripts.create);
    return std::any_of(created.cbegin(), created.cend(),
                       [&names](const QString& object) { return names.contains(object); });
}

void HvxSchema::Upgrade(qint32 from)
{
    TransactionScope transaction(*m_session, TransactionKind::Alone);
    try {
        // Another program may have come first while this one waited for the lock.
        for (qint32 version = qMax(from, StoredVersion()) + 1; version <= m_scripts.version; ++version) {
            const QString script = m_scripts.upgrade ? m_scripts.upgrade(version) : QString();
            if (script.isEmpty())
                RaiseRefusal(QStringLiteral("there is no way to version %1").arg(version));
            m_session->RunScript(script);
        }
        m_session->RunText(QStringLiteral("UPDATE setting SET value = ? WHERE name = 'schema_version'"),
                           {m_scripts.version});
        transaction.Commit();
    } catch (const ComponentError& error) {
        RaiseFailure(DatabaseErrorNumber::UpgradeFailed,
                     QStringLiteral("The upgrade to version %1 failed: %2")
                         .arg(m_scripts.version)
                         .arg(error.Description()));
    }
}

void HvxSchema::Repair()
{
    try {
        TransactionScope transaction(*m_session, TransactionKind::Alone);
        Create();
        transaction.Commit();
    } catch (const ComponentError& error) {
        // On a server only the owner makes tables; for others they stay missing.
        if (error.Number() != DatabaseErrorNumber::Refused)
            throw;
    }
}

QStringList HvxSchema::ObjectNames()
{
    QStringList names;
    m_session->ReadText(m_session->Engine().ObjectNamesText(),
                        [&names](const QSqlQuery& row) { names << row.value(0).toString(); });
    return names;
}

bool HvxSchema::HasDefinitions()
{
    return m_session->NumberOfText(QStringLiteral(
               "SELECT EXISTS (SELECT 1 FROM con_type) AND EXISTS (SELECT 1 FROM waypoint)")) != 0;
}

bool HvxSchema::HasFirstRows()
{
    return m_session->NumberOfText(
               QStringLiteral("SELECT EXISTS (SELECT 1 FROM record_sequence) AND"
                              " EXISTS (SELECT 1 FROM setting WHERE name = 'schema_version') AND"
                              " EXISTS (SELECT 1 FROM setting WHERE name = 'definitions_version')")) != 0;
}
