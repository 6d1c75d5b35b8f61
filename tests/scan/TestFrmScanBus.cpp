#include "scan/frmBusSelection.h"
#include "tests/scan/ScanFixture.h"

#include <QTest>
#include <QTimer>

/// The bus box of the scan dialog, and the list of buses behind its button.
class TestFrmScanBus : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Bus_Changed_GoesToBothConnections();
    void Bus_Blank_Is0();
    void Bus_BackToItsValue_TakesTheNameAway();
    void Bus_BackToItsValue_NamedConnection_KeepsTheName();
    void Bus_TooLarge_IsCutAndTold_data();
    void Bus_TooLarge_IsCutAndTold();
    void Bus_ConnectionTakesNone_TellsSo();
    void Bus_NewConnectionTakesNone_TellsSo();
    void Bus_DamagedConnection_TellsTheError();
    void Bus_BeforeActivation_ChangesNothing();
    void Bus_FormGoneUnderTheMessage_Ends();
    void Bus_WithoutNewConnection_GoesToTheOne();
    void ShowList_BusChosen_FillsTheBox();
    void ShowList_Cancelled_LeavesTheBox();
    void ShowList_FormGoneMeanwhile_Ends();
};

namespace {

QString BusOf(const ConData& connection)
{
    QString bus;
    return connection.GetWpParamByName("BUS NUMBER", bus) ? bus : QStringLiteral("none");
}

/// Answers with a bus list, and closes the dialog that shows it with a button.
void PlanTheList(ScanFixture& f, const char* button, int row = 0)
{
    f.Network.OnSend = [](const QString&, const QString&) {
        return QStringLiteral("m:11,1,3\r12\r254017\r254");
    };
    auto* const poll = new QTimer(f.Form.get());
    QObject::connect(poll, &QTimer::timeout, poll, [poll, form = f.Form.get(), button, row] {
        auto* const selection = form->findChild<frmBusSelection*>();
        if (!selection || !selection->findChild<QWidget*>("cmdOK")->isEnabled())
            return;
        poll->stop();
        selection->findChild<QListWidget*>("lstBusses")->setCurrentRow(row);
        QTest::mouseClick(selection->findChild<QPushButton*>(QString::fromLatin1(button)), Qt::LeftButton);
    });
    poll->start(5);
}

} // namespace

void TestFrmScanBus::Bus_Changed_GoesToBothConnections()
{
    ScanFixture f;
    f.ShowScan();

    f.Box("txtBus").setText(" 12 ");

    QCOMPARE(BusOf(f.Direct()), "12");
    QCOMPARE(BusOf(f.NewDirect()), "12");
    QCOMPARE(f.NewDirect().ConName, "Alpha");
    QVERIFY(f.Operator.Boxes.empty());
}

void TestFrmScanBus::Bus_Blank_Is0()
{
    ScanFixture f;
    f.ShowScan();

    f.Box("txtBus").clear();

    QCOMPARE(BusOf(f.Direct()), "0");
    QCOMPARE(BusOf(f.NewDirect()), "");
    QCOMPARE(f.NewDirect().ConName, "Alpha");
}

void TestFrmScanBus::Bus_BackToItsValue_TakesTheNameAway()
{
    ScanFixture f;
    f.ShowScan();
    f.Box("txtBus").setText("12");

    f.Box("txtBus").setText("254");

    QCOMPARE(BusOf(f.Direct()), "254");
    QCOMPARE(f.NewDirect().ConName, QString());
    QCOMPARE(BusOf(f.NewDirect()), "12");
}

void TestFrmScanBus::Bus_BackToItsValue_NamedConnection_KeepsTheName()
{
    ScanFixture f;
    f.Load("Alpha");
    f.NewDirect().Copy(f.Direct());
    f.NewDirect().ConName = "Composed";
    f.Show();
    f.Box("txtBus").setText("254 ");
    QCOMPARE(f.NewDirect().ConName, "Composed");

    f.Box("txtBus").setText("12");
    QCOMPARE(f.NewDirect().ConName, "Alpha");
    f.Box("txtBus").setText("254");

    QCOMPARE(f.NewDirect().ConName, "Alpha");
}

void TestFrmScanBus::Bus_TooLarge_IsCutAndTold_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("just above") << "1000000";
    QTest::newRow("above 32 bits") << "99999999999";
}

