#pragma once

#include "model/WpData.h"

#include <QDialog>
#include <QStringListModel>

#include <array>
#include <functional>
#include <memory>
#include <vector>

class ConData;

namespace Ui {
class frmDatabaseNodeProp;
}

/// Shows the node of a working copy (name, connection, class, parameters of its waypoints) and saves it.
///
/// The opener has loaded `con` and named its trees; it must outlive the dialog. Show it modally: Accepted
/// after a save. Cancelled, `con` may hold values and a class that the operator has chosen.
/// Thread: the control's.
class frmDatabaseNodeProp : public QDialog
{
    Q_OBJECT

public:
    frmDatabaseNodeProp(ConData& con, QWidget* parent);
    ~frmDatabaseNodeProp() override;

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ConnectControls();
    /// Runs a handler; an error that it raises ends in an error box.
    static void Guarded(const std::function<void()>& handler);

    // Start (frmDatabaseNodeProp.cpp)
    void Form_Load();
    void Form_Activate();
    void FillConnections();

    // Connection, class and pages (frmDatabaseNodePropClass.cpp)
    void cboConName_Click();
    void cboNodeType_Click();
    void lstWPlist_Click();
    void SaveOneWpValues();
    /// Picture and long name of the chosen connection's type. True: one of the SNMP family.
    bool ShowConnectionType();
    void FillClasses(bool isSnmp);
    /// Remembers class and values for the next connection of the family that is left.
    void KeepClass();
    /// Loads the class that is chosen, with the values of `tables` as far as they go.
    void ChangeClass(const std::vector<WpData>& tables);
    void GoToFirstCell();
    /// False: the class cannot be loaded, the node has no waypoints then.
    bool LoadClass(const QString& longName);
    void FillWpList();
    void ShowPage(int waypoint);
    /// Makes room for the names of the page; what other pages needed stays.
    void WidenNames();
    /// Empties the grid; an edit that is open is lost.
    void ClearGrid();

    // Other controls (frmDatabaseNodeProp.cpp)
    void cmdManager_Click();
    static void cmdHelp_Click();

    // Save (frmDatabaseNodePropSave.cpp)
    void cmdSave_Click();
    [[nodiscard]] bool IsFePage(int row) const;
    /// False: FE CHANNEL and PACKET SIZE do not go together.
    [[nodiscard]] bool PacketSizeFits() const;
    /// The value of a row as the operator sees it, in the cell or in the editor over it.
    [[nodiscard]] QString ShownValue(int row) const;

    static constexpr int GridColumns = 2;

    std::unique_ptr<Ui::frmDatabaseNodeProp> m_ui;
    ConData& m_con;
    QStringListModel m_conNames;
    /// A class of nodes and the parameters of its waypoints.
    struct KeptClass
    {
        QString longName;
        std::vector<WpData> tables;
    };
    /// What the node was when connections of a family were left for the other, SNMP second: stepping past one
    /// costs nothing that was typed.
    std::array<KeptClass, 2> m_keptClasses;
    /// Family of the connection whose classes are offered.
    bool m_isSnmp = false;
    /// Long name of the class that is loaded.
    QString m_savedTypeLongName;
    /// The form has been activated; before, the choice of a connection has no effect.
    bool m_listEnabled = false;
    /// The grid has been emptied for another class: what it shows is not the node's.
    bool m_typeChanging = false;
    /// The dialog is on its way out.
    bool m_unloading = false;
    /// Parameters of the page that is shown.
    int m_rowCount = 0;
};
