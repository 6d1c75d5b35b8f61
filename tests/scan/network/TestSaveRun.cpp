#include "scan/network/SaveRun.h"
#include "tests/database/SaveExpectations.h"
#include "tests/scan/network/SaveListFixture.h"

using namespace SaveTexts;

/// The rows of a selection, saved one after another.
class TestSaveRun : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void SaveNext_SelectedRows_AreSaved();
    void SaveNext_Mode_DecidesAboutExistingNodes_data();
    void SaveNext_Mode_DecidesAboutExistingNodes();
    void SaveNext_RefusedRow_IsMarkedAndTheNextIsSaved();
    void SaveNext_Denied_LeavesTheRowAsItWas();
    void SaveNext_ConnectionChangedBetweenNodes_KeepsWhatIsSaved();
    void SaveNext_CommitFails_MarksTheRow();
    void SaveNext_CommitFailsOnReplacing_KeepsTheOldNode();
    void SaveNext_ListEmptiedUnderABox_Ends();
    void SaveNext_NoSelection_IsDone();
};

void TestSaveRun::SaveNext_SelectedRows_AreSaved()
{
    SaveListFixture f;
    f.FindNodes({"One", "Two", "Three"});
    f.Select({1, 3});
    SaveRun run(f.Direct, f.NewDirect);

    QCOMPARE(run.SaveNext(), SaveRun::Step::More);
    QCOMPARE(run.SavedCount(), 1);
    QCOMPARE(f.States(), (QStringList{"saved", "exists", "exists"}));
    QCOMPARE(run.SaveNext(), SaveRun::Step::More);
    QCOMPARE(run.SaveNext(), SaveRun::Step::Done);

    QCOMPARE(run.SavedCount(), 2);
    QCOMPARE(f.States(), (QStringList{"saved", "exists", "saved"}));
    QCOMPARE(f.TargetOf("One"), "WP=NET4,ADDR=101,TIME=1500,RETRY=3");
    QCOMPARE(f.TargetOf("Three"), "WP=NET4,ADDR=103,TIME=1500,RETRY=3");
    QCOMPARE(f.TargetOf("Two"), "");
    QCOMPARE(f.Component.Store.Commits, 2);
}

void TestSaveRun::SaveNext_Mode_DecidesAboutExistingNodes_data()
{
    QTest::addColumn<bool>("plain");
    QTest::addColumn<QString>("state");
    QTest::newRow("plain") << true << "exists";
    QTest::newRow("replace") << false << "saved";
}

void TestSaveRun::SaveNext_Mode_DecidesAboutExistingNodes()
{
    QFETCH(bool, plain);
    QFETCH(QString, state);
    SaveListFixture f;
    f.FindNodes({"North"});
    f.Select();
    Scan().ScanSelSaveMode = plain;
    SaveRun run(f.Direct, f.NewDirect);

    QCOMPARE(run.SaveNext(), SaveRun::Step::More);

    QCOMPARE(f.States(), QStringList{state});
    QCOMPARE(f.TargetOf("North").contains("ADDR=101"), !plain);
    QVERIFY(f.Operator.Boxes.empty());
}

void TestSaveRun::SaveNext_RefusedRow_IsMarkedAndTheNextIsSaved()
{
    SaveListFixture f;
    f.FindNodes({"North", "West"});
    f.Select();
    f.Row(1).state = SaveState::NameFree;
    SaveRun run(f.Direct, f.NewDirect);

    QCOMPARE(run.SaveNext(), SaveRun::Step::More);
    QCOMPARE(run.SavedCount(), 1);
    QCOMPARE(run.SaveNext(), SaveRun::Step::More);

    QCOMPARE(f.States(), (QStringList{"exists", "saved"}));
}

