#include "tests/endtoend/ServedNetwork.h"
#include "tests/scan/ScanFormFixture.h"

namespace {

/// The scan dialog on the connection Alpha, which leads to bus 254 of a served network.
class NetworkScan : public ScanFormFixture
{
public:
    explicit NetworkScan(const NetworkDescription& network) : Served(network) {}
    ~NetworkScan()
    {
        Form.reset();
        CloseScan();
    }
    NetworkScan(const NetworkScan&) = delete;
    NetworkScan& operator=(const NetworkScan&) = delete;

    ServedNetwork Served;

    void ShowWithTiming(const QString& retries, const QString& timeOut)
    {
        ShowScan();
        Box("txtTimingRetries").setText(retries);
        Box("txtTimingTimeout").setText(timeOut);
    }
    void ScanRange(int begin, int end)
    {
        Start(begin, end);
        WalkToTheEnd();
    }
    [[nodiscard]] bool NothingIsLeft() const
    {
        return !Scan().SyncConnObj && !Scan().HVXUtilObject && Served.IsLeft();
    }
    [[nodiscard]] static QStringList RowsOf(int begin, int end)
    {
        QStringList rows;
        for (int address = begin; address <= end; ++address)
            rows << QStringLiteral("%1|T%1|Node %1").arg(address);
        return rows;
    }
};

/// Long enough for an answer on a busy machine, short enough to wait for silence; repeats make up for it.
const QString FewRetries = QStringLiteral("3");
const QString ShortTimeOut = QStringLiteral("60");

} // namespace

