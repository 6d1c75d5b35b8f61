#pragma once

#include "components/hvxdb/HvxStore.h"

/// Reads lists of names and ids, a page or the whole, in the order of ids. Failures: ComponentError.
class RecordLists
{
public:
    /// Rows of one answer of all nodes, and of the nodes of one connection.
    static constexpr qint32 NodesPerAnswer = 32001;
    static constexpr qint32 ConnectionNodesPerAnswer = 1000;

    explicit RecordLists(HvxStore& store) : m_store(&store) {}

    /// Filter: a connection name, "" for all.
    [[nodiscard]] QString Connections(const QString& filter) const;
    /// Positions as in HvxDatabase::QueryNodesWithIdEx.
    [[nodiscard]] QString Nodes(const QString& conName, const QString& nodeType, qint32& position) const;
    [[nodiscard]] QString NodesOfConnection(const QString& conName) const;
    [[nodiscard]] QString NodesOfConnection(const QString& conName, qint32& position) const;
    [[nodiscard]] qint32 NodeCount() const;
    [[nodiscard]] qint32 NodeCount(const QString& conName) const;

private:
    struct ListStatements
    {
        HvxStatement page;
        HvxStatement rows;
        QVariantList filters;
    };

    [[nodiscard]] QString Page(const ListStatements& list, qint32 most, qint32& position) const;
    [[nodiscard]] QString PageByRows(const ListStatements& list, qint32 after, qint32 limit) const;
    [[nodiscard]] static ListStatements NodeStatements(const QString& conName, const QString& nodeType);

    HvxStore* m_store;
};
