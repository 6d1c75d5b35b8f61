#pragma once

#include <QDialog>

#include <memory>

class ConData;

namespace Ui {
class frmScanSaveAll;
}

/// Asks how the nodes of the save list are to be named, and hands them over to the list from which they are
/// saved.
///
/// Show it modally. Closed without OK it empties the save list. Both working copies outlive the form.
class frmScanSaveAll : public QDialog
{
    Q_OBJECT

public:
    /// `direct`: the connection of the nodes, with the tables of their type.
    frmScanSaveAll(ConData& direct, ConData& newDirect, QWidget* parent = nullptr);
    ~frmScanSaveAll() override;

    void reject() override;

private:
    void Form_Load();
    void SetPrefixControlsEnabled(bool on);
    void GenerateNodeNames();
    void optPrefix_Click();
    void CmdOk_Click();
    void cmdCancel_Click();
    void cmdHelp_Click();

    std::unique_ptr<Ui::frmScanSaveAll> m_ui;
    ConData& m_direct;
    ConData& m_newDirect;
};
