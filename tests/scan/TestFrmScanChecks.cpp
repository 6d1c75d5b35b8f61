#include "scan/network/TimingLimits.h"
#include "tests/scan/ScanFixture.h"

#include <QSignalBlocker>
#include <QTest>

/// The checks before a scan: order, limits, messages, where the operator is led.
class TestFrmScanChecks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Start_Refused_TellsAndLeads_data();
    void Start_Refused_TellsAndLeads();
    void Start_SeveralWrong_TellsTheFirst();
    void Start_Accepted_Scans_data();
    void Start_Accepted_Scans();
    void Start_LimitsFromTheDatabase_AreTaken();
    void Start_LimitsMissing_FallBack_data();
    void Start_LimitsMissing_FallBack();
    void Start_WithoutGateway_FallsBack();
    void Start_BlankRetriesBelowTheLowest_AreRefused();
    void Start_FormGoneUnderTheMessage_Ends();
};

namespace {

const QString Accepted = "The accepted address range for the scan is from 0 to 4094";

/// Text that typing cannot give.
void Force(const ScanFixture& f, const char* box, const QString& text)
{
    const QSignalBlocker quiet(&f.Box(box));
    f.Box(box).setText(text);
}

} // namespace

void TestFrmScanChecks::Start_Refused_TellsAndLeads_data()
{
    QTest::addColumn<QStringList>("texts"); // begin, end, retries, time-out
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("box");
    const QString noRange = "Give scan address range.";
    const QString retries = "Timing retries is out of range, allowd values are from  0 to 1000.";
    const QString timeOut = "Timing time-out is out of range, allowd values are from  0 to 30000.";
    QTest::newRow("no begin") << QStringList{"", "5", "3", "2000"} << noRange << "";
    QTest::newRow("blank end") << QStringList{"3", "  ", "3", "2000"} << noRange << "";
    QTest::newRow("retries") << QStringList{"3", "5", "1001", "2000"} << retries << "txtTimingRetries";
    QTest::newRow("negative retries") << QStringList{"3", "5", "-1", "2000"} << retries << "txtTimingRetries";
    QTest::newRow("time-out") << QStringList{"3", "5", "3", "30001"} << timeOut << "txtTimingTimeout";
    QTest::newRow("end below begin")
        << QStringList{"5", "3", "3", "2000"}
        << "Address range end value must be equal or greater than the begin value."
        << "txtAddrEnd";
    QTest::newRow("begin above") << QStringList{"4095", "4096", "3", "2000"} << Accepted << "txtAddrBegin";
    QTest::newRow("begin below") << QStringList{"-1", "5", "3", "2000"} << Accepted << "txtAddrBegin";
    QTest::newRow("end above") << QStringList{"3", "4095", "3", "2000"} << Accepted << "txtAddrEnd";
}

void TestFrmScanChecks::Start_Refused_TellsAndLeads()
{
    QFETCH(const QStringList, texts);
    QFETCH(const QString, message);
    QFETCH(const QString, box);
    ScanFixture f;
    f.ShowScan();
    Force(f, "txtAddrBegin", texts[0]);
    Force(f, "txtAddrEnd", texts[1]);
    Force(f, "txtTimingRetries", texts[2]);
    Force(f, "txtTimingTimeout", texts[3]);

    f.Click("cmdStartStop");

    QCOMPARE(f.Operator.Boxes, std::vector<RecordedBox>{RecordedBox::Plain(message)});
    QCOMPARE(f.State(), "S&tart");
    QCOMPARE(f.Enabled(), "close bus");
    QVERIFY(f.Network.Calls.isEmpty());
    if (!box.isEmpty()) {
        QCOMPARE(QApplication::focusWidget(), &f.Box(qPrintable(box)));
        QCOMPARE(f.Box(qPrintable(box)).selectedText(), f.Box(qPrintable(box)).text());
    }
}

void TestFrmScanChecks::Start_SeveralWrong_TellsTheFirst()
{
    ScanFixture f;
    f.ShowScan();
    f.SetRange(5, 3);
    f.Box("txtTimingTimeout").setText("99999");

    f.Click("cmdStartStop");

    QCOMPARE(f.Operator.Texts(),
             QStringList{"Timing time-out is out of range, allowd values are from  0 to 30000."});
}

void TestFrmScanChecks::Start_Accepted_Scans_data()
{
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("whole range") << QStringList{"0", "4094", "3", "2000"};
    QTest::newRow("one address") << QStringList{"17", "17", "3", "2000"};
    QTest::newRow("largest timing") << QStringList{"3", "5", "1000", "30000"};
    QTest::newRow("blank timing") << QStringList{"3", "5", "", ""};
}

