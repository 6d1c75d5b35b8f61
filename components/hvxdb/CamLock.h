#pragma once

#include "components/hvxdb/SqlSession.h"

/// The maintenance lock: a row with its holder and the time of the holder's last sign of life. While it is
/// there, nobody but the holder begins a transaction.
///
/// Failures: ComponentError.
class CamLock
{
public:
    /// A holder that gave no sign for so long is dead, in milliseconds.
    static constexpr qint64 StaleMs = 60'000;

    explicit CamLock(SqlSession& session) : m_session(&session) {}

    /// True when the lock is held by a process that is no more, or that gave no sign for StaleMs.
    [[nodiscard]] bool IsHeldByDead();
    /// Removes the lock of a dead holder. Raises InUse when the holder lives.
    void Free();

    /// Takes the lock for this process, in place of a dead holder's. Raises InUse when another has it.
    void Take(const QString& token);
    /// Gives the holder's sign of life.
    void Beat(const QString& token);
    void Release(const QString& token);

private:
    struct Holder
    {
        QString token;
        QString host;
        qint64 process = 0;
        /// How long ago the last sign of life was, in milliseconds.
        qint64 silence = 0;
    };

    [[nodiscard]] std::optional<Holder> ReadHolder();
    [[nodiscard]] static bool IsDead(const Holder& holder);
    [[nodiscard]] bool SomeoneWrites();
    void RemoveDeadHolder();

    SqlSession* m_session;
};
