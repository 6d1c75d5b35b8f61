#include "scan/frmBusSelection.h"
#include "tests/endtoend/ServedNetwork.h"
#include "tests/scan/ScanFormFixture.h"

#include <QListWidget>

namespace {

const QString Kilo = QStringLiteral("Kilo");
const QString KiloTarget =
    QStringLiteral("WP=KD7,BUSID=12,SLOT=0,TIME=2000,RETRY=2,WP=OPT,PR=T4DT,DT=TEXT,VERIFY=YES");

const QString Sierra = QStringLiteral("Sierra");
const QString SierraTarget = QStringLiteral(
    "WP=SOCKET,IP=127.0.0.1,PORT=%1,TIME=2000,RETRY=2,WP=BUST4,ID=12,SPEED=9600,TIME=2000,RETRY=2,"
    "WP=OPT,PR=T4DT,DT=TEXT,VERIFY=YES");

/// The bus dialog on the connections Alpha (T4 Bus), Kilo (KD7) and Sierra (T4 Bus over TCP/IP) of a served
/// network with three buses.
class NetworkBuses : public ScanFormFixture
{
public:
    NetworkBuses() : Served(ThreeBuses())
    {
        Component.Store.AddConnection(Kilo, KiloTarget);
        Component.Store.AddConnection(Sierra, SierraTarget.arg(Served.Server->Port()));
    }
    ~NetworkBuses() { Dialog.reset(); }
    NetworkBuses(const NetworkBuses&) = delete;
    NetworkBuses& operator=(const NetworkBuses&) = delete;

    ServedNetwork Served;
    std::unique_ptr<frmBusSelection> Dialog;

    void ShowBuses(const QString& connection, int timeOut = 5000)
    {
        Load(connection);
        (void)Direct().SetWpParamByName(QStringLiteral("TIME OUT"), QString::number(timeOut));
        (void)Direct().SetWpParamByName(QStringLiteral("RETRY COUNT"), QStringLiteral("0"));
        Dialog = std::make_unique<frmBusSelection>(Direct());
        Dialog->show();
        auto* timer = Dialog->findChild<IntervalTimer*>(QStringLiteral("Timer1"));
        timer->SetEnabled(false);
        Forget();
        Q_EMIT timer->Timer();
    }
    [[nodiscard]] QStringList Lines() const
    {
        const auto* list = Dialog->findChild<QListWidget*>(QStringLiteral("lstBusses"));
        QStringList lines;
        for (int row = 0; row < list->count(); ++row)
            lines << list->item(row)->text();
        return lines;
    }
    void Press(const char* button) const
    {
        QTest::mouseClick(Dialog->findChild<QPushButton*>(QLatin1String(button)), Qt::LeftButton);
    }

private:
    static NetworkDescription ThreeBuses()
    {
        NetworkDescription network;
        for (const int bus : {12, 13, 400})
            network.buses[bus];
        return network;
    }
};

} // namespace

