#include "scan/frmScanSelSaveProgress.h"
#include "tests/database/SaveExpectations.h"
#include "tests/scan/SaveFormsFixture.h"

#include <QLabel>
#include <QProgressBar>

using namespace SaveTexts;

/// A save run behind its progress bar.
class TestFrmScanSelSaveProgress : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Load_Controls_HaveTheirCaptions_data();
    void Load_Controls_HaveTheirCaptions();
    void Run_AllSaved_Unloads();
    void Run_Events_RunAfterEverySecondNode();
    void Run_ShownAgain_DoesNotStartAnew();
    void Cancel_Ok_KeepsWhatIsSaved();
    void Cancel_Declined_GoesOn();
    void Cancel_QuestionOpen_WaitsForTheAnswer();
    void Cancel_TwiceClicked_AsksOnce();
    void Escape_IsCancel();
    void CloseWindow_DuringTheRun_EndsItUnasked();
    void Denied_Stays_UntilClosed_data();
    void Denied_Stays_UntilClosed();
    void Denied_InTheMiddle_KeepsWhatIsSaved();
    void ConnectionChanged_InTheMiddle_Unloads_data();
    void ConnectionChanged_InTheMiddle_Unloads();
    void CommitFails_InTheMiddle_Unloads();
    void RefusedNode_IsToldAndTheRunGoesOn();
    void HostDestroysTheForm_UnderABox_EndsTheRun();
    void HostClosesTheDatabase_BetweenNodes_EndsTheRun();
};

/// Nodes N1, N2, … of a run that has not begun.
static SaveFormsFixture& Selected(SaveFormsFixture& f, int count)
{
    QStringList names;
    for (int node = 1; node <= count; ++node)
        names << QStringLiteral("N%1").arg(node);
    f.FindNodes(names);
    f.Select();
    return f;
}

static void Run(SaveFormsFixture& f)
{
    f.Show<frmScanSelSaveProgress>();
    QTRY_VERIFY(!f.Form || !f.Form->isVisible());
}

/// Runs `work` once that many nodes are saved, while events run.
static void AfterSaved(SaveFormsFixture& f, int count, const std::function<void()>& work)
{
    QTimer::singleShot(0, qApp, [&f, count, work] {
        if (f.States().count("saved") >= count && f.Form)
            work();
        else
            AfterSaved(f, count, work);
    });
}

static QString Interrupt(int saved, int all)
{
    return QStringLiteral("%1 of %2 nodes are saved. Do you want to interrupt nodes saving to database ?")
        .arg(saved)
        .arg(all);
}

// Run -------------------------------------------------------------------------------------------------------

void TestFrmScanSelSaveProgress::Load_Controls_HaveTheirCaptions_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("maximum");
    QTest::newRow("none") << 0 << 2;
    QTest::newRow("one") << 1 << 2;
    QTest::newRow("two") << 2 << 2;
    QTest::newRow("three") << 3 << 3;
}

void TestFrmScanSelSaveProgress::Load_Controls_HaveTheirCaptions()
{
    QFETCH(int, count);
    SaveFormsFixture f;
    Selected(f, count);
    f.Form = std::make_unique<frmScanSelSaveProgress>(f.Direct, f.NewDirect);

    QCOMPARE(f.Find<QLabel>("lblLoadLabel1").text(), "Nodes saving in progress.");
    QCOMPARE(f.Find<QPushButton>("cmdLoadStop").text(), "&Cancel");
    const auto& bar = f.Find<QProgressBar>("LoadPrgBar");
    QCOMPARE(bar.minimum(), 1);
    QTEST(bar.maximum(), "maximum");
    QCOMPARE(bar.value(), 1);
    QVERIFY(f.Component.Calls.isEmpty());
}

void TestFrmScanSelSaveProgress::Run_AllSaved_Unloads()
{
    SaveFormsFixture f;
    Selected(f, 5);
    Run(f);

    QCOMPARE(f.Form->result(), int(QDialog::Accepted));
    QCOMPARE(f.States(), QStringList(5, "saved"));
    QCOMPARE(f.Find<QProgressBar>("LoadPrgBar").value(), 5);
    QCOMPARE(f.Component.Store.Commits, 5);
    QVERIFY(f.Operator.Boxes.empty());
}

