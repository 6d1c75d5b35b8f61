#include "scan/network/ScanTargets.h"

#include <QTest>

class TestScanTargets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ScanTarget_OfConnection_SwitchesVerificationOff()
    {
        QCOMPARE(ScanTarget(QStringLiteral("WP=BUST4,ID=254,WP=OPT,PR=T4DT")),
                 "WP=BUST4,ID=254,WP=OPT,PR=T4DT,WP=OPT,VERIFY=NO");
    }

    void AddressTarget_OptionalTimings_AreWrittenAsTheyStand_data()
    {
        QTest::addColumn<int>("address");
        QTest::addColumn<QString>("retries");
        QTest::addColumn<QString>("timeOut");
        QTest::addColumn<QString>("target");
        QTest::newRow("both") << 17 << "3"
                              << "2000"
                              << "WP=NET4,ADDR=17,RETRY=3,TIME=2000,wp=opt,pr=t4dl,dt=unihex";
        QTest::newRow("neither") << 0 << ""
                                 << ""
                                 << "WP=NET4,ADDR=0,wp=opt,pr=t4dl,dt=unihex";
        QTest::newRow("retries only") << 4094 << "0"
                                      << ""
                                      << "WP=NET4,ADDR=4094,RETRY=0,wp=opt,pr=t4dl,dt=unihex";
        QTest::newRow("time-out only, leading zeros") << 1 << ""
                                                      << "0050"
                                                      << "WP=NET4,ADDR=1,TIME=0050,wp=opt,pr=t4dl,dt=unihex";
    }
    void AddressTarget_OptionalTimings_AreWrittenAsTheyStand()
    {
        QFETCH(const int, address);
        QFETCH(const QString, retries);
        QFETCH(const QString, timeOut);
        QFETCH(const QString, target);
        QCOMPARE(AddressTarget(address, retries, timeOut), target);
    }
};

QTEST_GUILESS_MAIN(TestScanTargets)
#include "TestScanTargets.moc"
