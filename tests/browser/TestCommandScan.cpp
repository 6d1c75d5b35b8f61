#include "tests/browser/CommandFixture.h"

#include <QComboBox>
#include <QTabWidget>

// The two commands that open the scan, with an operator who acts in its dialog.

namespace {

QString AlphaShown()
{
    return QStringLiteral("WP=BUST4,ID=254");
}

class ScanFixture : public CommandFixture
{
public:
    using CommandFixture::CommandFixture;

    QComboBox& List() const { return Find<QComboBox>("cboDirectConName"); }
    QTabWidget& NodePages() const { return Find<QTabWidget>("tabNode"); }
    [[nodiscard]] QString Text(const char* field) const { return Find<QLineEdit>(field).text(); }
    void Type(const char* field, const char* text) const
    {
        Find<QLineEdit>(field).setText(QString::fromLatin1(text));
    }
    void TurnTo(int page) const { Find<QTabWidget>("tabMain").setCurrentIndex(page); }
    [[nodiscard]] int Page() const { return Find<QTabWidget>("tabMain").currentIndex(); }
    /// Chooses a connection on the Direct page and forgets what was recorded until then.
    void Choose(const QString& name)
    {
        TurnTo(1);
        const int row = List().findText(name);
        List().setCurrentIndex(row);
        Q_EMIT List().activated(row);
        if (Model().DirectObject->ConName != name)
            qFatal("%s is not chosen", qPrintable(name));
        Forget();
    }
    void Scan() const { Find<QPushButton>("cmdScan").click(); }
    void MakeNewConnection(const QString& name) const
    {
        if (!Model().NewDirectObject->SetParentConData(QStringLiteral("Beta"), true))
            qFatal("no connection Beta");
        Model().NewDirectObject->ConName = name;
    }
    /// The operator takes an address and its timing.
    static void TakeAddress(ConData& con)
    {
        con.NodeAddress = QStringLiteral("17");
        con.Retry = QStringLiteral("3");
        con.Time = QStringLiteral("750");
        con.SelectPressed = true;
    }
};

} // namespace

class TestCommandScan : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Scan_DirectConnection_HandsOverTimingAndTrees();
    void Scan_OtherNodePage_HandsOverNoTiming();
    void Scan_AddressTaken_ShowsItInFieldsAndTarget();
    void Scan_NoAddressTaken_LeavesTheFields();
    void Scan_BusChanged_HoldsForTheAddressTakenAlone_data();
    void Scan_BusChanged_HoldsForTheAddressTakenAlone();
    void Scan_SavedUnderAnotherName_ChoosesThat();
    void Scan_ConnectionDeletedMeanwhile_ShowsNoName();
    void Scan_NewConnectionNotChosen_IsSetAside();
    void Scan_NewConnectionChosen_StaysAndShowsItsChanges();
    void Scan_WithoutScanRight_DoesNotOpen();
    void Scan_RefreshFallsDue_IsLeftOut();
    void Scan_HostActsUnderTheDialog_EndsInPeace_data();
    void Scan_HostActsUnderTheDialog_EndsInPeace();
    void Scan_ErrorInTheDialog_IsShownAndAllIsPutBack();

    void DbScan_NoConnectionSelected_IsTold_data();
    void DbScan_NoConnectionSelected_IsTold();
    void DbScan_Entry_ScansItsConnection_data();
    void DbScan_Entry_ScansItsConnection();
    void DbScan_FieldsFilled_EmptiesThoseOfTheFirstPage();
    void DbScan_AddressTaken_TargetShowsIt();
    void DbScan_StaleEntry_IsToldAndRefreshed_data();
    void DbScan_StaleEntry_IsToldAndRefreshed();
    void DbScan_ReadFails_IsToldAndStaysOnThePage_data();
    void DbScan_ReadFails_IsToldAndStaysOnThePage();
    void DbScan_NotListed_IsTold();
    void DbScan_ChoiceFails_ScansNothingElse();
    void DbScan_WithoutScanRight_DoesNothing();
    void DbScan_ControlDestroyed_Ends_data();
    void DbScan_ControlDestroyed_Ends();
};

