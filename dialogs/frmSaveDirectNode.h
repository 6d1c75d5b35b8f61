#pragma once

#include "dialogs/NodeDialog.h"

#include <memory>

namespace Ui {
class frmSaveDirectNode;
}

/// Asks for the name of a node of the Direct tab and the parameters of its waypoints, and saves it in the
/// database; its connection and its class are fixed.
///
/// `direct` names the connection and the class and holds the address, the time-out and the repeats of the
/// node; `newDirect` holds the connection where that is new, which is saved first. ConObject names the trees.
/// All three outlive the dialog. Show it modally: Accepted after a save.
///
/// The waypoints of the node take the place of those of the connection in `direct`: the opener keeps a copy
/// and puts it back, whether the node was saved or not, and composes its target anew. Thread: the control's.
class frmSaveDirectNode : public NodeDialog
{
    Q_OBJECT

public:
    frmSaveDirectNode(ConData& direct, ConData& newDirect, QWidget* parent);
    ~frmSaveDirectNode() override;

private:
    void Form_Load();
    void ShowConnection();
    /// Shows the waypoints of the node's class. False: there is no such class, which the operator has been
    /// told.
    bool ShowClass();
    bool SaveRecord(QString& name) override;

    std::unique_ptr<Ui::frmSaveDirectNode> m_ui;
    ConData& m_newDirect;
};