void TestFrmScanChecks::Start_Accepted_Scans()
{
    QFETCH(const QStringList, texts);
    ScanFixture f;
    f.ShowScan();
    f.Box("txtAddrBegin").setText(texts[0]);
    f.Box("txtAddrEnd").setText(texts[1]);
    f.Box("txtTimingRetries").setText(texts[2]);
    f.Box("txtTimingTimeout").setText(texts[3]);

    f.Click("cmdStartStop");

    QVERIFY(f.Operator.Boxes.empty());
    QCOMPARE(f.State(), "Stop");
    QCOMPARE(f.TakeAsked(), QList<int>{texts[0].toInt()});
}

void TestFrmScanChecks::Start_LimitsFromTheDatabase_AreTaken()
{
    ScanFixture f;
    f.ShowScan();
    f.Component.Answer("TargetParamValueBoundsLong(SOCKET,RETRY)", {"1", "5"});
    f.Component.Answer("TargetParamValueBoundsLong(SOCKET,TIME)", {"100", "200"});

    const TimingLimits retries = RetryLimits();
    const TimingLimits times = TimeLimits();

    QCOMPARE(retries.lowest + "," + retries.highest, " 1, 5");
    QCOMPARE(times.lowest + "," + times.highest, " 100, 200");
    QVERIFY(retries.Allow("1") && retries.Allow(" 5 "));
    QVERIFY(!retries.Allow("") && !retries.Allow("6"));
    f.SetRange(3, 5);
    f.Click("cmdStartStop");
    QCOMPARE(f.Operator.Texts(),
             QStringList{"Timing time-out is out of range, allowd values are from  100 to 200."});
}

void TestFrmScanChecks::Start_LimitsMissing_FallBack_data()
{
    QTest::addColumn<QString>("retries");
    QTest::addColumn<QString>("timeOut");
    QTest::addColumn<QString>("message");
    QTest::newRow("largest") << "1000"
                             << "30000"
                             << "";
    QTest::newRow("retries") << "1001"
                             << "30000"
                             << "Timing retries is out of range, allowd values are from 0 to 1000.";
    QTest::newRow("time-out") << "1000"
                              << "30001"
                              << "Timing time-out is out of range, allowd values are from 0 to 30000.";
}

void TestFrmScanChecks::Start_LimitsMissing_FallBack()
{
    QFETCH(const QString, message);
    QFETCH(const QString, retries);
    QFETCH(const QString, timeOut);
    ScanFixture f;
    f.ShowScan();
    f.Component.Fail("TargetParamProperties");
    f.Box("txtTimingRetries").setText(retries);
    f.Box("txtTimingTimeout").setText(timeOut);

    f.Start(3, 5);

    QCOMPARE(f.Operator.Texts(), message.isEmpty() ? QStringList() : QStringList{message});
    QCOMPARE(f.State(), message.isEmpty() ? "Stop" : "S&tart");
}

void TestFrmScanChecks::Start_WithoutGateway_FallsBack()
{
    ScanFixture f;
    f.ShowScan();
    f.Box("txtTimingRetries").setText("1001");
    Database().DbObject.reset();
    Model().Database = nullptr;

    f.Start(3, 5);

    QCOMPARE(f.Operator.Texts(),
             QStringList{"Timing retries is out of range, allowd values are from 0 to 1000."});
}

void TestFrmScanChecks::Start_BlankRetriesBelowTheLowest_AreRefused()
{
    ScanFixture f;
    f.ShowScan();
    f.Component.Answer("TargetParamValueBoundsLong(SOCKET,RETRY)", {"1", "5"});
    f.Box("txtTimingRetries").clear();

    f.Start(3, 5);

    QCOMPARE(f.Operator.Texts(),
             QStringList{"Timing retries is out of range, allowd values are from  1 to 5."});
}

void TestFrmScanChecks::Start_FormGoneUnderTheMessage_Ends()
{
    ScanFixture f;
    f.ShowScan();
    f.SetRange(5, 3);
    f.Operator.WhileOpen = [&](const RecordedBox&) { f.Form.reset(); };

    f.Click("cmdStartStop");

    QVERIFY(!f.Form);
    QCOMPARE(f.Operator.Boxes.size(), std::size_t(1));
}

QTEST_MAIN(TestFrmScanChecks)
#include "TestFrmScanChecks.moc"
