#include "tests/database/DirectNodes.h"
#include "tests/database/SaveExpectations.h"
#include "tests/database/TwoPrograms.h"

using namespace SaveTexts;

/// SaveDirectNode on a database, beside another program that uses it too.
class TestDirectNodesOnDatabase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Nodes_AreSaved_data();
    void Nodes_AreSaved();
    void OtherProgram_ChangedTheConnection_IsPrevented_data();
    void OtherProgram_ChangedTheConnection_IsPrevented();
    void OtherProgram_WritesWhileTheQuestionStands_IsPrevented_data();
    void OtherProgram_WritesWhileTheQuestionStands_IsPrevented();
    void OtherProgram_HoldsTheDatabase_IsAskedAbout();
    void OperatorWithoutTheRight_ChangesNothing();
};

static void OnConnection(SaveFixture& fixture, const QString& conName, bool isNew)
{
    if (isNew)
        DirectNodes::Compose(fixture, conName);
    else
        DirectNodes::Choose(fixture, conName);
    DirectNodes::Load(fixture);
}

void TestDirectNodesOnDatabase::Nodes_AreSaved_data()
{
    QTest::addColumn<QString>("conName");
    QTest::addColumn<bool>("isNew");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("questions");
    QTest::newRow("new") << "Alpha" << false << "West" << 0;
    QTest::newRow("onto another") << "Alpha" << false << "South" << 1;
    QTest::newRow("onto one elsewhere") << "Alpha" << false << "East" << 1;
    QTest::newRow("new connection") << "Delta" << true << "West" << 0;
    QTest::newRow("new connection, onto another") << "Delta" << true << "North" << 1;
    QTest::newRow("replaced connection") << "Beta" << true << "West" << 1;
    QTest::newRow("replaced connection, onto another") << "Beta" << true << "South" << 2;
}

void TestDirectNodesOnDatabase::Nodes_AreSaved()
{
    QFETCH(QString, conName);
    QFETCH(bool, isNew);
    QFETCH(QString, name);
    QFETCH(int, questions);
    TwoPrograms fixture;
    OnConnection(fixture.Save, conName, isNew);

    QVERIFY(DirectNodes::Save(fixture.Save, name));

    QString savedCon;
    QString target;
    QString nodeType;
    QString commandLine;
    fixture.Other->GetNodeEx(name, savedCon, target, nodeType, commandLine);
    QCOMPARE((QStringList{savedCon, target, nodeType, commandLine}),
             (QStringList{conName, DirectNodes::Target, "NET4", "1|-port 9"}));
    QString conTarget;
    fixture.Other->GetParent(conName, conTarget);
    QCOMPARE(conTarget, isNew ? DirectNodes::NewConnectionTarget : SaveFixture::AlphaTarget);
    QString id;
    fixture.Other->GetParentID(conName, id);
    QCOMPARE(QString::number(fixture.Save.Direct().ConDbID), id.trimmed());
    QCOMPARE(static_cast<int>(fixture.Save.Operator.Boxes.size()), questions);
    QCOMPARE(fixture.Save.TreeContents(), SaveFixture::FreshTreeContents());
}

static void ChangeConnection(TwoPrograms& fixture, const QString& change, const QString& name)
{
    HvxDatabase& other = *fixture.Other;
    if (change == "retargeted")
        other.ReplaceParentTarget(name, SaveFixture::GammaTarget);
    else if (change == "renamed")
        other.ReplaceParentName(name, "Omega");
    else
        other.DeleteParent(name, true);
    if (change == "anew")
        other.SaveParent(name, SaveFixture::GammaTarget);
}

static void Changes()
{
    QTest::addColumn<QString>("change");
    QTest::addColumn<QString>("how");
    QTest::newRow("retargeted") << "retargeted"
                                << "changed";
    QTest::newRow("renamed") << "renamed"
                             << "deleted from database";
    QTest::newRow("deleted") << "deleted"
                             << "deleted from database";
    QTest::newRow("deleted and made anew") << "anew"
                                           << "changed";
}

