#include "platform/NamedValues.h"
#include "tests/scan/ScanFixture.h"

#include <QAbstractButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

/// What the scan dialog shows when it opens, and what it leaves when it closes.
class TestFrmScanLoad : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Form_Open_HasItsCaptions();
    void Form_Open_AccessKeysDoNotClash();
    void Form_Open_IsModalAndResizable();
    void Form_LargeFont_ShowsAllTexts();
    void Tab_FromTheBegin_FollowsTheForm();
    void Load_Connection_FillsTheFields();
    void Load_Grid_IsEmptyWithItsHeaders();
    void Load_ConnectionWithBus_CopiesItUnnamed();
    void Load_NamedNewConnection_StaysAsItIs();
    void Load_ConnectionWithoutBus_HasNoBusBox();
    void Load_DamagedConnection_TellsAndOpens();
    void Load_WithoutNewDirectObject_Opens();
    void Timer_Workstation_TicksFast();
    void Timer_TerminalServer_TicksSlowly_data();
    void Timer_TerminalServer_TicksSlowly();
    void Help_ButtonAndKey_ShowTheTopic();
    void Close_Idle_Closes_data();
    void Close_Idle_Closes();
    void Unload_UnnamedNewConnection_LosesItsName();
    void Unload_NamedNewConnection_KeepsItsName();
    void Unload_DestroyedByTheHost_LosesTheNameToo();
};

void TestFrmScanLoad::Form_Open_HasItsCaptions()
{
    ScanFixture f;
    f.ShowScan();

    const QList<std::pair<const char*, const char*>> labels{{"Label12", "Begin:"},
                                                            {"Label11", "End:"},
                                                            {"Label14", "Retries:"},
                                                            {"Label13", "Time-out:"},
                                                            {"lblSelectedBus", "Selected Bus:"},
                                                            {"lbCurrentAddr", "Scan progress"}};
    for (const auto& [name, text] : labels)
        QCOMPARE(f.LabelText(name), text);
    const QList<std::pair<const char*, const char*>> buttons{
        {"cmdScanBus", "Show List"}, {"chkRepeatScan", "Repeat"}, {"cmdStartStop", "S&tart"},
        {"cmdSelect", "S&elect"},    {"cmdSave", "&Save..."},     {"cmdSaveAll", "Save &All..."},
        {"cmdCancel", "&Close"},     {"cmdHelp", "&Help"}};
    for (const auto& [name, text] : buttons)
        QCOMPARE(f.Find<QAbstractButton>(name).text(), text);
    const QList<std::pair<const char*, const char*>> frames{
        {"Frame4", "Address Range"},
        {"Frame5", "Timing"},
        {"fraBusSelection", "Zelka Mediation Function Bus"}};
    for (const auto& [name, text] : frames)
        QCOMPARE(f.Find<QGroupBox>(name).title(), text);
    QCOMPARE(f.Form->windowTitle(), "Scan Alpha");
    for (const char* name : {"txtAddrBegin", "txtAddrEnd", "txtTimingRetries", "txtTimingTimeout", "txtBus",
                             "cmdScanBus", "chkRepeatScan", "PrgBarScan", "grdFoundNodes", "cmdSelect",
                             "cmdSave", "cmdSaveAll", "cmdCancel", "cmdHelp"})
        QVERIFY2(!f.Find<QWidget>(name).accessibleName().isEmpty(), name);
}

void TestFrmScanLoad::Form_Open_AccessKeysDoNotClash()
{
    ScanFixture f;
    f.ShowScan();

    QStringList keys;
    for (const QAbstractButton* button : f.Form->findChildren<QAbstractButton*>()) {
        const QString key = QKeySequence::mnemonic(button->text()).toString();
        if (!key.isEmpty())
            keys << key;
    }

    QCOMPARE(keys.size(), 6);
    QCOMPARE(keys.removeDuplicates(), 0);
}

void TestFrmScanLoad::Form_Open_IsModalAndResizable()
{
    ScanFixture f;
    f.ShowScan();
    const int gridHeight = f.Grid().height();
    const int barHeight = f.Bar().height();

    f.Form->resize(f.Form->width() + 100, f.Form->height() + 100);
    QApplication::processEvents();

    QVERIFY(f.Form->isModal());
    QVERIFY(f.Form->isSizeGripEnabled());
    QCOMPARE(f.Grid().height(), gridHeight + 100);
    QCOMPARE(f.Bar().height(), barHeight);
}

