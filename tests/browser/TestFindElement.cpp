#include "tests/browser/FindOperator.h"

#include <QTest>

namespace {

/// Connections Alpha and Beta with nodes, in the connection view with nodes; both are open. No DB search.
class FindFixture : public BrowserFixture
{
public:
    explicit FindFixture(bool viewNodes = true)
    {
        Component.Store.AddConnection(QStringLiteral("Alpha"), QStringLiteral("WP=BUST4,ID=254"));
        Component.Store.AddConnection(QStringLiteral("Beta north"), QStringLiteral("WP=BUST4,ID=3"));
        for (const char* name : {"Mid", "North", "xNORTHy"})
            Component.Store.AddNode(QString::fromLatin1(name), QStringLiteral("Alpha"), QString(),
                                    QStringLiteral("WP=NET4,ADDR=17"));
        Component.Store.AddNode(QStringLiteral("South"), QStringLiteral("Beta north"), QString(),
                                QStringLiteral("WP=NET4,ADDR=18"));
        StartOnDatabasePage();
        ShowConnections();
        Find<QCheckBox>("chkViewNodes").setChecked(viewNodes);
        for (const char* name : {"Alpha", "Beta north"})
            DoubleClick("tvwConTree", ConEntries().FindByText(QString::fromLatin1(name), false));
        Component.TakeCalls();
        Operator.Boxes.clear();
    }

    [[nodiscard]] TreeEntries::Index Selected() const
    {
        return TreeEntries::EntryOf(Find<TreeView>("tvwConTree").SelectedIndex());
    }
    [[nodiscard]] QString SelectedText() const { return ConEntries().Text(Selected()); }
};

const QString FindNothing = QStringLiteral("No items found!");
const RecordedBox NothingFound = {FindNothing, BoxFlags::Exclamation, QStringLiteral("Search result")};

} // namespace

/// The Find command on what a tree has loaded.
class TestFindElement : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void FirstDialog_Controls_AreAsTheyAre();
    void FirstDialog_Count_FollowsTheText();
    void FirstDialog_Enter_IsNext();
    void Search_Hits_StandBelowTheirParents();
    void Search_NothingElseInTheDatabase_AsksItNothing();
    void Done_Hit_IsSelectedAsIfClicked();
    void Done_ByKeyOrDoubleClick_ChoosesToo_data();
    void Done_ByKeyOrDoubleClick_ChoosesToo();
    void Done_TwoOfOneText_GoesToTheChosenOne();
    void Done_Root_CannotBeChosen();
    void Search_NoHit_TellsAndGoesBack();
    void Back_AnyWay_LeavesTheFirstDialog_data();
    void Back_AnyWay_LeavesTheFirstDialog();
    void Search_Again_OffersTheLastText();
    void Search_EmptyTree_ShowsNoDialog();
    void OpenResult_EntryRemoved_GoesFromTheHits();
    void OpenResult_TreeLoadedAnew_ShowsTheNewEntries();
    void OpenDialogs_ControlDestroyed_End_data();
    void OpenDialogs_ControlDestroyed_End();
};

void TestFindElement::FirstDialog_Controls_AreAsTheyAre()
{
    FindFixture f;
    FindOperator::InFindDialog(*f.Control, [](QDialog& find) {
        QCOMPARE(find.objectName(), QStringLiteral("frmFindElement"));
        QCOMPARE(FindOperator::FindIn<QLabel>(find, "Label1").text(),
                 QStringLiteral("String to be &matched:"));
        QCOMPARE(FindOperator::FindIn<QPushButton>(find, "Go").text(), QStringLiteral("&Next >>"));
        QCOMPARE(FindOperator::FindIn<QPushButton>(find, "Cancel").text(), QStringLiteral("&Cancel"));
        auto& box = FindOperator::FindIn<QLineEdit>(find, "txtMatch_Patern");
        QVERIFY(box.hasFocus());
        auto& go = FindOperator::FindIn<QPushButton>(find, "Go");
        QVERIFY(!go.isEnabled());
        QTest::keyClicks(&box, QStringLiteral("a"));
        QVERIFY(go.isEnabled());
        QTest::keyClick(&box, Qt::Key_Backspace);
        QVERIFY(!go.isEnabled());
        QTest::keyClick(&box, Qt::Key_Return);
        QVERIFY(find.isVisible());
        FindOperator::ClickIn(find, "Cancel");
    });
    QCOMPARE(f.Operator.Texts(), QStringList());
}