void TestCommandScan::Scan_DirectConnection_HandsOverTimingAndTrees()
{
    ScanFixture f;
    f.Choose(QStringLiteral("Alpha"));
    f.Type("txtRetries", "5");
    f.Type("txtTimeOut", "900");
    Model().DirectObject->NodeAddress = QStringLiteral("old");
    Model().DirectObject->SelectPressed = true;
    f.InDialog = [&](ConData& con) {
        QCOMPARE(&con, Model().DirectObject.get());
        QCOMPARE(con.ConName, QStringLiteral("Alpha"));
        QCOMPARE(con.Retry, QStringLiteral("5"));
        QCOMPARE(con.Time, QStringLiteral("900"));
        QCOMPARE(con.NodeAddress, QString());
        QVERIFY(!con.SelectPressed);
        QCOMPARE(Model().ConObject->ConTree, &f.ConEntries());
        QCOMPARE(Model().ConObject->NodesTree, &f.NodeEntries());
        QVERIFY(!f.TimerOn());
        QCOMPARE(f.Component.Store.Levels(), 0);
    };
    f.Scan();
    QCOMPARE(f.Dialogs, QStringList{QStringLiteral("scan")});
    QCOMPARE(f.Operator.Texts(), QStringList());
    QCOMPARE(f.List().currentText(), QStringLiteral("Alpha"));
    QVERIFY(f.IsAtRest());
}

void TestCommandScan::Scan_OtherNodePage_HandsOverNoTiming()
{
    ScanFixture f;
    f.Choose(QStringLiteral("Alpha"));
    f.Type("txtRetries", "5");
    f.Type("txtTimeOut", "900");
    f.NodePages().setCurrentIndex(1);
    f.InDialog = [](ConData& con) { QCOMPARE(con.Retry + con.Time, QString()); };
    f.Scan();
    QCOMPARE(f.Dialogs.size(), 1);
}

void TestCommandScan::Scan_AddressTaken_ShowsItInFieldsAndTarget()
{
    ScanFixture f;
    f.Choose(QStringLiteral("Alpha"));
    f.Type("txtFeId", "2");
    f.InDialog = ScanFixture::TakeAddress;
    f.Scan();
    QCOMPARE(f.Text("txtAddress"), QStringLiteral("17"));
    QCOMPARE(f.Text("txtRetries"), QStringLiteral("3"));
    QCOMPARE(f.Text("txtTimeOut"), QStringLiteral("750"));
    QCOMPARE(f.TargetText(), AlphaShown() + QStringLiteral(",WP=NET4,ADDR=17,TIME=750,RETRY=3,WP=FE,ID=2"));
    QVERIFY(!Model().DirectObject->SelectPressed);
    QVERIFY(f.IsAtRest());
}

void TestCommandScan::Scan_NoAddressTaken_LeavesTheFields()
{
    ScanFixture f;
    f.Choose(QStringLiteral("Alpha"));
    f.Type("txtAddress", "4");
    f.InDialog = [](ConData& con) {
        ScanFixture::TakeAddress(con);
        con.SelectPressed = false;
    };
    f.Scan();
    QCOMPARE(f.Text("txtAddress"), QStringLiteral("4"));
    QCOMPARE(f.Text("txtTimeOut"), QString());
    QCOMPARE(f.TargetText(), AlphaShown() + QStringLiteral(",WP=NET4,ADDR=4"));
}

void TestCommandScan::Scan_BusChanged_HoldsForTheAddressTakenAlone_data()
{
    QTest::addColumn<bool>("taken");
    QTest::addColumn<QString>("target");
    QTest::newRow("taken") << true << QStringLiteral("WP=BUST4,ID=9,WP=NET4,ADDR=17,TIME=750,RETRY=3");
    QTest::newRow("closed") << false << AlphaShown();
}
void TestCommandScan::Scan_BusChanged_HoldsForTheAddressTakenAlone()
{
    QFETCH(const bool, taken);
    QFETCH(const QString, target);
    ScanFixture f;
    f.Choose(QStringLiteral("Alpha"));
    f.InDialog = [&](ConData& con) {
        QVERIFY(con.SetWpParamByName(QStringLiteral("BUS NUMBER"), QStringLiteral("9")));
        if (taken)
            ScanFixture::TakeAddress(con);
    };
    f.Scan();
    QCOMPARE(f.TargetText(), target);
    QCOMPARE(f.List().currentText(), QStringLiteral("Alpha"));
    // It is still so after a look at the other page.
    f.TurnTo(0);
    f.TurnTo(1);
    QCOMPARE(f.TargetText(), target);
    QCOMPARE(f.Operator.Texts(), QStringList());
}

