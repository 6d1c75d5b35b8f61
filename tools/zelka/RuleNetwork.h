#pragma once

#include "components/hvxdb/HvxAdministration.h"

/// Connections and nodes made by rule, as many as are wanted: names of twelve characters that sort by number,
/// nodes dealt out to the connections in turn.
class RuleNetwork
{
public:
    static constexpr qint64 DefaultConnections = 40;

    explicit RuleNetwork(qint64 connections);

    /// Nodes that so many connections can carry.
    [[nodiscard]] static qint64 MostNodes(qint64 connections);

    /// Positions from 0.
    [[nodiscard]] ConnectionRecord Connection(qint64 position) const;
    [[nodiscard]] NodeRecord Node(qint64 position) const;

private:
    qint64 m_connections;
};
