#pragma once

#include "tests/components/DatabaseFixture.h"
#include "tests/support/FakeMachine.h"
#include "tests/support/ScriptedNetwork.h"
#include "tests/tools/ProcessRun.h"

#include <QTest>

#include <csignal>
#include <memory>

/// What the tests of commands that ask the network share: a database, scripted components and a clock of
/// their own.
class NetworkCommandFixture
{
protected:
    void Begin() { m_parts = std::make_unique<Parts>(); }
    void End() { m_parts.reset(); }

    [[nodiscard]] const DatabaseFixture& Database() const { return m_parts->database; }
    [[nodiscard]] FakeMachine& Clock() const { return m_parts->clock; }
    [[nodiscard]] ScriptedNetwork& Network() const { return m_parts->network; }
    [[nodiscard]] ProcessRun& Run() const { return m_parts->run; }

    /// Ctrl+C while a component waits; raises as soon as the connection was closed.
    void InterruptWait() const
    {
        (void)std::raise(SIGINT);
        QVERIFY(QTest::qWaitFor([this] { return Network().Calls.contains(QStringLiteral("Close")); }));
        ScriptedNetwork::Raise(QStringLiteral("Closed"));
    }
    [[nodiscard]] QStringList CallsOf(const QString& begin) const { return Network().Calls.filter(begin); }
    void VerifyReleased() const
    {
        QCOMPARE(Network().Connections, 0);
        QCOMPARE(Network().Utilities, 0);
    }

private:
    struct Parts
    {
        DatabaseFixture database;
        FakeMachine clock;
        ScriptedNetwork network;
        ProcessRun run;
    };
    std::unique_ptr<Parts> m_parts;
};
