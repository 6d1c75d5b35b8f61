#include "components/syncconn/GatewayAddress.h"

#include <QtTest>

/// Addresses of gateways as texts.
class TestGatewayAddress : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void FromText_Addresses_HostAndPort_data();
    void FromText_Addresses_HostAndPort();
    void FromText_OtherTexts_Nothing_data();
    void FromText_OtherTexts_Nothing();
};

void TestGatewayAddress::FromText_Addresses_HostAndPort_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("host");
    QTest::addColumn<int>("port");
    QTest::newRow("IPv4") << "127.0.0.1:4004"
                          << "127.0.0.1" << 4004;
    QTest::newRow("name") << "gateway.example:1"
                          << "gateway.example" << 1;
    QTest::newRow("IPv6") << "[::1]:65535"
                          << "::1" << 65'535;
    QTest::newRow("IPv6 of an interface") << "[fe80::1%eth0]:4004"
                                          << "fe80::1%eth0" << 4004;
}

void TestGatewayAddress::FromText_Addresses_HostAndPort()
{
    QFETCH(QString, text);
    QFETCH(QString, host);
    QFETCH(int, port);

    const std::optional<GatewayAddress> address = GatewayAddress::FromText(text);
    QVERIFY(address);
    QCOMPARE(address->host, host);
    QCOMPARE(address->port, port);
    QCOMPARE(address->Text(), text);
}

void TestGatewayAddress::FromText_OtherTexts_Nothing_data()
{
    QTest::addColumn<QString>("text");
    for (const char* text : {"", "gateway", ":4004", "gateway:", "gateway:0", "gateway:65536",
                             "gateway:123456", "gateway:-1", "gateway:4004 ", " gateway:4004", "::1:4004",
                             "[::1]", "[]:4004", "[gateway]:4004", "a b:4004", "gateway:4004\n"})
        QTest::newRow(text) << QString::fromLatin1(text);
}

void TestGatewayAddress::FromText_OtherTexts_Nothing()
{
    QFETCH(QString, text);

    QVERIFY(!GatewayAddress::FromText(text));
}

QTEST_GUILESS_MAIN(TestGatewayAddress)
#include "TestGatewayAddress.moc"
