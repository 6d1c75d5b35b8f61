#include "tests/database/TwoPrograms.h"
#include "tests/scan/NotSavedFixture.h"

/// The list of nodes that are not saved, on a database that another program uses too.
class TestNotSavedListOnDatabase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { RegisterComponent(HvxDatabaseId, nullptr); }

    void Save_ConnectionTouchedElsewhere_EndsThere_data();
    void Save_ConnectionTouchedElsewhere_EndsThere();
    void Save_BlankName_StaysListedUntold();
};

namespace {

const QString Prevented =
    QStringLiteral("Node saving is prevented, because another application has changed (deleted) connection "
                   "Alpha.");
constexpr int NodeCount = 6;

class ListOnDatabase : public TwoProgramsOn<NotSavedFixture>
{
public:
    using TwoProgramsOn::TwoProgramsOn;

    /// All records behind what the other program did to the connection.
    QString Touched;

    void Touch(const QString& change)
    {
        if (!Touched.isEmpty())
            return;
        if (change == u"renamed")
            Other->ReplaceParentName("Alpha", "Omega");
        else if (change == u"changed")
            Other->ReplaceParentTarget("Alpha", SaveFixture::GammaTarget);
        else
            Other->DeleteParent("Alpha", true);
        if (change == u"replaced")
            Other->SaveParent("Alpha", SaveFixture::AlphaTarget);
        Touched = Contents();
    }
    /// The same between two nodes, once some are saved.
    void TouchDuringTheRun(const QString& change)
    {
        QTimer::singleShot(0, qApp, [this, change] {
            if (Save.States().count("saved") > 0)
                Touch(change);
            else
                TouchDuringTheRun(change);
        });
    }
};

} // namespace

void TestNotSavedListOnDatabase::Save_ConnectionTouchedElsewhere_EndsThere_data()
{
    QTest::addColumn<QString>("change");
    QTest::addColumn<QString>("step");
    for (const char* change : {"removed", "renamed", "changed", "replaced"}) {
        for (const char* step : {"naming", "list", "rename", "manager", "run", "interrupt question"})
            QTest::addRow("%s, %s", change, step) << change << step;
    }
}

void TestNotSavedListOnDatabase::Save_ConnectionTouchedElsewhere_EndsThere()
{
    QFETCH(const QString, change);
    QFETCH(const QString, step);
    ListOnDatabase s;
    NotSavedFixture& f = s.Save;
    if (step == "naming")
        s.Touch(change);
    QStringList names;
    for (int node = 1; node <= NodeCount; ++node)
        names << QStringLiteral("N%1").arg(node);
    f.Open(names);
    f.Operator.WhileInput = [&] { s.Touch(change); };
    Dialogs().ShowManagerInfo = [&](QWidget*) { s.Touch(change); };
    f.Operator.WhileOpen = [&](const RecordedBox& box) {
        if (box.title == "Interrupt Saving")
            s.Touch(change);
    };
    if (step == "list")
        s.Touch(change);
    else if (step == "rename")
        f.Click("cmdRename");
    else if (step == "manager")
        f.Click("cmdManager");
    else if (step == "run")
        s.TouchDuringTheRun(change);
    f.Operator.Boxes.clear();
    f.Click("cmdSelectAll");
    if (step == "interrupt question") {
        f.Operator.Answers = {BoxAnswer::Cancel};
        f.InNextDialog([&](QDialog& run) { f.ClickIn(run, "cmdLoadStop"); }, 0);
    }

    f.Click("cmdSave");

    const QStringList told = f.Operator.Texts();
    QCOMPARE(told.value(told.size() - 1), Prevented);
    QCOMPARE(told.size(), step == "interrupt question" ? 2 : 1);
    QCOMPARE(f.Operator.Boxes.back(), RecordedBox::Plain(Prevented));
    QCOMPARE(s.Contents(), s.Touched);
    const qsizetype saved = f.States().count("saved");
    QCOMPARE(f.Lines().size(), NodeCount - saved);
    QCOMPARE(saved > 0, step == "run");
    QCOMPARE(f.NewDirect.ConName, "Alpha");
    QVERIFY(f.Form->isVisible());
    // What was saved is found where the other program has left it.
    const bool areGone = change == "removed" || change == "replaced";
    QCOMPARE(s.Record("N1") != "none", saved > 0 && !areGone);
}

void TestNotSavedListOnDatabase::Save_BlankName_StaysListedUntold()
{
    ListOnDatabase s;
    NotSavedFixture& f = s.Save;
    f.Open({"O'Hara", "", "Hub,102 \"A\" T"});
    f.Click("cmdSelectAll");

    f.Click("cmdSave");

    QVERIFY(s.Record("O'Hara") != "none");
    QVERIFY(s.Record("Hub,102 \"A\" T") != "none");
    // A row that could not be saved tells "Yes" until its name is checked again.
    QCOMPARE(f.Shown(), QStringList{"!"});
    QCOMPARE(f.EnabledButtons(), (QStringList{"rename", "replace", "manager", "all"}));
    QVERIFY(f.Operator.Boxes.empty());
}

QTEST_MAIN(TestNotSavedListOnDatabase)
#include "TestNotSavedListOnDatabase.moc"
