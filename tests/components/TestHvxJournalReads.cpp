#include "tests/components/DatabaseFixture.h"

#include <QTest>

/// What reading the Journal costs, and that what is kept for it answers as the database would.
class TestHvxJournalReads : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void Refresh_NothingNew_CostsThreeStatements();
    void Refresh_NothingNew_WritesNothing();
    void Refresh_IdsMissingInBetween_CountsOnce();
    void Refresh_TenThousandRecords_CostsFewStatements();
    void Refresh_Cleaning_IsSeenByWhatFollows();

    void Record_OfTheList_CostsNothing();
    void Record_OutsideTheList_IsAsked_data();
    void Record_OutsideTheList_IsAsked();
    void Record_NameWithControls_IsGivenWhole();
    void Record_OutsideTransaction_CostsOneStatement();
    void Record_AfterOwnWrite_IsRead();
    void Record_AfterInnerRollback_IsRead();
    void LastId_AfterRolledBackWrite_GoesBack();

    void Node_OfTheList_CostsNothing();
    void Node_SavedAgain_IsFoundByName();
    void Node_NameOfOtherLetters_CostsNothing();
    void Node_Gone_RaisesWithoutStatement();
    void Node_GoneWithOtherLetters_IsAsked();
    void Node_GoneWithControls_IsAsked();
    void Node_WithForeignKey_IsNotFound();

private:
    [[nodiscard]] QStringList Changes(qint32 after);
    [[nodiscard]] QString Record(qint32 id);
    [[nodiscard]] QString ConnectionOf(const QString& name);
    /// Statements that an action costs.
    template <typename Action>
    qint64 CostOf(Action action)
    {
        const qint64 before = m_component->StatementCount();
        action();
        return m_component->StatementCount() - before;
    }
    template <typename Action>
    void InTransaction(Action action)
    {
        qint32 started = 0;
        m_component->BeginTransaction(started);
        action();
        m_component->CommitTransaction(started);
    }
    void Refresh(qint32 recordLimit);

    std::unique_ptr<DatabaseFixture> m_fixture;
    std::unique_ptr<HvxDatabaseComponent> m_component;
};

namespace {

const QString Alpha = QStringLiteral("Alpha");
const QString Beta = QStringLiteral("Beta");
const QString North = QStringLiteral("North");
const QString South = QStringLiteral("South");

/// The fixture's six records follow record 1.
constexpr qint32 LastOfFixture = 7;

} // namespace

void TestHvxJournalReads::init()
{
    m_fixture = std::make_unique<DatabaseFixture>();
    m_component = m_fixture->OpenComponent();
}

void TestHvxJournalReads::cleanup()
{
    m_component.reset();
    m_fixture.reset();
}

QStringList TestHvxJournalReads::Changes(qint32 after)
{
    QString list;
    m_component->GetJournalChangesAfterId(after, list);
    return list.split(u'\t', Qt::SkipEmptyParts);
}

QString TestHvxJournalReads::Record(qint32 id)
{
    qint32 recordType = 0;
    qint32 number = 0;
    QString text1;
    QString text2;
    m_component->GetJournalRecordById(id, recordType, text1, number, text2);
    return QStringLiteral("%1 %2 %3%4").arg(recordType).arg(text1).arg(number).arg(text2);
}

/// Empty when the node is gone.
QString TestHvxJournalReads::ConnectionOf(const QString& name)
{
    QString conName;
    QString target;
    const quint32 error = DatabaseFixture::ErrorOf([&] { m_component->GetNode(name, conName, target); });
    return error == DatabaseErrorNumber::Refused ? QString() : conName;
}

/// What a tick of the browser asks when nothing is new, each call in a transaction of its own inside.
void TestHvxJournalReads::Refresh(qint32 recordLimit)
{
    qint32 id = 0;
    InTransaction([&] {
        InTransaction([&] { m_component->GetJournalLastId(id); });
        InTransaction([&] { m_component->JournalClearByRecordLimit(recordLimit, 3); });
        InTransaction([&] { m_component->JournalClearByDayLimit(2, 1); });
        InTransaction([&] { m_component->GetJournalLastId(id); });
    });
    QCOMPARE(id, LastOfFixture);
}

