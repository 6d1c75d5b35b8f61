#include "platform/MachineSeams.h"

#include <QTest>
#include <QTimer>

/// What the machine gives, and that each part can be replaced.
class TestMachineSeams : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void MonotonicMs_BehindAPause_HasGoneOn();
    void Sleep_LetsNoEventsRun();
    void PumpEvents_RunsWhatIsPending();
    void PointerAndBell_WithoutAScreen_DoNothing();
    void UserName_IsGiven();
    void Replaced_PartIsInForceUntilReset();
};

void TestMachineSeams::cleanup()
{
    ResetMachine();
}

void TestMachineSeams::MonotonicMs_BehindAPause_HasGoneOn()
{
    const qint64 before = Machine().MonotonicMs();

    Machine().Sleep(20);

    QVERIFY(Machine().MonotonicMs() > before);
}

void TestMachineSeams::Sleep_LetsNoEventsRun()
{
    bool ran = false;
    QTimer::singleShot(0, this, [&] { ran = true; });

    Machine().Sleep(5);
    QVERIFY(!ran);

    QTRY_VERIFY(ran);
}

void TestMachineSeams::PumpEvents_RunsWhatIsPending()
{
    bool ran = false;
    QMetaObject::invokeMethod(
        this, [&] { ran = true; }, Qt::QueuedConnection);
    QVERIFY(!ran);

    Machine().PumpEvents();

    QVERIFY(ran);
}

void TestMachineSeams::PointerAndBell_WithoutAScreen_DoNothing()
{
    QVERIFY(Machine().ShowBusyPointer);
    QVERIFY(Machine().Beep);
    Machine().ShowBusyPointer(true);
    Machine().ShowBusyPointer(false);
    Machine().Beep();
}

void TestMachineSeams::UserName_IsGiven()
{
    QVERIFY(!Machine().UserName().isEmpty());
}

void TestMachineSeams::Replaced_PartIsInForceUntilReset()
{
    const QString own = Machine().UserName();
    Machine().UserName = [] { return QStringLiteral("somebody else"); };
    QCOMPARE(Machine().UserName(), "somebody else");

    ResetMachine();

    QCOMPARE(Machine().UserName(), own);
}

QTEST_GUILESS_MAIN(TestMachineSeams)
#include "TestMachineSeams.moc"
