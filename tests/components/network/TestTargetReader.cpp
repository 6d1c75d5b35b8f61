#include "components/syncconn/TargetReader.h"

#include <QtTest>

namespace {

/// Hops as "NAME(KEYWORD=value KEYWORD=value) NAME()".
QString Hops(const TargetReader& reader)
{
    QStringList hops;
    for (const TargetHop& hop : reader.Hops()) {
        QStringList parameters;
        for (const TargetHop::Parameter& parameter : hop.parameters)
            parameters << parameter.keyword + u'=' + parameter.value;
        hops << hop.name + u'(' + parameters.join(u' ') + u')';
    }
    return hops.join(u' ');
}

TargetReader Read(const QString& target)
{
    TargetReader reader;
    [target, &reader] { QVERIFY2(reader.Read(target), qPrintable(reader.Mistake())); }();
    return reader;
}

} // namespace

/// What a connection reads in a target.
class TestTargetReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Read_Targets_GivesHops_data();
    void Read_Targets_GivesHops();
    void Read_Mistakes_NamesThem_data();
    void Read_Mistakes_NamesThem();
    void Read_BehindAMistake_BeginsAnew();
    void LastHop_SeveralOfOneName_TheLast();
    void Value_KeywordTwice_FirstThatIsGiven();
    void TimeOutAndRetries_Targets_LastHopThatHasThem_data();
    void TimeOutAndRetries_Targets_LastHopThatHasThem();
    void Gateway_Targets_FirstSocketHop_data();
    void Gateway_Targets_FirstSocketHop();
    void WantsHex_Targets_LastOptionHop_data();
    void WantsHex_Targets_LastOptionHop();
};

void TestTargetReader::Read_Targets_GivesHops_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("hops");
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("separators only") << ",,," << QString();
    QTest::newRow("bare hop") << "WP=NET4"
                              << "NET4()";
    QTest::newRow("hops") << "WP=BUST4,ID=1,WP=NET4,ADDR=17"
                          << "BUST4(ID=1) NET4(ADDR=17)";
    QTest::newRow("lower case") << "wp=opt,pr=t4dl,dt=unihex"
                                << "OPT(PR=t4dl DT=unihex)";
    QTest::newRow("empty items") << ",WP=NET4,,ADDR=1,"
                                 << "NET4(ADDR=1)";
    QTest::newRow("second equals sign") << "WP=NEMML,PATH=a=b"
                                        << "NEMML(PATH=a=b)";
    QTest::newRow("empty value") << "WP=NET4,ADDR=,TIME="
                                 << "NET4(ADDR= TIME=)";
    QTest::newRow("values keep their blanks") << "WP=NEMML,USER= a "
                                              << "NEMML(USER= a )";
}

void TestTargetReader::Read_Targets_GivesHops()
{
    QFETCH(QString, target);
    QFETCH(QString, hops);

    const TargetReader reader = Read(target);
    QCOMPARE(Hops(reader), hops);
    QCOMPARE(reader.Mistake(), QString());
}

void TestTargetReader::Read_Mistakes_NamesThem_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("mistake");
    const QString number = QStringLiteral("%1 of %2 is \"%3\", but has to be a whole number from %4");
    QTest::newRow("no equals sign") << "WP=NET4,ADDR"
                                    << "The item \"ADDR\" has no \"=\"";
    QTest::newRow("parameter first") << "ADDR=1,WP=NET4"
                                     << "The parameter \"ADDR\" stands before the first \"WP=\"";
    QTest::newRow("hop without a name") << "WP="
                                        << "A \"WP=\" has no name";
    QTest::newRow("time no number") << "WP=NET4,TIME=soon"
                                    << number.arg("TIME", "NET4", "soon", "0 to 30000");
    QTest::newRow("time too long") << "WP=NET4,TIME=30001"
                                   << number.arg("TIME", "NET4", "30001", "0 to 30000");
    QTest::newRow("time below 0") << "WP=NET4,TIME=-1" << number.arg("TIME", "NET4", "-1", "0 to 30000");
    QTest::newRow("time with a sign") << "WP=NET4,TIME=+5" << number.arg("TIME", "NET4", "+5", "0 to 30000");
    QTest::newRow("time with a blank") << "WP=NET4,TIME= 5" << number.arg("TIME", "NET4", " 5", "0 to 30000");
    QTest::newRow("retry too often") << "wp=net4,retry=1001"
                                     << number.arg("RETRY", "NET4", "1001", "0 to 1000");
    QTest::newRow("retry of many digits")
        << "WP=NET4,RETRY=99999999999" << number.arg("RETRY", "NET4", "99999999999", "0 to 1000");
    QTest::newRow("mistake in a hop that does not count")
        << "WP=BUST4,TIME=x,WP=NET4,TIME=5" << number.arg("TIME", "BUST4", "x", "0 to 30000");
    QTest::newRow("port 0") << "WP=SOCKET,IP=::1,PORT=0" << number.arg("PORT", "SOCKET", "0", "1 to 65535");
    QTest::newRow("port too high") << "WP=SOCKET,HOST=a,PORT=65536"
                                   << number.arg("PORT", "SOCKET", "65536", "1 to 65535");
}

void TestTargetReader::Read_Mistakes_NamesThem()
{
    QFETCH(QString, target);
    QFETCH(QString, mistake);

    TargetReader reader;
    QVERIFY(!reader.Read(target));
    QCOMPARE(reader.Mistake(), mistake);
}