void TestFrmScanSelSaveProgress::Run_Events_RunAfterEverySecondNode()
{
    SaveFormsFixture f;
    Selected(f, 5);
    QList<qsizetype> seen;
    std::function<void()> look = [&] {
        const qsizetype saved = f.States().count("saved");
        if (seen.isEmpty() || seen.last() != saved)
            seen << saved;
        QTimer::singleShot(0, f.Form.get(), look);
    };
    f.Form = std::make_unique<frmScanSelSaveProgress>(f.Direct, f.NewDirect);
    QTimer::singleShot(0, f.Form.get(), look);
    f.Form->show();
    QTRY_VERIFY(!f.Form->isVisible());

    for (const qsizetype saved : seen)
        QVERIFY2(saved % 2 == 0 || saved == 5, qPrintable(QString::number(saved)));
    QVERIFY(seen.contains(2) && seen.contains(4));
}

void TestFrmScanSelSaveProgress::Run_ShownAgain_DoesNotStartAnew()
{
    SaveFormsFixture f;
    Selected(f, 2);
    Run(f);
    f.Row(1).state = SaveState::NameFree;

    f.Form->show();
    QTest::qWait(20);

    QCOMPARE(f.States(), (QStringList{"free", "saved"}));
}

// Cancel ----------------------------------------------------------------------------------------------------

void TestFrmScanSelSaveProgress::Cancel_Ok_KeepsWhatIsSaved()
{
    SaveFormsFixture f;
    Selected(f, 6);
    AfterSaved(f, 2, [&] { f.Click("cmdLoadStop"); });
    Run(f);

    const auto saved = static_cast<int>(f.States().count("saved"));
    QCOMPARE(f.Operator.Boxes,
             (std::vector<RecordedBox>{{Interrupt(saved, 6), BoxFlags::OkCancel, "Interrupt Saving"}}));
    QVERIFY(saved >= 2 && saved < 6);
    QCOMPARE(f.Nodes().filter("N").size() - 1, saved);
}

void TestFrmScanSelSaveProgress::Cancel_Declined_GoesOn()
{
    SaveFormsFixture f;
    Selected(f, 6);
    f.Operator.Answers = {BoxAnswer::Cancel};
    AfterSaved(f, 2, [&] { f.Click("cmdLoadStop"); });
    Run(f);

    QCOMPARE(f.Operator.Boxes.size(), std::size_t(1));
    QCOMPARE(f.States(), QStringList(6, "saved"));
}

void TestFrmScanSelSaveProgress::Cancel_QuestionOpen_WaitsForTheAnswer()
{
    SaveFormsFixture f;
    Selected(f, 6);
    QStringList before;
    QStringList after;
    f.Operator.Answers = {BoxAnswer::Cancel};
    f.Operator.WhileOpen = [&](const RecordedBox&) {
        before = f.States();
        QTest::qWait(30);
        after = f.States();
    };
    AfterSaved(f, 2, [&] { f.Click("cmdLoadStop"); });
    Run(f);

    QVERIFY(before.contains("exists"));
    QCOMPARE(after, before);
    QCOMPARE(f.States(), QStringList(6, "saved"));
}

void TestFrmScanSelSaveProgress::Cancel_TwiceClicked_AsksOnce()
{
    SaveFormsFixture f;
    Selected(f, 6);
    f.Operator.WhileOpen = [&](const RecordedBox&) { f.Click("cmdLoadStop"); };
    AfterSaved(f, 2, [&] { f.Click("cmdLoadStop"); });
    Run(f);

    QCOMPARE(f.Operator.Boxes.size(), std::size_t(1));
}

void TestFrmScanSelSaveProgress::Escape_IsCancel()
{
    SaveFormsFixture f;
    Selected(f, 6);
    f.Operator.Answers = {BoxAnswer::Cancel};
    AfterSaved(f, 2, [&] { QTest::keyClick(f.Form.get(), Qt::Key_Escape); });
    Run(f);

    QCOMPARE(f.Operator.Boxes.size(), std::size_t(1));
    QCOMPARE(f.States(), QStringList(6, "saved"));
}

void TestFrmScanSelSaveProgress::CloseWindow_DuringTheRun_EndsItUnasked()
{
    SaveFormsFixture f;
    Selected(f, 6);
    AfterSaved(f, 2, [&] { f.Form->close(); });
    Run(f);
    const QStringList states = f.States();
    QTest::qWait(20);

    QCOMPARE(f.States(), states);
    QVERIFY(states.contains("exists"));
    QVERIFY(f.Operator.Boxes.empty());
    QCOMPARE(f.Component.Store.Levels(), 0);
}

// Failures --------------------------------------------------------------------------------------------------

void TestFrmScanSelSaveProgress::Denied_Stays_UntilClosed_data()
{
    QTest::addColumn<QString>("how");
    for (const char* how : {"button", "escape", "window"})
        QTest::newRow(how) << how;
}

