#include "scan/network/BusList.h"
#include "tests/support/ScriptedNetwork.h"

#include <QTest>

class TestBusList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ConvertBusTarget_ByFamily_IsLedToTheBroadcastBus_data()
    {
        QTest::addColumn<QString>("target");
        QTest::addColumn<QString>("converted");
        const QString tail = QStringLiteral(",BUSID=254,WP=NET4,ADDR=4094,WP=OPT,PR=T4DT");
        QTest::newRow("cut before the bus") << "WP=KD7,BUSID=12,SLOT=4,WP=OPT,VERIFY=NO"
                                            << "WP=KD7" + tail;
        QTest::newRow("no bus: cut before the options") << "WP=KD7,SLOT=4,WP=OPT,VERIFY=NO"
                                                        << "WP=KD7,SLOT=4" + tail;
        QTest::newRow("neither: whole") << "WP=KD7,SLOT=4"
                                        << "WP=KD7,SLOT=4" + tail;
        QTest::newRow("options without a parameter are no cut") << "WP=KD7,WP=OPT"
                                                                << "WP=KD7,WP=OPT" + tail;
        QTest::newRow("in any case") << "wp=kd7,busid=12"
                                     << "wp=kd7" + tail;
        QTest::newRow("behind another hop") << "WP=SOCKET,IP=::1,WP=KD7,BUSID=1,WP=OPT,PR=T4DT"
                                            << "WP=SOCKET,IP=::1,WP=KD7" + tail;
        QTest::newRow("radio link") << "WP=VRL,BUS=1,WP=OPT,VERIFY=NO"
                                    << "WP=VRL,BUS=1,WP=OPT,VERIFY=NO";
        QTest::newRow("radio link with a bus hop") << "WP=VRL,BUS=1,WP=BUST4,ID=3,WP=OPT,VERIFY=NO"
                                                   << "WP=VRL,BUS=1,WP=BUST4,ID=3,WP=OPT,VERIFY=NO";
        QTest::newRow("other") << "WP=SOCKET,IP=::1,WP=OPT,VERIFY=NO"
                               << "WP=SOCKET,IP=::1,WP=OPT,VERIFY=NO";
        QTest::newRow("empty") << ""
                               << "";
    }
    void ConvertBusTarget_ByFamily_IsLedToTheBroadcastBus()
    {
        QFETCH(const QString, target);
        QFETCH(const QString, converted);
        QCOMPARE(ConvertBusTarget(target), converted);
    }

    void ReplaceCharacter_EveryOccurrence_IsReplaced()
    {
        QCOMPARE(ReplaceCharacter(QStringLiteral("a\nb\n"), u'\n', QStringLiteral(" ")), "a b ");
        QCOMPARE(ReplaceCharacter(QString(), u'\n', QStringLiteral(" ")), QString());
    }

    void ParseBusList_Answers_GiveTheBusesAlone_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QStringList>("buses");
        QTest::newRow("two buses") << "m:11,1,3\r12\r13\r254" << QStringList({"12", "13"});
        QTest::newRow("only the bus itself") << "m:11,1,3\r254" << QStringList();
        QTest::newRow("echo alone") << "m:11,1,3" << QStringList();
        QTest::newRow("echo and a line end") << "m:11,1,3\r" << QStringList();
        QTest::newRow("nothing") << "" << QStringList();
        QTest::newRow("254 in front is a bus") << "m\r254\r12" << QStringList({"254", "12"});
        QTest::newRow("254 twice") << "m\r254\r254" << QStringList({"254"});
        QTest::newRow("line feeds") << "m\r\n12\r\n254\r\n" << QStringList({"12"});
        QTest::newRow("a line end behind the last") << "m\r12\r254\r" << QStringList({"12"});
        QTest::newRow("a line end behind a bus") << "m\r12\r" << QStringList({"12"});
        QTest::newRow("blanks") << "m\r 12 \r  13\r254 " << QStringList({"12", "13"});
        QTest::newRow("254 with words") << "m\r12\r254 all" << QStringList({"12"});
    }
    void ParseBusList_Answers_GiveTheBusesAlone()
    {
        QFETCH(const QString, text);
        QFETCH(const QStringList, buses);
        int count = -1;
        QStringList items{QStringLiteral("before")};
        QVERIFY(ParseBusList(text, count, items));
        QCOMPARE(items, buses);
        QCOMPARE(count, buses.size());
    }

    void AskForBuses_Conversions_AreMadeInOrder()
    {
        ScriptedNetwork network;
        const auto connection = CreateSyncConnection(HvxSyncConnId);
        const auto utility = CreateHvxUtility(HvxUtilityId);
        network.OnSend = [](const QString&, const QString&) { return QStringLiteral("coded"); };
        network.OnConvert = [](const QString& method, const QString& input) {
            return method + u'(' + input + u')';
        };
        network.Calls.clear();
        QCOMPARE(AskForBuses(*connection, *utility), "A2U(GetBERData(coded))");
        QCOMPARE(network.Calls, QStringList({"U2A m:11,1,3\r", "Send |U2A(m:11,1,3\r)", "GetBERData 0 coded",
                                             "A2U GetBERData(coded)"}));
    }

    void AskForBuses_AnyStepRaises_Raises_data()
    {
        QTest::addColumn<QString>("step");
        for (const char* step : {"U2A", "Send", "GetBERData", "A2U"})
            QTest::newRow(step) << QString::fromLatin1(step);
    }
    void AskForBuses_AnyStepRaises_Raises()
    {
        QFETCH(const QString, step);
        ScriptedNetwork network;
        const auto connection = CreateSyncConnection(HvxSyncConnId);
        const auto utility = CreateHvxUtility(HvxUtilityId);
        network.OnSend = [&](const QString&, const QString& request) {
            if (step == u"Send")
                ScriptedNetwork::Raise();
            return request;
        };
        network.OnConvert = [&](const QString& method, const QString& input) {
            if (method == step)
                ScriptedNetwork::Raise();
            return input;
        };
        QVERIFY_EXCEPTION_THROWN((void)AskForBuses(*connection, *utility), ComponentError);
        QVERIFY(network.Calls.constLast().startsWith(step));
    }
};

QTEST_GUILESS_MAIN(TestBusList)
#include "TestBusList.moc"
