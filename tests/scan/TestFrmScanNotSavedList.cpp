#include "tests/database/SaveExpectations.h"
#include "tests/scan/NotSavedFixture.h"

#include <QFontInfo>
#include <QLabel>

#include <cmath>

using namespace SaveTexts;

/// The list of nodes that are not saved: lines, buttons, saves, managers.
class TestFrmScanNotSavedList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Load_Controls_HaveTheirCaptions();
    void Load_Labels_StandOverTheirColumns();
    void Load_Names_AreChecked();
    void Load_SavedRows_AreNotShown();
    void Load_CheckFails_IsToldAndTheListIsEmpty();
    void Load_HostDestroysTheFormUnderTheQuestion_EndsQuietly();
    void Load_HostClosesTheDatabaseUnderTheQuestion_IsTold();
    void Buttons_SelectedLine_DecidesThem_data();
    void Buttons_SelectedLine_DecidesThem();
    void Buttons_AnyLineOfTheSelection_Counts();
    void Buttons_Keys_MoveTheSelection();
    void SelectAll_Click_SelectsAllLines();
    void Save_Selection_IsSavedAndLeavesTheList();
    void Save_AllNodes_LeavesAnEmptyList();
    void Save_NodeThatExistsByNow_StaysAndTellsSo();
    void Replace_ExistingNodes_AreReplaced();
    void Save_RowsOfTheListAreGone_TellsThatNothingIsSelected_data();
    void Save_RowsOfTheListAreGone_TellsThatNothingIsSelected();
    void Save_ConnectionChangedElsewhere_KeepsTheLines();
    void Save_HostDestroysTheForms_EndsQuietly();
    void Manager_Chosen_GoesToEveryNode();
    void Manager_HostDestroysTheForm_RestoresTheSelectionsManager();
    void Manager_ControlStartedAnew_ChangesNothing();
    void Close_List_StaysInMemory_data();
    void Close_List_StaysInMemory();
    void Help_ButtonAndKey_ShowTheTopic();
};

// Load ------------------------------------------------------------------------------------------------------

void TestFrmScanNotSavedList::Load_Controls_HaveTheirCaptions()
{
    NotSavedFixture f;
    f.Open({"West"});

    QCOMPARE(f.Form->windowTitle(), "Scan Results Selection for Database Saving");
    for (const auto& [name, text] : {std::pair{"Label5", "Select nodes for database saving:"},
                                     {"Label1", " Address  Node Name"},
                                     {"Label4", "Node name conflict types:"},
                                     {"Label3", "Name exists in database"},
                                     {"Label2", "Name length too long"}})
        QCOMPARE(f.Find<QLabel>(name).text(), QString::fromLatin1(text));
    for (const auto& [name, text] : {std::pair{"cmdSelectAll", "Select &All"},
                                     {"cmdRename", "R&ename..."},
                                     {"cmdSave", "&Save"},
                                     {"cmdReplace", "&Replace/Save"},
                                     {"cmdManager", "&Manager Info"},
                                     {"cmdCancel", "&Close"},
                                     {"cmdHelp", "&Help"}})
        QCOMPARE(f.Find<QPushButton>(name).text(), QString::fromLatin1(text));
    QCOMPARE(f.List().selectionMode(), QAbstractItemView::ExtendedSelection);
    QVERIFY(QFontInfo(f.List().font()).fixedPitch());
}