void TestHvxJournalReads::Refresh_NothingNew_CostsThreeStatements()
{
    QCOMPARE(CostOf([&] { Refresh(12'000); }), 3);
    QCOMPARE(CostOf([&] { Refresh(LastOfFixture - 1); }), 3);
}

void TestHvxJournalReads::Refresh_NothingNew_WritesNothing()
{
    // A file tells of its changes; a server's rows tell which transaction wrote them.
    const PlainSql other(m_fixture->Source());
    const QString writes =
        DatabaseFixture::OnServer()
            ? QStringLiteral("SELECT string_agg(CAST(xmin AS text), ',' ORDER BY id) FROM journal")
            : QStringLiteral("PRAGMA data_version");
    const QString before = other.Run(writes).toString();

    Refresh(12'000);

    QCOMPARE(other.Run(writes).toString(), before);
    m_component->SaveParent(QStringLiteral("Delta"), QString());
    QVERIFY(other.Run(writes).toString() != before);
}

void TestHvxJournalReads::Refresh_IdsMissingInBetween_CountsOnce()
{
    m_fixture->RunSql(QStringLiteral("DELETE FROM journal WHERE id IN (4, 5)"));
    Refresh(12'000);

    QCOMPARE(CostOf([&] { Refresh(4); }), 4);
    QCOMPARE(CostOf([&] { Refresh(4); }), 3);
    QCOMPARE(Record(2), QStringLiteral("31 Alpha 1"));
    Refresh(3);
    QCOMPARE(Record(2), QStringLiteral("0  0"));
}

void TestHvxJournalReads::Refresh_TenThousandRecords_CostsFewStatements()
{
    constexpr int Nodes = 5000;
    const auto nodeName = [](int i) { return QStringLiteral("Uzel č. %1").arg(i); };
    {
        const auto writer = HvxAdministration::Open(m_fixture->Source())->BeginBulkWrite();
        for (int i = 0; i < Nodes; ++i)
            writer->AddNode({0, nodeName(i), Alpha, QString(), QString(), QString(), QString()});
        for (int i = 0; i < Nodes; ++i)
            writer->UpdateNode({0, nodeName(i), Beta, QString(), QString(), QString(), QString()});
        writer->Commit();
    }
    InTransaction([] {});
    int right = 0;

    const qint64 cost = CostOf([&] {
        InTransaction([&] {
            const QStringList ids = Changes(LastOfFixture);
            QCOMPARE(ids.size(), 2 * Nodes);
            // The second half tells what is there now.
            for (int i = 0; i < 2 * Nodes; ++i) {
                const QString expected =
                    QStringLiteral("%1 %2 %3").arg(i < Nodes ? 30 : 40).arg(nodeName(i % Nodes)).arg(i + 7);
                const bool isRecord = Record(ids[i].toInt()) == expected;
                const bool isNode = i < Nodes || ConnectionOf(nodeName(i - Nodes)) == Beta;
                right += isRecord && isNode ? 1 : 0;
            }
        });
    });

    QCOMPARE(right, 2 * Nodes);
    QVERIFY2(cost <= 6, qPrintable(QString::number(cost)));
}

void TestHvxJournalReads::Refresh_Cleaning_IsSeenByWhatFollows()
{
    InTransaction([&] {
        qint32 id = 0;
        m_component->GetJournalLastId(id);
        QCOMPARE(Changes(1).size(), 6);

        m_component->JournalClearByRecordLimit(5, 2);

        QCOMPARE(Record(5), QStringLiteral("0  0"));
        QCOMPARE(Record(6), QStringLiteral("30 South 5"));
        QCOMPARE(Record(1), QStringLiteral("0 HVX R4.2 0"));
        QCOMPARE(Changes(1), (QStringList{QStringLiteral("6"), QStringLiteral("7")}));
        m_component->JournalClearByRecordLimit(1, 1);
        QCOMPARE(Changes(1), QStringList{QStringLiteral("7")});
    });
}

void TestHvxJournalReads::Record_OfTheList_CostsNothing()
{
    InTransaction([&] {
        QCOMPARE(Changes(4).size(), 3);

        QCOMPARE(CostOf([&] { QCOMPARE(Record(5), QStringLiteral("30 North 4")); }), 0);
        QCOMPARE(CostOf([&] { QCOMPARE(Record(7), QStringLiteral("30 East 6")); }), 0);
        QCOMPARE(CostOf([&] { QCOMPARE(Record(8), QStringLiteral("0  0")); }), 0);
    });
}

void TestHvxJournalReads::Record_OutsideTheList_IsAsked_data()
{
    QTest::addColumn<qint32>("id");
    QTest::addColumn<QString>("expected");
    QTest::newRow("version text") << 1 << QStringLiteral("1 HVX R4.2 0");
    QTest::newRow("before the list") << 4 << QStringLiteral("31 Gamma 3");
    QTest::newRow("trimmed") << 3 << QStringLiteral("0  0");
    QTest::newRow("zero") << 0 << QStringLiteral("0  0");
    QTest::newRow("negative") << -4 << QStringLiteral("0  0");
}

void TestHvxJournalReads::Record_OutsideTheList_IsAsked()
{
    QFETCH(qint32, id);
    m_fixture->RunSql(QStringLiteral("DELETE FROM journal WHERE id = 3"));
    InTransaction([&] {
        QCOMPARE(Changes(4).size(), 3);

        QCOMPARE(CostOf([&] { QTEST(Record(id), "expected"); }), 1);
    });
}

void TestHvxJournalReads::Record_NameWithControls_IsGivenWhole()
{
    const QString name = QStringLiteral("a\tb\x1f\nc");
    m_component->SaveNode(name, QString(), QString(), Alpha, QString());
    InTransaction([&] {
        QCOMPARE(Changes(LastOfFixture), QStringList{QStringLiteral("8")});

        QCOMPARE(Record(8), QStringLiteral("30 %1 7").arg(name));
        QCOMPARE(CostOf([&] { QCOMPARE(ConnectionOf(name), Alpha); }), 0);
    });
}

void TestHvxJournalReads::Record_OutsideTransaction_CostsOneStatement()
{
    QCOMPARE(CostOf([&] { QCOMPARE(Changes(4).size(), 3); }), 1);
    QCOMPARE(CostOf([&] { QCOMPARE(Record(5), QStringLiteral("30 North 4")); }), 1);
    QCOMPARE(CostOf([&] { QCOMPARE(ConnectionOf(North), Alpha); }), 1);
    qint32 id = 0;
    QCOMPARE(CostOf([&] { m_component->GetJournalLastId(id); }), 1);
    QCOMPARE(CostOf([&] { m_component->GetJournalLastId(id); }), 1);
}

void TestHvxJournalReads::Record_AfterOwnWrite_IsRead()
{
    InTransaction([&] {
        QCOMPARE(Changes(4).size(), 3);
        QCOMPARE(Record(8), QStringLiteral("0  0"));

        m_component->ReplaceNodeTarget(North, Beta, QString());

        QCOMPARE(Record(8), QStringLiteral("40 North 7"));
        QCOMPARE(ConnectionOf(North), Beta);
        qint32 id = 0;
        m_component->GetJournalLastId(id);
        QCOMPARE(id, 8);
    });
}

void TestHvxJournalReads::Record_AfterInnerRollback_IsRead()
{
    qint32 started = 0;
    InTransaction([&] {
        m_component->BeginTransaction(started);
        m_component->ReplaceNodeTarget(North, Beta, QString());
        QCOMPARE(Changes(4).size(), 4);
        QCOMPARE(ConnectionOf(North), Beta);

        m_component->RollbackTransaction();

        QCOMPARE(Record(8), QStringLiteral("0  0"));
        QCOMPARE(ConnectionOf(North), Alpha);
    });
}

void TestHvxJournalReads::LastId_AfterRolledBackWrite_GoesBack()
{
    qint32 id = 0;
    qint32 started = 0;
    InTransaction([&] {
        m_component->BeginTransaction(started);
        m_component->DeleteNode(North);
        m_component->GetJournalLastId(id);
        QCOMPARE(id, 8);

        m_component->RollbackTransaction();

        m_component->GetJournalLastId(id);
        QCOMPARE(id, 7);
    });
}

void TestHvxJournalReads::Node_OfTheList_CostsNothing()
{
    InTransaction([&] {
        QCOMPARE(Changes(4).size(), 3);

        const qint64 cost = CostOf([&] {
            QString conName;
            QString target;
            QString nodeType;
            QString commandLine;
            m_component->GetNodeEx(QStringLiteral(" nORTH "), conName, target, nodeType, commandLine);
            QCOMPARE(conName, Alpha);
            QCOMPARE(target, QString::fromLatin1(DatabaseFixture::NorthTarget));
            QCOMPARE(nodeType, QStringLiteral("NET4"));
            QCOMPARE(commandLine, QStringLiteral("1|-port 1"));
            m_component->GetNodeEx(South, conName, target, nodeType, commandLine);
            QCOMPARE(commandLine, QStringLiteral("-port 2"));
            QString id;
            m_component->GetNodeID(North, id);
            QCOMPARE(id, QStringLiteral("4"));
        });
        QCOMPARE(cost, 0);
    });
}

void TestHvxJournalReads::Node_SavedAgain_IsFoundByName()
{
    const auto other = m_fixture->OpenComponent();
    other->ReplaceNodeTarget(North, Beta, QString());
    other->DeleteNodeFromBrowser(South);
    other->SaveNode(QStringLiteral("SOUTH"), QString(), QString(), Beta, QString());
    InTransaction([&] {
        QCOMPARE(Changes(4).first(), QStringLiteral("5"));

        QCOMPARE(Record(5), QStringLiteral("30 North 4"));
        QCOMPARE(CostOf([&] { QCOMPARE(ConnectionOf(North), Beta); }), 0);
        QCOMPARE(CostOf([&] { QCOMPARE(ConnectionOf(South), Beta); }), 0);
    });
}

void TestHvxJournalReads::Node_NameOfOtherLetters_CostsNothing()
{
    m_component->SaveNode(QStringLiteral("ÜBERALL ß"), QString(), QString(), Beta, QString());
    InTransaction([&] {
        QCOMPARE(Changes(LastOfFixture).size(), 1);

        QCOMPARE(CostOf([&] { QCOMPARE(ConnectionOf(QStringLiteral("überall ß")), Beta); }), 0);
    });
}

void TestHvxJournalReads::Node_Gone_RaisesWithoutStatement()
{
    m_component->DeleteNode(North);
    InTransaction([&] {
        QCOMPARE(Changes(4).size(), 4);

        QCOMPARE(CostOf([&] { QCOMPARE(ConnectionOf(QStringLiteral("NORTH")), QString()); }), 0);
        QString answer;
        QCOMPARE(CostOf([&] { m_component->NodeNameExist(North, answer); }), 0);
        QCOMPARE(answer, QStringLiteral("FALSE"));
    });
}

void TestHvxJournalReads::Node_GoneWithOtherLetters_IsAsked()
{
    // A program that keeps keys of its own has given the name to another node.
    const QString name = QStringLiteral("Řeka");
    m_component->SaveNode(name, QString(), QString(), Alpha, QString());
    m_component->DeleteNode(name);
    m_fixture->RunSql(
        QStringLiteral("UPDATE node SET name_key = '%1' WHERE name = 'East'").arg(FoldedName(name)));
    InTransaction([&] {
        QCOMPARE(Changes(LastOfFixture).size(), 2);

        QCOMPARE(CostOf([&] { QCOMPARE(ConnectionOf(name), Beta); }), 1);
    });
}

void TestHvxJournalReads::Node_GoneWithControls_IsAsked()
{
    const QString name = QStringLiteral("a\tb");
    m_component->SaveNode(name, QString(), QString(), Alpha, QString());
    m_component->DeleteNode(name);
    InTransaction([&] {
        QCOMPARE(Changes(LastOfFixture).size(), 2);

        QCOMPARE(CostOf([&] { QCOMPARE(ConnectionOf(name), QString()); }), 1);
    });
}

void TestHvxJournalReads::Node_WithForeignKey_IsNotFound()
{
    // By the number the record leads to a node that no longer has its name.
    m_fixture->RunSql(QStringLiteral("UPDATE node SET name_key = 'elsewhere' WHERE name = 'North'"));
    InTransaction([&] {
        QCOMPARE(Changes(4).size(), 3);

        QCOMPARE(ConnectionOf(North), QString());
        QCOMPARE(ConnectionOf(QStringLiteral("Elsewhere")), Alpha);
    });
}

QTEST_GUILESS_MAIN(TestHvxJournalReads)
#include "TestHvxJournalReads.moc"
