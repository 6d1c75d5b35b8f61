#include "tests/convergence/JournalWitness.h"

#include <QSet>

#include <algorithm>

namespace {

/// "connection saved 17": one record, whoever tells of it.
QString Claim(bool isConnection, bool isSave, qint32 number)
{
    return QStringLiteral("%1 %2 %3")
        .arg(isConnection ? QStringLiteral("connection") : QStringLiteral("node"),
             isSave ? QStringLiteral("saved") : QStringLiteral("removed"), QString::number(number));
}

QString ClaimOf(const LoggedChange& change)
{
    return Claim(change.kind == u"connection", change.verb == u"saved", change.id);
}

} // namespace

JournalWitness::JournalWitness(const DatabaseFixture& database) : m_database(database)
{
    if (DatabaseFixture::OnServer()) {
        database.RunSql(
            QStringLiteral("CREATE TABLE witness (place BIGINT GENERATED ALWAYS AS IDENTITY, id INT,"
                           " record_type INT, text1 TEXT, number INT)"));
        database.RunSql(
            QStringLiteral("CREATE FUNCTION witness_record() RETURNS trigger LANGUAGE plpgsql AS $$"
                           " BEGIN INSERT INTO public.witness (id, record_type, text1, number)"
                           " VALUES (NEW.id, NEW.record_type, NEW.text1, NEW.number);"
                           " RETURN NULL; END $$"));
        database.RunSql(QStringLiteral("CREATE TRIGGER witness_journal AFTER INSERT ON journal"
                                       " FOR EACH ROW EXECUTE FUNCTION witness_record()"));
        return;
    }
    database.RunSql(QStringLiteral("CREATE TABLE witness (place INTEGER PRIMARY KEY, id INTEGER,"
                                   " record_type INTEGER, text1 TEXT, number INTEGER)"));
    database.RunSql(QStringLiteral("CREATE TRIGGER witness_journal AFTER INSERT ON journal BEGIN"
                                   " INSERT INTO witness (id, record_type, text1, number)"
                                   " VALUES (NEW.id, NEW.record_type, NEW.text1, NEW.number); END"));
}

QStringList JournalWitness::Check(const std::vector<LoggedChange>& changes, int mostUnclaimed)
{
    QStringList problems;
    Read();
    for (std::size_t k = 1; k < m_records.size(); ++k) {
        if (m_records[k].id <= m_records[k - 1].id)
            problems
                << QStringLiteral("record %1 came behind %2").arg(m_records[k].id).arg(m_records[k - 1].id);
    }
    CheckTables(problems);
    CheckClaims(changes, problems);
    CheckRecords(changes, mostUnclaimed, problems);
    return problems;
}

void JournalWitness::Read()
{
    m_records.clear();
    const QStringList rows = m_database.Rows(QStringLiteral(
        "SELECT id || '|' || record_type || '|' || number || '|' || text1 FROM witness ORDER BY place"));
    for (const QString& row : rows) {
        const int type = row.section(u'|', 1, 1).toInt();
        m_records.push_back({row.section(u'|', 0, 0).toInt(), type % 10 == 1, type >= 30,
                             row.section(u'|', 3), row.section(u'|', 2, 2).toInt()});
    }
}

void JournalWitness::CheckTables(QStringList& problems) const
{
    for (const bool isConnection : {true, false}) {
        const QString table = isConnection ? QStringLiteral("connection") : QStringLiteral("node");
        // What was there before the witness.
        QHash<QString, qint32> told;
        for (const Record& record : m_records) {
            if (record.isConnection == isConnection)
                told[record.name.toCaseFolded()] = record.isSave ? record.number : 0;
        }
        const QStringList rows =
            m_database.Rows(QStringLiteral("SELECT id || '|' || name FROM %1 ORDER BY id").arg(table));
        int found = 0;
        for (const QString& row : rows) {
            const QString name = row.section(u'|', 1).toCaseFolded();
            if (!told.contains(name))
                continue;
            ++found;
            if (told[name] != row.section(u'|', 0, 0).toInt())
                problems
                    << QStringLiteral("%1 %2, of which the Journal told %3").arg(table, row).arg(told[name]);
        }
        const auto alive = std::count_if(told.cbegin(), told.cend(), [](qint32 id) { return id != 0; });
        if (alive != found)
            problems << QStringLiteral("the Journal told of %1 records in %2, there are %3")
                            .arg(QString::number(alive), table, QString::number(found));
    }
}

void JournalWitness::CheckClaims(const std::vector<LoggedChange>& changes, QStringList& problems) const
{
    QHash<QString, QString> names;
    for (const Record& record : m_records)
        names[Claim(record.isConnection, record.isSave, record.number)] = record.name;
    QSet<QString> claimed;
    for (const LoggedChange& change : changes) {
        if (!change.done)
            continue;
        const QString claim = ClaimOf(change);
        // Who changes a record may spell its name in another case.
        if (names.value(claim).compare(change.name, Qt::CaseInsensitive) != 0)
            problems << QStringLiteral("no record of: ") + change.Line();
        if (claimed.contains(claim))
            problems << QStringLiteral("done twice: ") + change.Line();
        claimed.insert(claim);
    }
}

void JournalWitness::CheckRecords(const std::vector<LoggedChange>& changes, int mostUnclaimed,
                                  QStringList& problems) const
{
    QSet<QString> claims;
    for (const LoggedChange& change : changes) {
        if (change.done)
            claims.insert(ClaimOf(change));
    }
    QStringList unclaimed;
    for (std::size_t k = 0; k < m_records.size(); ++k) {
        const Record& record = m_records[k];
        if (record.isSave && !claims.contains(Claim(record.isConnection, true, record.number)) &&
            !IsSavedAgain(k))
            unclaimed << QStringLiteral("nobody saved %1: record %2, id %3")
                             .arg(record.name)
                             .arg(record.id)
                             .arg(record.number);
    }
    if (unclaimed.size() > mostUnclaimed)
        problems << unclaimed;
}

/// A save writes some records twice: under its new name first, then with its new contents.
bool JournalWitness::IsSavedAgain(std::size_t record) const
{
    if (record + 1 >= m_records.size())
        return false;
    const Record& now = m_records[record];
    const Record& next = m_records[record + 1];
    return next.isSave && next.isConnection == now.isConnection && next.name == now.name;
}
