#include "database/DatabaseState.h"
#include "database/Gateway.h"
#include "dialogs/DialogState.h"
#include "dialogs/GridEdit.h"
#include "dialogs/GridEditors.h"
#include "dialogs/frmDatabaseNodeProp.h"
#include "dialogs/ui_frmDatabaseNodeProp.h"
#include "model/ConData.h"
#include "model/LookupHelpers.h"
#include "model/ModelState.h"
#include "model/ParameterLists.h"
#include "model/TextHelpers.h"

#include <QSignalBlocker>

// The connection, the class and the waypoint pages of a node.

namespace {

/// Type id that belongs to the SNMP family whatever its name.
constexpr int SnmpFamilyType = 15;
/// Width of the parameter names, in pixels: as much as they need between these two.
constexpr int NameWidth = 147;
constexpr int LongestNameWidth = 240;

QString Snmp()
{
    return QStringLiteral("SNMP");
}

/// Long names of the node classes, those of SNMP or the others. A class without one is left out.
QStringList ClassLongNames(bool ofSnmp)
{
    QStringList names;
    QString list;
    PairTable types;
    int count = 0;
    if (!Gateway().GetNodeTypeListDb(list) || !ConvertItemListToArray(list, false, types, count))
        return names;
    for (const ItemPair& type : types) {
        QString longName;
        if (Gateway().GetNodeTypeLongNameDb(type.first, longName) && TextContains(longName, Snmp()) == ofSnmp)
            names << longName;
    }
    return names;
}

} // namespace

// Connection ------------------------------------------------------------------------------------------------

void frmDatabaseNodeProp::cboConName_Click()
{
    if (m_listEnabled)
        FillClasses(ShowConnectionType());
}

bool frmDatabaseNodeProp::ShowConnectionType()
{
    QString shortName = QStringLiteral("Unknown");
    const int type = GetConTypeOfParent(m_ui->cboConName->currentText(), shortName);
    const int picture = Model().ConOrderObject ? Model().ConOrderObject->GetPicIndxByResourcePos(type)
                                               : ConOrderClass::UnknownPicture;
    QString longName;
    if (!Gateway().GetConTypeLongNameDb(shortName, longName))
        longName.clear();
    m_ui->imgConArray->setProperty("picture", picture);
    m_ui->imgConArray->setPixmap(ConPicturePixmap(picture, *this));
    m_ui->lblConnectionType->setText(QStringLiteral("Connection Type: ") + longName);
    return type == SnmpFamilyType || ConTypeHasWord(shortName, Snmp());
}

void frmDatabaseNodeProp::FillClasses(bool isSnmp)
{
    m_ui->cmdManager->setEnabled(!isSnmp);
    QStringList classes = ClassLongNames(isSnmp);
    // What is stored is shown as it is, whether it is offered or not; what is chosen stays, also where the
    // database could not name it again.
    const bool isStored = !m_listEnabled && !m_con.NewNode;
    const bool isChosen =
        !m_savedTypeLongName.isEmpty() && TextContains(m_savedTypeLongName, Snmp()) == isSnmp;
    if (classes.isEmpty() || ((isStored || isChosen) && !FindComboItem(classes, m_savedTypeLongName)))
        classes << m_savedTypeLongName;
    const bool familyChanged = m_listEnabled && isSnmp != m_isSnmp;
    if (familyChanged)
        KeepClass();
    m_isSnmp = isSnmp;
    const KeptClass& former = m_keptClasses[isSnmp ? 1 : 0];
    const bool comesBack = familyChanged && FindComboItem(classes, former.longName);
    const QString wanted = comesBack ? former.longName : m_savedTypeLongName;
    const bool takeFirst = isSnmp && m_listEnabled && !comesBack;
    {
        const QSignalBlocker quiet(m_ui->cboNodeType);
        m_ui->cboNodeType->clear();
        m_ui->cboNodeType->addItems(classes);
        m_ui->cboNodeType->setCurrentIndex(takeFirst ? 0 : SelectComboItem(classes, wanted));
    }
    ChangeClass(comesBack ? former.tables : std::vector<WpData>());
}

void frmDatabaseNodeProp::KeepClass()
{
    SaveOneWpValues();
    KeptClass& kept = m_keptClasses[m_isSnmp ? 1 : 0];
    kept.longName = m_savedTypeLongName;
    kept.tables.clear();
    for (int waypoint = 1; waypoint <= m_con.NodeWpCount; ++waypoint)
        kept.tables.push_back(m_con.GetWpData(waypoint));
}

// Class -----------------------------------------------------------------------------------------------------

void frmDatabaseNodeProp::cboNodeType_Click()
{
    ChangeClass({});
}