void TestFrmScanNotSavedList::Load_Labels_StandOverTheirColumns()
{
    NotSavedFixture f;
    f.Open({QString(40, 'x')});
    const QFontMetricsF metrics(f.List().font());
    const auto globalLeft = [&](const QWidget& widget) { return widget.mapTo(f.Form.get(), QPoint()).x(); };
    const int text = globalLeft(*f.List().viewport()) +
                     f.List().style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &f.List()) + 1;
    const auto columnAt = [&](int characters) {
        return text + static_cast<int>(std::lround(metrics.horizontalAdvance(QString(characters, '0'))));
    };

    const auto& names = f.Find<QLabel>("Label1");
    const int nameLeft = globalLeft(names) + names.contentsMargins().left() +
                         QFontMetrics(names.font()).horizontalAdvance(" Address  ");
    QVERIFY2(qAbs(nameLeft - columnAt(7)) <= 1, qPrintable(QString::number(nameLeft - columnAt(7))));
    for (const auto& [name, end] : {std::pair{"Label3", 51}, {"Label2", 62}}) {
        const auto& label = f.Find<QLabel>(name);
        const int right = globalLeft(label) + label.width();
        QVERIFY2(qAbs(right - columnAt(end)) <= 1, name);
        QVERIFY(label.alignment().testFlag(Qt::AlignRight));
    }
}

void TestFrmScanNotSavedList::Load_Names_AreChecked()
{
    NotSavedFixture f;
    f.FindNodes({"West", "North", QString(32, 'x'), QString(33, 'y'), QString(41, 'z')});
    f.Show<frmScanNotSavedList>();

    QCOMPARE(f.Shown(), (QStringList{"West", "North!", QString(32, 'x'), QString(33, 'y') + '+',
                                     QString(40, 'z') + '+'}));
    QCOMPARE(f.Lines().first(), " 101   West                                      No         No");
    QCOMPARE(f.Names().last().size(), 41);
    QCOMPARE(f.Selected(), QList<int>{0});
    QCOMPARE(f.Component.Store.Commits, 5);
}

void TestFrmScanNotSavedList::Load_SavedRows_AreNotShown()
{
    NotSavedFixture f;
    f.FindNodes({"One", "Two", "Three"});
    f.Row(2).state = SaveState::Saved;
    f.Show<frmScanNotSavedList>();

    QCOMPARE(f.Shown(), (QStringList{"One", "Three"}));
}

void TestFrmScanNotSavedList::Load_CheckFails_IsToldAndTheListIsEmpty()
{
    NotSavedFixture f;
    f.FindNodes({"One", "Two"});
    f.Component.Fail("NodeNameExist");
    f.Show<frmScanNotSavedList>();

    QCOMPARE(f.Operator.Texts(),
             (QStringList{UnknownError, RolledBack, "Database error, connection to database broken."}));
    QCOMPARE(f.Operator.Boxes.back().flags, BoxFlags::Plain);
    QVERIFY(f.Lines().isEmpty());
    QVERIFY(f.EnabledButtons().isEmpty());
    QCOMPARE(Scan().ScanSaveCount(), 2);
}

void TestFrmScanNotSavedList::Load_HostDestroysTheFormUnderTheQuestion_EndsQuietly()
{
    NotSavedFixture f;
    f.FindNodes({"One", "Two"});
    f.Component.FailTimes("BeginTransaction", 1, DatabaseErrorNumber::InUse);
    f.Operator.WhileOpen = [&](const RecordedBox&) { f.Form.reset(); };
    f.Form = std::make_unique<frmScanNotSavedList>(f.Direct, f.NewDirect);
    f.Form->show();
    QTRY_VERIFY(!f.Form);

    QCOMPARE(f.Operator.Boxes.size(), std::size_t(1));
    QCOMPARE(f.States(), QStringList(2, "free"));
}

void TestFrmScanNotSavedList::Load_HostClosesTheDatabaseUnderTheQuestion_IsTold()
{
    NotSavedFixture f;
    f.FindNodes({"One", "Two"});
    f.Component.FailTimes("BeginTransaction", 1, DatabaseErrorNumber::InUse);
    f.Operator.WhileOpen = [](const RecordedBox& box) {
        if (box.flags == BoxFlags::OkCancel) {
            Model().Database = nullptr;
            Database().DbObject.reset();
        }
    };
    f.Form = std::make_unique<frmScanNotSavedList>(f.Direct, f.NewDirect);
    f.Form->show();
    QTRY_COMPARE(f.Operator.Boxes.size(), std::size_t(3));

    QCOMPARE(f.Operator.Texts().mid(1),
             (QStringList{Denied, "Database error, connection to database broken."}));
    QVERIFY(f.Lines().isEmpty());
}