void TestCommandScan::Scan_SavedUnderAnotherName_ChoosesThat()
{
    ScanFixture f;
    f.Choose(QStringLiteral("Alpha"));
    f.InDialog = [&](ConData& con) {
        f.Component.Store.SaveParent(QStringLiteral("Delta"), QStringLiteral("WP=BUST4,ID=12"));
        QVERIFY(con.SetParentConData(QStringLiteral("Delta"), true));
        ScanFixture::TakeAddress(con);
    };
    f.Scan();
    QCOMPARE(f.List().count(), 3);
    QCOMPARE(f.List().currentText(), QStringLiteral("Delta"));
    QCOMPARE(f.TargetText(), QStringLiteral("WP=BUST4,ID=12,WP=NET4,ADDR=17,TIME=750,RETRY=3"));
    QCOMPARE(f.Operator.Texts(), QStringList());
    QVERIFY(f.IsAtRest());
}

void TestCommandScan::Scan_ConnectionDeletedMeanwhile_ShowsNoName()
{
    ScanFixture f;
    f.Choose(QStringLiteral("Alpha"));
    f.InDialog = [&](ConData& con) {
        f.Component.Store.DeleteParent(QStringLiteral("Alpha"), true);
        ScanFixture::TakeAddress(con);
    };
    f.Scan();
    QCOMPARE(f.List().currentIndex(), -1);
    QCOMPARE(f.TargetText(), AlphaShown() + QStringLiteral(",WP=NET4,ADDR=17,TIME=750,RETRY=3"));
    QVERIFY(f.IsAtRest());
}

void TestCommandScan::Scan_NewConnectionNotChosen_IsSetAside()
{
    ScanFixture f;
    f.Choose(QStringLiteral("Alpha"));
    f.MakeNewConnection(QStringLiteral("Probe"));
    f.InDialog = [](ConData& con) {
        QCOMPARE(con.ConName, QStringLiteral("Alpha"));
        QCOMPARE(Model().NewDirectObject->ConName, QString());
        QCOMPARE(Model().NewDirectObject->ConWpCount, 0);
        QCOMPARE(Model().SavedDirectObject->ConName, QStringLiteral("Probe"));
        // The dialog makes one of its own of it.
        Model().NewDirectObject->Copy(con);
    };
    f.Scan();
    QCOMPARE(Model().NewDirectObject->ConName, QStringLiteral("Probe"));
    QCOMPARE(Model().NewDirectObject->ConWpCount, 3);
    QCOMPARE(Model().NewDirectObject->GetWpData(1).GetWpParam(1, 2), QStringLiteral("gw-2"));
    QCOMPARE(Model().SavedDirectObject->ConName, QString());
    // It goes before, as whenever the list is filled.
    QCOMPARE(f.List().currentText(), QStringLiteral("Probe"));
    QCOMPARE(Model().DirectObject->ConName, QStringLiteral("Probe"));
}

void TestCommandScan::Scan_NewConnectionChosen_StaysAndShowsItsChanges()
{
    ScanFixture f;
    f.MakeNewConnection(QStringLiteral("Probe"));
    f.Choose(QStringLiteral("Probe"));
    f.InDialog = [](ConData& con) {
        QCOMPARE(Model().NewDirectObject->ConName, QStringLiteral("Probe"));
        for (ConData* data : {&con, Model().NewDirectObject.get()})
            QVERIFY(data->SetWpParamByName(QStringLiteral("BUS NUMBER"), QStringLiteral("9")));
    };
    f.Scan();
    QCOMPARE(f.List().currentText(), QStringLiteral("Probe"));
    QCOMPARE(f.TargetText(), QStringLiteral("WP=SOCKET,HOST=gw-2,WP=BUST4,ID=9"));
    QCOMPARE(Model().SavedDirectObject->ConName, QString());
}

void TestCommandScan::Scan_WithoutScanRight_DoesNotOpen()
{
    ScanFixture f;
    f.Choose(QStringLiteral("Alpha"));
    Database().ScanRight = false;
    f.Scan();
    QCOMPARE(f.Dialogs, QStringList());
    QVERIFY(f.IsAtRest());
}

void TestCommandScan::Scan_RefreshFallsDue_IsLeftOut()
{
    ScanFixture f;
    f.Choose(QStringLiteral("Alpha"));
    f.InDialog = [&](ConData&) {
        f.Component.TakeCalls();
        f.Tick();
        // Nor does a second command start.
        f.Scan();
        QCOMPARE(f.Component.Calls, QStringList());
    };
    f.Scan();
    QCOMPARE(f.Dialogs.size(), 1);
    QVERIFY(f.IsAtRest());
}