void TestFindElement::FirstDialog_Count_FollowsTheText()
{
    FindFixture f;
    FindOperator::InFindDialog(*f.Control, [&](QDialog& find) {
        auto& box = FindOperator::FindIn<QLineEdit>(find, "txtMatch_Patern");
        auto& hits = FindOperator::FindIn<QLabel>(find, "lblHits");
        QTest::keyClicks(&box, QStringLiteral("north"));
        QTRY_COMPARE(hits.text(), QStringLiteral("Entries found: 3"));
        f.ConEntries().Remove(f.ConEntries().FindByText(QStringLiteral("North"), true));
        QTRY_COMPARE(hits.text(), QStringLiteral("Entries found: 2"));
        box.clear();
        QCOMPARE(hits.text().trimmed(), QString());
        find.reject();
    });
}

void TestFindElement::FirstDialog_Enter_IsNext()
{
    FindFixture f;
    FindOperator::InFindDialog(*f.Control, [](QDialog& find) {
        auto& box = FindOperator::FindIn<QLineEdit>(find, "txtMatch_Patern");
        QTest::keyClicks(&box, QStringLiteral("mid"));
        FindOperator::InNextDialog([](QDialog& result) { FindOperator::ClickIn(result, "btnOK"); });
        QTest::keyClick(&box, Qt::Key_Return);
    });
    QCOMPARE(f.SelectedText(), QStringLiteral("Mid"));
}

void TestFindElement::Search_Hits_StandBelowTheirParents()
{
    FindFixture f;
    QStringList rows;
    QStringList kinds;
    FindOperator::Search(*f.Control, QStringLiteral("north"), [&](QDialog& result) {
        rows = FindOperator::RowsOf(result);
        QCOMPARE(FindOperator::FindIn<QPushButton>(result, "btnBack").text(), QStringLiteral("<< &Back"));
        QCOMPARE(FindOperator::FindIn<QPushButton>(result, "btnOK").text(), QStringLiteral("&Done"));
        result.reject();
    });
    QCOMPARE(rows,
             QStringList({QStringLiteral("Connections"), QStringLiteral(" Alpha"), QStringLiteral("  North"),
                          QStringLiteral("  xNORTHy"), QStringLiteral(" Beta north")}));
    QCOMPARE(f.Operator.Texts(), QStringList());
}

void TestFindElement::Search_NothingElseInTheDatabase_AsksItNothing()
{
    FindFixture f;
    FindOperator::Search(*f.Control, QStringLiteral("north"), [](QDialog& result) { result.reject(); });
    QCOMPARE(f.Component.Calls, QStringList());
}

void TestFindElement::Done_Hit_IsSelectedAsIfClicked()
{
    FindFixture f;
    f.Find<QPushButton>("cmdDatabaseAdd").setFocus();
    FindOperator::Search(*f.Control, QStringLiteral("NORTH"),
                         FindOperator::Choose(QStringLiteral("  xNORTHy")));
    QCOMPARE(f.SelectedText(), QStringLiteral("xNORTHy"));
    QCOMPARE(f.Control->Sobriquet(), QStringLiteral("xNORTHy"));
    QVERIFY(f.TargetText().contains(QLatin1String("ADDR=17")));
    QCOMPARE(f.Control->window()->focusWidget(), &f.Find<TreeView>("tvwConTree"));
    QCOMPARE(Browser().Busy, 0);
    QCOMPARE(f.Operator.Texts(), QStringList());
}

void TestFindElement::Done_ByKeyOrDoubleClick_ChoosesToo_data()
{
    QTest::addColumn<bool>("key");
    QTest::newRow("enter") << true;
    QTest::newRow("double click") << false;
}

