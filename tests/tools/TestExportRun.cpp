#include "tests/tools/ListedDatabase.h"
#include "tools/zelka/CommandError.h"
#include "tools/zelka/ExportRun.h"

#include <QTest>

namespace {

const QByteArray Header = "kind,name,target,connection,manager,command\r\n";

} // namespace

class TestExportRun : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Run_Empty_WritesTheHeader();
    void Run_Records_WritesConnectionsThenNodes();
    void Run_Under_WritesThatConnectionOnly();
    void Run_ManyRecords_ComeInPieces();
    void Run_ConnectionThatCameMeanwhile_IsRefused();
};

void TestExportRun::Run_Empty_WritesTheHeader()
{
    ListedDatabase database;
    QByteArray text;

    const ExportReport report =
        ExportRun(database, [&text](const QByteArray& piece) { text += piece; }).Run({});

    QCOMPARE(text, Header);
    QCOMPARE(report.connections, 0);
    QCOMPARE(report.nodes, 0);
}

void TestExportRun::Run_Records_WritesConnectionsThenNodes()
{
    ListedDatabase database;
    database.connections = {{1, "A", "WP=LAN"}, {3, "B", "WP=COM,PORT=1"}};
    database.nodes = {{2, "n, 1", "A", "Radio", "WP=NET4", "7", "-x"}};
    QByteArray text;

    const ExportReport report =
        ExportRun(database, [&text](const QByteArray& piece) { text += piece; }).Run({});

    QCOMPARE(text, Header + "connection,A,WP=LAN,,,\r\nconnection,B,\"WP=COM,PORT=1\",,,\r\n"
                            "node,\"n, 1\",WP=NET4,A,Radio,7|-x\r\n");
    QCOMPARE(report.connections, 2);
    QCOMPARE(report.nodes, 1);
}

void TestExportRun::Run_Under_WritesThatConnectionOnly()
{
    ListedDatabase database;
    database.connections = {{1, "A", "WP=LAN"}, {3, "B", "WP=COM"}};
    database.nodes = {{2, "n", "A", "", "WP=NET4", "", ""}, {4, "m", "B", "", "WP=NET4", "", ""}};
    QByteArray text;

    ExportRun(database, [&text](const QByteArray& piece) { text += piece; }).Run("b");

    QCOMPARE(text, Header + "connection,B,WP=COM,,,\r\nnode,m,WP=NET4,B,,\r\n");
}

void TestExportRun::Run_ManyRecords_ComeInPieces()
{
    ListedDatabase database;
    for (int i = 0; i < 10'000; ++i)
        database.connections.push_back({i, QStringLiteral("Connection %1").arg(i), "WP=LAN"});
    qsizetype largest = 0;
    qsizetype whole = 0;

    ExportRun(database, [&](const QByteArray& piece) {
        largest = std::max(largest, piece.size());
        whole += piece.size();
    }).Run({});

    QVERIFY(whole > 300'000);
    QVERIFY(largest < 70'000);
}

void TestExportRun::Run_ConnectionThatCameMeanwhile_IsRefused()
{
    ListedDatabase database;
    database.connections = {{1, "A", "WP=LAN"}};
    database.nodes = {{2, "n", "Renamed A", "", "WP=NET4", "", ""}};

    QVERIFY_EXCEPTION_THROWN(ExportRun(database, [](const QByteArray&) {}).Run({}), CommandError);
}

QTEST_GUILESS_MAIN(TestExportRun)
#include "TestExportRun.moc"