void TestCommandScan::Scan_HostActsUnderTheDialog_EndsInPeace_data()
{
    QTest::addColumn<QString>("act");
    for (const char* act : {"destroys", "frees", "starts anew", "turns the page"})
        QTest::newRow(act) << QString::fromLatin1(act);
}
void TestCommandScan::Scan_HostActsUnderTheDialog_EndsInPeace()
{
    QFETCH(const QString, act);
    ScanFixture f;
    f.Choose(QStringLiteral("Alpha"));
    f.MakeNewConnection(QStringLiteral("Probe"));
    f.InDialog = [&](ConData& con) {
        if (act == QLatin1String("destroys"))
            f.Control.reset();
        else if (act == QLatin1String("frees"))
            f.Control->FreeObjects();
        else if (act == QLatin1String("starts anew"))
            f.Control->UserControl_InitProperties();
        else
            f.TurnTo(0);
        // The form has its connection still.
        QCOMPARE(con.ConName, QStringLiteral("Alpha"));
        ScanFixture::TakeAddress(con);
    };
    f.Scan();
    QCOMPARE(f.Dialogs.size(), 1);
    QCOMPARE(Browser().Busy, 0);
    QVERIFY(Browser().Replaced.empty());
    QVERIFY(!Model().ConObject->ConTree && !Model().ConObject->NodesTree);
    const bool isNew = act == QLatin1String("starts anew");
    QCOMPARE(Model().NewDirectObject->ConName, isNew ? QString() : QStringLiteral("Probe"));
    QCOMPARE(Model().SavedDirectObject->ConName, QString());
    QCOMPARE(f.Operator.Texts(), QStringList());
    if (isNew)
        QCOMPARE(f.Text("txtAddress"), QString());
}

void TestCommandScan::Scan_ErrorInTheDialog_IsShownAndAllIsPutBack()
{
    ScanFixture f;
    f.Choose(QStringLiteral("Alpha"));
    f.MakeNewConnection(QStringLiteral("Probe"));
    f.InDialog = [](ConData& con) { (void)con.GetWpData(11); };
    f.Scan();
    QCOMPARE(f.Operator.Boxes.size(), std::size_t(1));
    QCOMPARE(f.Operator.Boxes[0].flags, ErrorBoxFlags());
    QCOMPARE(Model().NewDirectObject->ConName, QStringLiteral("Probe"));
    QVERIFY(f.IsAtRest());
}

// From the Database page ------------------------------------------------------------------------------------

void TestCommandScan::DbScan_NoConnectionSelected_IsTold_data()
{
    QTest::addColumn<QString>("view");
    QTest::addColumn<QString>("selected");
    QTest::addColumn<QString>("told");
    const QString inTree = QStringLiteral("First select a connection in the tree.");
    const QString inConTree = QStringLiteral("First select a connection in the connection tree.");
    QTest::newRow("none") << QStringLiteral("connections") << QStringLiteral("none") << inTree;
    QTest::newRow("root") << QStringLiteral("waypoints") << QStringLiteral("root") << inTree;
    QTest::newRow("node view") << QStringLiteral("nodes") << QStringLiteral("node/North") << inConTree;
    QTest::newRow("node view, none") << QStringLiteral("nodes") << QStringLiteral("none") << inConTree;
}
void TestCommandScan::DbScan_NoConnectionSelected_IsTold()
{
    QFETCH(const QString, view);
    QFETCH(const QString, selected);
    QFETCH(const QString, told);
    ScanFixture f;
    f.Select(view, selected);
    f.Press("cmdDbScan");
    QCOMPARE(f.Operator.Boxes, std::vector<RecordedBox>{RecordedBox::Plain(told)});
    QCOMPARE(f.Component.Calls, QStringList());
    QCOMPARE(f.Dialogs, QStringList());
    QCOMPARE(f.Page(), 0);
    QVERIFY(f.IsAtRest());
}

