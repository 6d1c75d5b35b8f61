#include "platform/MachineSeams.h"
#include "platform/controls/WindowBoxPresenter.h"

#include <QApplication>
#include <QTest>

namespace {

int OverrideCursors()
{
    int count = 0;
    QList<QCursor> taken;
    while (const QCursor* cursor = QApplication::overrideCursor()) {
        taken.prepend(*cursor);
        QApplication::restoreOverrideCursor();
        ++count;
    }
    for (const QCursor& cursor : std::as_const(taken))
        QApplication::setOverrideCursor(cursor);
    return count;
}

} // namespace

/// The pointer of programs with windows.
class TestWindowSeams : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { InstallWindowSeams(); }
    void cleanup() { ResetMachine(); }

    void BusyPointer_SetTwice_IsShownOnce();
    void BusyPointer_ClearedTwice_LeavesOthersAlone();
    void Beep_NoSpeaker_Returns();
    void Install_OtherSeams_Stay();
};

void TestWindowSeams::BusyPointer_SetTwice_IsShownOnce()
{
    Machine().ShowBusyPointer(true);
    Machine().ShowBusyPointer(true);

    QCOMPARE(OverrideCursors(), 1);
    QCOMPARE(QApplication::overrideCursor()->shape(), Qt::WaitCursor);

    Machine().ShowBusyPointer(false);
    QCOMPARE(OverrideCursors(), 0);
}

void TestWindowSeams::BusyPointer_ClearedTwice_LeavesOthersAlone()
{
    QApplication::setOverrideCursor(Qt::SizeAllCursor);

    Machine().ShowBusyPointer(true);
    Machine().ShowBusyPointer(false);
    Machine().ShowBusyPointer(false);

    QCOMPARE(OverrideCursors(), 1);
    QCOMPARE(QApplication::overrideCursor()->shape(), Qt::SizeAllCursor);
    QApplication::restoreOverrideCursor();
}

void TestWindowSeams::Beep_NoSpeaker_Returns()
{
    Machine().Beep();
    QVERIFY(Machine().Beep != nullptr);
}

void TestWindowSeams::Install_OtherSeams_Stay()
{
    Machine().UserName = [] { return QStringLiteral("anna"); };

    InstallWindowSeams();

    QCOMPARE(Machine().UserName(), QStringLiteral("anna"));
}

QTEST_MAIN(TestWindowSeams)
#include "TestWindowSeams.moc"
