#pragma once

#include "platform/MachineSeams.h"

#include <QStringList>

#include <functional>

/// A machine whose clock goes on only when the program sleeps; records what it was asked for. In force as
/// long as it lives.
class FakeMachine
{
public:
    FakeMachine()
    {
        Machine().MonotonicMs = [this] { return NowMs; };
        Machine().Sleep = [this](int ms) {
            Steps << QStringLiteral("Sleep %1").arg(ms);
            NowMs += ms;
        };
        Machine().PumpEvents = [this] {
            Steps << QStringLiteral("Pump");
            if (WhilePumping)
                WhilePumping();
        };
        Machine().ShowBusyPointer = [](bool) {};
        Machine().Beep = [this] { Steps << QStringLiteral("Beep"); };
    }
    ~FakeMachine() { ResetMachine(); }
    FakeMachine(const FakeMachine&) = delete;
    FakeMachine& operator=(const FakeMachine&) = delete;

    /// Somewhere in the life of a machine, so that code that starts at 0 shows.
    qint64 NowMs = 86'390'000;
    /// "Sleep 200", "Pump", "Beep", in order.
    QStringList Steps;
    /// Stands for events that arrive.
    std::function<void()> WhilePumping;
};
