#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <functional>

/// Small things that the machine gives: clock, pause, pending events, pointer, beep, the operator's name.
/// Each can be replaced.

/// The replaceable procedures. Windows programs install the parts that need a screen; tests install fakes.
struct MachineSeams
{
    /// Milliseconds of a clock that never goes back.
    std::function<qint64()> MonotonicMs;
    /// What a clock on the wall shows here.
    std::function<QDateTime()> WallClock;
    /// Waits without letting events run.
    std::function<void(int ms)> Sleep;
    /// Lets pending events run; returns at once.
    std::function<void()> PumpEvents;
    /// Shows the wait cursor (true) or the normal one (false). Calls need not be paired.
    std::function<void(bool busy)> ShowBusyPointer;
    /// Sounds the bell.
    std::function<void()> Beep;
    /// Name under which the operator is logged in; the key of the rights.
    std::function<QString()> UserName;
    /// Starts a program that goes on by itself, each argument as one, without a shell. False: it cannot be
    /// started.
    std::function<bool(const QString& program, const QStringList& arguments)> StartProgram;
};

/// The seams in force.
MachineSeams& Machine();

/// Puts the seams back to what the program starts with: the machine's clock and event loop, no pointer,
/// no bell.
void ResetMachine();

/// Shows the wait cursor for as long as it lives.
class BusyPointer
{
public:
    BusyPointer() { Machine().ShowBusyPointer(true); }
    ~BusyPointer() { Machine().ShowBusyPointer(false); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;
};
