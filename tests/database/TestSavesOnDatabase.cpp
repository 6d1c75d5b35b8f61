#include "database/DatabaseState.h"
#include "model/TextHelpers.h"
#include "tests/database/SaveExpectations.h"
#include "tests/database/TwoPrograms.h"

using namespace SaveTexts;

/// The saves on a database, beside another program that uses it too.
class TestSavesOnDatabase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Connections_AreSaved_data();
    void Connections_AreSaved();
    void Nodes_AreSaved_data();
    void Nodes_AreSaved();
    void Refusals_LeaveTheFileAsItWas();
    void OtherProgram_ChangedTheRecord_IsPrevented_data();
    void OtherProgram_ChangedTheRecord_IsPrevented();
    void OtherProgram_WritesWhileTheQuestionStands_IsPrevented_data();
    void OtherProgram_WritesWhileTheQuestionStands_IsPrevented();
    void OtherProgram_HoldsTheDatabase_IsAskedAbout();
    void OperatorWithoutTheRight_ChangesNothing();
};

static qint32 IdOf(bool node, const QString& name)
{
    QString id;
    DatabaseClass& gateway = *Database().DbObject;
    return (node ? gateway.GetNodeIDDb(name, id) : gateway.GetParentIDDb(name, id)) ? ValInt(id) : 0;
}

void TestSavesOnDatabase::Connections_AreSaved_data()
{
    QTest::addColumn<QString>("edited");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("offered");
    QTest::newRow("new") << ""
                         << "Delta"
                         << "New Connection";
    QTest::newRow("replace") << ""
                             << "Beta"
                             << "Beta";
    QTest::newRow("rename") << "Alpha"
                            << "Omega"
                            << "";
    QTest::newRow("retarget") << "Alpha"
                              << "Alpha"
                              << "";
}

void TestSavesOnDatabase::Connections_AreSaved()
{
    QFETCH(QString, edited);
    QFETCH(QString, name);
    QFETCH(QString, offered);
    TwoPrograms fixture;
    if (edited.isEmpty()) {
        fixture.Save.AddConnection();
        fixture.Save.Con().ConName = offered;
    } else {
        fixture.Save.EditConnection(edited);
    }
    fixture.Save.SetValue(1, "77");

    QVERIFY(fixture.Save.Save(name));

    QString target;
    fixture.Other->GetParent(name, target);
    QCOMPARE(target, fixture.Save.Target());
    QVERIFY(target.startsWith("WP=BUST4,ID=77,"));
    QCOMPARE(fixture.Save.Con().ConDbID, IdOf(false, name));
    QCOMPARE(fixture.Save.Operator.Boxes.size(), name == "Beta" ? 1U : 0U);
    QCOMPARE(fixture.Save.TreeContents(), SaveFixture::FreshTreeContents());
}

void TestSavesOnDatabase::Nodes_AreSaved_data()
{
    QTest::addColumn<bool>("isNew");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("conName");
    QTest::newRow("new") << true << "West"
                         << "Gamma";
    QTest::newRow("new onto another") << true << "South"
                                      << "Alpha";
    QTest::newRow("change") << false << "North"
                            << "Alpha";
    QTest::newRow("change of connection") << false << "North"
                                          << "Beta";
    QTest::newRow("rename") << false << "West"
                            << "Alpha";
    QTest::newRow("onto another") << false << "East"
                                  << "Alpha";
    QTest::newRow("other letters") << false << "NORTH"
                                   << "Gamma";
}

void TestSavesOnDatabase::Nodes_AreSaved()
{
    QFETCH(bool, isNew);
    QFETCH(QString, name);
    QFETCH(QString, conName);
    TwoPrograms fixture;
    if (isNew)
        fixture.Save.AddNode("North");
    else
        fixture.Save.EditNode("North");
    fixture.Save.SetValue(1, "77");

    QVERIFY(fixture.Save.SaveNodeAs(name, conName));

    QString savedCon;
    QString target;
    QString nodeType;
    QString commandLine;
    fixture.Other->GetNodeEx(name, savedCon, target, nodeType, commandLine);
    QCOMPARE((QStringList{savedCon, target, nodeType, commandLine}),
             (QStringList{conName, fixture.Save.Target(), "NET4", "1|-port 1"}));
    QCOMPARE(fixture.IndexOf(name), "1");
    QCOMPARE(fixture.Save.Con().NodeDbID, IdOf(true, name));
    QCOMPARE(IdOf(true, "North") != 0, isNew || name.compare("North", Qt::CaseInsensitive) == 0);
    QCOMPARE(fixture.Save.TreeContents(), SaveFixture::FreshTreeContents());
}

void TestSavesOnDatabase::Refusals_LeaveTheFileAsItWas()
{
    TwoPrograms fixture;
    const QString before = fixture.Contents();
    QVERIFY(before.contains("Alpha|WP=BUST4"));
    const QStringList trees = fixture.Save.Trees();
    fixture.Save.Operator.Answers = {BoxAnswer::Ok, BoxAnswer::Ok, BoxAnswer::Ok, BoxAnswer::Cancel};

    fixture.Save.EditConnection("Alpha");
    QVERIFY(!fixture.Save.Save("Beta"));
    fixture.Save.EditConnection("Alpha");
    QVERIFY(!fixture.Save.Save("North"));
    fixture.Save.EditNode("North");
    QVERIFY(!fixture.Save.SaveNodeAs("Gamma"));
    fixture.Save.EditNode("North");
    QVERIFY(!fixture.Save.SaveNodeAs("South"));
    fixture.Save.EditNode("North");
    QVERIFY(!fixture.Save.SaveNodeAs("West", "nowhere"));

    QCOMPARE(fixture.Contents(), before);
    QCOMPARE(fixture.Save.Trees(), trees);
}

