#include "components/hvxdb/HvxNames.h"
#include "components/hvxdb/JournalTable.h"
#include "components/hvxdb/RecordReader.h"
#include "components/hvxdb/RecordWriter.h"
#include "tests/components/DatabaseFixture.h"

#include <QRandomGenerator>
#include <QTest>

/// What is kept of the Journal and its nodes answers as plain statements do, whatever is done in between.
class TestHvxJournalAtRandom : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Answers_AfterAnything_AreThoseOfPlainStatements_data();
    void Answers_AfterAnything_AreThoseOfPlainStatements();
};

namespace {

const QString Alpha = QStringLiteral("Alpha");
const QString Beta = QStringLiteral("Beta");

/// Answers to the same questions, by what is kept and by the plain statements.
class TwoWays
{
public:
    explicit TwoWays(HvxStore& store) : m_store(store) {}

    QStringList Ask(qint32 id, const QString& name) const
    {
        const JournalTable journal(m_store);
        const JournalRecord record = journal.Record(id);
        const NodeRow node = RecordReader(m_store).Node(name);
        return {QString::number(journal.LastId()),
                Joined({QString::number(record.recordType), record.text1, QString::number(record.number),
                        record.text2}),
                Joined({QString::number(node.id), node.target, node.nodeType, node.commandTail,
                        node.managerIndex, node.conName})};
    }

    QStringList AskPlainly(qint32 id, const QString& name) const
    {
        SqlSession& session = m_store.Session();
        const qint64 last = session.NumberOfText(QStringLiteral("SELECT max(id) FROM journal"));
        QStringList record{QStringLiteral("0"), QString(), QStringLiteral("0"), QString()};
        {
            SqlRows rows = session.Read(HvxStatement::JournalRecord, {id});
            if (rows.Next())
                record = {rows.Text(0), rows.Text(1), rows.Text(2), rows.Text(3)};
        }
        QStringList node{QStringLiteral("0"), QString(), QString(), QString(), QString(), QString()};
        SqlRows rows = session.Read(HvxStatement::NodeByNameInColumns, {FoldedName(name)});
        if (rows.Next())
            node = {rows.Text(0), rows.Text(1), rows.Text(2), rows.Text(3), rows.Text(4), rows.Text(6)};
        return {QString::number(last), Joined(record), Joined(node)};
    }

private:
    static QString Joined(const QStringList& fields) { return fields.join(u'|'); }

    HvxStore& m_store;
};

/// Does one thing after the other to a database, at random.
class RandomWork
{
public:
    RandomWork(HvxStore& store, quint32 seed) : m_store(store), m_random(seed) {}

    [[nodiscard]] int Number(int below) { return m_random.bounded(below); }

    [[nodiscard]] QString Name()
    {
        static const QStringList names = {
            QStringLiteral("North"),   QStringLiteral("South"),    QStringLiteral("East"),
            QStringLiteral("Nowhere"), QStringLiteral("Überall"),  QStringLiteral("İzmir STRASSE ß"),
            QStringLiteral("a\tb\nc"), QStringLiteral("x\u0085y"), QStringLiteral("N 1"),
            QStringLiteral("N 2"),
        };
        const QString name = names[Number(static_cast<int>(names.size()))];
        switch (Number(4)) {
        case 0:
            return name.toUpper();
        case 1:
            return u' ' + name.toLower() + u' ';
        default:
            return name;
        }
    }

    void Step()
    {
        switch (Number(10)) {
        case 0:
        case 1:
            m_store.Begin();
            break;
        case 2:
            if (m_store.InTransaction())
                m_store.Commit();
            break;
        case 3:
            m_store.Rollback();
            break;
        case 4:
            DatabaseFixture::ErrorOf([&] { Write(); });
            break;
        case 5:
            JournalTable(m_store).ClearByRecordLimit(9000 + Number(600), 8900);
            break;
        default:
            // Behind the chunk's border as well as before it.
            (void)JournalTable(m_store).IdsAfter(Number(9500));
            break;
        }
    }

private:
    void Write()
    {
        RecordWriter writer(m_store);
        switch (Number(5)) {
        case 0:
            writer.DeleteNode(Name(), false);
            break;
        case 1:
            writer.RenameNode(Name(), Name());
            break;
        case 2:
            writer.SetNodeTarget(Name(), Number(2) == 0 ? Alpha : Beta, Name());
            break;
        default:
            writer.SaveNode(Name(), QStringLiteral("NET4"), Name(), Alpha, Name());
            break;
        }
    }

    HvxStore& m_store;
    QRandomGenerator m_random;
};

} // namespace

void TestHvxJournalAtRandom::Answers_AfterAnything_AreThoseOfPlainStatements_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 3; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void TestHvxJournalAtRandom::Answers_AfterAnything_AreThoseOfPlainStatements()
{
    QFETCH(quint32, seed);
    const DatabaseFixture fixture;
    // More than two chunks, with names that come and go and numbers of nodes that are something else by now.
    fixture.RunSql(QStringLiteral("WITH RECURSIVE n (i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n"
                                  " WHERE i < 9200)"
                                  " INSERT INTO journal (record_type, text1, number, text2)"
                                  " SELECT 30 + 10 * (i % 2), 'N ' || (i % 7), i % 40, 'x' FROM n"));
    HvxStore store;
    store.Open(fixture.Source());
    const TwoWays ways(store);
    RandomWork work(store, seed);

    for (int step = 0; step < 250; ++step) {
        work.Step();
        for (int question = 0; question < 12; ++question) {
            const qint32 id = work.Number(4) == 0 ? work.Number(9) - 2 : work.Number(9500);
            const QString name = work.Name();
            QCOMPARE(ways.Ask(id, name), ways.AskPlainly(id, name));
        }
    }
}

QTEST_GUILESS_MAIN(TestHvxJournalAtRandom)
#include "TestHvxJournalAtRandom.moc"