void TestFrmScanLoad::Form_LargeFont_ShowsAllTexts()
{
    ScanFixture f;
    f.ShowScan();
    QFont font = f.Form->font();
    font.setPointSizeF(font.pointSizeF() * 1.2);

    f.Form->setFont(font);
    f.Form->resize(f.Form->minimumSizeHint().expandedTo(f.Form->minimumSize()));
    QApplication::processEvents();

    for (const QAbstractButton* button : f.Form->findChildren<QAbstractButton*>())
        QVERIFY2(button->width() >= button->sizeHint().width() || button->text().isEmpty(),
                 qPrintable(button->text()));
    for (const QLabel* label : f.Form->findChildren<QLabel*>())
        QVERIFY2(label->width() >= label->sizeHint().width(), qPrintable(label->text()));
}

void TestFrmScanLoad::Tab_FromTheBegin_FollowsTheForm()
{
    ScanFixture f;
    f.ShowScan();
    QCOMPARE(QApplication::focusWidget(), &f.Find<QWidget>("txtAddrBegin"));

    for (const char* next : {"txtAddrEnd", "txtTimingRetries", "txtTimingTimeout", "txtBus", "cmdScanBus",
                             "chkRepeatScan", "cmdStartStop", "grdFoundNodes", "cmdCancel", "cmdHelp"}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), &f.Find<QWidget>(next));
    }
}

void TestFrmScanLoad::Load_Connection_FillsTheFields()
{
    ScanFixture f;
    f.ShowScan();

    QCOMPARE(f.Box("txtAddrBegin").text(), QString());
    QCOMPARE(f.Box("txtAddrEnd").text(), QString());
    QCOMPARE(f.Box("txtTimingRetries").text(), "3");
    QCOMPARE(f.Box("txtTimingTimeout").text(), "2000");
    QCOMPARE(f.Box("txtBus").text(), "254");
    QCOMPARE(f.State(), "S&tart");
    QCOMPARE(f.Enabled(), "close bus");
    QVERIFY(!f.Timer().Enabled());
    QCOMPARE(f.Direct().TargetString, f.AlphaTarget);
    QVERIFY(f.Network.Calls.isEmpty());
}

void TestFrmScanLoad::Load_Grid_IsEmptyWithItsHeaders()
{
    ScanFixture f;
    f.ShowScan();

    QCOMPARE(f.Grid().GridRows(), 20);
    QCOMPARE(f.Grid().FoundCount(), qint16(0));
    QCOMPARE(f.Grid().Row(), 0);
    QCOMPARE(f.Grid().TextMatrix(0, 0), "Address");
    QCOMPARE(f.Grid().TextMatrix(0, 1), "Type");
    QCOMPARE(f.Grid().TextMatrix(0, 2), "Identification");
}

void TestFrmScanLoad::Load_ConnectionWithBus_CopiesItUnnamed()
{
    ScanFixture f;
    f.ShowScan();

    QCOMPARE(f.NewDirect().ConName, QString());
    QCOMPARE(f.NewDirect().ConDbID, f.Direct().ConDbID);
    QString bus;
    QVERIFY(f.NewDirect().GetWpParamByName("BUS NUMBER", bus));
    QCOMPARE(bus, "254");
}

void TestFrmScanLoad::Load_NamedNewConnection_StaysAsItIs()
{
    ScanFixture f;
    f.NewDirect().ConName = "Composed";
    f.ShowScan();

    QCOMPARE(f.NewDirect().ConName, "Composed");
    QCOMPARE(f.NewDirect().ConWpCount, 0);
}

void TestFrmScanLoad::Load_ConnectionWithoutBus_HasNoBusBox()
{
    ScanFixture f;
    f.ShowScan("Gamma");

    QCOMPARE(f.Form->windowTitle(), "Scan Gamma");
    QCOMPARE(f.Box("txtBus").text(), QString());
    QCOMPARE(f.Enabled(), "close");
    QVERIFY(f.Find<QWidget>("fraBusSelection").isEnabled());
    QVERIFY(!f.Find<QWidget>("lblSelectedBus").isEnabled());
    QVERIFY(!f.Button("cmdScanBus").isEnabled());
    QCOMPARE(f.NewDirect().ConWpCount, 0);
}

