#include "components/hvxutil/HvxUtilityComponent.h"
#include "components/syncconn/TargetReader.h"
#include "tests/scan/ScanFormFixture.h"
#include "tests/support/ScriptedNetwork.h"
#include "tools/netsim/SimulatedNetwork.h"

#include <optional>
#include <random>

namespace {

constexpr int Bus = 254;
constexpr int HighestAddress = 4094;

/// A simulated network with a clock that goes on by what its requests wait for, and by nothing else.
class PacedNetwork
{
public:
    explicit PacedNetwork(const NetworkDescription& description) : Network(description) {}

    SimulatedNetwork Network;

    /// What an element answers in time, any repeat of the request included.
    std::optional<QByteArray> Ask(const QString& target, const QString& request)
    {
        NetworkPath path;
        QString mistake;
        TargetReader reader;
        if (!path.Follow(QStringLiteral("WP=BUST4,ID=254"), mistake) || !path.Follow(target, mistake) ||
            !reader.Read(target))
            qFatal("The target %s cannot be followed.", qUtf8Printable(target));
        for (int attempt = 0; attempt <= reader.Retries(); ++attempt) {
            const auto answer = Network.AnswerTo(path, request.toLatin1(), attempt, m_nowMs);
            const bool inTime =
                answer.kind == SimulatedNetwork::Kind::Reply && answer.delayMs <= reader.TimeOut();
            m_nowMs += inTime ? answer.delayMs : reader.TimeOut();
            if (inTime)
                return answer.data;
        }
        return std::nullopt;
    }

private:
    qint64 m_nowMs = 0;
};

/// Some slow, some too slow, some lossy, some silent, some without a type.
NetworkDescription WithNodes(int count)
{
    std::mt19937 random(17);
    NetworkDescription network;
    auto& bus = network.buses[Bus];
    while (static_cast<int>(bus.size()) < count) {
        const int address = static_cast<int>(random() % (HighestAddress + 1));
        const int number = static_cast<int>(bus.size());
        NodeDescription& node = bus[address];
        node.identification = QStringLiteral("Node %1").arg(address);
        if (number % 13 != 0)
            node.type = QStringLiteral("T%1").arg(number % 4);
        node.behaviour.silent = number % 10 == 3;
        node.behaviour.delayMs = number % 10 == 4 ? 900 : number % 10 == 5 ? 5000 : 20;
        node.behaviour.jitterMs = 150;
        node.behaviour.loss = number % 10 == 6 ? 0.6 : 0;
    }
    // The ends of the range are there too.
    bus[0].identification = QStringLiteral("Lowest");
    bus[HighestAddress].identification = QStringLiteral("Highest");
    return network;
}

/// The scan dialog over a paced network, and what it has to show.
class PacedScan : public ScanFormFixture
{
public:
    explicit PacedScan(const NetworkDescription& description) : Shown(description), Expected(description)
    {
        RegisterHvxUtility();
        Components.OnSend = [this](const QString& target, const QString& request) {
            const std::optional<QByteArray> answer = Shown.Ask(target, request);
            if (!answer)
                ScriptedNetwork::Raise();
            return QString::fromLatin1(answer->toHex());
        };
    }
    ~PacedScan()
    {
        Form.reset();
        Scan() = ScanState();
    }
    PacedScan(const PacedScan&) = delete;
    PacedScan& operator=(const PacedScan&) = delete;

    ScriptedNetwork Components;
    PacedNetwork Shown;
    /// The same network, asked by the test.
    PacedNetwork Expected;