void TestDirectNodesOnDatabase::OtherProgram_ChangedTheConnection_IsPrevented_data()
{
    Changes();
}

void TestDirectNodesOnDatabase::OtherProgram_ChangedTheConnection_IsPrevented()
{
    QFETCH(QString, change);
    QFETCH(QString, how);
    TwoPrograms fixture;
    OnConnection(fixture.Save, "Alpha", false);
    ChangeConnection(fixture, change, "Alpha");
    const QString before = fixture.Contents();

    QVERIFY(!DirectNodes::Save(fixture.Save, "West"));

    QCOMPARE(fixture.Save.Operator.Boxes, std::vector{RecordedBox::Plain(ConnectionLost("Alpha", how))});
    QCOMPARE(fixture.Contents(), before);
}

void TestDirectNodesOnDatabase::OtherProgram_WritesWhileTheQuestionStands_IsPrevented_data()
{
    Changes();
}

void TestDirectNodesOnDatabase::OtherProgram_WritesWhileTheQuestionStands_IsPrevented()
{
    QFETCH(QString, change);
    QFETCH(QString, how);
    for (const bool isNew : {true, false}) {
        TwoPrograms fixture;
        const QString conName = isNew ? "Beta" : "Alpha";
        OnConnection(fixture.Save, conName, isNew);
        QString before;
        fixture.Save.Operator.WhileOpen = [&](const RecordedBox& box) {
            if (box.flags != BoxFlags::OkCancel)
                return;
            // Nobody waits here: the other program's write goes through at once.
            ChangeConnection(fixture, change, conName);
            before = fixture.Contents();
        };

        // A node elsewhere, so that its question is the first where the connection has none.
        QVERIFY(!DirectNodes::Save(fixture.Save, isNew ? "West" : "East"));

        QCOMPARE(fixture.Save.Operator.Boxes.size(), 2U);
        QCOMPARE(fixture.Save.Operator.Boxes.back(), RecordedBox::Plain(ConnectionLost(conName, how)));
        QVERIFY(!before.isEmpty());
        QCOMPARE(fixture.Contents(), before);
    }
}

void TestDirectNodesOnDatabase::OtherProgram_HoldsTheDatabase_IsAskedAbout()
{
    TwoPrograms fixture;
    OnConnection(fixture.Save, "Delta", true);
    qint32 started = 0;
    fixture.Other->BeginTransaction(started);
    fixture.Other->DeleteNode("East");
    int questions = 0;
    fixture.Save.Operator.WhileOpen = [&](const RecordedBox&) {
        if (++questions == 2)
            fixture.Other->CommitTransaction(started);
    };

    QVERIFY(DirectNodes::Save(fixture.Save, "West"));

    QCOMPARE(fixture.Save.Operator.Texts(),
             QStringList(2, "Database is in use by another application, do you want to try again ?"));
}

void TestDirectNodesOnDatabase::OperatorWithoutTheRight_ChangesNothing()
{
    TwoPrograms fixture(false);
    const QString before = fixture.Contents();
    const QStringList trees = fixture.Save.Trees();

    OnConnection(fixture.Save, "Alpha", false);
    QVERIFY(!DirectNodes::Save(fixture.Save, "West"));
    QCOMPARE(fixture.Save.Operator.Texts(), QStringList{UnknownError});
    OnConnection(fixture.Save, "Delta", true);
    QVERIFY(!DirectNodes::Save(fixture.Save, "West"));
    QCOMPARE(fixture.Save.Operator.Texts(),
             (QStringList{UnknownError, "Database error, failure in SaveParent."}));

    QCOMPARE(fixture.Contents(), before);
    QCOMPARE(fixture.Save.Trees(), trees);
}

QTEST_GUILESS_MAIN(TestDirectNodesOnDatabase)
#include "TestDirectNodesOnDatabase.moc"
