#pragma once

#include "dialogs/frmDatabaseNodeProp.h"
#include "tests/dialogs/NodeDialogFixture.h"

/// The dialog of a node of the database.
class NodePropFixture : public NodeDialogFixture
{
public:
    using NodeDialogFixture::NodeDialogFixture;

    void Make() override { Form = std::make_unique<frmDatabaseNodeProp>(Con(), nullptr); }
    void ShowNode(const QString& name)
    {
        EditNode(name);
        Show();
    }
    /// As for a copy of a node, which is to be given a name.
    void ShowNewNode(const QString& templateNode)
    {
        AddNode(templateNode);
        Show();
    }

    /// What the working copy holds.
    [[nodiscard]] QString Value(int waypoint, int row) const
    {
        return Con().GetWpData(waypoint).GetWpParam(row, 2);
    }
};