    /// Changes both.
    void Change(const std::function<void(SimulatedNetwork&)>& change)
    {
        change(Shown.Network);
        change(Expected.Network);
    }
    /// Follows one pass over the whole range with plain questions.
    void ExpectPass()
    {
        for (int address = 0; address <= HighestAddress; ++address) {
            const QString target =
                QStringLiteral("WP=NET4,ADDR=%1,RETRY=2,TIME=1000,wp=opt,pr=t4dl,dt=unihex").arg(address);
            const std::optional<QByteArray> identification = Expected.Ask(target, QStringLiteral("40"));
            if (!identification) {
                if (m_rows.contains(address))
                    m_rows[address].silent = true;
                continue;
            }
            const QByteArray type = Expected.Ask(target, QStringLiteral("03")).value_or(QByteArray());
            if (m_rows.contains(address))
                m_rows[address].silent = false;
            else
                m_rows[address] = {QStringLiteral("%1|%2|%3")
                                       .arg(address)
                                       .arg(QString::fromLatin1(type), QString::fromLatin1(*identification)),
                                   false};
        }
    }
    [[nodiscard]] QStringList ExpectedRows() const
    {
        QStringList rows;
        for (const Row& row : m_rows)
            rows << row.text + (row.silent ? QStringLiteral("*") : QString());
        return rows;
    }
    [[nodiscard]] int Marked() const
    {
        return static_cast<int>(
            std::count_if(m_rows.cbegin(), m_rows.cend(), [](const Row& row) { return row.silent; }));
    }

private:
    struct Row
    {
        QString text;
        bool silent = false;
    };
    QMap<int, Row> m_rows;
};

} // namespace

class TestWholeRangeScan : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Scan_TwoHundredNodesInTheWholeRange_ShowsExactlyTheRightRows()
    {
        PacedScan scan(WithNodes(200));
        scan.ShowScan();
        scan.Box("txtTimingRetries").setText(QStringLiteral("2"));
        scan.Box("txtTimingTimeout").setText(QStringLiteral("1000"));
        scan.Repeat(true);
        int ticks = 0;
        scan.Start(0, HighestAddress);
        const auto walkOnePass = [&] {
            for (int step = 0; step < HighestAddress; ++step) {
                scan.Step();
                ticks += 2;
            }
        };
        // The start itself has asked the first address.
        walkOnePass();
        scan.ExpectPass();
        const QStringList firstPass = scan.ExpectedRows();
        QVERIFY2(firstPass.size() > 150 && firstPass.size() < 200,
                 qPrintable(QString::number(firstPass.size())));
        QCOMPARE(scan.Rows(), firstPass);
        QCOMPARE(scan.Bar().value(), HighestAddress);
        QCOMPARE(ticks, 2 * HighestAddress);

        // Some vanish, some fall silent, some come.
        scan.Change([](SimulatedNetwork& network) {
            int number = 0;
            const auto nodes = network.Description().buses.at(Bus);
            for (const auto& [address, node] : nodes) {
                ++number;
                if (number % 9 == 0)
                    (void)network.RemoveNode(Bus, address);
                else if (number % 7 == 0)
                    network.FindNode(Bus, address)->behaviour.silent = true;
            }
            for (int address = 1500; address < 1510; ++address) {
                NodeDescription node;
                node.identification = QStringLiteral("New %1").arg(address);
                (void)network.AddNode(Bus, address, node);
            }
        });
        walkOnePass();
        scan.Step();
        scan.ExpectPass();
        QVERIFY(scan.Marked() > 30);
        QCOMPARE(scan.Rows(), scan.ExpectedRows());

        // All that is left comes back.
        scan.Change([](SimulatedNetwork& network) {
            const auto nodes = network.Description().buses.at(Bus);
            for (const auto& entry : nodes)
                network.FindNode(Bus, entry.first)->behaviour = NodeBehaviour();
        });
        scan.Repeat(false);
        const int markedBefore = scan.Marked();
        scan.Repeat(true);
        walkOnePass();
        scan.Step();
        scan.Repeat(false);
        scan.ExpectPass();
        QVERIFY(scan.Marked() < markedBefore && scan.Marked() > 0);
        QCOMPARE(scan.Rows(), scan.ExpectedRows());
        scan.WalkToTheEnd();
        QCOMPARE(scan.State(), "S&tart");
        QCOMPARE(scan.Components.Connections, 0);
    }
};

QTEST_MAIN(TestWholeRangeScan)
#include "TestWholeRangeScan.moc"
