#include "components/hvxdb/CamLock.h"
#include "components/hvxdb/MaintenanceLock.h"
#include "tests/components/DatabaseFixture.h"

#include <QProcess>
#include <QSignalSpy>
#include <QSysInfo>
#include <QTest>

/// The maintenance lock, and locks between processes.
class TestHvxMaintenance : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Lock_Held_KeepsOthersOut();
    void Lock_Held_OwnerGoesOn();
    void Lock_Released_LetsOthersIn();
    void Lock_Twice_InUse();
    void Lock_OfLivingProcess_IsNotDeadAndNotFreed();
    void Lock_OfEndedProcess_IsDeadAndFreed();
    void Lock_OfOtherHost_DeadWhenStale_data();
    void Lock_OfOtherHost_DeadWhenStale();
    void Lock_OfDeadHolder_IsTakenOver();
    void Lock_HeartBeats_FromItsOwnThread();
    void NoLock_IsNotDeadAndFreeDoesNothing();
    void MalformedLockTable_CamAccess();
};

namespace {

constexpr qint64 Minute = 60 * 1000;

quint32 BeginNumber(HvxDatabase& component)
{
    return DatabaseFixture::ErrorOf([&] {
        qint32 started = 0;
        component.BeginTransaction(started);
        component.CommitTransaction(started);
    });
}

qint32 LockedAnswer(HvxDatabase& component)
{
    qint32 locked = 7;
    component.IsCAMlocked(locked);
    return locked;
}

void PutLock(const DatabaseFixture& fixture, const QString& host, qint64 process, qint64 ageMs)
{
    fixture.RunSql(QStringLiteral("INSERT INTO cam_lock (one, token, owner, host, process, heartbeat)"
                                  " VALUES (1, 'token', 'anna', '%1', %2, %3)")
                       .arg(host)
                       .arg(process)
                       .arg(QDateTime::currentMSecsSinceEpoch() - ageMs));
}

qint64 EndedProcess()
{
    QProcess process;
    process.start(QStringLiteral("true"), QStringList());
    process.waitForStarted();
    const qint64 id = process.processId();
    process.waitForFinished();
    return id;
}

} // namespace

void TestHvxMaintenance::Lock_Held_KeepsOthersOut()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    const auto administration = HvxAdministration::Open(fixture.Source());

    const auto lock = administration->LockForMaintenance();

    QCOMPARE(BeginNumber(*component), DatabaseErrorNumber::InUse);
    QCOMPARE(BeginNumber(*component), DatabaseErrorNumber::InUse);
    QCOMPARE(DatabaseFixture::ErrorOf([&] { component->SaveParent(QStringLiteral("Delta"), QString()); }),
             DatabaseErrorNumber::InUse);
    HvxDatabaseComponent second(fixture.Source());
    QCOMPARE(DatabaseFixture::ErrorOf([&] { second.OpenDatabase(); }), DatabaseErrorNumber::InUse);
    QCOMPARE(DatabaseFixture::ErrorOf([&] { (void)HvxAdministration::Open(fixture.Source()); }),
             DatabaseErrorNumber::InUse);
}

void TestHvxMaintenance::Lock_Held_OwnerGoesOn()
{
    const DatabaseFixture fixture;
    const auto administration = HvxAdministration::Open(fixture.Source());

    const auto lock = administration->LockForMaintenance();
    const auto writer = administration->BeginBulkWrite();
    writer->AddConnection(QStringLiteral("Delta"), QString());
    writer->Commit();

    QCOMPARE(fixture.RunSql(QStringLiteral("SELECT count(*) FROM connection")).toInt(), 4);
}

void TestHvxMaintenance::Lock_Released_LetsOthersIn()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    const auto administration = HvxAdministration::Open(fixture.Source());
    auto lock = administration->LockForMaintenance();
    QCOMPARE(BeginNumber(*component), DatabaseErrorNumber::InUse);

    lock.reset();

    QCOMPARE(BeginNumber(*component), 0U);
    QCOMPARE(fixture.RunSql(QStringLiteral("SELECT count(*) FROM cam_lock")).toInt(), 0);
}

