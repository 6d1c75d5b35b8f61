#include "platform/MachineSeams.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QProcess>
#include <QThread>

#include <pwd.h>
#include <unistd.h>

namespace {

QString AskLoginName()
{
    if (const passwd* entry = getpwuid(geteuid()))
        return QString::fromLocal8Bit(entry->pw_name);
    return QString::number(geteuid());
}

/// Kept: each save asks for it, and the system reads the users' file or asks a server each time.
QString LoginName()
{
    static const QString name = AskLoginName();
    return name;
}

MachineSeams Defaults()
{
    MachineSeams seams;
    seams.MonotonicMs = [] { return QDeadlineTimer::current(Qt::PreciseTimer).deadline(); };
    seams.WallClock = [] { return QDateTime::currentDateTime(); };
    seams.Sleep = [](int ms) { QThread::msleep(static_cast<unsigned long>(ms)); };
    seams.PumpEvents = [] {
        if (QCoreApplication::instance())
            QCoreApplication::processEvents();
    };
    seams.ShowBusyPointer = [](bool) {};
    seams.Beep = [] {};
    seams.UserName = LoginName;
    seams.StartProgram = [](const QString& program, const QStringList& arguments) {
        return QProcess::startDetached(program, arguments);
    };
    return seams;
}

} // namespace

MachineSeams& Machine()
{
    static MachineSeams seams = Defaults();
    return seams;
}

void ResetMachine()
{
    Machine() = Defaults();
}
