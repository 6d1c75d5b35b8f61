#include "scan/network/NodeQuery.h"
#include "tests/support/ScriptedNetwork.h"

#include <QTest>

#include <new>

namespace {

/// Two components, and what one query of them gave.
struct Query
{
    ScriptedNetwork Network;
    std::unique_ptr<SyncConnection> Connection = CreateSyncConnection(T4SyncConnId);
    std::unique_ptr<HvxUtility> Utility = CreateHvxUtility(HvxUtilityId);
    QString Type = QStringLiteral("before");
    QString Identification = QStringLiteral("before");

    bool Run()
    {
        Network.Calls.clear();
        return QueryNode(*Connection, *Utility, QStringLiteral("T"), Type, Identification);
    }
    /// Replies by request; a request without one stays unanswered.
    void Reply(const QHash<QString, QString>& replies)
    {
        Network.OnSend = [replies](const QString&, const QString& request) {
            if (!replies.contains(request))
                ScriptedNetwork::Raise();
            return replies.value(request);
        };
    }
};

} // namespace

class TestNodeQuery : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Query_NodeAnswersBoth_GivesDecodedTexts()
    {
        Query query;
        query.Reply(
            {{QStringLiteral("40"), QStringLiteral("4E31")}, {QStringLiteral("03"), QStringLiteral("54")}});
        query.Network.OnConvert = [](const QString&, const QString& hex) {
            return QString::fromLatin1(QByteArray::fromHex(hex.toLatin1()));
        };
        QVERIFY(query.Run());
        QCOMPARE(query.Identification, "N1");
        QCOMPARE(query.Type, "T");
        QCOMPARE(query.Network.Calls, QStringList({"Send T|40", "Hex2U 4E31", "Send T|03", "Hex2U 54"}));
    }

    void Query_NodeIsSilent_AsksNothingMore()
    {
        Query query;
        query.Reply({});
        QVERIFY(!query.Run());
        QCOMPARE(query.Identification, QString());
        QCOMPARE(query.Type, QString());
        QCOMPARE(query.Network.Calls, QStringList({"Send T|40"}));
    }

    void Query_IdentificationIsNoText_CountsAsSilent()
    {
        Query query;
        query.Reply(
            {{QStringLiteral("40"), QStringLiteral("4")}, {QStringLiteral("03"), QStringLiteral("54")}});
        query.Network.OnConvert = [](const QString&, const QString&) -> QString { ScriptedNetwork::Raise(); };
        QVERIFY(!query.Run());
        QCOMPARE(query.Network.Calls, QStringList({"Send T|40", "Hex2U 4"}));
    }

    void Query_NodeKeepsItsType_GivesAnEmptyOne_data()
    {
        QTest::addColumn<bool>("answers");
        QTest::newRow("no answer") << false;
        QTest::newRow("no text") << true;
    }
    void Query_NodeKeepsItsType_GivesAnEmptyOne()
    {
        QFETCH(const bool, answers);
        Query query;
        QHash<QString, QString> replies{{QStringLiteral("40"), QStringLiteral("name")}};
        if (answers)
            replies.insert(QStringLiteral("03"), QStringLiteral("odd"));
        query.Reply(replies);
        query.Network.OnConvert = [](const QString&, const QString& input) {
            if (input == u"odd")
                ScriptedNetwork::Raise();
            return input;
        };
        QVERIFY(query.Run());
        QCOMPARE(query.Identification, "name");
        QCOMPARE(query.Type, QString());
    }

    void Query_OtherError_IsNotCaught()
    {
        ScriptedNetwork network;
        network.OnSend = [](const QString&, const QString&) -> QString { throw std::bad_alloc(); };
        const auto connection = CreateSyncConnection(T4SyncConnId);
        const auto utility = CreateHvxUtility(HvxUtilityId);
        QString type;
        QString identification;

        QVERIFY_EXCEPTION_THROWN((void)QueryNode(*connection, *utility, "T", type, identification),
                                 std::bad_alloc);
    }
};

QTEST_GUILESS_MAIN(TestNodeQuery)
#include "TestNodeQuery.moc"