class TestBusesOverNetwork : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ShowList_EitherFamily_OffersTheBusesOfTheFarEnd_data()
    {
        QTest::addColumn<QString>("connection");
        QTest::newRow("bus connection: the gateway itself tells") << QStringLiteral("Alpha");
        QTest::newRow("KD7: its broadcast bus tells") << Kilo;
        QTest::newRow("over a gateway of its own") << Sierra;
    }
    void ShowList_EitherFamily_OffersTheBusesOfTheFarEnd()
    {
        QFETCH(const QString, connection);
        NetworkBuses buses;
        buses.ShowBuses(connection);
        QCOMPARE(buses.Lines(), QStringList({"12", "13", "400"}));
        QCOMPARE(buses.Operator.Texts(), QStringList());
        QVERIFY(buses.Served.IsLeft());
        buses.Press("cmdOK");
        QVERIFY(!buses.Dialog->isVisible());
        QCOMPARE(Scan().SelectedBus, 12);
    }

    // The frames: Opened, then the list.
    void Fault_AtEachFrame_IsTold_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("frame");
        QTest::addColumn<QString>("codes");
        const auto add = [](const char* name, WireFault::Kind kind, const char* codes) {
            for (const int frame : {1, 2})
                QTest::addRow("%s at frame %d", name, frame)
                    << int(kind) << frame << QString::fromLatin1(codes);
        };
        add("garbage", WireFault::Kind::Garbage, "(Major code = 5, Minor code = 1)");
        add("oversize", WireFault::Kind::Oversize, "(Major code = 5, Minor code = 2)");
        add("version", WireFault::Kind::Version, "(Major code = 5, Minor code = 3)");
        add("cut", WireFault::Kind::Cut, "(Major code = 2, Minor code = 4)");
        add("reset", WireFault::Kind::Reset, "(Major code = 2, Minor code = 4)");
    }
    void Fault_AtEachFrame_IsTold()
    {
        QFETCH(const int, kind);
        QFETCH(const int, frame);
        QFETCH(const QString, codes);
        NetworkBuses buses;
        buses.Served.Disturb(WireFault::Kind(kind), frame, 1);
        buses.ShowBuses(QStringLiteral("Alpha"));
        QCOMPARE(buses.Operator.Boxes.size(), 1U);
        const QString text = buses.Operator.Boxes[0].text;
        QVERIFY2(text.startsWith(QStringLiteral("Buses could not be scanned.\r\n\r\n")), qPrintable(text));
        QVERIFY2(text.endsWith(QStringLiteral("\r\n") + codes), qPrintable(text));
        QVERIFY(!buses.Dialog->isVisible());
        QCOMPARE(Scan().SelectedBus, -1);
        QVERIFY(buses.Served.IsLeft());

        buses.ShowBuses(QStringLiteral("Alpha"));
        QCOMPARE(buses.Lines(), QStringList({"12", "13", "400"}));
    }

    void Fault_Trickle_DoesNoHarm()
    {
        NetworkBuses buses;
        buses.Served.Disturb(WireFault::Kind::Trickle);
        buses.ShowBuses(QStringLiteral("Alpha"));
        QCOMPARE(buses.Lines(), QStringList({"12", "13", "400"}));
        QVERIFY(buses.Served.IsLeft());
    }

    void Gateway_Gone_IsTold()
    {
        NetworkBuses buses;
        buses.Served.Kill();
        buses.ShowBuses(QStringLiteral("Alpha"));
        QCOMPARE(buses.Operator.Boxes.size(), 1U);
        QVERIFY(
            buses.Operator.Boxes[0].text.endsWith(QStringLiteral("\r\n(Major code = 2, Minor code = 2)")));
        QCOMPARE(Scan().SelectedBus, -1);
    }

    void Gateway_FrozenAtEitherStep_IsTold_data()
    {
        QTest::addColumn<bool>("opened");
        QTest::addColumn<QString>("codes");
        QTest::newRow("at the opening") << false << "(Major code = 2, Minor code = 6)";
        QTest::newRow("at the question") << true << "(Major code = 4, Minor code = 1)";
    }
    void Gateway_FrozenAtEitherStep_IsTold()
    {
        QFETCH(const bool, opened);
        QFETCH(const QString, codes);
        NetworkBuses buses;
        if (opened)
            buses.Served.Disturb(WireFault::Kind::Freeze, 2);
        else
            buses.Served.Server->Freeze();
        // Of its timing, the question for the buses has only that of the way to the gateway.
        buses.ShowBuses(Sierra, 100);
        QCOMPARE(buses.Operator.Boxes.size(), 1U);
        const QString text = buses.Operator.Boxes[0].text;
        QVERIFY2(text.endsWith(codes), qPrintable(text));
        QVERIFY(!buses.Dialog->isVisible());
    }

    void Cancel_WhileTheGatewayIsFrozen_EndsAtOnce()
    {
        NetworkBuses buses;
        buses.Served.Server->Freeze();
        QTimer::singleShot(20, this, [&] { buses.Press("cmdCancel"); });
        buses.ShowBuses(QStringLiteral("Alpha"), 30'000);
        QVERIFY(!buses.Dialog->isVisible());
        QCOMPARE(buses.Operator.Texts(), QStringList());
        QCOMPARE(Scan().SelectedBus, -1);
    }
};

QTEST_MAIN(TestBusesOverNetwork)
#include "TestBusesOverNetwork.moc"