void frmDatabaseNodeProp::ChangeClass(const std::vector<WpData>& tables)
{
    const QString longName = m_ui->cboNodeType->currentText();
    if (longName == m_savedTypeLongName)
        return;
    m_typeChanging = true;
    ClearGrid();
    m_con.SelectedWpIndx = 0;
    const bool loaded = LoadClass(longName);
    for (int waypoint = 1; loaded && waypoint <= m_con.NodeWpCount; ++waypoint) {
        if (const auto index = static_cast<std::size_t>(waypoint) - 1; index < tables.size())
            m_con.GetWpData(waypoint) = tables[index];
    }
    FillWpList();
    m_ui->lstWPlist->setCurrentRow(0);
    m_typeChanging = false;
    // A class that failed can be chosen again.
    m_savedTypeLongName = loaded ? longName : QString();
    if (loaded)
        GoToFirstCell();
}

void frmDatabaseNodeProp::GoToFirstCell()
{
    if (!m_listEnabled || m_rowCount == 0)
        return;
    // An editor takes the focus, which would stop those who step through the connections by keys.
    if (m_ui->cboConName->hasFocus() || !Database().EditRight)
        m_ui->grdNodeParam->SetCell(1, ParameterGrid::ValueColumn);
    else
        GridPlaceCell(1, ParameterGrid::ValueColumn);
}

bool frmDatabaseNodeProp::LoadClass(const QString& longName)
{
    bool loaded = false;
    Guarded([&] { loaded = m_con.SetWpDataFromNodeType(longName); });
    if (loaded)
        m_con.NodeTypeName = longName;
    else
        m_con.ClearWP();
    return loaded;
}

void frmDatabaseNodeProp::ClearGrid()
{
    GridCloseEditors();
    m_ui->grdNodeParam->SetGridSize(NodeGridRows + 1, GridColumns);
    ParameterGrid& grid = GridParameters();
    grid.SetPassword(0, QString());
    for (int row = 1; row <= NodeGridRows; ++row) {
        grid.MoveTo(row, ParameterGrid::NameColumn);
        grid.SetText(QString());
        grid.SetFont(false, false);
        grid.MoveTo(row, ParameterGrid::ValueColumn);
        grid.SetText(QString());
    }
    m_rowCount = 0;
    GridEdit().GridLastRow = 0;
    m_ui->lblParameterHeader->setText(QStringLiteral("Parameters:"));
}

// Waypoint pages --------------------------------------------------------------------------------------------

void frmDatabaseNodeProp::FillWpList()
{
    const QSignalBlocker quiet(m_ui->lstWPlist);
    m_ui->lstWPlist->clear();
    for (int waypoint = 1; waypoint <= m_con.NodeWpCount; ++waypoint) {
        QString longName;
        if (!Gateway().GetWpLongNameDb(m_con.GetConWpName(waypoint), longName))
            longName = m_con.GetConWpLongName(waypoint);
        m_ui->lstWPlist->addItem(longName);
    }
}

void frmDatabaseNodeProp::lstWPlist_Click()
{
    const int row = m_ui->lstWPlist->currentRow();
    if (row < 0)
        return;
    GridCommitEdit();
    SaveOneWpValues();
    ShowPage(row + 1);
}

void frmDatabaseNodeProp::ShowPage(int waypoint)
{
    m_con.SelectedWpIndx = waypoint;
    m_ui->grdNodeParam->SetGridSize(NodeGridRows + 1, GridColumns);
    QString title;
    FillWpGrid(GridParameters(), m_con, title, m_rowCount);
    m_ui->lblParameterHeader->setText(DoubleAnyChar(title, QStringLiteral("&")));
    WidenNames();
    GridEditState& state = GridEdit();
    state.GridLastRow = m_rowCount;
    state.GridValueCol = ParameterGrid::ValueColumn;
    state.GridWpName = m_con.GetConWpName(waypoint);
    state.GridWpData = &m_con.GetWpData(waypoint);
}

void frmDatabaseNodeProp::WidenNames()
{
    FlexGrid& grid = *m_ui->grdNodeParam;
    const int width = qMax(NameWidth, grid.columnWidth(ParameterGrid::NameColumn));
    grid.resizeColumnToContents(ParameterGrid::NameColumn);
    grid.setColumnWidth(ParameterGrid::NameColumn, qBound(width, grid.columnWidth(ParameterGrid::NameColumn),
                                                          qMax(width, LongestNameWidth)));
}

void frmDatabaseNodeProp::SaveOneWpValues()
{
    if (m_typeChanging || m_con.NodeWpCount == 0)
        return;
    // The FE parameters are optional as a whole: without an FE ID the node has none.
    const bool isUnused = Trim(m_ui->grdNodeParam->TextMatrix(1, ParameterGrid::ValueColumn)).isEmpty();
    if (IsFePage(m_con.SelectedWpIndx - 1) && isUnused)
        return;
    TakeWpGridValues(GridParameters(), m_con, m_rowCount, m_con.NodeWpCount);
}