void TestFindElement::Done_ByKeyOrDoubleClick_ChoosesToo()
{
    QFETCH(const bool, key);
    FindFixture f;
    FindOperator::Search(*f.Control, QStringLiteral("north"), [key](QDialog& result) {
        auto& tree = FindOperator::FindIn<TreeView>(result, "tvwNodes");
        FindOperator::ClickRow(result, 3);
        if (key)
            QTest::keyClick(&tree, Qt::Key_Return);
        else
            QTest::mouseDClick(tree.viewport(), Qt::LeftButton, {},
                               tree.visualRect(tree.SelectedIndex()).center());
    });
    QCOMPARE(f.SelectedText(), QStringLiteral("xNORTHy"));
}

void TestFindElement::Done_TwoOfOneText_GoesToTheChosenOne()
{
    FindFixture f(false);
    const TreeEntries::Index beta = f.ConEntries().FindByText(QStringLiteral("Beta north"), false);
    const TreeEntries::Index waypoint = f.ConEntries().Child(beta, 0);
    const QString text = f.ConEntries().Text(waypoint);
    QCOMPARE(f.ConEntries().AllByText(text).size(), std::size_t(2));
    FindOperator::Search(*f.Control, text, [](QDialog& result) {
        FindOperator::ClickRow(result, 4);
        FindOperator::ClickIn(result, "btnOK");
    });
    QCOMPARE(f.Selected(), waypoint);
}

void TestFindElement::Done_Root_CannotBeChosen()
{
    FindFixture f;
    FindOperator::Search(*f.Control, QStringLiteral("mid"), [](QDialog& result) {
        const auto& done = FindOperator::FindIn<QPushButton>(result, "btnOK");
        QVERIFY(done.isEnabled());
        FindOperator::ClickRow(result, 0);
        QVERIFY(!done.isEnabled());
        // The parent of a hit can.
        FindOperator::ClickRow(result, 1);
        QVERIFY(done.isEnabled());
        FindOperator::ClickIn(result, "btnOK");
    });
    QCOMPARE(f.SelectedText(), QStringLiteral("Alpha"));
}

void TestFindElement::Search_NoHit_TellsAndGoesBack()
{
    FindFixture f;
    bool focus = false;
    FindOperator::Search(*f.Control, QStringLiteral("nowhere"), nullptr, [&](QDialog& find) {
        focus = find.focusWidget() == &FindOperator::FindIn<QLineEdit>(find, "txtMatch_Patern");
        find.reject();
    });
    QVERIFY(focus);
    QCOMPARE(f.Operator.Boxes, std::vector<RecordedBox>{NothingFound});
}

void TestFindElement::Back_AnyWay_LeavesTheFirstDialog_data()
{
    QTest::addColumn<QString>("way");
    QTest::newRow("button") << QStringLiteral("button");
    QTest::newRow("escape") << QStringLiteral("escape");
    QTest::newRow("close") << QStringLiteral("close");
}

void TestFindElement::Back_AnyWay_LeavesTheFirstDialog()
{
    QFETCH(const QString, way);
    FindFixture f;
    const TreeEntries::Index before = f.Selected();
    bool stays = false;
    FindOperator::Search(
        *f.Control, QStringLiteral("north"),
        [&](QDialog& result) {
            if (way == QLatin1String("button"))
                FindOperator::ClickIn(result, "btnBack");
            else if (way == QLatin1String("escape"))
                QTest::keyClick(&FindOperator::FindIn<TreeView>(result, "tvwNodes"), Qt::Key_Escape);
            else
                result.close();
        },
        [&](QDialog& find) {
            stays = find.focusWidget() == &FindOperator::FindIn<QLineEdit>(find, "txtMatch_Patern");
            QTest::keyClick(&find, Qt::Key_Escape);
        });
    QVERIFY(stays);
    QCOMPARE(f.Selected(), before);
}