void TestFrmScanSelSaveProgress::Denied_Stays_UntilClosed()
{
    QFETCH(QString, how);
    SaveFormsFixture f;
    Selected(f, 3);
    f.Component.Fail("BeginTransaction");
    f.Show<frmScanSelSaveProgress>();
    QTRY_VERIFY(!f.Operator.Boxes.empty());
    QTest::qWait(20);

    QVERIFY(f.Form->isVisible());
    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Error(Denied)});
    if (how == "button")
        f.Click("cmdLoadStop");
    else if (how == "escape")
        QTest::keyClick(f.Form.get(), Qt::Key_Escape);
    else
        f.Form->close();
    QVERIFY(!f.Form->isVisible());
    QCOMPARE(f.Operator.Boxes.size(), std::size_t(1));
}

void TestFrmScanSelSaveProgress::Denied_InTheMiddle_KeepsWhatIsSaved()
{
    SaveFormsFixture f;
    Selected(f, 6);
    AfterSaved(f, 2, [&] { f.Component.Fail("BeginTransaction", DatabaseErrorNumber::InUse); });
    f.Operator.Answers = {BoxAnswer::Cancel};
    f.Show<frmScanSelSaveProgress>();
    QTRY_COMPARE(f.Operator.Boxes.size(), std::size_t(2));

    QVERIFY(f.Form->isVisible());
    const QStringList states = f.States();
    QVERIFY(states.first() == "saved" && states.last() == "exists");
    QCOMPARE(f.Operator.Boxes.back(), RecordedBox::Error(Denied));
}

void TestFrmScanSelSaveProgress::ConnectionChanged_InTheMiddle_Unloads_data()
{
    QTest::addColumn<bool>("removed");
    QTest::newRow("changed") << false;
    QTest::newRow("removed") << true;
}

void TestFrmScanSelSaveProgress::ConnectionChanged_InTheMiddle_Unloads()
{
    QFETCH(bool, removed);
    SaveFormsFixture f;
    Selected(f, 6);
    AfterSaved(f, 2, [&] {
        if (removed)
            f.RemoveElsewhere("Alpha");
        else
            f.ChangeElsewhere("Alpha");
    });
    Run(f);

    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Plain(
                                   "Node saving is prevented, because another application has changed "
                                   "(deleted) connection Alpha.")});
    QCOMPARE(f.NewDirect.ConName, "Alpha");
    QVERIFY(f.States().contains("saved"));
    QCOMPARE(f.States().last(), "exists");
}

void TestFrmScanSelSaveProgress::CommitFails_InTheMiddle_Unloads()
{
    SaveFormsFixture f;
    Selected(f, 4);
    AfterSaved(f, 2, [&] { f.Component.Fail("CommitTransaction"); });
    Run(f);

    QVERIFY(f.Operator.Texts().contains(CommitFailure));
    QCOMPARE(f.States(), (QStringList{"saved", "saved", "exists", "exists"}));
    QCOMPARE(f.Component.Store.Levels(), 0);
}

void TestFrmScanSelSaveProgress::RefusedNode_IsToldAndTheRunGoesOn()
{
    SaveFormsFixture f;
    Selected(f, 3);
    f.Component.AnswerOnce("CheckTargetSyntax", {"", "ERROR"});
    Run(f);

    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Plain(NoSaving)});
    QCOMPARE(f.States(), (QStringList{"exists", "saved", "saved"}));
}

void TestFrmScanSelSaveProgress::HostDestroysTheForm_UnderABox_EndsTheRun()
{
    SaveFormsFixture f;
    Selected(f, 3);
    f.Component.AnswerOnce("CheckTargetSyntax", {"", "ERROR"});
    f.Operator.WhileOpen = [&](const RecordedBox&) { f.Form.reset(); };
    f.Form = std::make_unique<frmScanSelSaveProgress>(f.Direct, f.NewDirect);
    f.Form->show();
    QTRY_VERIFY(!f.Form);
    QTest::qWait(20);

    QCOMPARE(f.States(), QStringList(3, "exists"));
    QCOMPARE(f.Operator.Texts(), QStringList{NoSaving});
    QCOMPARE(f.Component.Store.Levels(), 0);
}

void TestFrmScanSelSaveProgress::HostClosesTheDatabase_BetweenNodes_EndsTheRun()
{
    SaveFormsFixture f;
    Selected(f, 6);
    AfterSaved(f, 2, [] {
        Model().Database = nullptr;
        Database().DbObject.reset();
    });
    f.Show<frmScanSelSaveProgress>();
    QTRY_VERIFY(!f.Operator.Boxes.empty());

    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Error(Denied)});
    QVERIFY(f.States().contains("saved") && f.States().contains("exists"));
}

QTEST_MAIN(TestFrmScanSelSaveProgress)
#include "TestFrmScanSelSaveProgress.moc"
