#pragma once

#include <QDialog>
#include <QString>

#include <memory>
#include <vector>

class ConData;

namespace Ui {
class frmScanNotSavedList;
}

/// Lists the nodes of the save list that are not in the database yet, with the conflicts of their names, and
/// lets the operator rename, save or replace those that he selects.
///
/// Show it modally. The save list stays when it is closed. Both working copies outlive the form.
class frmScanNotSavedList : public QDialog
{
    Q_OBJECT

public:
    /// `direct`: the connection of the nodes, with the tables of their type. Its manager becomes that of all
    /// nodes. `newDirect` gets its name when another application has changed the connection.
    frmScanNotSavedList(ConData& direct, ConData& newDirect, QWidget* parent = nullptr);
    ~frmScanNotSavedList() override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    // Form, list, buttons (frmScanNotSavedList.cpp)
    // -----------------------------------------------------------

    void Connect();
    /// Checks the names; its boxes stand over the form.
    void Form_Load();
    void Form_Activate();
    /// Brings the labels over the columns that they name.
    void AlignLabels();
    void UpdateNotSavedButtons();
    /// Checks all names; where that fails, the operator is told and the list stays as it is.
    void CheckNames();
    void FillNotSavedList();
    void cmdSelectAll_Click();
    void cmdSave_Click();
    void cmdReplace_Click();
    void cmdManager_Click();
    void cmdHelp_Click();
    void RunSave(bool plain);

    // Selection
    // -----------------------------------------------------------------------------------------------

    /// Ascending, from 0.
    [[nodiscard]] std::vector<int> SelectedLines() const;
    [[nodiscard]] QString LineText(int line) const;
    [[nodiscard]] bool SelectionHasTooLong() const;
    [[nodiscard]] bool SelectionHasExisting() const;
    /// Takes the selected lines into the module's selection. False: none is selected, or one has no row.
    [[nodiscard]] bool GetSelectedRows();
    /// The same; tells the operator when it is False.
    [[nodiscard]] bool RequireSelectedRows();
    /// Selects the lines of these rows and nothing else.
    void SelectRows(const std::vector<int>& rows);

    // Rename (frmScanNotSavedListRename.cpp)
    // --------------------------------------------------------------------

    void cmdRename_Click();
    /// Asks for a name until there is one, the old one stays, or the form is gone.
    void RenameRow(int row);

    std::unique_ptr<Ui::frmScanNotSavedList> m_ui;
    ConData& m_direct;
    ConData& m_newDirect;
    bool m_loaded = false;
};
