#include "browser/ConnectionPictures.h"
#include "browser/frmMngrInfo.h"
#include "tests/browser/CommandFixture.h"

#include <QTimer>

// What a host does to the control while a command runs, and what the dialogs ask of the control.

class TestCommandLife : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Control_DestroyedUnderABoxOrDialog_EndsTheCommand_data();
    void Control_DestroyedUnderABoxOrDialog_EndsTheCommand();
    void Database_FreedUnderTheDialog_EndsTheCommandInPeace();
    void Database_FreedBeforeACommand_IsTold();
    void Control_StartedAnewUnderTheDialog_KeepsTheDialogsData();
    void Entries_ClearedUnderABox_AreToldAsMissing_data();
    void Entries_ClearedUnderABox_AreToldAsMissing();
    void Begin_DatabaseInUse_AsksUntilItWorksOrIsRefused_data();
    void Begin_DatabaseInUse_AsksUntilItWorksOrIsRefused();
    void Error_InADialog_IsShownAndEndsTheCommand();
    void RefreshTimerOff_Command_LeavesItOff();

    void Hook_SelectTreeEntry_SelectsInTheTreeShown();
    void Hooks_TwoControls_BelongToTheOneThatWorks();
    void Hook_ManagerInfo_ShowsTheFormOfTheWorkingCopy();
    void Pictures_ControlHiddenAndShown_AreStillThereForTheDialogs();
    void Pictures_WithoutAControl_AreNone();
};

void TestCommandLife::Control_DestroyedUnderABoxOrDialog_EndsTheCommand_data()
{
    QTest::addColumn<QString>("selected");
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<QString>("under");
    const auto row = [](const char* selected, const char* button, const char* under) {
        QTest::addRow("%s %s %s", selected, button, under)
            << QString::fromLatin1(selected) << QByteArray(button) << QString::fromLatin1(under);
    };
    for (const char* button : {"cmdDatabaseAdd", "cmdDatabaseProp"}) {
        for (const char* selected : {"con/Alpha", "node/North"}) {
            row(selected, button, "dialog");
            row(selected, button, "stale");
            row(selected, button, "failure");
            row(selected, button, "in use");
        }
    }
    for (const char* selected : {"con/Alpha", "node/North"}) {
        for (const char* under : {"question", "stale", "failure", "in use"})
            row(selected, "cmdDatabaseRemove", under);
    }
    row("root", "cmdDatabaseAdd", "dialog");
    row("root", "cmdDatabaseManage", "box");
    row("node/North", "cmdDatabaseManage", "failure");
}
void TestCommandLife::Control_DestroyedUnderABoxOrDialog_EndsTheCommand()
{
    QFETCH(const QString, selected);
    QFETCH(const QByteArray, button);
    QFETCH(const QString, under);
    CommandFixture f;
    f.Control->SetManageVisible(true);
    f.Select(QStringLiteral("connections"), selected);
    if (under == QLatin1String("stale"))
        f.ChangeElsewhere(selected);
    else if (under == QLatin1String("failure"))
        f.Component.Fail(QStringLiteral("BeginTransaction"));
    else if (under == QLatin1String("in use"))
        f.Component.FailTimes(QStringLiteral("BeginTransaction"), 1, DatabaseErrorNumber::InUse);
    // A command that asks first shows a second box.
    const std::size_t box =
        button == "cmdDatabaseRemove" && under != QLatin1String("question") ? std::size_t(2) : std::size_t(1);
    bool destroyed = false;
    f.Operator.WhileOpen = [&](const RecordedBox&) {
        if (f.Operator.Boxes.size() == box && f.Control) {
            f.Control.reset();
            destroyed = true;
            // It closed the database.
            f.Component.Store.Available = false;
        }
    };
    f.InDialog = [&](ConData& con) {
        f.Control.reset();
        destroyed = true;
        // The form still has its working copy.
        con.ConName = QStringLiteral("Changed");
    };
    f.Press(button);
    QVERIFY(destroyed);
    QVERIFY(f.Dialogs.size() <= 1);
    QCOMPARE(Browser().Busy, 0);
    QCOMPARE(f.Component.Store.Levels(), 0);
    QVERIFY(!Model().ConObject->ConTree);
    QVERIFY(!Model().ConObject->NodesTree);
    QCOMPARE(f.Component.Store.Now.nodes.size(), std::size_t(3));
}

void TestCommandLife::Database_FreedUnderTheDialog_EndsTheCommandInPeace()
{
    CommandFixture f;
    f.Select(QStringLiteral("connections"), QStringLiteral("con/Alpha"));
    f.InDialog = [&](ConData&) { f.Control->FreeObjects(); };
    f.Press("cmdDatabaseProp");
    QCOMPARE(f.Operator.Texts(), QStringList());
    QCOMPARE(f.SelectedText(), QStringLiteral("Alpha"));
    QVERIFY(f.IsAtRest());
    QVERIFY(!Database().DatabaseOpen);
}