void TestTargetReader::Read_BehindAMistake_BeginsAnew()
{
    TargetReader reader;
    QVERIFY(!reader.Read(QStringLiteral("WP=SOCKET,HOST=a,TIME=5,RETRY=x")));

    QVERIFY(reader.Read(QStringLiteral("WP=NET4")));
    QCOMPARE(reader.Mistake(), QString());
    QCOMPARE(reader.TimeOut(), TargetReader::DefaultTimeOut);
    QVERIFY(!reader.HasGateway());
    QCOMPARE(Hops(reader), QStringLiteral("NET4()"));
}

void TestTargetReader::LastHop_SeveralOfOneName_TheLast()
{
    const TargetReader reader = Read(QStringLiteral("WP=NET4,ADDR=1,WP=OPT,WP=net4,ADDR=2"));

    QVERIFY(reader.LastHop(u"NET4"));
    QCOMPARE(reader.LastHop(u"NET4")->Value(u"ADDR"), QStringLiteral("2"));
    QVERIFY(!reader.LastHop(u"BUST4"));
}

void TestTargetReader::Value_KeywordTwice_FirstThatIsGiven()
{
    const TargetReader reader = Read(QStringLiteral("WP=NET4,ADDR=,addr=1,ADDR=2"));

    QCOMPARE(reader.Hops().front().Value(u"ADDR"), QStringLiteral("1"));
    QVERIFY(reader.Hops().front().Value(u"TIME").isNull());
}

void TestTargetReader::TimeOutAndRetries_Targets_LastHopThatHasThem_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<int>("timeOut");
    QTest::addColumn<int>("retries");
    QTest::newRow("nothing told") << "WP=NET4" << 77 << 78;
    QTest::newRow("empty values") << "WP=NET4,TIME=,RETRY=" << 77 << 78;
    QTest::newRow("both told") << "WP=NET4,TIME=500,RETRY=4" << 500 << 4;
    QTest::newRow("no repeats") << "WP=NET4,RETRY=0" << 77 << 0;
    QTest::newRow("time 0 is the default") << "WP=NET4,TIME=0" << TargetReader::DefaultTimeOut << 78;
    QTest::newRow("later hops first") << "WP=SOCKET,TIME=1,RETRY=2,WP=NET4,TIME=3,WP=OPT" << 3 << 2;
    QTest::newRow("bounds") << "WP=NET4,TIME=30000,RETRY=1000" << 30'000 << 1000;
    QTest::newRow("scan of an address")
        << "WP=NET4,ADDR=5,RETRY=1,TIME=200,wp=opt,pr=t4dl,dt=unihex" << 200 << 1;
}

void TestTargetReader::TimeOutAndRetries_Targets_LastHopThatHasThem()
{
    QFETCH(QString, target);
    QFETCH(int, timeOut);
    QFETCH(int, retries);

    const TargetReader reader = Read(target);
    QCOMPARE(reader.TimeOut(77), timeOut);
    QCOMPARE(reader.Retries(78), retries);
}

void TestTargetReader::Gateway_Targets_FirstSocketHop_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("host");
    QTest::addColumn<int>("port");
    QTest::newRow("none") << "WP=NET4,HOST=a,PORT=1" << QString() << 4004;
    QTest::newRow("address") << "WP=SOCKET,IP=10.0.0.1,PORT=99"
                             << "10.0.0.1" << 99;
    QTest::newRow("name") << "WP=SOCKET,HOST=gateway"
                          << "gateway" << 4004;
    QTest::newRow("address before name") << "WP=SOCKET,HOST=gateway,IP=::1"
                                         << "::1" << 4004;
    QTest::newRow("empty address") << "WP=SOCKET,HOST=gateway,IP="
                                   << "gateway" << 4004;
    QTest::newRow("neither") << "WP=SOCKET,PORT=99" << QString() << 99;
    QTest::newRow("a second one further on") << "WP=SOCKET,HOST=a,WP=SOCKET,HOST=b,PORT=1"
                                             << "a" << 4004;
    QTest::newRow("highest port") << "WP=SOCKET,HOST=a,PORT=65535"
                                  << "a" << 65'535;
}

void TestTargetReader::Gateway_Targets_FirstSocketHop()
{
    QFETCH(QString, target);
    QFETCH(QString, host);
    QFETCH(int, port);

    const TargetReader reader = Read(target);
    QCOMPARE(reader.Host(), host);
    QCOMPARE(reader.HasGateway(), !host.isEmpty());
    QCOMPARE(reader.Port(), port);
}

void TestTargetReader::WantsHex_Targets_LastOptionHop_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<bool>("hex");
    QTest::newRow("none") << "WP=NET4,DT=UNIHEX" << false;
    QTest::newRow("told") << "wp=opt,dt=unihex" << true;
    QTest::newRow("text") << "WP=OPT,DT=TEXT" << false;
    QTest::newRow("the last counts") << "WP=OPT,DT=UNIHEX,WP=OPT,PR=T4DL" << false;
    QTest::newRow("last but another hop") << "WP=OPT,DT=UNIHEX,WP=NET4" << true;
}

void TestTargetReader::WantsHex_Targets_LastOptionHop()
{
    QFETCH(QString, target);
    QFETCH(bool, hex);

    QCOMPARE(Read(target).WantsHex(), hex);
}

QTEST_GUILESS_MAIN(TestTargetReader)
#include "TestTargetReader.moc"