// Buttons ---------------------------------------------------------------------------------------------------

void TestFrmScanNotSavedList::Buttons_SelectedLine_DecidesThem_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("enabled");
    const QStringList all{"rename", "save", "replace", "manager", "all"};
    const QStringList existing{"rename", "replace", "manager", "all"};
    const QStringList tooLong{"rename", "manager", "all"};
    QTest::newRow("free") << "West" << all;
    QTest::newRow("blank") << "" << all;
    QTest::newRow("exists") << "North" << existing;
    QTest::newRow("32 characters") << QString(32, 'x') << all;
    QTest::newRow("33 characters") << QString(33, 'x') << tooLong;
    QTest::newRow("yes in places 30 to 32") << QString(29, 'x') + "yes" << all;
    QTest::newRow("yes in places 38 to 40") << QString(37, 'x') + "yes" << tooLong;
}

void TestFrmScanNotSavedList::Buttons_SelectedLine_DecidesThem()
{
    QFETCH(QString, name);
    NotSavedFixture f;
    f.Open({name});

    QTEST(f.EnabledButtons(), "enabled");

    f.ClickLine(0, Qt::ControlModifier);
    QCOMPARE(f.Selected(), QList<int>());
    QCOMPARE(f.EnabledButtons(), QStringList{"all"});
}

void TestFrmScanNotSavedList::Buttons_AnyLineOfTheSelection_Counts()
{
    NotSavedFixture f;
    f.Open({"West", "North", QString(33, 'x')});

    f.ClickLine(1, Qt::ControlModifier);
    QCOMPARE(f.Selected(), (QList<int>{0, 1}));
    QCOMPARE(f.EnabledButtons(), (QStringList{"rename", "replace", "manager", "all"}));
    f.ClickLine(2, Qt::ControlModifier);
    QCOMPARE(f.EnabledButtons(), (QStringList{"rename", "manager", "all"}));
    f.ClickLine(0);
    QCOMPARE(f.EnabledButtons().size(), 5);
}

void TestFrmScanNotSavedList::Buttons_Keys_MoveTheSelection()
{
    NotSavedFixture f;
    f.Open({"West", "North"});
    f.List().setFocus();

    QTest::keyClick(&f.List(), Qt::Key_Down);
    QCOMPARE(f.EnabledButtons(), (QStringList{"rename", "replace", "manager", "all"}));
    QTest::keyClick(&f.List(), Qt::Key_Up);
    QCOMPARE(f.EnabledButtons().size(), 5);
}

void TestFrmScanNotSavedList::SelectAll_Click_SelectsAllLines()
{
    NotSavedFixture f;
    f.Open({"One", "Two", "North"});

    f.Click("cmdSelectAll");

    QCOMPARE(f.Selected(), (QList<int>{0, 1, 2}));
    QCOMPARE(f.EnabledButtons(), (QStringList{"rename", "replace", "manager", "all"}));
}

// Save ------------------------------------------------------------------------------------------------------

void TestFrmScanNotSavedList::Save_Selection_IsSavedAndLeavesTheList()
{
    NotSavedFixture f;
    f.Open({"One", "Two", "Three"});
    f.ClickLine(1);
    f.ClickLine(2, Qt::ControlModifier);

    f.Click("cmdSave");

    QCOMPARE(f.Shown(), QStringList{"One"});
    QCOMPARE(f.Selected(), QList<int>{0});
    QCOMPARE(f.States(), (QStringList{"free", "saved", "saved"}));
    QCOMPARE(f.TargetOf("Three"), "WP=NET4,ADDR=103,TIME=1500,RETRY=3");
    QVERIFY(Scan().ScanSelSaveMode);
    QCOMPARE(Scan().ScanSelSaveCount(), 0);
    QVERIFY(f.Operator.Boxes.empty());
    QCOMPARE(f.TreeContents(), SaveFixture::FreshTreeContents());
}

