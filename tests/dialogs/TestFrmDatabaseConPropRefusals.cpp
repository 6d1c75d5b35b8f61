#include "platform/ComponentError.h"
#include "tests/dialogs/ConPropFixture.h"

#include <QTest>

namespace {

const QString Denied = QStringLiteral("Database access is denied, because another application is using it.");
const QString NoSaving = QStringLiteral(
    "No saving, because of an error in waypoint parameters or mandatory waypoint is missing all its "
    "parameters.");
const QString Changed = QStringLiteral("Save is prevented, because another application has changed this "
                                       "connection. Close dialog and try again.");

QString NodeHasName(const QString& name)
{
    return QStringLiteral("Node name %1 already exists in the database. No saving, because connections and "
                          "nodes cannot share the same name.")
        .arg(name);
}

} // namespace

/// Saves that the connection dialog refuses: what it tells, and that the operator's input stays.
class TestFrmDatabaseConPropRefusals : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Save_ReservedName_IsRefusedWithoutTheDatabase_data();
    void Save_ReservedName_IsRefusedWithoutTheDatabase();
    void Save_Refused_TellsAndKeepsTheInput_data();
    void Save_Refused_TellsAndKeepsTheInput();
    void Save_BeginDenied_TellsAndKeepsTheInput();
    void Save_NoWaypoint_TellsAndKeepsTheInput();
    void Save_DeletedElsewhere_IsPrevented();
    void Save_DeletedAndMadeAnewElsewhere_IsPrevented();
    void Save_CommitFails_KeepsTheInput();
    void Save_AfterARefusal_CanBeRepeated();

private:
    /// The dialog is as it was, and so is the database.
    static void CheckNothingSaved(ConPropFixture& fixture, const QStringList& records);
};

void TestFrmDatabaseConPropRefusals::CheckNothingSaved(ConPropFixture& fixture, const QStringList& records)
{
    QVERIFY(fixture.Form->isVisible());
    QCOMPARE(fixture.Records(), records);
    QCOMPARE(fixture.Component.Store.Levels(), 0);
    QCOMPARE(fixture.LevelsUnderBoxes, 0);
    QCOMPARE(fixture.TreeContents(), SaveFixture::FreshTreeContents());
}