class TestScanOverNetwork : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Scan_NodesAnswer_ShowsThemInOrder()
    {
        NetworkScan scan(ServedNetwork::WithNodes(25));
        scan.ShowWithTiming(QStringLiteral("2"), QStringLiteral("5000"));
        scan.ScanRange(1, 25);
        QCOMPARE(scan.Rows(), NetworkScan::RowsOf(1, 25));
        QCOMPARE(scan.Operator.Texts(), QStringList());
        QCOMPARE(scan.State(), "S&tart");
        QVERIFY(scan.NothingIsLeft());
    }

    void Scan_SlowSilentLossyAndTypelessNodes_ShowsWhoAnswersInTime()
    {
        NetworkDescription network = ServedNetwork::WithNodes(9);
        auto& bus = network.buses[254];
        bus[2].behaviour.silent = true;
        bus[3].behaviour.delayMs = 20;
        bus[3].behaviour.jitterMs = 10;
        // Comes too late for its own attempt, and in time for a repeat of it.
        bus[4].behaviour.delayMs = 100;
        bus[5].behaviour.delayMs = 10'000;
        bus[6].behaviour.loss = 1;
        bus[7].type.reset();
        bus[8].identification = QStringLiteral("Gr\u00fcn \u00e9");
        bus.erase(9);
        NetworkScan scan(network);
        scan.ShowWithTiming(FewRetries, ShortTimeOut);
        scan.ScanRange(1, 9);
        QCOMPARE(scan.Rows(), QStringList({"1|T1|Node 1", "3|T3|Node 3", "4|T4|Node 4", "7||Node 7",
                                           QStringLiteral("8|T8|Gr\u00fcn \u00e9")}));
        QVERIFY(scan.NothingIsLeft());
    }

    void Scan_Repeated_MarksWhoVanishedAndUnmarksWhoReturned()
    {
        NetworkScan scan(ServedNetwork::WithNodes(4));
        scan.ShowWithTiming(FewRetries, ShortTimeOut);
        scan.Repeat(true);
        scan.Start(1, 4);
        scan.Step(3);
        QCOMPARE(scan.Rows(), NetworkScan::RowsOf(1, 4));
        QVERIFY(scan.Served.Network.RemoveNode(254, 2));
        scan.Served.Network.FindNode(254, 4)->behaviour.silent = true;
        scan.Step(4);
        QCOMPARE(scan.Rows(), QStringList({"1|T1|Node 1", "2|T2|Node 2*", "3|T3|Node 3", "4|T4|Node 4*"}));
        scan.Served.Network.FindNode(254, 4)->behaviour.silent = false;
        scan.Step(4);
        scan.Repeat(false);
        scan.WalkToTheEnd();
        QCOMPARE(scan.Rows(), QStringList({"1|T1|Node 1", "2|T2|Node 2*", "3|T3|Node 3", "4|T4|Node 4"}));
        QVERIFY(scan.NothingIsLeft());
    }

    void Start_NoGateway_TellsAndStaysUsable()
    {
        NetworkScan scan(ServedNetwork::WithNodes(2));
        scan.Served.Kill();
        scan.ShowWithTiming(FewRetries, ShortTimeOut);
        scan.Start(1, 2);
        QCOMPARE(scan.Operator.Boxes.size(), 1U);
        const QString text = scan.Operator.Boxes[0].text;
        QVERIFY2(
            text.startsWith(QStringLiteral("Connection could not be opened.\r\n\r\nNo gateway listens at ")),
            qPrintable(text));
        QVERIFY2(text.endsWith(QStringLiteral("\r\n(Major code = 2, Minor code = 2)")), qPrintable(text));
        QCOMPARE(scan.Operator.Boxes[0].flags, ErrorBoxFlags());
        QCOMPARE(scan.State(), "S&tart");
        QVERIFY(scan.NothingIsLeft());

        scan.Served.Restart();
        scan.ScanRange(1, 2);
        QCOMPARE(scan.Rows(), NetworkScan::RowsOf(1, 2));
        QVERIFY(scan.NothingIsLeft());
    }

    void Start_UnknownBus_TellsTheGatewaysWords()
    {
        NetworkDescription other;
        other.buses[7];
        NetworkScan scan(other);
        scan.ShowWithTiming(FewRetries, ShortTimeOut);
        scan.Start(1, 2);
        QCOMPARE(scan.Operator.Boxes.size(), 1U);
        const QString text = scan.Operator.Boxes[0].text;
        QVERIFY2(text.contains(QStringLiteral("254")), qPrintable(text));
        QVERIFY2(text.endsWith(QStringLiteral("\r\n(Major code = 3, Minor code = 1)")), qPrintable(text));
        QVERIFY(scan.NothingIsLeft());
    }

    // The frames of a scan of 1 and 2: Opened, then identification and type of 1, then of 2.
    void Fault_AtEachFrame_EndsAsItShould_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("frame");
        QTest::addColumn<QString>("openingCodes");
        QTest::addColumn<QStringList>("rows");
        struct Row
        {
            const char* name;
            WireFault::Kind kind;
            const char* openingCodes;
        };
        const std::initializer_list<Row> kinds = {
            {"garbage", WireFault::Kind::Garbage, "(Major code = 5, Minor code = 1)"},
            {"oversize", WireFault::Kind::Oversize, "(Major code = 5, Minor code = 2)"},
            {"version", WireFault::Kind::Version, "(Major code = 5, Minor code = 3)"},
            {"cut", WireFault::Kind::Cut, "(Major code = 2, Minor code = 4)"},
            {"reset", WireFault::Kind::Reset, "(Major code = 2, Minor code = 4)"},
            {"trickle", WireFault::Kind::Trickle, ""},
        };
        const QString one = QStringLiteral("1|T1|Node 1");
        const QString two = QStringLiteral("2|T2|Node 2");
        for (const Row& row : kinds) {
            const bool harmless = row.kind == WireFault::Kind::Trickle;
            const auto add = [&](int frame, const QString& codes, const QStringList& rows) {
                QTest::addRow("%s at frame %d", row.name, frame) << int(row.kind) << frame << codes << rows;
            };
            add(1, QString::fromLatin1(row.openingCodes), harmless ? QStringList({one, two}) : QStringList());
            // The next request finds its own way to the gateway again.
            add(2, QString(), harmless ? QStringList({one, two}) : QStringList({two}));
            add(3, QString(),
                harmless ? QStringList({one, two}) : QStringList({QStringLiteral("1||Node 1"), two}));
            add(4, QString(), harmless ? QStringList({one, two}) : QStringList({one}));
            add(5, QString(),
                harmless ? QStringList({one, two}) : QStringList({one, QStringLiteral("2||Node 2")}));
        }
    }
    void Fault_AtEachFrame_EndsAsItShould()
    {
        QFETCH(const int, kind);
        QFETCH(const int, frame);
        QFETCH(const QString, openingCodes);
        QFETCH(const QStringList, rows);
        NetworkScan scan(ServedNetwork::WithNodes(2));
        scan.ShowWithTiming(QStringLiteral("1"), QStringLiteral("5000"));
        scan.Served.Disturb(WireFault::Kind(kind), frame, 1);
        scan.ScanRange(1, 2);
        QCOMPARE(scan.Rows(), rows);
        QCOMPARE(scan.State(), "S&tart");
        QVERIFY(scan.NothingIsLeft());
        QCOMPARE(scan.Operator.Boxes.size(), openingCodes.isEmpty() ? 0U : 1U);
        if (!openingCodes.isEmpty()) {
            const QString text = scan.Operator.Boxes[0].text;
            QVERIFY2(text.startsWith(QStringLiteral("Connection could not be opened.\r\n\r\n")),
                     qPrintable(text));
            QVERIFY2(text.endsWith(QStringLiteral("\r\n") + openingCodes), qPrintable(text));
        }

        scan.Served.Disturb(WireFault::Kind::None);
        scan.ScanRange(1, 2);
        QCOMPARE(scan.Rows(), NetworkScan::RowsOf(1, 2));
        QVERIFY(scan.NothingIsLeft());
    }

    void Freeze_DuringTheScan_FallsSilentUntilItThaws()
    {
        NetworkScan scan(ServedNetwork::WithNodes(4));
        scan.ShowWithTiming(QStringLiteral("0"), QStringLiteral("5000"));
        scan.Start(1, 4);
        scan.Box("txtTimingTimeout").setText(QStringLiteral("50"));
        scan.Served.Server->Freeze();
        scan.Step();
        scan.Served.Disturb(WireFault::Kind::None);
        scan.Box("txtTimingTimeout").setText(QStringLiteral("5000"));
        scan.WalkToTheEnd();
        QCOMPARE(scan.Rows(), QStringList({"1|T1|Node 1", "3|T3|Node 3", "4|T4|Node 4"}));
        QVERIFY(scan.NothingIsLeft());
    }

    void Freeze_AtTheOpening_TellsThatTheGatewayIsSilent()
    {
        NetworkScan scan(ServedNetwork::WithNodes(1));
        scan.ShowScan();
        QVERIFY(NetworkScan::Direct().SetWpParamByName(QStringLiteral("TIME OUT"), QStringLiteral("50")));
        QVERIFY(NetworkScan::Direct().SetWpParamByName(QStringLiteral("RETRY COUNT"), QStringLiteral("0")));
        scan.Served.Server->Freeze();
        scan.Start(1, 1);
        QCOMPARE(scan.Operator.Boxes.size(), 1U);
        const QString text = scan.Operator.Boxes[0].text;
        QVERIFY2(text.endsWith(QStringLiteral("(Major code = 2, Minor code = 6)")), qPrintable(text));
        QVERIFY(!Scan().SyncConnObj);
    }

    void Gateway_KilledAndRestarted_ScanGoesOn()
    {
        NetworkScan scan(ServedNetwork::WithNodes(6));
        scan.ShowWithTiming(QStringLiteral("0"), QStringLiteral("5000"));
        scan.Start(1, 6);
        scan.Step();
        scan.Served.Kill();
        scan.Step(2);
        QCOMPARE(scan.State(), "Stop");
        scan.Served.Restart();
        scan.WalkToTheEnd();
        QCOMPARE(scan.Rows(), QStringList({"1|T1|Node 1", "2|T2|Node 2", "5|T5|Node 5", "6|T6|Node 6"}));
        QCOMPARE(scan.Operator.Texts(), QStringList());
        QVERIFY(scan.NothingIsLeft());
    }

    void Gateway_KilledForGood_ScanEndsAsWithSilentNodes()
    {
        NetworkScan scan(ServedNetwork::WithNodes(3));
        scan.ShowWithTiming(QStringLiteral("0"), QStringLiteral("5000"));
        scan.Repeat(true);
        scan.Start(1, 3);
        scan.Step(2);
        scan.Served.Kill();
        scan.Repeat(false);
        scan.WalkToTheEnd();
        QCOMPARE(scan.Rows(), NetworkScan::RowsOf(1, 3));
        scan.Repeat(true);
        QCOMPARE(scan.State(), "S&tart");
        QVERIFY(scan.NothingIsLeft());
    }

    void Stop_WhileANodeIsSilent_EndsBehindItsAnswer()
    {
        NetworkDescription network = ServedNetwork::WithNodes(3);
        network.buses[254][2].behaviour.silent = true;
        NetworkScan scan(network);
        scan.ShowWithTiming(QStringLiteral("0"), QStringLiteral("300"));
        scan.Start(1, 3);
        // Comes in while the request to the silent node waits.
        QTimer::singleShot(20, scan.Form.get(), [&] { scan.Click("cmdStartStop"); });
        scan.Step();
        QCOMPARE(scan.State(), "Stop ...");
        scan.Step();
        QCOMPARE(scan.State(), "S&tart");
        QCOMPARE(scan.Rows(), QStringList({"1|T1|Node 1"}));
        QVERIFY(scan.NothingIsLeft());
    }

    void Close_WhileANodeIsSilent_EndsAtOnce()
    {
        NetworkDescription network = ServedNetwork::WithNodes(3);
        network.buses[254][2].behaviour.silent = true;
        NetworkScan scan(network);
        scan.ShowWithTiming(QStringLiteral("1000"), QStringLiteral("30000"));
        scan.Start(1, 3);
        QTimer::singleShot(20, scan.Form.get(), [&] {
            scan.Form->close();
            QVERIFY(scan.Form->isVisible());
            scan.Click("cmdStartStop");
            scan.Form->close();
        });
        scan.Step();
        QVERIFY(!scan.Form->isVisible());
        QCOMPARE(scan.Operator.Texts(), QStringList());
        QVERIFY(scan.NothingIsLeft());
    }

    void Host_LetsGoWhileANodeIsSilent_EndsAtOnce()
    {
        NetworkDescription network = ServedNetwork::WithNodes(3);
        network.buses[254][2].behaviour.silent = true;
        NetworkScan scan(network);
        scan.ShowWithTiming(QStringLiteral("1000"), QStringLiteral("30000"));
        scan.Start(1, 3);
        QTimer::singleShot(20, scan.Form.get(), [] { CloseScan(); });
        scan.Step();
        QCOMPARE(scan.State(), "S&tart");
        QCOMPARE(scan.Operator.Texts(), QStringList());
        QVERIFY(scan.NothingIsLeft());
    }

    void Form_DestroyedWhileANodeIsSilent_LeavesNothing()
    {
        NetworkDescription network = ServedNetwork::WithNodes(3);
        network.buses[254][2].behaviour.silent = true;
        NetworkScan scan(network);
        scan.ShowWithTiming(QStringLiteral("1000"), QStringLiteral("30000"));
        scan.Start(1, 3);
        QTimer::singleShot(20, this, [&] { scan.Form.reset(); });
        scan.Step();
        QVERIFY(!scan.Form);
        QVERIFY(scan.NothingIsLeft());
    }
};

QTEST_MAIN(TestScanOverNetwork)
#include "TestScanOverNetwork.moc"
