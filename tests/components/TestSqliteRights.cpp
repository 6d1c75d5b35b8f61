#include "platform/MachineSeams.h"
#include "tests/components/DatabaseFixture.h"

#include <QTest>

/// Rights in the table of a file: what users read, and that nobody writes without the edit right.
class TestSqliteRights : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void Creator_MayScanAndEdit();
    void Stranger_OfNewDatabase_MayScanOnly();
    void Rights_OwnRowBeforeEveryone_data();
    void Rights_OwnRowBeforeEveryone();
    void Rights_NoRowAtAll_NoRights();
    void ClosedDatabase_NoRights();
    void Write_WithoutEditRight_RefusedAndNothingChanged_data();
    void Write_WithoutEditRight_RefusedAndNothingChanged();
    void BulkWriter_WithoutEditRight_Refused();
    void Managers_WithoutEditRight_Refused();
    void JournalCleaning_WithoutEditRight_Works();
    void RightTakenAway_UnderOpenSession_NextWriteRefused();
    void RightGiven_UnderOpenSession_NextWriteWorks();
    void SetRights_WithoutEditRight_Refused();
    void SetRights_ByOwnerOfFile_WorksWithoutEditRight();

private:
    void WorkAs(const QString& user) const;
    void SetRights(const QString& user, bool scan, bool edit) const;

    std::unique_ptr<DatabaseFixture> m_fixture;
    std::unique_ptr<HvxDatabaseComponent> m_component;
};

namespace {

const QString Alpha = QStringLiteral("Alpha");
const QString North = QStringLiteral("North");
const QString Anna = QStringLiteral("anna");

} // namespace

void TestSqliteRights::init()
{
    ResetMachine();
    m_fixture = std::make_unique<DatabaseFixture>();
    m_component = m_fixture->OpenComponent();
}

void TestSqliteRights::cleanup()
{
    m_component.reset();
    m_fixture.reset();
    ResetMachine();
}

void TestSqliteRights::WorkAs(const QString& user) const
{
    Machine().UserName = [user] { return user; };
}

void TestSqliteRights::SetRights(const QString& user, bool scan, bool edit) const
{
    HvxAdministration::Open(m_fixture->Source())->SetRights(user, scan, edit);
}

void TestSqliteRights::Creator_MayScanAndEdit()
{
    qint32 scan = 0;
    qint32 edit = 0;
    m_component->GetSecRights(scan, edit);
    QVERIFY(scan != 0);
    QVERIFY(edit != 0);
}

void TestSqliteRights::Stranger_OfNewDatabase_MayScanOnly()
{
    WorkAs(Anna);

    qint32 scan = 0;
    qint32 edit = 7;
    m_component->GetSecRights(scan, edit);
    QVERIFY(scan != 0);
    QCOMPARE(edit, 0);
}

void TestSqliteRights::Rights_OwnRowBeforeEveryone_data()
{
    QTest::addColumn<bool>("scan");
    QTest::addColumn<bool>("edit");
    QTest::newRow("nothing") << false << false;
    QTest::newRow("scan") << true << false;
    QTest::newRow("edit") << false << true;
    QTest::newRow("both") << true << true;
}

void TestSqliteRights::Rights_OwnRowBeforeEveryone()
{
    QFETCH(bool, scan);
    QFETCH(bool, edit);
    SetRights(QStringLiteral("*"), !scan, !edit);
    SetRights(Anna, scan, edit);
    WorkAs(Anna);

    qint32 first = 7;
    qint32 second = 7;
    m_component->GetSecRights(first, second);
    QCOMPARE(first != 0, scan);
    QCOMPARE(second != 0, edit);
    WorkAs(QStringLiteral("bert"));
    m_component->GetSecRights(first, second);
    QCOMPARE(first != 0, !scan);
    QCOMPARE(second != 0, !edit);
}

void TestSqliteRights::Rights_NoRowAtAll_NoRights()
{
    m_fixture->RunSql(QStringLiteral("DELETE FROM user_rights"));

    qint32 scan = 7;
    qint32 edit = 7;
    m_component->GetSecRights(scan, edit);
    QCOMPARE(scan, 0);
    QCOMPARE(edit, 0);
}

void TestSqliteRights::ClosedDatabase_NoRights()
{
    m_component->CloseDatabase();

    qint32 scan = 7;
    qint32 edit = 7;
    m_component->GetSecRights(scan, edit);
    QCOMPARE(scan, 0);
    QCOMPARE(edit, 0);
}

using WriteAction = std::function<void(HvxDatabase&)>;
Q_DECLARE_METATYPE(WriteAction)

