#include "components/hvxdb/HvxDatabaseComponent.h"
#include "database/DatabaseState.h"
#include "platform/Components.h"
#include "scan/network/NameUse.h"
#include "scan/network/SaveRun.h"
#include "tests/components/DatabaseFixture.h"
#include "tests/database/SaveExpectations.h"
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

/// A database, opened by the fixture's gateway and by another program.
class FoundOnDatabase
{
public:
    explicit FoundOnDatabase(bool mayEdit = true)
        : Source(mayEdit ? File.Source() : File.SourceWithoutEditRight()),
          Found([this] { Register(); }),
          Other(File.OpenComponent())
    {}

    void Register() const
    {
        RegisterComponent(HvxDatabaseId, [source = Source] {
            auto component = std::make_unique<HvxDatabaseComponent>(source);
            component->SetBusyTimeout(0);
            return component;
        });
    }

    /// What the other program finds: connection, device, target; "none" without a record.
    [[nodiscard]] QString Record(const QString& name) const
    {
        QString id;
        QString conName;
        QString target;
        QString device;
        QString commandLine;
        Other->GetNodeID(name, id);
        if (id.isEmpty())
            return QStringLiteral("none");
        Other->GetNodeEx(name, conName, target, device, commandLine);
        return QStringList{conName, device, commandLine, target}.join(u';');
    }
    [[nodiscard]] QStringList Contents() const
    {
        return File.Rows(QStringLiteral("SELECT name || '|' || target FROM node ORDER BY id")) +
               File.Rows(QStringLiteral("SELECT name || '|' || target FROM connection ORDER BY id")) +
               File.Rows(QStringLiteral("SELECT max(id) FROM journal"));
    }
    /// Saves the whole list until something ends the run.
    SaveRun::Step RunAll(bool plain = true, const std::function<void(int saved)>& between = {})
    {
        Scan().ScanSelSaveRows.clear();
        Found.Select();
        Scan().ScanSelSaveMode = plain;
        SaveRun run(Found.Direct, Found.NewDirect);
        SaveRun::Step step = SaveRun::Step::More;
        while (step == SaveRun::Step::More) {
            step = run.SaveNext();
            if (between && step == SaveRun::Step::More)
                between(run.SavedCount());
        }
        return step;
    }

    DatabaseFixture File;
    QString Source;
    SaveListFixture Found;
    std::unique_ptr<HvxDatabaseComponent> Other;
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
    s.Found.FindNodes(names);
    s.Found.Direct.NodeType = "NET4";
    s.Found.Direct.CommandLine = "-port 9";

    QVERIFY(CheckNamesInDatabase(Scan().ScanSaveList));
    QCOMPARE(s.Found.States(), QStringList(40, "free"));
    QCOMPARE(s.RunAll(), SaveRun::Step::Done);

    QCOMPARE(s.Found.States(), QStringList(40, "saved"));
    QCOMPARE(s.Record("Hub,1"), "Alpha;NET4;-port 9;" + TargetAt(101));
    QCOMPARE(s.Record("Hub,40"), "Alpha;NET4;-port 9;" + TargetAt(140));
    QCOMPARE(s.Found.TreeContents(), SaveFixture::FreshTreeContents());
    QVERIFY(s.Found.Operator.Boxes.empty());
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
    s.Found.FindNodes({"North", "West", "EAST"});
    const QString before = s.Record("East");

    QCOMPARE(s.RunAll(plain), SaveRun::Step::Done);

    const QString others = plain ? "exists" : "saved";
    QCOMPARE(s.Found.States(), (QStringList{others, "saved", others}));
    QCOMPARE(s.Record("East") == before, plain);
    QCOMPARE(s.Record("East") == "Alpha;;;" + TargetAt(103), !plain);
    QCOMPARE(s.File.RunSql("SELECT count(*) FROM node").toInt(), 4);
    QCOMPARE(s.Found.TreeContents(), SaveFixture::FreshTreeContents());
    QVERIFY(s.Found.Operator.Boxes.empty());
}

void TestSaveListOnDatabase::Check_Names_AreFoundByTheirFolding()
{
    FoundOnDatabase s;
    s.Found.FindNodes({"NORTH", " South", "Alpha", "West", "O'Hara", ""});

    QVERIFY(CheckNamesInDatabase(Scan().ScanSaveList));

    QCOMPARE(s.Found.States(), (QStringList{"exists", "exists", "free", "free", "free", "free"}));
}

void TestSaveListOnDatabase::Check_LongName_IsSearchedByItsBeginning()
{
    FoundOnDatabase s;
    const QString name(32, 'x');
    s.Other->SaveNode(name, "", TargetAt(1), "Alpha", "");
    s.Found.FindNodes({name, name + 'y'});

    QVERIFY(CheckNamesInDatabase(Scan().ScanSaveList));

    QCOMPARE(s.Found.States(), QStringList(2, "exists"));
}