void TestFrmDatabaseConPropRefusals::Save_ReservedName_IsRefusedWithoutTheDatabase_data()
{
    QTest::addColumn<QString>("name");

    for (const char* name : {"New Connection", "new connection", "NEW CONNECTION", "nEw cOnnection"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestFrmDatabaseConPropRefusals::Save_ReservedName_IsRefusedWithoutTheDatabase()
{
    QFETCH(QString, name);
    ConPropFixture fixture;
    fixture.Edit("Alpha");
    fixture.TypeName(name);
    fixture.Forget();

    fixture.Click("cmdSave");

    QCOMPARE(fixture.Operator.Boxes,
             std::vector<RecordedBox>{RecordedBox::Plain(
                 "'New Connection' cannot be used as a connection name, give a new name.")});
    QCOMPARE(fixture.Component.Calls, QStringList());
    QVERIFY(fixture.Form->isVisible());
    QCOMPARE(fixture.Name().text(), name);
}

void TestFrmDatabaseConPropRefusals::Save_Refused_TellsAndKeepsTheInput_data()
{
    QTest::addColumn<bool>("isNew");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("left");
    QTest::addColumn<RecordedBox>("box");

    const QString beta = "Connection Beta already exists. Give a new name.";
    const RecordedBox taken{beta, 0, "Information"};
    QTest::newRow("empty name") << false << ""
                                << "" << RecordedBox::Plain(NoSaving);
    QTest::newRow("blank name") << true << "   "
                                << "" << RecordedBox::Plain(NoSaving);
    QTest::newRow("new, taken") << true << "Beta"
                                << "Beta" << taken;
    QTest::newRow("rename, taken") << false << "Beta"
                                   << "Beta" << taken;
    QTest::newRow("rename, taken, blanks") << false << " Beta "
                                           << "Beta" << taken;
    QTest::newRow("new, name of a node") << true << "North"
                                         << "North" << RecordedBox::Plain(NodeHasName("North"));
    QTest::newRow("rename, name of a node") << false << "East"
                                            << "East" << RecordedBox::Plain(NodeHasName("East"));
}

void TestFrmDatabaseConPropRefusals::Save_Refused_TellsAndKeepsTheInput()
{
    QFETCH(bool, isNew);
    QFETCH(QString, typed);
    QFETCH(QString, left);
    QFETCH(RecordedBox, box);
    ConPropFixture fixture;
    if (isNew)
        fixture.AddCopyOf("Alpha");
    else
        fixture.Edit("Alpha");
    QTest::keyClick(&fixture.Name(), Qt::Key_Delete);
    QTest::keyClicks(&fixture.Name(), typed);
    const QStringList records = fixture.Records();
    const QStringList flags = fixture.Flags();

    fixture.Click("cmdSave");

    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{box});
    QCOMPARE(fixture.Name().text(), left);
    QCOMPARE(fixture.Flags(), flags);
    CheckNothingSaved(fixture, records);
}

void TestFrmDatabaseConPropRefusals::Save_BeginDenied_TellsAndKeepsTheInput()
{
    ConPropFixture fixture;
    fixture.Edit("Alpha");
    fixture.TypeName("Omega ");
    const QStringList records = fixture.Records();
    fixture.Component.Fail("BeginTransaction");

    fixture.Click("cmdSave");

    QCOMPARE(fixture.Operator.Boxes.back(), RecordedBox::Error(Denied));
    fixture.Component.Repair();
    CheckNothingSaved(fixture, records);
}

void TestFrmDatabaseConPropRefusals::Save_NoWaypoint_TellsAndKeepsTheInput()
{
    ConPropFixture fixture;
    Model().ConOrderObject.reset();
    fixture.AddFromNothing();
    fixture.TypeName("Omega");
    const QStringList records = fixture.Records();

    fixture.Click("cmdSave");

    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{RecordedBox::Plain(NoSaving)});
    CheckNothingSaved(fixture, records);
}

void TestFrmDatabaseConPropRefusals::Save_DeletedElsewhere_IsPrevented()
{
    ConPropFixture fixture;
    fixture.Edit("Gamma");
    fixture.RemoveElsewhere("Gamma");
    const QStringList records = fixture.Records();

    fixture.Click("cmdSave");

    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{RecordedBox::Plain(Changed)});
    QVERIFY(fixture.Form->isVisible());
    QCOMPARE(fixture.Records(), records);
}

void TestFrmDatabaseConPropRefusals::Save_DeletedAndMadeAnewElsewhere_IsPrevented()
{
    ConPropFixture fixture;
    fixture.Edit("Gamma");
    fixture.TypeName("Omega");
    fixture.ChangeElsewhere("Gamma");
    const QStringList records = fixture.Records();

    fixture.Click("cmdSave");

    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{RecordedBox::Plain(Changed)});
    QVERIFY(fixture.Form->isVisible());
    QCOMPARE(fixture.Name().text(), "Omega");
    QCOMPARE(fixture.Records(), records);
}

void TestFrmDatabaseConPropRefusals::Save_CommitFails_KeepsTheInput()
{
    ConPropFixture fixture;
    fixture.AddCopyOf("Alpha");
    fixture.TypeName("Omega");
    const QStringList records = fixture.Records();
    fixture.Component.BeforeCall = [&](const QString& call) {
        // The outermost commit is the save's own.
        if (call.startsWith("CommitTransaction") && fixture.Component.Store.Levels() == 1)
            throw ComponentError(DatabaseErrorNumber::Refused, "test", "commit");
    };

    fixture.Click("cmdSave");

    fixture.Component.BeforeCall = {};
    QVERIFY(fixture.Operator.Boxes.size() >= 1);
    QVERIFY(fixture.Operator.Texts().contains("Failure to commit database operations."));
    QCOMPARE(fixture.Name().text(), "Omega");
    QVERIFY(fixture.Con().NewCon);
    CheckNothingSaved(fixture, records);
}

void TestFrmDatabaseConPropRefusals::Save_AfterARefusal_CanBeRepeated()
{
    ConPropFixture fixture;
    fixture.Edit("Alpha");
    fixture.TypeName("North");
    fixture.Click("cmdSave");

    fixture.TypeName("Omega");
    fixture.Click("cmdSave");

    QVERIFY(!fixture.Form->isVisible());
    QCOMPARE(fixture.Con().ConName, "Omega");
    QCOMPARE(fixture.TreeContents(), SaveFixture::FreshTreeContents());
}

QTEST_MAIN(TestFrmDatabaseConPropRefusals)
#include "TestFrmDatabaseConPropRefusals.moc"
