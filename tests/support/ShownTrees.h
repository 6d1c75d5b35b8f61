#pragma once

#include "model/TreeEntries.h"

#include <QStringList>

/// An entry and all below it, one line each: kind, id, text.
inline void DescribeEntry(const TreeEntries& tree, TreeEntries::Index entry, bool viewNodes,
                          QStringList& lines)
{
    const int children = tree.ChildCount(entry);
    QString line = tree.Kind(entry);
    line += tree.Kind(entry) == u'W' ? QString() : u' ' + QString::number(tree.Id(entry));
    line += u' ' + tree.Text(entry);
    // What is closed and empty is read when it is opened; so is an empty one that would show waypoints.
    if (tree.Kind(entry) == u'C' && children == 0 && !(tree.Expanded(entry) && viewNodes))
        line += QStringLiteral(" (closed)");
    lines << line;
    for (int k = 0; k < children; ++k)
        DescribeEntry(tree, tree.Child(entry, k), viewNodes, lines);
}

/// What both trees of a control show, one line for each entry; StoredTrees tells what they must show.
/// `viewNodes`: connections show their nodes, not their waypoints.
inline QStringList ShownTrees(const TreeEntries& conTree, const TreeEntries& nodesTree, bool viewNodes)
{
    constexpr TreeEntries::Index root = 1;
    QStringList lines;
    DescribeEntry(conTree, root, viewNodes, lines);
    DescribeEntry(nodesTree, root, viewNodes, lines);
    return lines;
}