void TestHvxMaintenance::Lock_Twice_InUse()
{
    const DatabaseFixture fixture;
    const auto first = HvxAdministration::Open(fixture.Source());
    const auto second = HvxAdministration::Open(fixture.Source());
    const auto lock = first->LockForMaintenance();

    QCOMPARE(DatabaseFixture::ErrorOf([&] { (void)second->LockForMaintenance(); }),
             DatabaseErrorNumber::InUse);
}

void TestHvxMaintenance::Lock_OfLivingProcess_IsNotDeadAndNotFreed()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    PutLock(fixture, QSysInfo::machineHostName(), QCoreApplication::applicationPid(), 0);

    QCOMPARE(LockedAnswer(*component), 0);
    QCOMPARE(DatabaseFixture::ErrorOf([&] { component->FreeCAMlock(); }), DatabaseErrorNumber::InUse);

    QCOMPARE(BeginNumber(*component), DatabaseErrorNumber::InUse);
}

void TestHvxMaintenance::Lock_OfEndedProcess_IsDeadAndFreed()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    PutLock(fixture, QSysInfo::machineHostName(), EndedProcess(), 0);
    QCOMPARE(BeginNumber(*component), DatabaseErrorNumber::InUse);

    QVERIFY(LockedAnswer(*component) != 0);
    component->FreeCAMlock();

    QCOMPARE(LockedAnswer(*component), 0);
    QCOMPARE(BeginNumber(*component), 0U);
}

void TestHvxMaintenance::Lock_OfOtherHost_DeadWhenStale_data()
{
    QTest::addColumn<qint64>("ageMs");
    QTest::addColumn<bool>("dead");
    QTest::newRow("half a minute") << Minute / 2 << false;
    QTest::newRow("two minutes") << 2 * Minute << true;
}

void TestHvxMaintenance::Lock_OfOtherHost_DeadWhenStale()
{
    QFETCH(qint64, ageMs);
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    PutLock(fixture, QStringLiteral("another host"), 1, ageMs);

    QTEST(LockedAnswer(*component) != 0, "dead");
}

void TestHvxMaintenance::Lock_OfDeadHolder_IsTakenOver()
{
    const DatabaseFixture fixture;
    const auto administration = HvxAdministration::Open(fixture.Source());
    PutLock(fixture, QSysInfo::machineHostName(), EndedProcess(), 0);

    const auto lock = administration->LockForMaintenance();

    QCOMPARE(fixture.RunSql(QStringLiteral("SELECT process FROM cam_lock")).toLongLong(),
             QCoreApplication::applicationPid());
}

void TestHvxMaintenance::Lock_HeartBeats_FromItsOwnThread()
{
    const DatabaseFixture fixture;
    const auto store = std::make_shared<HvxStore>();
    store->Open(fixture.Source());
    const MaintenanceLock lock(store, 5);
    fixture.RunSql(QStringLiteral("UPDATE cam_lock SET heartbeat = 0"));

    // This thread runs no events: the beat does not depend on them.
    const auto beaten = [&] {
        return fixture.RunSql(QStringLiteral("SELECT heartbeat FROM cam_lock")).toLongLong() > 0;
    };
    QDeadlineTimer deadline(30'000);
    while (!beaten() && !deadline.hasExpired())
        QThread::msleep(5);
    QVERIFY(beaten());
}

void TestHvxMaintenance::NoLock_IsNotDeadAndFreeDoesNothing()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();

    QCOMPARE(LockedAnswer(*component), 0);
    component->FreeCAMlock();

    QCOMPARE(BeginNumber(*component), 0U);
}

void TestHvxMaintenance::MalformedLockTable_CamAccess()
{
    const DatabaseFixture fixture;
    fixture.RunSql(QStringLiteral("ALTER TABLE cam_lock RENAME COLUMN token TO badge"));
    HvxDatabaseComponent component(fixture.Source());

    QCOMPARE(DatabaseFixture::ErrorOf([&] { component.OpenDatabase(); }), DatabaseErrorNumber::CamAccess);
}

QTEST_GUILESS_MAIN(TestHvxMaintenance)
#include "TestHvxMaintenance.moc"
