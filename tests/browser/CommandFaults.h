#pragma once

#include "tests/browser/CommandFixture.h"
#include "tests/browser/DialogOperator.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

/// A command with all that the operator does in its dialog.
struct FaultedCommand
{
    const char* name;
    const char* view;
    const char* selected;
    const char* button;
    /// What is typed in the dialog; see DialogOperator.
    const char* newName = "";
    const char* choice = "";
    const char* value = "";

    static const std::vector<FaultedCommand>& ConnectionAdditions();
    static const std::vector<FaultedCommand>& NodeAdditions();
    static const std::vector<FaultedCommand>& ConnectionProperties();
    static const std::vector<FaultedCommand>& NodeProperties();
    /// Those without a dialog of a record.
    static const std::vector<FaultedCommand>& Others();
};

/// How the component fails from its k-th call on, and what the operator does about it.
struct CommandFault
{
    const char* name;
    quint32 number;
    bool goesOn;
    /// Asks for another try once where the database is in use.
    bool triesAgain = false;
    /// Presses Save once more in a dialog that refused.
    bool savesAgain = false;

    static const std::vector<CommandFault>& All();
};

/// A control on its records whose operator works in the real dialogs.
class CommandFaultFixture : public CommandFixture
{
public:
    explicit CommandFaultFixture(const FaultedCommand& command);

    DialogOperator Worker;
    /// Programs that were started.
    int Started = 0;
    bool PointerBusy = false;

    void Run(const FaultedCommand& command) const { Press(command.button); }
    void Type(const FaultedCommand& command);
    /// Entries of both trees, as the views show them.
    [[nodiscard]] QStringList Trees() const;
    [[nodiscard]] QStringList Records() const { return Component.Store.Records(); }
};

/// One command with one way to fail, judged after each failing call.
class CommandFaultRun
{
public:
    CommandFaultRun(const FaultedCommand& command, const CommandFault& fault);

    /// Component calls of the command when nothing fails.
    [[nodiscard]] int CallCount() const { return static_cast<int>(m_calls.size()); }
    /// Calls that were made to fail.
    [[nodiscard]] int Cases() const { return m_cases; }
    /// What is wrong when the k-th call fails; empty: nothing.
    QString ProblemWithCall(int k);

private:
    void TakeAnswers(CommandFaultFixture& fixture);
    QString Problem(CommandFaultFixture& fixture) const;
    static QString ProblemWithBoxes(const CommandFaultFixture& fixture);
    static QString ProblemAtRest(const CommandFaultFixture& fixture);
    QString ProblemWithRecords(const CommandFaultFixture& fixture) const;
    static QString ProblemWithTrees(CommandFaultFixture& fixture);
    [[nodiscard]] bool InNodeView() const;
    [[nodiscard]] QString NextName() const;
    void RunNext(CommandFaultFixture& fixture) const;
    QString ProblemWithNextCommand(CommandFaultFixture& fixture) const;

    const FaultedCommand& m_command;
    const CommandFault& m_fault;
    QStringList m_calls;
    int m_cases = 0;
    int m_triesLeft = 0;
    QStringList m_recordsBefore;
    QStringList m_recordsAfter;
    QStringList m_recordsWithoutManager;
    /// What the next command stores.
    QString m_nextRecord;
};
