#pragma once

#include "dialogs/NodeDialog.h"
#include "model/WpData.h"

#include <QStringListModel>

#include <array>
#include <functional>
#include <memory>
#include <vector>

namespace Ui {
class frmDatabaseNodeProp;
}

/// Shows the node of a working copy (name, connection, class, parameters of its waypoints) and saves it.
///
/// The opener has loaded `con` and named its trees; it must outlive the dialog. Show it modally: Accepted
/// after a save. Cancelled, `con` may hold values and a class that the operator has chosen.
/// Thread: the control's.
class frmDatabaseNodeProp : public NodeDialog
{
    Q_OBJECT

public:
    frmDatabaseNodeProp(ConData& con, QWidget* parent);
    ~frmDatabaseNodeProp() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ConnectControls();

    // Start
    void Form_Load();
    void Form_Activate() override;
    void FillConnections();

    // Connection and class (frmDatabaseNodePropClass.cpp)
    void cboConName_Click();
    void cboNodeType_Click();
    /// Picture and long name of the chosen connection's type. True: one of the SNMP family.
    bool ShowConnectionType();
    void FillClasses(bool isSnmp);
    /// Remembers class and values for the next connection of the family that is left.
    void KeepClass();
    /// Loads the class that is chosen, with the values of `tables` as far as they go.
    void ChangeClass(const std::vector<WpData>& tables);

    // Save
    void cmdSave_Click() override;
    bool SaveRecord(QString& name) override;
    /// False: FE CHANNEL and PACKET SIZE do not go together.
    [[nodiscard]] bool PacketSizeFits() const;

    std::unique_ptr<Ui::frmDatabaseNodeProp> m_ui;
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
    /// The dialog is on its way out.
    bool m_unloading = false;
};
