#pragma once

#include "model/TreeEntries.h"

#include <QAbstractItemModelTester>
#include <QStringList>

/// A tree whose model rules are checked at each change.
class CheckedTree : public TreeEntries
{
public:
    CheckedTree() : m_tester(this, QAbstractItemModelTester::FailureReportingMode::QtTest) {}

    /// Root "Connections", connections 1 "Alpha" and 2 "Beta".
    Index FillWithTwoConnections()
    {
        const Index root = Add(0, QStringLiteral("R,0"), QStringLiteral("Connections"));
        SetSorted(root, true);
        const Index alpha = Add(root, QStringLiteral("C,1"), QStringLiteral("Alpha"));
        Add(root, QStringLiteral("C,2"), QStringLiteral("Beta"));
        return alpha;
    }

    /// "key text" of each child in display order.
    [[nodiscard]] QStringList Children(Index parent) const
    {
        QStringList children;
        for (int i = 0; i < ChildCount(parent); ++i)
            children << Key(Child(parent, i)) + u' ' + Text(Child(parent, i));
        return children;
    }

private:
    QAbstractItemModelTester m_tester;
};
