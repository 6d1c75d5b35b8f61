#pragma once

#include "dialogs/frmSaveDirectNode.h"
#include "tests/database/DirectNodes.h"
#include "tests/dialogs/NodeDialogFixture.h"

/// The dialog that saves a node of the Direct tab; see DirectNodes for what it is given.
class SaveDirectNodeFixture : public NodeDialogFixture
{
public:
    using NodeDialogFixture::NodeDialogFixture;

    void Make() override { Form = std::make_unique<frmSaveDirectNode>(Direct(), NewDirect(), nullptr); }
    /// A node that was found on a connection of the database.
    void ShowOn(const QString& conName)
    {
        DirectNodes::Choose(*this, conName);
        Show();
    }
    /// On one that the database does not have.
    void ShowOnNew(const QString& conName)
    {
        DirectNodes::Compose(*this, conName);
        Show();
    }

    [[nodiscard]] QString Shown(const char* box) const { return Find<QLineEdit>(box).text(); }
    /// What the working copy holds.
    [[nodiscard]] QString Value(int waypoint, int row) const
    {
        return Direct().GetWpData(waypoint).GetWpParam(row, 2);
    }
};
