#include "browser/BrowserStatus.h"
#include "tests/browser/CommandFixture.h"

#include <QSignalSpy>

/// What a host may tell beside the control.
class TestBrowserStatus : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Started_Database_TellsCountsAndRights()
    {
        CommandFixture f;
        const BrowserStatus status(*f.Control);
        QVERIFY(BrowserStatus::IsDatabaseOpen());
        QVERIFY(BrowserStatus::AsOf().isValid());
        QVERIFY(!BrowserStatus::IsOutdated());
        QVERIFY(BrowserStatus::MayScan() && BrowserStatus::MayEdit());
        QCOMPARE(status.NodesLoaded(), 3);
        QCOMPARE(status.NodesTotal(), 3);
        QVERIFY(status.Connections() < 0);
    }

    void Connections_Shown_AreCounted()
    {
        CommandFixture f;
        const BrowserStatus status(*f.Control);
        const QSignalSpy changes(&status, &BrowserStatus::Changed);
        f.ShowConnections();
        QTRY_COMPARE(changes.count(), 1);
        QCOMPARE(status.Connections(), 2);
    }

    void Nodes_MoreThanAreLoaded_AreTold()
    {
        BrowserFixture f;
        f.Component.Store.AddConnection(QStringLiteral("Alpha"), QStringLiteral("WP=BUST4"));
        f.Component.Store.MaxRows = 32001;
        f.AddNodes(QStringLiteral("Alpha"), LoadState::FirstLimit + 100);
        f.StartOnDatabasePage();
        const BrowserStatus status(*f.Control);
        QCOMPARE(status.NodesLoaded(), LoadState::FirstLimit);
        QCOMPARE(status.NodesTotal(), LoadState::FirstLimit + 100);
        f.Find<QPushButton>("cmdLoadMore").click();
        QCOMPARE(status.NodesLoaded(), LoadState::FirstLimit + 100);
    }

    void Refresh_AnotherApplicationAdded_TellsOnce()
    {
        CommandFixture f;
        const BrowserStatus status(*f.Control);
        const QSignalSpy changes(&status, &BrowserStatus::Changed);
        f.Component.Store.SaveNode(QStringLiteral("Zulu"), QString(), CommandFixture::NodeTarget(9),
                                   QStringLiteral("Alpha"), QString());
        f.Find<QPushButton>("cmdRefresh").click();
        QTRY_COMPARE(changes.count(), 1);
        QCOMPARE(status.NodesLoaded(), 4);
        QCOMPARE(status.NodesTotal(), 4);
    }

    void Refresh_DatabaseAway_IsOutdated()
    {
        CommandFixture f;
        const BrowserStatus status(*f.Control);
        const QDateTime before = BrowserStatus::AsOf();
        const QSignalSpy changes(&status, &BrowserStatus::Changed);
        f.Component.Fail(QStringLiteral("BeginTransaction"));
        f.Find<QPushButton>("cmdRefresh").click();
        QTRY_COMPARE(changes.count(), 1);
        QVERIFY(BrowserStatus::IsOutdated());
        QCOMPARE(BrowserStatus::AsOf(), before);
    }

    void FreeObjects_Called_TellsThatNoDatabaseIsOpen()
    {
        CommandFixture f;
        const BrowserStatus status(*f.Control);
        const QSignalSpy changes(&status, &BrowserStatus::Changed);
        f.Control->FreeObjects();
        QTRY_COMPARE(changes.count(), 1);
        QVERIFY(!BrowserStatus::IsDatabaseOpen());
    }
};

QTEST_MAIN(TestBrowserStatus)
#include "TestBrowserStatus.moc"
