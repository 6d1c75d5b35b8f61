#include "scan/network/NameUse.h"
#include "scan/network/SaveRun.h"
#include "tests/database/SaveExpectations.h"
#include "tests/database/TwoPrograms.h"
#include "tests/scan/network/SaveListFixture.h"

using namespace SaveTexts;

/// Found nodes on a database, beside another program that uses it too.
class TestSaveListOnDatabase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { RegisterComponent(HvxDatabaseId, nullptr); }

    void Run_FreeNames_AreSavedForAll();
    void Run_ExistingNames_AreReplacedOrStay_data();
    void Run_ExistingNames_AreReplacedOrStay();
    void Check_Names_AreFoundByTheirFolding();
    void Check_LongName_IsSearchedByItsBeginning();
    void NameUse_Names_AreFound();
    void Run_NodeSavedElsewhereMeanwhile_Stays();
    void Run_ConnectionTouchedElsewhere_EndsThere_data();
    void Run_ConnectionTouchedElsewhere_EndsThere();
    void Run_DatabaseHeldElsewhere_IsDeniedAndGoesOnLater();
    void Check_DatabaseHeldElsewhere_WaitsOnlyWhereReadersMust();
    void Run_WithoutTheRight_ChangesNothing();
};

namespace {

class FoundOnDatabase : public TwoProgramsOn<SaveListFixture>
{
public:
    using TwoProgramsOn::TwoProgramsOn;

    /// Saves the whole list until something ends the run.
    SaveRun::Step RunAll(bool plain = true, const std::function<void(int saved)>& between = {})
    {
        Scan().ScanSelSaveRows.clear();
        Save.Select();
        Scan().ScanSelSaveMode = plain;
        SaveRun run(Save.Direct, Save.NewDirect);
        SaveRun::Step step = SaveRun::Step::More;
        while (step == SaveRun::Step::More) {
            step = run.SaveNext();
            if (between && step == SaveRun::Step::More)
                between(run.SavedCount());
        }
        return step;
    }
};

QString TargetAt(int address)
{
    return QStringLiteral("WP=NET4,ADDR=%1,TIME=1500,RETRY=3").arg(address);
}

} // namespace

void TestSaveListOnDatabase::Run_FreeNames_AreSavedForAll()
{
    FoundOnDatabase s;
    QStringList names;
    for (int node = 1; node <= 40; ++node)
        names << QStringLiteral("Hub,%1").arg(node);
    s.Save.FindNodes(names);
    s.Save.Direct.NodeType = "NET4";
    s.Save.Direct.CommandLine = "-port 9";

    QVERIFY(CheckNamesInDatabase(Scan().ScanSaveList));
    QCOMPARE(s.Save.States(), QStringList(40, "free"));
    QCOMPARE(s.RunAll(), SaveRun::Step::Done);

    QCOMPARE(s.Save.States(), QStringList(40, "saved"));
    QCOMPARE(s.Record("Hub,1"), "Alpha;NET4;-port 9;" + TargetAt(101));
    QCOMPARE(s.Record("Hub,40"), "Alpha;NET4;-port 9;" + TargetAt(140));
    QCOMPARE(s.Save.TreeContents(), SaveFixture::FreshTreeContents());
    QVERIFY(s.Save.Operator.Boxes.empty());
}

void TestSaveListOnDatabase::Run_ExistingNames_AreReplacedOrStay_data()
{
    QTest::addColumn<bool>("plain");
    QTest::newRow("plain") << true;
    QTest::newRow("replace") << false;
}

void TestSaveListOnDatabase::Run_ExistingNames_AreReplacedOrStay()
{
    QFETCH(bool, plain);
    FoundOnDatabase s;
    s.Save.FindNodes({"North", "West", "EAST"});
    const QString before = s.Record("East");

    QCOMPARE(s.RunAll(plain), SaveRun::Step::Done);

    const QString others = plain ? "exists" : "saved";
    QCOMPARE(s.Save.States(), (QStringList{others, "saved", others}));
    QCOMPARE(s.Record("East") == before, plain);
    QCOMPARE(s.Record("East") == "Alpha;;;" + TargetAt(103), !plain);
    QCOMPARE(s.File.RunSql("SELECT count(*) FROM node").toInt(), 4);
    QCOMPARE(s.Save.TreeContents(), SaveFixture::FreshTreeContents());
    QVERIFY(s.Save.Operator.Boxes.empty());
}

void TestSaveListOnDatabase::Check_Names_AreFoundByTheirFolding()
{
    FoundOnDatabase s;
    s.Save.FindNodes({"NORTH", " South", "Alpha", "West", "O'Hara", ""});

    QVERIFY(CheckNamesInDatabase(Scan().ScanSaveList));

    QCOMPARE(s.Save.States(), (QStringList{"exists", "exists", "free", "free", "free", "free"}));
}

void TestSaveListOnDatabase::Check_LongName_IsSearchedByItsBeginning()
{
    FoundOnDatabase s;
    const QString name(32, 'x');
    s.Other->SaveNode(name, "", TargetAt(1), "Alpha", "");
    s.Save.FindNodes({name, name + 'y'});

    QVERIFY(CheckNamesInDatabase(Scan().ScanSaveList));

    QCOMPARE(s.Save.States(), QStringList(2, "exists"));
}

void TestSaveListOnDatabase::NameUse_Names_AreFound()
{
    FoundOnDatabase s;
    s.Save.FindNodes({"West", "North", "South", "East", "Gamma"});
    s.Save.Row(2).address = "17";
    QStringList findings;
    for (const ScanSaveRow& row : Scan().ScanSaveList) {
        NameFinding finding;
        QVERIFY(FindNameUse("Alpha", row, finding));
        findings << QStringLiteral("%1 %2 %3").arg(int(finding.use)).arg(finding.conName, finding.address);
    }

    QCOMPARE(findings, (QStringList{"0  ", "1 Alpha 17", "2 Alpha 18", "3 Beta 4094", "4  "}));
    QVERIFY(s.Save.Operator.Boxes.empty());
}

