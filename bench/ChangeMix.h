#pragma once

#include "platform/HvxDatabase.h"

/// What operators do to a database whose connections are called "Line 0000001" and so on, its nodes "Node
/// 0000001" and so on, dealt out to the connections in turn: the same changes in the same order each time.
///
/// Changes come in turns. A turn edits five nodes (each is deleted and saved), renames two, moves two to
/// another connection, saves a new one, deletes one, changes a connection, and saves a new connection or
/// deletes one: 20 records of the Journal. No node is touched by two turns.
class ChangeMix
{
public:
    static constexpr int ChangesOfTurn = 13;
    static constexpr int RecordsOfTurn = 20;
    /// Nodes that must be there for each turn.
    static constexpr int NodesOfTurn = 20;

    /// The component must outlive it and be open, for an operator who may edit. `connections`: how many there
    /// are.
    ChangeMix(HvxDatabase& component, int connections) : m_component(&component), m_connections(connections)
    {}

    /// Saves the connections, without nodes, that so many turns delete.
    void AddSpares(int turns) const;
    /// Change by change, from 0; raises what the component raises.
    void Change(int number) const;

    static QString ConnectionName(int position);
    static QString NodeName(int position);

private:
    [[nodiscard]] QString ConnectionOf(int node) const { return ConnectionName(node % m_connections); }
    void EditNode(int position) const;
    void RenameNode(int position) const;
    void MoveNode(int position) const;
    void SaveOrDeleteConnection(int turn) const;

    HvxDatabase* m_component;
    int m_connections;
};
