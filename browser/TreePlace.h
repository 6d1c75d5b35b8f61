#pragma once

#include "model/TreeEntries.h"

#include <QString>

#include <functional>
#include <vector>

/// Keeps the operator's place in a tree over a reload, after which no handle is valid any more: entries are
/// found again by text and kind, and the connections that were expanded are opened again.
///
/// Made before the tree is cleared; the tree must outlive it. Thread: the control's.
class TreePlace
{
public:
    /// Loads the children of a connection and expands it.
    using Fill = std::function<void(TreeEntries::Index connection)>;

    /// What is opened again must be cheap to read: so many connections, and children in all of them. One
    /// that is loaded in part only stays closed.
    static constexpr int MaxOpened = 20;
    static constexpr int MaxChildren = 2000;

    explicit TreePlace(const TreeEntries& tree);

    /// Notes an entry (0: none) and what stands around it. Gives a number to ask for it.
    std::size_t Note(TreeEntries::Index entry);

    /// Behind the reload: opens what was expanded and is still there.
    void OpenAgain(const Fill& fill) const;
    /// The noted entry; where it has gone, the next one, the previous one, or the same of its parent. 0: none
    /// was noted.
    [[nodiscard]] TreeEntries::Index Find(std::size_t noted) const;

private:
    /// An entry in words.
    struct Mark
    {
        QChar kind;
        QString text;
        /// Of a waypoint: its connection and its place there, since two may be called alike.
        QString connection;
        int row = 0;
    };

    [[nodiscard]] Mark MarkOf(TreeEntries::Index entry) const;
    [[nodiscard]] TreeEntries::Index FindMark(const Mark& mark) const;
    [[nodiscard]] TreeEntries::Index FindConnection(const QString& name) const;
    [[nodiscard]] TreeEntries::Index FindWaypoint(const Mark& mark) const;

    const TreeEntries& m_tree;
    std::vector<QString> m_expanded;
    /// For each noted entry where to look, in order.
    std::vector<std::vector<Mark>> m_noted;
};