void TestFrmScanNotSavedList::Save_AllNodes_LeavesAnEmptyList()
{
    NotSavedFixture f;
    f.Open({"One", "Two"});
    f.Click("cmdSelectAll");

    f.Click("cmdSave");

    QVERIFY(f.Lines().isEmpty());
    QVERIFY(f.EnabledButtons().isEmpty());
    QVERIFY(f.Form->isVisible());
    QCOMPARE(Scan().ScanSaveCount(), 2);
}

void TestFrmScanNotSavedList::Save_NodeThatExistsByNow_StaysAndTellsSo()
{
    NotSavedFixture f;
    f.Open({"One", "One"});
    f.Click("cmdSelectAll");

    f.Click("cmdSave");

    QCOMPARE(f.Shown(), QStringList{"One!"});
    QCOMPARE(f.States(), (QStringList{"saved", "exists"}));
    QVERIFY(f.TargetOf("One").contains("ADDR=101"));
    QVERIFY(f.Operator.Boxes.empty());
}

void TestFrmScanNotSavedList::Replace_ExistingNodes_AreReplaced()
{
    NotSavedFixture f;
    f.Open({"North", "West"});
    f.Click("cmdSelectAll");

    f.Click("cmdReplace");

    QVERIFY(f.Lines().isEmpty());
    QCOMPARE(f.TargetOf("North"), "WP=NET4,ADDR=101,TIME=1500,RETRY=3");
    QCOMPARE(f.Nodes(), (QStringList{"East", "North", "South", "West"}));
    QVERIFY(!Scan().ScanSelSaveMode);
}

void TestFrmScanNotSavedList::Save_RowsOfTheListAreGone_TellsThatNothingIsSelected_data()
{
    QTest::addColumn<QString>("button");
    for (const char* button : {"cmdSave", "cmdReplace", "cmdRename"})
        QTest::newRow(button) << button;
}

void TestFrmScanNotSavedList::Save_RowsOfTheListAreGone_TellsThatNothingIsSelected()
{
    QFETCH(QString, button);
    NotSavedFixture f;
    f.Open({"One"});
    Scan().ScanSaveList.clear();

    f.Click(button.toLatin1());

    QCOMPARE(f.Operator.Boxes,
             std::vector{RecordedBox::Plain("Nothing is selectd. Select node(s) from the above listbox.")});
    QVERIFY(f.Component.Calls.isEmpty());
}

void TestFrmScanNotSavedList::Save_ConnectionChangedElsewhere_KeepsTheLines()
{
    NotSavedFixture f;
    f.Open({"One", "Two"});
    f.Click("cmdSelectAll");
    f.ChangeElsewhere("Alpha");
    const QStringList records = f.Records();

    f.Click("cmdSave");

    QCOMPARE(f.Operator.Texts(),
             QStringList{"Node saving is prevented, because another application has changed "
                         "(deleted) connection Alpha."});
    QCOMPARE(f.Shown(), (QStringList{"One", "Two"}));
    QCOMPARE(f.NewDirect.ConName, "Alpha");
    QCOMPARE(f.Records(), records);
}

void TestFrmScanNotSavedList::Save_HostDestroysTheForms_EndsQuietly()
{
    NotSavedFixture f;
    f.Open({"One", "Two", "Three", "Four", "Five", "Six", "Seven", "Eight"});
    f.Click("cmdSelectAll");
    f.InNextDialog([&](QDialog&) { f.Form.reset(); }, 0);

    f.Click("cmdSave");

    QVERIFY(!f.Form);
    QVERIFY(f.Operator.Boxes.empty());
    QCOMPARE(f.Component.Store.Levels(), 0);
    QCOMPARE(f.States().count("saved"), f.Nodes().size() - 3);
}

