#include "tests/scan/ScanFixture.h"

#include <QTest>

/// The whole range of addresses with 200 nodes, once and again.
class TestFrmScanRange : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void WholeRange_200Nodes_ListsThemInOrder();
    void WholeRange_SecondPass_MarksAndUnmarks();
};

namespace {

constexpr int NodeCount = 200;

/// Spread over the range, its ends among them.
int AddressOfNode(int node)
{
    return node * 4094 / (NodeCount - 1);
}

void AddNodes(ScanFixture& f)
{
    for (int node = 0; node < NodeCount; ++node)
        f.Nodes[AddressOfNode(node)] = QStringLiteral("Node %1").arg(node);
}

/// The rows that the nodes give, with a star behind those that `marked` names.
QStringList RowsOf(const QMap<int, QString>& nodes, const QList<int>& marked = {})
{
    QStringList rows;
    for (auto node = nodes.cbegin(); node != nodes.cend(); ++node)
        rows << QStringLiteral("%1|T%1|").arg(node.key()) + node.value() +
                    (marked.contains(node.key()) ? QStringLiteral("*") : QString());
    return rows;
}

QList<int> AllAddresses()
{
    QList<int> addresses(4095);
    std::iota(addresses.begin(), addresses.end(), 0);
    return addresses;
}

} // namespace

void TestFrmScanRange::WholeRange_200Nodes_ListsThemInOrder()
{
    ScanFixture f;
    f.ShowScan();
    AddNodes(f);

    f.Start(0, 4094);
    f.WalkToTheEnd();

    QCOMPARE(f.State(), "S&tart");
    QCOMPARE(f.TakeAsked(), AllAddresses());
    QCOMPARE(f.Rows(), RowsOf(f.Nodes));
    QCOMPARE(f.Grid().GridRows(), NodeCount + 1);
    QVERIFY(f.Operator.Boxes.empty());
    QVERIFY(f.IsReleased());
}

void TestFrmScanRange::WholeRange_SecondPass_MarksAndUnmarks()
{
    constexpr int pass = 4095;
    ScanFixture f;
    f.ShowScan();
    AddNodes(f);
    const QMap<int, QString> all = f.Nodes;
    const QList<int> vanishing{0, AddressOfNode(50), AddressOfNode(51), 4094};
    f.Repeat(true);
    f.Start(0, 4094);
    f.Step(pass - 1);
    QCOMPARE(f.Rows(), RowsOf(all));

    for (const int address : vanishing)
        f.Nodes.remove(address);
    f.Step(pass);
    QCOMPARE(f.Rows(), RowsOf(all, vanishing));
    f.Nodes = all;
    f.Nodes.remove(AddressOfNode(50));
    f.Step(pass);

    QCOMPARE(f.Rows(), RowsOf(all, {AddressOfNode(50)}));
    QCOMPARE(f.State(), "Stop");
    QCOMPARE(f.TakeAsked(), AllAddresses() + AllAddresses() + AllAddresses());
}

QTEST_MAIN(TestFrmScanRange)
#include "TestFrmScanRange.moc"