void TestSaveListOnDatabase::Run_NodeSavedElsewhereMeanwhile_Stays()
{
    FoundOnDatabase s;
    s.Save.FindNodes({"One", "Two", "Three"});
    QVERIFY(CheckNamesInDatabase(Scan().ScanSaveList));

    QCOMPARE(s.RunAll(true,
                      [&](int saved) {
                          if (saved == 1)
                              s.Other->SaveNode("Two", "", TargetAt(9), "Beta", "");
                      }),
             SaveRun::Step::Done);

    QCOMPARE(s.Save.States(), (QStringList{"saved", "exists", "saved"}));
    QCOMPARE(s.Record("Two"), "Beta;;;" + TargetAt(9));
}

void TestSaveListOnDatabase::Run_ConnectionTouchedElsewhere_EndsThere_data()
{
    QTest::addColumn<QString>("change");
    QTest::addColumn<int>("after");
    for (const char* change : {"removed", "renamed", "changed", "anew"}) {
        for (const int after : {0, 1, 2})
            QTest::addRow("%s after %d", change, after) << change << after;
    }
}

void TestSaveListOnDatabase::Run_ConnectionTouchedElsewhere_EndsThere()
{
    QFETCH(QString, change);
    QFETCH(int, after);
    FoundOnDatabase s;
    s.Save.FindNodes({"One", "Two", "Three"});
    QVERIFY(CheckNamesInDatabase(Scan().ScanSaveList));
    QString before;
    const auto touch = [&](int saved) {
        if (saved != after)
            return;
        if (change == "renamed")
            s.Other->ReplaceParentName("Alpha", "Omega");
        else if (change == "changed")
            s.Other->ReplaceParentTarget("Alpha", SaveFixture::GammaTarget);
        else
            s.Other->DeleteParent("Alpha", true);
        if (change == "anew")
            s.Other->SaveParent("Alpha", SaveFixture::AlphaTarget);
        before = s.Contents();
    };
    touch(0);

    QCOMPARE(s.RunAll(true, touch), SaveRun::Step::Failed);

    QCOMPARE(s.Save.Operator.Boxes, std::vector{RecordedBox::Plain(
                                        "Node saving is prevented, because another application has changed "
                                        "(deleted) connection Alpha.")});
    QCOMPARE(s.Save.States(), QStringList(after, "saved") + QStringList(3 - after, "free"));
    QCOMPARE(s.Contents(), before);
    QCOMPARE(s.Save.NewDirect.ConName, "Alpha");
}

void TestSaveListOnDatabase::Run_DatabaseHeldElsewhere_IsDeniedAndGoesOnLater()
{
    FoundOnDatabase s;
    s.Save.FindNodes({"One", "Two", "Three"});
    QVERIFY(CheckNamesInDatabase(Scan().ScanSaveList));
    qint32 started = 0;
    s.Save.Operator.Answers = {BoxAnswer::Cancel};

    QCOMPARE(s.RunAll(true,
                      [&](int saved) {
                          if (saved != 1)
                              return;
                          s.Other->BeginTransaction(started);
                          s.Other->DeleteNode("East");
                      }),
             SaveRun::Step::Denied);

    QCOMPARE(s.Save.Operator.Boxes.back(), RecordedBox::Error(Denied));
    QCOMPARE(s.Save.States(), (QStringList{"saved", "free", "free"}));
    s.Other->RollbackTransaction();
    QVERIFY(s.Record("One") != "none");
    Scan().ScanSaveList.erase(Scan().ScanSaveList.begin());
    QCOMPARE(s.RunAll(), SaveRun::Step::Done);
    QCOMPARE(s.Save.States(), QStringList(2, "saved"));
}

void TestSaveListOnDatabase::Check_DatabaseHeldElsewhere_WaitsOnlyWhereReadersMust()
{
    FoundOnDatabase s;
    s.Save.FindNodes({"One", "North"});
    qint32 started = 0;
    s.Other->BeginTransaction(started);
    s.Other->DeleteNode("East");

    s.Save.Operator.Answers = {BoxAnswer::Cancel};

    // A server keeps readers and writers apart; a file has room for one of them.
    QCOMPARE(CheckNamesInDatabase(Scan().ScanSaveList), s.File.OnServer());

    if (s.File.OnServer())
        QVERIFY(s.Save.Operator.Boxes.empty());
    else
        QCOMPARE(s.Save.Operator.Boxes.back(), RecordedBox::Error(Denied));
    s.Other->RollbackTransaction();
    QVERIFY(CheckNamesInDatabase(Scan().ScanSaveList));
    QCOMPARE(s.Save.States(), (QStringList{"free", "exists"}));
}

void TestSaveListOnDatabase::Run_WithoutTheRight_ChangesNothing()
{
    FoundOnDatabase s(false);
    s.Save.FindNodes({"One", "North"});
    const QString before = s.Contents();
    const QStringList trees = s.Save.Trees();

    (void)s.RunAll(false);

    QVERIFY(!s.Save.Operator.Boxes.empty());
    QVERIFY(!s.Save.States().contains("saved"));
    QCOMPARE(s.Contents(), before);
    QCOMPARE(s.Save.Trees(), trees);
}

QTEST_GUILESS_MAIN(TestSaveListOnDatabase)
#include "TestSaveListOnDatabase.moc"