void TestFrmScanBus::Bus_TooLarge_IsCutAndTold()
{
    QFETCH(const QString, text);
    ScanFixture f;
    f.ShowScan();
    f.Box("txtBus").setText("999999");
    QVERIFY(f.Operator.Boxes.empty());
    f.Operator.WhileOpen = [&](const RecordedBox&) {
        QCOMPARE(f.Box("txtBus").text(), "999999");
        QCOMPARE(QApplication::focusWidget(), &f.Box("txtBus"));
        QCOMPARE(f.Box("txtBus").cursorPosition(), 6);
    };
    f.Box("txtBus").setText("7");

    f.Box("txtBus").setText(text);
    QApplication::processEvents();

    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Plain("Bus Number maximum value is 999999.")});
    QCOMPARE(BusOf(f.Direct()), "999999");
    QCOMPARE(BusOf(f.NewDirect()), "999999");
}

void TestFrmScanBus::Bus_ConnectionTakesNone_TellsSo()
{
    ScanFixture f;
    f.ShowScan("Gamma");

    f.Box("txtBus").setText("12");
    QApplication::processEvents();

    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Plain("Error in bus setting.")});
    QCOMPARE(f.NewDirect().ConName, QString());
}

void TestFrmScanBus::Bus_NewConnectionTakesNone_TellsSo()
{
    ScanFixture f;
    f.NewDirect().ConName = "Composed";
    f.ShowScan();

    f.Box("txtBus").setText("12");
    QApplication::processEvents();

    QCOMPARE(BusOf(f.Direct()), "12");
    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Plain("Error in bus setting.")});
    QCOMPARE(f.NewDirect().ConName, "Composed");
}

void TestFrmScanBus::Bus_DamagedConnection_TellsTheError()
{
    ScanFixture f;
    f.ShowScan("Gamma");
    f.Direct().ConWpCount = ConData::MaxWaypoints + 1;

    f.Box("txtBus").setText("12");
    QApplication::processEvents();

    QCOMPARE(f.Operator.Boxes.size(), std::size_t(1));
    QCOMPARE(f.Operator.Boxes[0].flags, ErrorBoxFlags());
}

void TestFrmScanBus::Bus_BeforeActivation_ChangesNothing()
{
    ScanFixture f;
    f.Load("Alpha");
    frmScan form(f.Direct());

    form.findChild<QLineEdit*>("txtBus")->setText("12");

    QCOMPARE(BusOf(f.Direct()), "254");
}

void TestFrmScanBus::Bus_FormGoneUnderTheMessage_Ends()
{
    ScanFixture f;
    f.ShowScan();
    f.Operator.WhileOpen = [&](const RecordedBox&) { f.Form.reset(); };

    f.Box("txtBus").setText("1000000");
    QApplication::processEvents();

    QVERIFY(!f.Form);
    QCOMPARE(BusOf(f.Direct()), "999999");
    QCOMPARE(f.Operator.Boxes.size(), std::size_t(1));
}

void TestFrmScanBus::Bus_WithoutNewConnection_GoesToTheOne()
{
    ScanFixture f;
    f.ShowScan();
    Model().NewDirectObject.reset();

    f.Box("txtBus").setText("12");

    QCOMPARE(BusOf(f.Direct()), "12");
    QVERIFY(f.Operator.Boxes.empty());
}

void TestFrmScanBus::ShowList_BusChosen_FillsTheBox()
{
    ScanFixture f;
    f.ShowScan();
    PlanTheList(f, "cmdOK", 1);

    f.Click("cmdScanBus");

    QCOMPARE(f.Box("txtBus").text(), "254017");
    QCOMPARE(BusOf(f.Direct()), "254017");
    QCOMPARE(f.NewDirect().ConName, "Alpha");
    QVERIFY(!f.Form->findChild<frmBusSelection*>());
}

void TestFrmScanBus::ShowList_Cancelled_LeavesTheBox()
{
    ScanFixture f;
    f.ShowScan();
    PlanTheList(f, "cmdCancel");

    f.Click("cmdScanBus");

    QCOMPARE(f.Box("txtBus").text(), "254");
    QCOMPARE(f.NewDirect().ConName, QString());
}

void TestFrmScanBus::ShowList_FormGoneMeanwhile_Ends()
{
    ScanFixture f;
    f.ShowScan();
    f.Network.OnOpen = [&](const QString&) {
        f.Form.reset();
        return 0;
    };

    f.Click("cmdScanBus");

    QVERIFY(!f.Form);
    QVERIFY(f.Operator.Boxes.empty());
    QVERIFY(f.IsReleased());
    QCOMPARE(Scan().SelectedBus, -1);
}

QTEST_MAIN(TestFrmScanBus)
#include "TestFrmScanBus.moc"