static void Kinds()
{
    QTest::addColumn<bool>("node");
    QTest::addColumn<QString>("change");
    for (const bool node : {false, true}) {
        for (const char* change : {"deleted", "changed", "anew"})
            QTest::addRow("%s %s", node ? "node" : "connection", change) << node << change;
    }
}

static void ChangeBy(HvxDatabase& other, bool node, const QString& change, const QString& name)
{
    const QString target = node ? SaveFixture::EastTarget : SaveFixture::GammaTarget;
    if (change == "changed") {
        if (node)
            other.ReplaceNodeTarget(name, "Gamma", target);
        else
            other.ReplaceParentTarget(name, target);
        return;
    }
    if (node)
        other.DeleteNode(name);
    else
        other.DeleteParent(name, true);
    if (change != "anew")
        return;
    if (node)
        other.SaveNode(name, "NET4", target, "Gamma", "");
    else
        other.SaveParent(name, target);
}

void TestSavesOnDatabase::OtherProgram_ChangedTheRecord_IsPrevented_data()
{
    Kinds();
}

void TestSavesOnDatabase::OtherProgram_ChangedTheRecord_IsPrevented()
{
    QFETCH(bool, node);
    QFETCH(QString, change);
    TwoPrograms fixture;
    if (node)
        fixture.Save.EditNode("North");
    else
        fixture.Save.EditConnection("Alpha");
    ChangeBy(*fixture.Other, node, change, node ? "North" : "Alpha");
    const QString before = fixture.Contents();

    QVERIFY(!(node ? fixture.Save.SaveNodeAs("West") : fixture.Save.Save("Omega")));

    QCOMPARE(fixture.Save.Operator.Boxes,
             std::vector{RecordedBox::Plain(Prevented(node ? "node" : "connection"))});
    QCOMPARE(fixture.Contents(), before);
}

void TestSavesOnDatabase::OtherProgram_WritesWhileTheQuestionStands_IsPrevented_data()
{
    Kinds();
}

void TestSavesOnDatabase::OtherProgram_WritesWhileTheQuestionStands_IsPrevented()
{
    QFETCH(bool, node);
    QFETCH(QString, change);
    TwoPrograms fixture;
    if (node) {
        fixture.Save.EditNode("North");
    } else {
        fixture.Save.AddConnection();
        fixture.Save.Con().ConName = "Beta";
    }
    QString before;
    fixture.Save.Operator.WhileOpen = [&](const RecordedBox& box) {
        if (box.flags != BoxFlags::OkCancel)
            return;
        // Nobody waits here: the other program's write goes through at once.
        ChangeBy(*fixture.Other, node, change, node ? "East" : "Beta");
        before = fixture.Contents();
    };

    QVERIFY(!(node ? fixture.Save.SaveNodeAs("East") : fixture.Save.Save("Beta")));

    QCOMPARE(fixture.Save.Operator.Boxes.size(), 2U);
    QCOMPARE(fixture.Save.Operator.Boxes.back(), RecordedBox::Plain(Prevented(node ? "node" : "connection")));
    QVERIFY(!before.isEmpty());
    QCOMPARE(fixture.Contents(), before);
}

void TestSavesOnDatabase::OtherProgram_HoldsTheDatabase_IsAskedAbout()
{
    TwoPrograms fixture;
    fixture.Save.EditConnection("Alpha");
    qint32 started = 0;
    fixture.Other->BeginTransaction(started);
    fixture.Other->DeleteNode("East");
    int questions = 0;
    fixture.Save.Operator.WhileOpen = [&](const RecordedBox&) {
        if (++questions == 2)
            fixture.Other->CommitTransaction(started);
    };

    QVERIFY(fixture.Save.Save("Omega"));

    QCOMPARE(fixture.Save.Operator.Texts(),
             QStringList(2, "Database is in use by another application, do you want to try again ?"));
    QVERIFY(IdOf(false, "Omega") != 0);
}

void TestSavesOnDatabase::OperatorWithoutTheRight_ChangesNothing()
{
    TwoPrograms fixture(false);
    const QString before = fixture.Contents();
    const QStringList trees = fixture.Save.Trees();

    fixture.Save.EditConnection("Alpha");
    QVERIFY(!fixture.Save.Save("Omega"));
    QCOMPARE(fixture.Save.Operator.Texts(),
             (QStringList{UnknownError, "Error in connection database saving."}));
    fixture.Save.AddConnection();
    QVERIFY(!fixture.Save.Save("Delta"));
    QCOMPARE(fixture.Save.Operator.Texts(),
             (QStringList{UnknownError, "Database error, failure in SaveParent."}));
    fixture.Save.EditNode("North");
    QVERIFY(!fixture.Save.SaveNodeAs("West"));
    QCOMPARE(fixture.Save.Operator.Texts(), (QStringList{UnknownError, "Failure in removing Node West."}));

    QCOMPARE(fixture.Contents(), before);
    QCOMPARE(fixture.Save.Trees(), trees);
}

QTEST_GUILESS_MAIN(TestSavesOnDatabase)
#include "TestSavesOnDatabase.moc"
