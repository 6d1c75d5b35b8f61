#pragma once

#include <QDialog>

#include <memory>

class ConData;

namespace Ui {
class frmWpProp;
}

/// Edits the parameters of one waypoint of a connection.
///
/// The connection names the waypoint (SelectedWpIndx) and the rows at the end that are left out
/// (ReduceParameterCount); Dialogs().SelectedWpIndex names the row to start on. The values are taken over at
/// OK only, those that hold for the whole connection into its other waypoints as well. Show it modally;
/// accepted when values were taken over.
class frmWpProp : public QDialog
{
    Q_OBJECT

public:
    explicit frmWpProp(ConData& con, QWidget* parent = nullptr);
    ~frmWpProp() override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void Form_Load();
    void Form_Activate();
    void SizeGrid();
    void CmdOk_Click();
    void CmdHelp_Click();

    std::unique_ptr<Ui::frmWpProp> m_ui;
    ConData& m_con;
    /// Parameters that are shown.
    int m_rowCount = 0;
    bool m_activated = false;
};
