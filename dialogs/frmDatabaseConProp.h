#pragma once

#include <QDialog>

#include <memory>

class ConData;

namespace Ui {
class frmDatabaseConProp;
}

/// Shows one connection, lets the operator change its name, type and waypoint parameters, and saves it as
/// new, in place of one of the same name, or as a change of the stored one.
///
/// Show it modally; Accepted means saved. Cancel leaves `con` with the changes made to its waypoints. Thread:
/// the control's.
class frmDatabaseConProp : public QDialog
{
    Q_OBJECT

public:
    /// `con` is loaded, has its NewCon set, and outlives the form.
    explicit frmDatabaseConProp(ConData& con, QWidget* parent = nullptr);
    ~frmDatabaseConProp() override;

private:
    void Connect();
    void Form_Load();
    void cmdSave_Click();
    void cmdHelp_Click();

    std::unique_ptr<Ui::frmDatabaseConProp> m_ui;
    ConData& m_con;
};