void TestFrmScanLoad::Load_DamagedConnection_TellsAndOpens()
{
    ScanFixture f;
    f.Load("Gamma");
    f.Direct().ConWpCount = ConData::MaxWaypoints + 1;

    const frmScan form(f.Direct());

    QCOMPARE(f.Operator.Boxes.size(), std::size_t(1));
    QCOMPARE(f.Operator.Boxes[0].flags, ErrorBoxFlags());
    QCOMPARE(form.windowTitle(), "Scan Gamma");
    QVERIFY(!form.findChild<QWidget*>("txtBus")->isEnabled());
}

void TestFrmScanLoad::Load_WithoutNewDirectObject_Opens()
{
    ScanFixture f;
    Model().NewDirectObject.reset();

    f.ShowScan();

    QCOMPARE(f.Box("txtBus").text(), "254");
    QVERIFY(f.Operator.Boxes.empty());
}

void TestFrmScanLoad::Timer_Workstation_TicksFast()
{
    const QTemporaryDir folder;
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder.path());
    ScanFixture f;
    f.Load("Alpha");
    frmScan form(f.Direct());
    const auto* timer = form.findChild<IntervalTimer*>("tmrScanNodes");
    QCOMPARE(timer->Interval(), 500);

    form.show();

    QCOMPARE(timer->Interval(), 100);
    QVERIFY(!timer->Enabled());
}

void TestFrmScanLoad::Timer_TerminalServer_TicksSlowly_data()
{
    QTest::addColumn<QString>("key");
    QTest::newRow("terminal server") << "Terminal Server";
    QTest::newRow("other server") << "Citrix";
}

void TestFrmScanLoad::Timer_TerminalServer_TicksSlowly()
{
    QFETCH(const QString, key);
    const QTemporaryDir folder;
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder.path());
    NamedValues().Write("HKEY_LOCAL_MACHINE/SYSTEM/CurrentControlSet/Control/" + key + "/ProductName",
                        "Shared");
    ScanFixture f;
    f.Load("Alpha");
    frmScan form(f.Direct());

    form.show();

    QCOMPARE(form.findChild<IntervalTimer*>("tmrScanNodes")->Interval(), 500);
}

void TestFrmScanLoad::Help_ButtonAndKey_ShowTheTopic()
{
    ScanFixture f;
    f.ShowScan();

    f.Click("cmdHelp");
    QTest::keyClick(f.Form.get(), Qt::Key_F1);

    QCOMPARE(f.Topics, QStringList({"Browser4Scan00000045.htm", "Browser4Scan00000045.htm"}));
}

void TestFrmScanLoad::Close_Idle_Closes_data()
{
    QTest::addColumn<QString>("way");
    for (const char* way : {"button", "window", "Escape"})
        QTest::newRow(way) << way;
}

void TestFrmScanLoad::Close_Idle_Closes()
{
    QFETCH(const QString, way);
    ScanFixture f;
    f.ShowScan();

    if (way == "button")
        f.Click("cmdCancel");
    else if (way == "window")
        f.Form->close();
    else
        QTest::keyClick(&f.Grid(), Qt::Key_Escape);

    QVERIFY(!f.Form->isVisible());
    QCOMPARE(f.Form->result(), int(QDialog::Rejected));
}

void TestFrmScanLoad::Unload_UnnamedNewConnection_LosesItsName()
{
    ScanFixture f;
    f.ShowScan();
    f.NewDirect().ConName = "Alpha";

    f.Click("cmdCancel");

    QCOMPARE(f.NewDirect().ConName, QString());
}

void TestFrmScanLoad::Unload_NamedNewConnection_KeepsItsName()
{
    ScanFixture f;
    f.NewDirect().ConName = "Composed";
    f.ShowScan();

    f.Click("cmdCancel");

    QCOMPARE(f.NewDirect().ConName, "Composed");
}

void TestFrmScanLoad::Unload_DestroyedByTheHost_LosesTheNameToo()
{
    ScanFixture f;
    f.ShowScan();
    f.NewDirect().ConName = "Alpha";

    f.Form.reset();

    QCOMPARE(f.NewDirect().ConName, QString());
}

QTEST_MAIN(TestFrmScanLoad)
#include "TestFrmScanLoad.moc"