void TestSqliteRights::Write_WithoutEditRight_RefusedAndNothingChanged_data()
{
    const QString other = QStringLiteral("Other");
    QTest::addColumn<WriteAction>("write");
    QTest::newRow("SaveParent") << WriteAction([=](HvxDatabase& db) { db.SaveParent(other, other); });
    QTest::newRow("SaveNode") << WriteAction(
        [=](HvxDatabase& db) { db.SaveNode(other, other, other, Alpha, other); });
    QTest::newRow("ReplaceParentName")
        << WriteAction([=](HvxDatabase& db) { db.ReplaceParentName(Alpha, other); });
    QTest::newRow("ReplaceParentTarget")
        << WriteAction([=](HvxDatabase& db) { db.ReplaceParentTarget(Alpha, other); });
    QTest::newRow("ReplaceNodeName") << WriteAction(
        [=](HvxDatabase& db) { db.ReplaceNodeName(North, other); });
    QTest::newRow("ReplaceNodeTarget")
        << WriteAction([=](HvxDatabase& db) { db.ReplaceNodeTarget(North, Alpha, other); });
    QTest::newRow("DeleteParent") << WriteAction([=](HvxDatabase& db) { db.DeleteParent(Alpha, true); });
    QTest::newRow("DeleteParentNodes") << WriteAction([=](HvxDatabase& db) { db.DeleteParentNodes(Alpha); });
    QTest::newRow("DeleteNode") << WriteAction([=](HvxDatabase& db) { db.DeleteNode(North); });
    QTest::newRow("DeleteNodeFromBrowser")
        << WriteAction([=](HvxDatabase& db) { db.DeleteNodeFromBrowser(North); });
    QTest::newRow("UpdateUsersList") << WriteAction(
        [=](HvxDatabase& db) { db.UpdateUsersList(Alpha, QStringLiteral("Parent"), other); });
    QTest::newRow("UpdateNodeNmaidx")
        << WriteAction([=](HvxDatabase& db) { db.UpdateNodeNmaidx(North, QStringLiteral("1")); });
}

void TestSqliteRights::Write_WithoutEditRight_RefusedAndNothingChanged()
{
    QFETCH(WriteAction, write);
    WorkAs(Anna);

    QCOMPARE(DatabaseFixture::ErrorOf([&] { write(*m_component); }), DatabaseErrorNumber::Refused);

    QCOMPARE(m_fixture->RunSql(QStringLiteral("SELECT max(id) FROM journal")).toInt(), 7);
    QCOMPARE(m_fixture->RunSql(QStringLiteral("SELECT count(*) FROM users_text")).toInt(), 0);
    WorkAs(QStringLiteral("nobody"));
    // The refusal leaves no transaction behind.
    qint32 started = 0;
    m_fixture->OpenComponent()->BeginTransaction(started);
}

void TestSqliteRights::BulkWriter_WithoutEditRight_Refused()
{
    const auto administration = HvxAdministration::Open(m_fixture->Source());
    WorkAs(Anna);

    QCOMPARE(DatabaseFixture::ErrorOf([&] { (void)administration->BeginBulkWrite(); }),
             DatabaseErrorNumber::Refused);
}

void TestSqliteRights::Managers_WithoutEditRight_Refused()
{
    const auto administration = HvxAdministration::Open(m_fixture->Source());
    WorkAs(Anna);

    QCOMPARE(DatabaseFixture::ErrorOf([&] { administration->AddManager(Alpha, Alpha, Alpha); }),
             DatabaseErrorNumber::Refused);
    QCOMPARE(DatabaseFixture::ErrorOf([&] { administration->RemoveManager(QStringLiteral("NET4")); }),
             DatabaseErrorNumber::Refused);
}

void TestSqliteRights::JournalCleaning_WithoutEditRight_Works()
{
    WorkAs(Anna);

    m_component->JournalClearByRecordLimit(5, 2);

    QCOMPARE(m_fixture->RunSql(QStringLiteral("SELECT count(*) FROM journal")).toInt(), 3);
}

void TestSqliteRights::RightTakenAway_UnderOpenSession_NextWriteRefused()
{
    SetRights(Anna, true, true);
    WorkAs(Anna);
    m_component->SaveParent(QStringLiteral("Delta"), QString());
    ResetMachine();
    SetRights(Anna, true, false);
    WorkAs(Anna);

    QCOMPARE(DatabaseFixture::ErrorOf([&] { m_component->SaveParent(QStringLiteral("Omega"), QString()); }),
             DatabaseErrorNumber::Refused);
}

void TestSqliteRights::RightGiven_UnderOpenSession_NextWriteWorks()
{
    WorkAs(Anna);
    QCOMPARE(DatabaseFixture::ErrorOf([&] { m_component->SaveParent(QStringLiteral("Delta"), QString()); }),
             DatabaseErrorNumber::Refused);
    ResetMachine();
    SetRights(QStringLiteral("*"), true, true);
    WorkAs(Anna);

    m_component->SaveParent(QStringLiteral("Delta"), QString());

    QString answer;
    m_component->ParentNameExist(QStringLiteral("Delta"), answer);
    QCOMPARE(answer, QStringLiteral("TRUE"));
}

void TestSqliteRights::SetRights_WithoutEditRight_Refused()
{
    WorkAs(Anna);

    QCOMPARE(DatabaseFixture::ErrorOf([&] { SetRights(Anna, true, true); }), DatabaseErrorNumber::Refused);

    qint32 scan = 7;
    qint32 edit = 7;
    m_component->GetSecRights(scan, edit);
    QCOMPARE(edit, 0);
}

void TestSqliteRights::SetRights_ByOwnerOfFile_WorksWithoutEditRight()
{
    const QString owner = Machine().UserName();
    SetRights(owner, false, false);
    QCOMPARE(DatabaseFixture::ErrorOf([&] { m_component->SaveParent(QStringLiteral("Delta"), QString()); }),
             DatabaseErrorNumber::Refused);

    SetRights(owner, true, true);

    m_component->SaveParent(QStringLiteral("Delta"), QString());
}

QTEST_GUILESS_MAIN(TestSqliteRights)
#include "TestSqliteRights.moc"