void TestSaveRun::SaveNext_Denied_LeavesTheRowAsItWas()
{
    SaveListFixture f;
    f.FindNodes({"West"});
    f.Select();
    f.Row(1).state = SaveState::NameFree;
    f.Component.Fail("BeginTransaction");
    SaveRun run(f.Direct, f.NewDirect);

    QCOMPARE(run.SaveNext(), SaveRun::Step::Denied);

    QCOMPARE(f.States(), QStringList{"free"});
    QCOMPARE(run.SavedCount(), 0);
    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Error(Denied)});
}

void TestSaveRun::SaveNext_ConnectionChangedBetweenNodes_KeepsWhatIsSaved()
{
    SaveListFixture f;
    f.FindNodes({"One", "Two"});
    f.Select();
    f.Row(2).state = SaveState::NameFree;
    SaveRun run(f.Direct, f.NewDirect);
    QCOMPARE(run.SaveNext(), SaveRun::Step::More);
    f.ChangeElsewhere("Alpha");

    QCOMPARE(run.SaveNext(), SaveRun::Step::Failed);

    QCOMPARE(f.States(), (QStringList{"saved", "free"}));
    QCOMPARE(run.SavedCount(), 1);
    QVERIFY(f.Nodes().contains("One"));
    QVERIFY(!f.Nodes().contains("Two"));
}

void TestSaveRun::SaveNext_CommitFails_MarksTheRow()
{
    SaveListFixture f;
    f.FindNodes({"West"});
    f.Select();
    f.Row(1).state = SaveState::NameFree;
    SaveListFixture::Row(1).name = "West";
    int levels = 0;
    f.Component.BeforeCall = [&](const QString& call) {
        levels += call.startsWith(u"BeginTransaction") ? 1 : 0;
        if (call.startsWith(u"CommitTransaction") && --levels == 0)
            f.Component.FailTimes("CommitTransaction", 1);
    };
    SaveRun run(f.Direct, f.NewDirect);

    QCOMPARE(run.SaveNext(), SaveRun::Step::Failed);

    QCOMPARE(f.States(), QStringList{"exists"});
    QVERIFY(!f.Nodes().contains("West"));
    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Error(CommitFailure)});
}

void TestSaveRun::SaveNext_CommitFailsOnReplacing_KeepsTheOldNode()
{
    SaveListFixture f;
    f.FindNodes({"North"});
    f.Select();
    Scan().ScanSelSaveMode = false;
    const QStringList before = f.Records();
    int levels = 0;
    f.Component.BeforeCall = [&](const QString& call) {
        levels += call.startsWith(u"BeginTransaction") ? 1 : 0;
        if (call.startsWith(u"CommitTransaction") && --levels == 0)
            f.Component.FailTimes("CommitTransaction", 1);
    };
    SaveRun run(f.Direct, f.NewDirect);

    QCOMPARE(run.SaveNext(), SaveRun::Step::Failed);

    QCOMPARE(f.Records(), before);
    QCOMPARE(f.States(), QStringList{"exists"});
}

void TestSaveRun::SaveNext_ListEmptiedUnderABox_Ends()
{
    SaveListFixture f;
    f.FindNodes({"One", "Two"});
    f.Select();
    f.Component.Answer("CheckTargetSyntax", {"", "ERROR"});
    f.Operator.WhileOpen = [](const RecordedBox&) { Scan().ScanSaveList.clear(); };
    SaveRun run(f.Direct, f.NewDirect);

    QCOMPARE(run.SaveNext(), SaveRun::Step::More);
    QCOMPARE(run.SaveNext(), SaveRun::Step::Done);

    QCOMPARE(f.Operator.Texts(), QStringList{NoSaving});
}

void TestSaveRun::SaveNext_NoSelection_IsDone()
{
    SaveListFixture f;
    f.FindNodes({"One"});
    SaveRun run(f.Direct, f.NewDirect);

    QCOMPARE(run.SaveNext(), SaveRun::Step::Done);

    QVERIFY(f.Component.Calls.isEmpty());
}

QTEST_GUILESS_MAIN(TestSaveRun)
#include "TestSaveRun.moc"
