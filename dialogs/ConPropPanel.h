#pragma once

#include <QString>
#include <QWidget>

#include <memory>

class ConData;

namespace Ui {
class ConPropPanel;
}

/// What the connection dialogs share: shows name, type and definition of one connection, and lets the
/// operator change them.
///
/// A change of the type and of waypoint parameters goes into the connection at once, the name stays in its
/// box. Thread: the control's.
class ConPropPanel : public QWidget
{
    Q_OBJECT

public:
    explicit ConPropPanel(QWidget* parent = nullptr);
    ~ConPropPanel() override;

    /// Shows `con`, which is loaded, has its NewCon set, and outlives the panel. False: its type has no name,
    /// and the panel stays empty; or its types cannot be shown, which the operator has been told.
    [[nodiscard]] bool ShowConnection(ConData& con);

    /// As it stands in the box.
    [[nodiscard]] QString Name() const;
    void ShowSavedName(const QString& name);
    /// Long name of the type that is selected; empty when none is.
    [[nodiscard]] QString TypeLongName() const;
    /// Long name of the type that the connection had when it was shown.
    [[nodiscard]] const QString& FirstTypeLongName() const { return m_firstTypeLongName; }

Q_SIGNALS:
    /// The operator changed something, or looked at it and left it.
    void Touched();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void Connect();
    [[nodiscard]] bool Form_Load(ConData& con);
    void Form_Activate();
    void cboConType_Click();
    void chkShowParameters_Click();
    void cmdProperties_Click();

    /// Nodes of a stored connection; one where they cannot be counted, which forbids type changes.
    void CountNodes(const QString& conName);
    void FillTypes();
    /// The first type offered takes the place of the unknown one of a new connection.
    void SelectFirstType();
    /// Selects the type that the connection has; one that is not offered joins the list.
    void SelectType(const QString& longName);
    /// Short name of the first type in the database's own order; empty when they cannot be read.
    [[nodiscard]] static QString FirstType();
    /// Why the type shown cannot be used; empty when it can.
    [[nodiscard]] QString TypeRefusal(const QString& text) const;
    void SelectOldType();
    /// False: the connection has no waypoints, so that nothing can be saved in their place. `error` tells of
    /// a damaged definition.
    [[nodiscard]] bool LoadType(const QString& longName, QString& error);
    void FillList();
    void ShowPicture();

    std::unique_ptr<Ui::ConPropPanel> m_ui;
    /// Null until one is shown whose type is known.
    ConData* m_con = nullptr;
    QString m_firstTypeLongName;
    /// The type shown before the latest change.
    QString m_savedTypeLongName;
    qint32 m_nodesCount = 0;
    /// List row to select again when the form is activated; 0: none.
    int m_selectedListIndex = 0;
    /// The type at load is one of the SNMP family.
    bool m_isSnmpCon = false;
    /// The waypoints of m_savedTypeLongName are the connection's.
    bool m_typeLoaded = true;
};
