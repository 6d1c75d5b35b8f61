#pragma once

#include "browser/T4ZelkaBrowser.h"
#include "model/TreeEntries.h"
#include "tests/convergence/ChangeLog.h"
#include "tests/convergence/FormWatcher.h"
#include "tests/convergence/RuleOperator.h"

#include <QRandomGenerator>

#include <memory>

class ConData;
class QPushButton;
class TreeView;

/// A control that is never shown, and its operator, who changes records at random: in the dialogs' places,
/// with the remove command, and as the command line program does beside the control.
///
/// All workstations use the same few names, so they get into each other's way. Thread: the one of the user
/// interface.
class Workstation
{
public:
    explicit Workstation(quint32 seed);
    ~Workstation();
    Workstation(const Workstation&) = delete;
    Workstation& operator=(const Workstation&) = delete;

    /// Starts the control with these limits of the Journal. False: no database.
    bool Start(int recordLimit, int recordsToKeep);
    [[nodiscard]] RuleOperator& Operator() { return m_operator; }

    /// What an operator does between two changes: refreshes, waits for a tick, opens, closes, loads more,
    /// changes the view.
    void LookAround();
    /// Tries one change.
    LoggedChange Change();

    /// Refreshes until nothing is new, and loads the rest of what was loaded in part. False: there is always
    /// something new.
    bool Settle();
    /// What both trees show, one line for each entry.
    [[nodiscard]] QStringList Trees() const;

private:
    [[nodiscard]] int Draw(int limit) { return m_random.bounded(limit); }
    [[nodiscard]] bool OneIn(int chances) { return Draw(chances) == 0; }
    [[nodiscard]] TreeEntries& Entries(const char* tree) const;
    [[nodiscard]] TreeEntries& ConTree() const { return Entries("tvwConTree"); }
    [[nodiscard]] TreeEntries& NodesTree() const { return Entries("tvwNodesTree"); }
    template <typename Widget>
    [[nodiscard]] Widget& Find(const char* name) const;
    void Press(const char* button) const;
    void ShowConnections(bool connections) const;

    /// What the operator picks; 0: there is none.
    [[nodiscard]] TreeEntries::Index AnyChild(const TreeEntries& tree, TreeEntries::Index parent);
    [[nodiscard]] TreeEntries::Index AnyConnection();
    [[nodiscard]] TreeEntries::Index AnyNode();
    /// Clicks on an entry in the view of its tree. False: it was stale, and the operator has been told.
    bool Click(TreeEntries& tree, TreeEntries::Index entry);
    void Open(TreeEntries::Index connection);
    void LoadTheRest();

    void Edit(bool connection);
    void Add(bool connection);
    void Remove(bool connection);
    /// Stand for the dialogs.
    void InConnectionDialog(ConData& con);
    void InNodeDialog(ConData& con);
    void WorkBesideControl(bool connection);

    QRandomGenerator m_random;
    RuleOperator m_operator;
    FormWatcher m_watcher;
    std::unique_ptr<T4ZelkaBrowser> m_control;
    LoggedChange m_change;
    int m_changes = 0;
};
