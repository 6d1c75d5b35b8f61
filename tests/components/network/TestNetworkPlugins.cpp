#include "components/syncconn/SyncFailure.h"
#include "platform/ComponentError.h"
#include "platform/Components.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QPluginLoader>
#include <QtTest>

namespace {

const QString PluginFolder = QStringLiteral(PLUGIN_FOLDER);

/// Number of the ComponentError that a call raises; 0 when it raises none.
quint32 ErrorOf(const std::function<void()>& call)
{
    try {
        call();
        return 0;
    } catch (const ComponentError& error) {
        return error.Number();
    }
}

} // namespace

/// The connection component and the conversion utility as plugins.
class TestNetworkPlugins : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void Metadata_ListsIdsAndVersion_data();
    void Metadata_ListsIdsAndVersion();
    void CreateConnection_EitherId_GivesClosedConnection_data();
    void CreateConnection_EitherId_GivesClosedConnection();
    void CreateUtility_FromFolder_Converts();
    void Create_IdOfAnotherKind_NotRegistered();
};

void TestNetworkPlugins::initTestCase()
{
    SetComponentFolders({PluginFolder});
}

void TestNetworkPlugins::cleanupTestCase()
{
    SetComponentFolders({});
}

void TestNetworkPlugins::Metadata_ListsIdsAndVersion_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QJsonArray>("ids");
    QTest::newRow("connection") << "zelka_syncconn_plugin" << QJsonArray{T4SyncConnId, HvxSyncConnId};
    QTest::newRow("utility") << "zelka_hvxutil_plugin" << QJsonArray{HvxUtilityId};
}

void TestNetworkPlugins::Metadata_ListsIdsAndVersion()
{
    QFETCH(QString, file);
    QFETCH(QJsonArray, ids);

    const QPluginLoader loader(PluginFolder + u'/' + file);
    const QJsonObject metaData = loader.metaData().value(QStringLiteral("MetaData")).toObject();
    QCOMPARE(metaData.value(QStringLiteral("Components")).toArray(), ids);
    QCOMPARE(metaData.value(QStringLiteral("Version")).toString(), QStringLiteral(ZELKA_VERSION));
}

void TestNetworkPlugins::CreateConnection_EitherId_GivesClosedConnection_data()
{
    QTest::addColumn<QString>("id");
    QTest::newRow("scans") << T4SyncConnId;
    QTest::newRow("buses, lower case") << HvxSyncConnId.toLower();
}

void TestNetworkPlugins::CreateConnection_EitherId_GivesClosedConnection()
{
    QFETCH(QString, id);

    const std::unique_ptr<SyncConnection> connection = CreateSyncConnection(id);
    QString reply;
    QCOMPARE(ErrorOf([&] { connection->Send(QString(), QString(), reply); }), SyncFailure::Raised);
    qint32 major = 0;
    qint32 minor = 0;
    qint32 third = 0;
    QString text;
    connection->GetLastError(major, minor, third, text);
    QCOMPARE(major, SyncFailure::Major::Usage);
    QCOMPARE(minor, SyncFailure::Minor::NotOpen);
}

void TestNetworkPlugins::CreateUtility_FromFolder_Converts()
{
    const std::unique_ptr<HvxUtility> utility = CreateHvxUtility(HvxUtilityId);

    QString text;
    utility->Hex2U(QStringLiteral("41"), text);
    QCOMPARE(text, QStringLiteral("A"));
}

void TestNetworkPlugins::Create_IdOfAnotherKind_NotRegistered()
{
    QCOMPARE(ErrorOf([] { (void)CreateSyncConnection(HvxUtilityId); }), 0x80040154U);
    QCOMPARE(ErrorOf([] { (void)CreateHvxUtility(T4SyncConnId); }), 0x80040154U);
}

QTEST_GUILESS_MAIN(TestNetworkPlugins)
#include "TestNetworkPlugins.moc"
