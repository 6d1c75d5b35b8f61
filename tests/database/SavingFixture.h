#pragma once

#include "model/ModelState.h"
#include "model/TreeFilling.h"
#include "tests/support/CheckedTree.h"
#include "tests/support/GatewayFixture.h"

/// An open session with both trees of a control, filled.
///
/// Connections "Alpha" (id 1) and "Beta" (2), closed in the tree; nodes "North" (3) and "South" (4) on Alpha,
/// "East" (5) on Beta. The next record gets id 6. The manager with index 12 exists.
class SavingFixture : public GatewayFixture
{
public:
    SavingFixture()
    {
        Component.Store.AddConnection(QStringLiteral("Alpha"), AlphaTarget);
        Component.Store.AddConnection(QStringLiteral("Beta"), AlphaTarget);
        Component.Store.AddNode(QStringLiteral("North"), QStringLiteral("Alpha"), QString(), NodeTarget);
        Component.Store.AddNode(QStringLiteral("South"), QStringLiteral("Alpha"), QString(), NodeTarget);
        Component.Store.AddNode(QStringLiteral("East"), QStringLiteral("Beta"), QString(), NodeTarget);
        Component.Store.Managers = {{QStringLiteral("12"), QStringLiteral("NET4"), QStringLiteral("/net4")}};
        Model().ConObject = std::make_unique<ConData>();
        FillConnectionTree(
            QStringLiteral("Connections"), QStringLiteral("C"), 2,
            {{QStringLiteral("Alpha"), QStringLiteral("1")}, {QStringLiteral("Beta"), QStringLiteral("2")}},
            ConTree, true);
        FillConnectionTree(QStringLiteral("Nodes"), QStringLiteral("N"), 3,
                           {{QStringLiteral("North"), QStringLiteral("3")},
                            {QStringLiteral("South"), QStringLiteral("4")},
                            {QStringLiteral("East"), QStringLiteral("5")}},
                           NodesTree, true);
        Open();
    }
    ~SavingFixture()
    {
        Model().SelectTreeEntry = nullptr;
        Model().ConObject.reset();
    }

    static inline const QString AlphaTarget = QStringLiteral("WP=BUST4,ID=254");
    static inline const QString NodeTarget = QStringLiteral("WP=NET4,ADDR=17");

    CheckedTree ConTree;
    CheckedTree NodesTree;
    /// What the save routines give back beside their result.
    qint32 Position = -7;
    QString ErrorText = QStringLiteral("left from before");

    [[nodiscard]] TreeEntries::Index Alpha() const
    {
        return ConTree.FindByText(QStringLiteral("Alpha"), false);
    }
    [[nodiscard]] TreeEntries::Index Beta() const
    {
        return ConTree.FindByText(QStringLiteral("Beta"), false);
    }

    /// Shows the nodes of all connections, as the operator's check box does.
    void ShowNodes()
    {
        Model().ConObject->ViewNodesChecked = true;
        if (!FillChildEntries(ConTree, Alpha(), true) || !FillChildEntries(ConTree, Beta(), true))
            qFatal("The nodes cannot be shown.");
        Forget();
    }

    /// The calls so far without those that begin and end transactions.
    [[nodiscard]] QStringList Work() const
    {
        QStringList calls;
        for (const QString& call : Component.Calls) {
            if (!call.contains(QStringLiteral("Transaction(")))
                calls << call;
        }
        return calls;
    }

    /// "key text" of each entry under the root, in display order.
    [[nodiscard]] QStringList Connections() const { return ConTree.Children(1); }
    [[nodiscard]] QStringList Nodes() const { return NodesTree.Children(1); }
};
