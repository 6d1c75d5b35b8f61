#pragma once

#include "components/hvxdb/HvxDatabaseComponent.h"
#include "database/DatabaseState.h"
#include "model/ModelState.h"
#include "tests/database/operators/Turns.h"
#include "tests/support/ScriptedDatabase.h"

#include <QStringList>

#include <memory>

/// One of two operators at one database: the module-level state of a program of its own, with trees as they
/// were loaded before the other began. The state stands in the process only while Enter holds.
class OperatorSession
{
public:
    OperatorSession(int who, const QString& source, Turns& turns);
    ~OperatorSession();
    OperatorSession(const OperatorSession&) = delete;
    OperatorSession& operator=(const OperatorSession&) = delete;

    /// Puts this operator's state in place, and back.
    void Enter();
    void Leave() { Enter(); }

    /// Opens the session and loads both trees with everything below. In place; no turns yet.
    void Open();
    /// Closes it. In place.
    void Close();
    /// From now on each call of the component is a step.
    void BeginSteps() { m_steps = true; }
    void EndSteps() { m_steps = false; }
    /// A step that is no call of the component, such as a box that stands open.
    void StepOutside();

    [[nodiscard]] TreeEntries& ConTree() { return *m_conTree; }
    [[nodiscard]] TreeEntries& NodesTree() { return *m_nodesTree; }

    /// What the operator was told.
    QStringList Told;

private:
    int m_who;
    Turns& m_turns;
    HvxDatabaseComponent m_component;
    ScriptedDatabase m_script;
    ModelState m_model;
    DatabaseState m_database;
    std::unique_ptr<TreeEntries> m_conTree;
    std::unique_ptr<TreeEntries> m_nodesTree;
    bool m_steps = false;
};