void TestCommandScan::DbScan_Entry_ScansItsConnection_data()
{
    QTest::addColumn<QString>("view");
    QTest::addColumn<QString>("selected");
    QTest::addColumn<QString>("connection");
    QTest::newRow("connection") << QStringLiteral("connections") << QStringLiteral("con/Alpha")
                                << QStringLiteral("Alpha");
    QTest::newRow("waypoint") << QStringLiteral("waypoints") << QStringLiteral("wp/Beta")
                              << QStringLiteral("Beta");
    QTest::newRow("node") << QStringLiteral("connections") << QStringLiteral("node/South")
                          << QStringLiteral("Beta");
}
void TestCommandScan::DbScan_Entry_ScansItsConnection()
{
    QFETCH(const QString, view);
    QFETCH(const QString, selected);
    QFETCH(const QString, connection);
    ScanFixture f;
    f.Select(view, selected);
    const QString text = f.SelectedText();
    f.InDialog = [&](ConData& con) {
        QCOMPARE(&con, Model().DirectObject.get());
        QCOMPARE(con.ConName, connection);
        QCOMPARE(f.Page(), 1);
        QCOMPARE(f.NodePages().currentIndex(), 0);
        QCOMPARE(f.List().currentText(), connection);
        QVERIFY(!f.TimerOn());
    };
    f.Press("cmdDbScan");
    QCOMPARE(f.Dialogs, QStringList{QStringLiteral("scan")});
    QCOMPARE(f.Operator.Texts(), QStringList());
    QCOMPARE(f.TargetText(), Model().DirectObject->TargetString);
    QVERIFY(!f.TargetText().isEmpty());
    QVERIFY(f.IsAtRest());
    f.TurnTo(0);
    QCOMPARE(f.SelectedText(), text);
}

void TestCommandScan::DbScan_FieldsFilled_EmptiesThoseOfTheFirstPage()
{
    ScanFixture f;
    for (const char* field : {"txtAddress", "txtFeId", "txtRetries", "txtFeChannel", "txtTimeOut", "txtPath"})
        f.Type(field, "8");
    f.Select(QStringLiteral("connections"), QStringLiteral("con/Alpha"));
    f.InDialog = [](ConData& con) { QCOMPARE(con.Retry + con.Time, QString()); };
    f.Press("cmdDbScan");
    QCOMPARE(f.Dialogs.size(), 1);
    for (const char* field : {"txtAddress", "txtFeId", "txtRetries", "txtFeChannel", "txtTimeOut"})
        QCOMPARE(f.Text(field), QString());
    QCOMPARE(f.Text("txtPath"), QStringLiteral("8"));
    QCOMPARE(f.TargetText(), AlphaShown());
}

void TestCommandScan::DbScan_AddressTaken_TargetShowsIt()
{
    ScanFixture f;
    f.Select(QStringLiteral("connections"), QStringLiteral("con/Alpha"));
    f.InDialog = ScanFixture::TakeAddress;
    f.Press("cmdDbScan");
    const QString expected = AlphaShown() + QStringLiteral(",WP=NET4,ADDR=17,TIME=750,RETRY=3");
    QCOMPARE(f.TargetText(), expected);
    QString target;
    QVERIFY(f.Control->GetTarget(target));
    QCOMPARE(target, expected);
    QVERIFY(f.IsAtRest());
}

void TestCommandScan::DbScan_StaleEntry_IsToldAndRefreshed_data()
{
    QTest::addColumn<QString>("view");
    QTest::addColumn<QString>("selected");
    QTest::newRow("connection") << QStringLiteral("connections") << QStringLiteral("con/Alpha");
    QTest::newRow("waypoint") << QStringLiteral("waypoints") << QStringLiteral("wp/Alpha");
    QTest::newRow("node") << QStringLiteral("connections") << QStringLiteral("node/North");
}
void TestCommandScan::DbScan_StaleEntry_IsToldAndRefreshed()
{
    QFETCH(const QString, view);
    QFETCH(const QString, selected);
    ScanFixture f;
    f.Select(view, selected);
    f.ChangeElsewhere(QStringLiteral("con/Alpha"));
    f.Press("cmdDbScan");
    QCOMPARE(f.Operator.Boxes,
             std::vector<RecordedBox>{RecordedBox::Plain(f.ChangedText(QStringLiteral("Connection Alpha")))});
    QCOMPARE(f.Component.Count(QStringLiteral("GetJournalChangesAfterId")), 1);
    QCOMPARE(f.Dialogs, QStringList());
    QCOMPARE(f.Page(), 0);
    QVERIFY(f.IsAtRest());
}