void TestSaveListOnDatabase::NameUse_Names_AreFound()
{
    FoundOnDatabase s;
    s.Found.FindNodes({"West", "North", "South", "East", "Gamma"});
    s.Found.Row(2).address = "17";
    QStringList findings;
    for (const ScanSaveRow& row : Scan().ScanSaveList) {
        NameFinding finding;
        QVERIFY(FindNameUse("Alpha", row, finding));
        findings << QStringLiteral("%1 %2 %3").arg(int(finding.use)).arg(finding.conName, finding.address);
    }

    QCOMPARE(findings, (QStringList{"0  ", "1 Alpha 17", "2 Alpha 18", "3 Beta 4094", "4  "}));
    QVERIFY(s.Found.Operator.Boxes.empty());
}

void TestSaveListOnDatabase::Run_NodeSavedElsewhereMeanwhile_Stays()
{
    FoundOnDatabase s;
    s.Found.FindNodes({"One", "Two", "Three"});
    QVERIFY(CheckNamesInDatabase(Scan().ScanSaveList));

    QCOMPARE(s.RunAll(true,
                      [&](int saved) {
                          if (saved == 1)
                              s.Other->SaveNode("Two", "", TargetAt(9), "Beta", "");
                      }),
             SaveRun::Step::Done);

    QCOMPARE(s.Found.States(), (QStringList{"saved", "exists", "saved"}));
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
    s.Found.FindNodes({"One", "Two", "Three"});
    QVERIFY(CheckNamesInDatabase(Scan().ScanSaveList));
    QStringList before;
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

    QCOMPARE(s.Found.Operator.Boxes, std::vector{RecordedBox::Plain(
                                         "Node saving is prevented, because another application has changed "
                                         "(deleted) connection Alpha.")});
    QCOMPARE(s.Found.States(), QStringList(after, "saved") + QStringList(3 - after, "free"));
    QCOMPARE(s.Contents(), before);
    QCOMPARE(s.Found.NewDirect.ConName, "Alpha");
}

void TestSaveListOnDatabase::Run_DatabaseHeldElsewhere_IsDeniedAndGoesOnLater()
{
    FoundOnDatabase s;
    s.Found.FindNodes({"One", "Two", "Three"});
    QVERIFY(CheckNamesInDatabase(Scan().ScanSaveList));
    qint32 started = 0;
    s.Found.Operator.Answers = {BoxAnswer::Cancel};

    QCOMPARE(s.RunAll(true,
                      [&](int saved) {
                          if (saved != 1)
                              return;
                          s.Other->BeginTransaction(started);
                          s.Other->DeleteNode("East");
                      }),
             SaveRun::Step::Denied);

    QCOMPARE(s.Found.Operator.Boxes.back(), RecordedBox::Error(Denied));
    QCOMPARE(s.Found.States(), (QStringList{"saved", "free", "free"}));
    s.Other->RollbackTransaction();
    QVERIFY(s.Record("One") != "none");
    Scan().ScanSaveList.erase(Scan().ScanSaveList.begin());
    QCOMPARE(s.RunAll(), SaveRun::Step::Done);
    QCOMPARE(s.Found.States(), QStringList(2, "saved"));
}

void TestSaveListOnDatabase::Check_DatabaseHeldElsewhere_WaitsOnlyWhereReadersMust()
{
    FoundOnDatabase s;
    s.Found.FindNodes({"One", "North"});
    qint32 started = 0;
    s.Other->BeginTransaction(started);
    s.Other->DeleteNode("East");

    s.Found.Operator.Answers = {BoxAnswer::Cancel};

    // A server keeps readers and writers apart; a file has room for one of them.
    QCOMPARE(CheckNamesInDatabase(Scan().ScanSaveList), s.File.OnServer());

    if (s.File.OnServer())
        QVERIFY(s.Found.Operator.Boxes.empty());
    else
        QCOMPARE(s.Found.Operator.Boxes.back(), RecordedBox::Error(Denied));
    s.Other->RollbackTransaction();
    QVERIFY(CheckNamesInDatabase(Scan().ScanSaveList));
    QCOMPARE(s.Found.States(), (QStringList{"free", "exists"}));
}

void TestSaveListOnDatabase::Run_WithoutTheRight_ChangesNothing()
{
    FoundOnDatabase s(false);
    s.Found.FindNodes({"One", "North"});
    const QStringList before = s.Contents();
    const QStringList trees = s.Found.Trees();

    (void)s.RunAll(false);

    QVERIFY(!s.Found.Operator.Boxes.empty());
    QVERIFY(!s.Found.States().contains("saved"));
    QCOMPARE(s.Contents(), before);
    QCOMPARE(s.Found.Trees(), trees);
}

QTEST_GUILESS_MAIN(TestSaveListOnDatabase)
#include "TestSaveListOnDatabase.moc"
