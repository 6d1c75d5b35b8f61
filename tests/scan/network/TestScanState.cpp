#include "scan/network/ScanState.h"
#include "tests/support/ScriptedNetwork.h"

#include <QTest>

class TestScanState : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void CloseScan_Running_ClosesAndLetsGo()
    {
        ScriptedNetwork network;
        Scan().SyncConnObj = CreateSyncConnection(T4SyncConnId);
        Scan().HVXUtilObject = CreateHvxUtility(HvxUtilityId);

        CloseScan();
        CloseScan();

        QCOMPARE(network.Calls.count("Close"), 1);
        QCOMPARE(network.Connections + network.Utilities, 0);
    }

    void CloseScan_ClosingFails_LetsGo()
    {
        ScriptedNetwork network;
        network.OnClose = [] { ScriptedNetwork::Raise(); };
        Scan().SyncConnObj = CreateSyncConnection(T4SyncConnId);
        Scan().HVXUtilObject = CreateHvxUtility(HvxUtilityId);

        QVERIFY_EXCEPTION_THROWN(CloseScan(), ComponentError);

        QVERIFY(!Scan().SyncConnObj && !Scan().HVXUtilObject);
        QCOMPARE(network.Connections + network.Utilities, 0);
    }

    void ReleaseScan_Running_LetsGoWithoutClosing()
    {
        ScriptedNetwork network;
        Scan().SyncConnObj = CreateSyncConnection(T4SyncConnId);
        Scan().HVXUtilObject = CreateHvxUtility(HvxUtilityId);

        ReleaseScan();

        QVERIFY(!network.Calls.contains("Close"));
        QCOMPARE(network.Connections + network.Utilities, 0);
    }
};

QTEST_GUILESS_MAIN(TestScanState)
#include "TestScanState.moc"
