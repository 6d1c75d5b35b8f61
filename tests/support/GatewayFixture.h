#pragma once

#include "database/DatabaseClass.h"
#include "tests/support/FakeMachine.h"
#include "tests/support/RecordingPresenter.h"
#include "tests/support/ScriptedDatabase.h"

#include <QList>

/// A gateway on a scripted component, with a fake machine and an operator who is recorded. Serves as
/// Database().DbObject and Model().Database as long as it lives; the state is clean before and after.
class GatewayFixture
{
public:
    /// A gateway that was never opened.
    GatewayFixture();
    ~GatewayFixture();
    GatewayFixture(const GatewayFixture&) = delete;
    GatewayFixture& operator=(const GatewayFixture&) = delete;

    FakeMachine Computer;
    RecordingPresenter Operator;
    ScriptedDatabase Component;
    /// Values of SetMousePointer, in order.
    QList<int> Pointers;

    [[nodiscard]] DatabaseClass& Gateway() const;

    /// Opens the session and forgets what was recorded while it opened.
    void Open();
    /// Forgets what was recorded.
    void Forget();
};
