#pragma once

#include <QDialog>
#include <QString>

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

protected:
    void showEvent(QShowEvent* event) override;

private:
    void Connect();
    void Form_Load();
    void Form_Activate();
    void cboConType_Click();
    void chkShowParameters_Click();
    void cmdProperties_Click();
    void cmdSave_Click();
    void cmdHelp_Click();

    /// Nodes of a stored connection; one where they cannot be counted, which forbids type changes.
    void CountNodes();
    void FillTypes();
    /// The first type offered takes the place of the unknown one of a new connection.
    void SelectFirstType(const QString& unknownLongName);
    /// Selects the type that the connection has; one that is not offered joins the list.
    void SelectType(const QString& longName);
    /// Short name of the first type in the database's own order; empty when they cannot be read.
    [[nodiscard]] static QString FirstType();
    /// Why the type shown cannot be used; empty when it can.
    [[nodiscard]] QString TypeRefusal(const QString& text) const;
    void SelectOldType();
    /// False: the connection has no waypoints, so that nothing can be saved in their place.
    [[nodiscard]] bool LoadType(const QString& longName);
    void FillList();
    void ShowPicture();

    std::unique_ptr<Ui::frmDatabaseConProp> m_ui;
    ConData& m_con;
    /// The type shown before the latest change.
    QString m_savedTypeLongName;
    qint32 m_nodesCount = 0;
    /// List row to select again when the form is activated; 0: none.
    int m_selectedListIndex = 0;
    /// The type at load is one of the SNMP family.
    bool m_isSnmpCon = false;
    /// The type of the connection is known; otherwise the form stays empty.
    bool m_formLoaded = false;
    /// The waypoints of m_savedTypeLongName are the connection's.
    bool m_typeLoaded = true;
};