void TestCommandLife::Database_FreedBeforeACommand_IsTold()
{
    CommandFixture f;
    f.Select(QStringLiteral("connections"), QStringLiteral("con/Alpha"));
    f.Control->FreeObjects();
    f.Press("cmdDatabaseProp");
    QCOMPARE(f.Operator.Boxes, std::vector<RecordedBox>{RecordedBox::Error(QStringLiteral(
                                   "Database access is denied, because another application is using it."))});
    QCOMPARE(f.Dialogs, QStringList());
    QVERIFY(f.IsAtRest());
}

void TestCommandLife::Control_StartedAnewUnderTheDialog_KeepsTheDialogsData()
{
    CommandFixture f;
    f.Select(QStringLiteral("connections"), QStringLiteral("con/Beta"));
    f.InDialog = [&](ConData& con) {
        f.Control->UserControl_InitProperties();
        QCOMPARE(con.ConName, QStringLiteral("Beta"));
        QCOMPARE(con.ConWpCount, 3);
    };
    f.Press("cmdDatabaseProp");
    QCOMPARE(f.Operator.Texts(), QStringList());
    QVERIFY(Database().DatabaseOpen);
    QCOMPARE(Browser().Busy, 0);
    QVERIFY(Browser().Replaced.empty());
    QCOMPARE(f.Dialogs.size(), 1);
}

void TestCommandLife::Entries_ClearedUnderABox_AreToldAsMissing_data()
{
    QTest::addColumn<QString>("selected");
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<QString>("told");
    const QString connection = QStringLiteral("Missing connection index.");
    const QString node = QStringLiteral("Missing node index.");
    QTest::newRow("add connection") << QStringLiteral("con/Alpha") << QByteArray("cmdDatabaseAdd")
                                    << connection;
    QTest::newRow("connection") << QStringLiteral("con/Alpha") << QByteArray("cmdDatabaseProp") << connection;
    QTest::newRow("remove connection")
        << QStringLiteral("con/Alpha") << QByteArray("cmdDatabaseRemove") << connection;
    QTest::newRow("add node") << QStringLiteral("node/North") << QByteArray("cmdDatabaseAdd") << node;
    QTest::newRow("remove node") << QStringLiteral("node/North") << QByteArray("cmdDatabaseRemove") << node;
}
void TestCommandLife::Entries_ClearedUnderABox_AreToldAsMissing()
{
    QFETCH(const QString, selected);
    QFETCH(const QByteArray, button);
    QFETCH(const QString, told);
    CommandFixture f;
    f.Select(QStringLiteral("connections"), selected);
    f.Component.FailTimes(QStringLiteral("BeginTransaction"), 1, DatabaseErrorNumber::InUse);
    bool held = false;
    f.Operator.WhileOpen = [&](const RecordedBox& box) {
        if (box.text.startsWith(QLatin1String("Database is in use")))
            f.ConEntries().Clear();
        held = held || f.Component.Store.Levels() > 0;
    };
    f.Press(button);
    QCOMPARE(f.Operator.Boxes.back(), RecordedBox::Plain(told));
    QVERIFY(!held);
    QCOMPARE(f.Component.Store.Now.nodes.size(), std::size_t(3));
    QCOMPARE(f.Dialogs, QStringList());
    QVERIFY(f.IsAtRest());
}

void TestCommandLife::Begin_DatabaseInUse_AsksUntilItWorksOrIsRefused_data()
{
    QTest::addColumn<bool>("goesOn");
    QTest::newRow("again") << true;
    QTest::newRow("Cancel") << false;
}
void TestCommandLife::Begin_DatabaseInUse_AsksUntilItWorksOrIsRefused()
{
    QFETCH(const bool, goesOn);
    CommandFixture f;
    f.Select(QStringLiteral("nodes"), QStringLiteral("node/North"));
    f.Component.FailTimes(QStringLiteral("BeginTransaction"), 1, DatabaseErrorNumber::InUse);
    f.Operator.Answers = {goesOn ? BoxAnswer::Ok : BoxAnswer::Cancel};
    f.Press("cmdDatabaseProp");
    QStringList told{QStringLiteral("Database is in use by another application, do you want to try again ?")};
    if (!goesOn)
        told << QStringLiteral("Database access is denied, because another application is using it.");
    QCOMPARE(f.Operator.Texts(), told);
    QCOMPARE(f.Dialogs.size(), goesOn ? 1 : 0);
    QVERIFY(f.IsAtRest());
}

void TestCommandLife::Error_InADialog_IsShownAndEndsTheCommand()
{
    CommandFixture f;
    f.Select(QStringLiteral("nodes"), QStringLiteral("node/North"));
    f.InDialog = [](ConData& con) { (void)con.GetWpData(11); };
    f.Press("cmdDatabaseProp");
    QCOMPARE(f.Operator.Boxes.size(), std::size_t(1));
    QCOMPARE(f.Operator.Boxes[0].flags, ErrorBoxFlags());
    QVERIFY(f.IsAtRest());
}