void TestFindElement::Search_Again_OffersTheLastText()
{
    FindFixture f;
    FindOperator::Search(*f.Control, QStringLiteral("mid"), FindOperator::Choose(QStringLiteral("  Mid")));
    QString offered;
    QString selected;
    FindOperator::InFindDialog(*f.Control, [&](QDialog& find) {
        const auto& box = FindOperator::FindIn<QLineEdit>(find, "txtMatch_Patern");
        offered = box.text();
        selected = box.selectedText();
        find.reject();
    });
    QCOMPARE(offered, QStringLiteral("mid"));
    QCOMPARE(selected, QStringLiteral("mid"));
}

void TestFindElement::Search_EmptyTree_ShowsNoDialog()
{
    BrowserFixture f;
    f.StartOnDatabasePage();
    QTest::mouseClick(&f.Find<QToolButton>("FindElement"), Qt::LeftButton);
    QVERIFY(!QApplication::activeModalWidget());
    QCOMPARE(Browser().Busy, 0);
}

void TestFindElement::OpenResult_EntryRemoved_GoesFromTheHits()
{
    FindFixture f;
    QStringList rows;
    FindOperator::Search(*f.Control, QStringLiteral("north"), [&](QDialog& result) {
        FindOperator::ClickRow(result, 3);
        f.ConEntries().Remove(f.ConEntries().FindByText(QStringLiteral("North"), true));
        QTRY_COMPARE(FindOperator::RowsOf(result).size(), qsizetype(4));
        rows = FindOperator::RowsOf(result);
        FindOperator::ClickIn(result, "btnOK");
    });
    QVERIFY(!rows.contains(QLatin1String("  North")));
    // What was selected is still.
    QCOMPARE(f.SelectedText(), QStringLiteral("xNORTHy"));
}

void TestFindElement::OpenResult_TreeLoadedAnew_ShowsTheNewEntries()
{
    FindFixture f;
    FindOperator::Search(*f.Control, QStringLiteral("north"), [&](QDialog& result) {
        TreeEntries& tree = f.ConEntries();
        tree.Clear();
        QVERIFY(!FindOperator::FindIn<QPushButton>(result, "btnOK").isEnabled());
        QCOMPARE(FindOperator::RowsOf(result), QStringList());
        tree.Add(0, QStringLiteral("R,0"), QStringLiteral("Connections"));
        tree.Add(1, QStringLiteral("C,77"), QStringLiteral("North again"));
        QTRY_COMPARE(FindOperator::RowsOf(result),
                     QStringList({QStringLiteral("Connections"), QStringLiteral(" North again")}));
        result.reject();
    });
    QCOMPARE(f.Operator.Texts(), QStringList());
}

void TestFindElement::OpenDialogs_ControlDestroyed_End_data()
{
    QTest::addColumn<QString>("open");
    QTest::newRow("first dialog") << QStringLiteral("first");
    QTest::newRow("hits") << QStringLiteral("hits");
    QTest::newRow("box") << QStringLiteral("box");
}

void TestFindElement::OpenDialogs_ControlDestroyed_End()
{
    QFETCH(const QString, open);
    FindFixture f;
    if (open == QLatin1String("first")) {
        FindOperator::InFindDialog(
            *f.Control, [&](QDialog&) { QTimer::singleShot(0, qApp, [&] { f.Control.reset(); }); });
    } else if (open == QLatin1String("hits")) {
        FindOperator::Search(*f.Control, QStringLiteral("north"),
                             [&](QDialog&) { QTimer::singleShot(0, qApp, [&] { f.Control.reset(); }); });
    } else {
        f.Operator.WhileOpen = [&](const RecordedBox&) { f.Control.reset(); };
        FindOperator::Search(*f.Control, QStringLiteral("nowhere"), nullptr);
        QCOMPARE(f.Operator.Texts(), QStringList{FindNothing});
    }
    QVERIFY(!f.Control);
    QVERIFY(!QApplication::activeModalWidget());
    QCOMPARE(Browser().Busy, 0);
}

QTEST_MAIN(TestFindElement)
#include "TestFindElement.moc"