// Managers --------------------------------------------------------------------------------------------------

void TestFrmScanNotSavedList::Manager_Chosen_GoesToEveryNode()
{
    NotSavedFixture f;
    f.Open({"One", "Two"});
    f.Con().NodeType = "KEPT";
    f.Con().CommandLine = "7|kept";
    f.Direct.NodeType = "OLD";
    f.Direct.CommandLine = "2|old";
    QStringList offered;
    Dialogs().ShowManagerInfo = [&](QWidget* parent) {
        QCOMPARE(parent, f.Form.get());
        offered = QStringList{f.Con().NodeType, f.Con().CommandLine};
        f.Con().NodeType = "NET4";
        f.Con().CommandLine = "1|-port 9";
    };

    f.Click("cmdManager");

    QCOMPARE(offered, (QStringList{"OLD", "2|old"}));
    QCOMPARE((QStringList{f.Con().NodeType, f.Con().CommandLine}), (QStringList{"KEPT", "7|kept"}));
    QCOMPARE((QStringList{f.Direct.NodeType, f.Direct.CommandLine}), (QStringList{"NET4", "1|-port 9"}));
    f.Click("cmdSelectAll");
    f.Click("cmdSave");
    QCOMPARE(f.Records().filter("NET4|").filter("-port 9").size(), 2);
}

void TestFrmScanNotSavedList::Manager_HostDestroysTheForm_RestoresTheSelectionsManager()
{
    NotSavedFixture f;
    f.Open({"One"});
    f.Con().NodeType = "KEPT";
    f.Direct.NodeType = "OLD";
    Dialogs().ShowManagerInfo = [&](QWidget*) {
        f.Con().NodeType = "NET4";
        f.Form.reset();
    };

    f.Click("cmdManager");

    QCOMPARE(f.Con().NodeType, "KEPT");
    QCOMPARE(f.Direct.NodeType, "OLD");
}

void TestFrmScanNotSavedList::Manager_ControlStartedAnew_ChangesNothing()
{
    NotSavedFixture f;
    f.Open({"One"});
    f.Direct.NodeType = "OLD";
    Dialogs().ShowManagerInfo = [](QWidget*) { Model().ConObject = std::make_unique<ConData>(); };

    f.Click("cmdManager");

    QCOMPARE(f.Con().NodeType, "");
    QCOMPARE(f.Direct.NodeType, "OLD");
}

// Ends ------------------------------------------------------------------------------------------------------

void TestFrmScanNotSavedList::Close_List_StaysInMemory_data()
{
    QTest::addColumn<QString>("how");
    for (const char* how : {"button", "escape", "window"})
        QTest::newRow(how) << how;
}

void TestFrmScanNotSavedList::Close_List_StaysInMemory()
{
    QFETCH(QString, how);
    NotSavedFixture f;
    f.Open({"One"});

    if (how == "button")
        f.Click("cmdCancel");
    else if (how == "escape")
        QTest::keyClick(f.Form.get(), Qt::Key_Escape);
    else
        f.Form->close();

    QVERIFY(!f.Form->isVisible());
    QCOMPARE(Scan().ScanSaveCount(), 1);
}

void TestFrmScanNotSavedList::Help_ButtonAndKey_ShowTheTopic()
{
    NotSavedFixture f;
    f.Open({"One"});

    f.Click("cmdHelp");
    QTest::keyClick(f.Form.get(), Qt::Key_F1);

    QCOMPARE(f.Topics, QStringList(2, "Browser4Save_Many_Nodes.htm#SaveManyNodes2"));
}

QTEST_MAIN(TestFrmScanNotSavedList)
#include "TestFrmScanNotSavedList.moc"