void TestCommandLife::RefreshTimerOff_Command_LeavesItOff()
{
    CommandFixture f;
    f.Control->SetRefreshTimer(false);
    f.Select(QStringLiteral("nodes"), QStringLiteral("node/North"));
    f.Press("cmdDatabaseProp");
    QVERIFY(!f.TimerOn());
    // What the host sets meanwhile holds at the end.
    f.InDialog = [&](ConData&) { f.Control->SetRefreshTimer(true); };
    f.Press("cmdDatabaseProp");
    QVERIFY(f.TimerOn());
}

// Hooks -----------------------------------------------------------------------------------------------------

void TestCommandLife::Hook_SelectTreeEntry_SelectsInTheTreeShown()
{
    CommandFixture f;
    QVERIFY(bool(Model().SelectTreeEntry));
    Model().SelectTreeEntry(f.NodeEntries(), f.Node(QStringLiteral("South")));
    QCOMPARE(f.SelectedText(), QStringLiteral("South"));
    f.ShowConnections();
    Model().SelectTreeEntry(f.ConEntries(), f.Con(QStringLiteral("Beta")));
    QCOMPARE(f.SelectedText(), QStringLiteral("Beta"));
    // A tree that is nobody's, or is not shown, changes nothing.
    TreeEntries other;
    Model().SelectTreeEntry(other, 1);
    Model().SelectTreeEntry(f.NodeEntries(), f.Node(QStringLiteral("Mid")));
    QCOMPARE(f.SelectedText(), QStringLiteral("Beta"));
    QCOMPARE(f.Find<TreeView>("tvwNodesTree").SelectedIndex().data().toString(), QStringLiteral("South"));
}

void TestCommandLife::Hooks_TwoControls_BelongToTheOneThatWorks()
{
    CommandFixture f;
    {
        T4ZelkaBrowser second;
        second.show();
        Model().SelectTreeEntry(f.NodeEntries(), f.Node(QStringLiteral("South")));
        QCOMPARE(f.SelectedText(), QString());
        // A command takes them back.
        f.Click("tvwNodesTree", f.Node(QStringLiteral("North")));
        f.InDialog = [&](ConData&) {
            Model().SelectTreeEntry(f.NodeEntries(), f.Node(QStringLiteral("South")));
        };
        f.Press("cmdDatabaseProp");
        QVERIFY(!f.Dialogs.isEmpty());
    }
    // The second one's end takes only its own.
    QVERIFY(bool(Model().SelectTreeEntry));
    f.Control.reset();
    QVERIFY(!Model().SelectTreeEntry);
    QVERIFY(!Dialogs().ShowManagerInfo);
    QVERIFY(!Dialogs().PictureOfType);
}

void TestCommandLife::Hook_ManagerInfo_ShowsTheFormOfTheWorkingCopy()
{
    CommandFixture f;
    Model().ConObject->NodeType = QStringLiteral("DEV1");
    int shown = 0;
    QTimer::singleShot(0, f.Control.get(), [&] {
        auto* const form = qobject_cast<frmMngrInfo*>(QApplication::activeModalWidget());
        QVERIFY(form);
        QCOMPARE(form->parentWidget(), f.Control.get());
        QCOMPARE(Child<QComboBox>(*form, "cboDeviceName").currentText(), QStringLiteral("DEV1"));
        ++shown;
        Child<QPushButton>(*form, "cmdCancel").click();
    });
    Dialogs().ShowManagerInfo(f.Control.get());
    QCOMPARE(shown, 1);
    QVERIFY(f.Control->findChildren<frmMngrInfo*>().isEmpty());
    Model().ConObject.reset();
    Dialogs().ShowManagerInfo(f.Control.get());
    QCOMPARE(shown, 1);
}

void TestCommandLife::Pictures_ControlHiddenAndShown_AreStillThereForTheDialogs()
{
    CommandFixture f;
    QWidget widget;
    for (const bool hide : {false, true}) {
        if (hide) {
            f.Control->hide();
            f.Control->show();
            QVERIFY(Dialogs().ConPictures[3].isNull());
        }
        for (const int picture : {0, 3, 16})
            QCOMPARE(ConPicturePixmap(picture, widget).toImage(),
                     ConnectionPicture(picture).pixmap(QSize(48, 48), widget.devicePixelRatioF()).toImage());
        // One that there is none for looks unknown.
        for (const int picture : {-1, 17, 19, 20, 4711})
            QCOMPARE(ConPicturePixmap(picture, widget).toImage(),
                     ConnectionPicture(14).pixmap(QSize(48, 48), widget.devicePixelRatioF()).toImage());
    }
}

void TestCommandLife::Pictures_WithoutAControl_AreNone()
{
    ResetModuleState();
    const QWidget widget;
    QVERIFY(ConPicturePixmap(3, widget).isNull());
}

QTEST_MAIN(TestCommandLife)
#include "TestCommandLife.moc"