void TestCommandScan::DbScan_ReadFails_IsToldAndStaysOnThePage_data()
{
    QTest::addColumn<QString>("call");
    QTest::addColumn<QString>("told");
    QTest::newRow("begin") << QStringLiteral("BeginTransaction")
                           << QStringLiteral("Database access is denied, because another application is "
                                             "using it.");
    QTest::newRow("read") << QStringLiteral("GetParent")
                          << QStringLiteral("Failure to get connection data from database.");
    QTest::newRow("commit") << QStringLiteral("CommitTransaction")
                            << QStringLiteral("Failure to commit database operations.");
}
void TestCommandScan::DbScan_ReadFails_IsToldAndStaysOnThePage()
{
    QFETCH(const QString, call);
    QFETCH(const QString, told);
    ScanFixture f;
    f.Select(QStringLiteral("connections"), QStringLiteral("con/Alpha"));
    if (call == QLatin1String("CommitTransaction"))
        f.FailOuterCommit();
    else
        f.Component.Fail(call);
    f.Press("cmdDbScan");
    f.Component.BeforeCall = nullptr;
    f.Component.Repair();
    QCOMPARE(f.Operator.Boxes, std::vector<RecordedBox>{RecordedBox::Error(told)});
    QCOMPARE(f.Dialogs, QStringList());
    QCOMPARE(f.Page(), 0);
    QVERIFY(f.IsAtRest());
}

void TestCommandScan::DbScan_NotListed_IsTold()
{
    ScanFixture f;
    f.Select(QStringLiteral("connections"), QStringLiteral("con/Alpha"));
    f.Component.Fail(QStringLiteral("QueryParentsWithID"));
    f.Press("cmdDbScan");
    QCOMPARE(f.Operator.Boxes.back(), RecordedBox::Plain(QStringLiteral("Connection name not found.")));
    QCOMPARE(f.Dialogs, QStringList());
    QCOMPARE(f.Page(), 1);
    QVERIFY(f.IsAtRest());
}

void TestCommandScan::DbScan_ChoiceFails_ScansNothingElse()
{
    ScanFixture f;
    f.Choose(QStringLiteral("Beta"));
    f.TurnTo(0);
    f.Select(QStringLiteral("connections"), QStringLiteral("con/Alpha"));
    f.Component.BeforeCall = [&](const QString& call) {
        if (call == QLatin1String("GetParentID(Alpha)") && f.Page() == 1)
            f.Component.FailTimes(call, 1);
    };
    f.Press("cmdDbScan");
    QCOMPARE(f.Operator.Texts().last(), f.ChangedText(QStringLiteral("Connection Alpha")));
    QCOMPARE(f.Dialogs, QStringList());
    QCOMPARE(f.List().currentText(), QStringLiteral("Beta"));
    QVERIFY(f.IsAtRest());
}

void TestCommandScan::DbScan_WithoutScanRight_DoesNothing()
{
    ScanFixture f;
    f.Select(QStringLiteral("connections"), QStringLiteral("con/Alpha"));
    Database().ScanRight = false;
    f.Press("cmdDbScan");
    QCOMPARE(f.Component.Calls, QStringList());
    QCOMPARE(f.Dialogs, QStringList());
    QCOMPARE(f.Page(), 0);
}

void TestCommandScan::DbScan_ControlDestroyed_Ends_data()
{
    QTest::addColumn<QString>("under");
    for (const char* under : {"stale", "begin", "not found", "choice", "dialog"})
        QTest::newRow(under) << QString::fromLatin1(under);
}
void TestCommandScan::DbScan_ControlDestroyed_Ends()
{
    QFETCH(const QString, under);
    ScanFixture f;
    f.Select(QStringLiteral("connections"), QStringLiteral("con/Alpha"));
    if (under == QLatin1String("stale"))
        f.ChangeElsewhere(QStringLiteral("con/Alpha"));
    else if (under == QLatin1String("begin"))
        f.Component.Fail(QStringLiteral("BeginTransaction"));
    else if (under == QLatin1String("not found"))
        f.Component.Fail(QStringLiteral("QueryParentsWithID"));
    else if (under == QLatin1String("choice"))
        f.Component.BeforeCall = [&](const QString& call) {
            if (call == QLatin1String("GetParentID(Alpha)") && f.Page() == 1)
                f.Component.FailTimes(call, 1);
        };
    f.Operator.WhileOpen = [&](const RecordedBox&) {
        f.Component.BeforeCall = nullptr;
        f.Control.reset();
    };
    f.InDialog = [&](ConData&) { f.Control.reset(); };
    f.Press("cmdDbScan");
    QVERIFY(!f.Control);
    QCOMPARE(f.Operator.Boxes.size() + std::size_t(f.Dialogs.size()), std::size_t(1));
    QCOMPARE(Browser().Busy, 0);
    QCOMPARE(f.Component.Store.Levels(), 0);
    QVERIFY(!Model().ConObject->ConTree && !Model().ConObject->NodesTree);
}

QTEST_MAIN(TestCommandScan)
#include "TestCommandScan.moc"
