#include "dialogs/NodePages.h"

#include "database/DatabaseState.h"
#include "database/Gateway.h"
#include "dialogs/GridEdit.h"
#include "dialogs/GridEditors.h"
#include "dialogs/GuardedRun.h"
#include "dialogs/ui_NodePages.h"
#include "model/ConData.h"
#include "model/ParameterLists.h"
#include "model/TextHelpers.h"

#include <QHeaderView>
#include <QScopeGuard>
#include <QSignalBlocker>

namespace {

constexpr int GridColumns = 2;
/// Width of the parameter names, in pixels: as much as they need between these two.
constexpr int NameWidth = 147;
constexpr int LongestNameWidth = 240;

} // namespace

NodePages::NodePages(QWidget* parent) : QWidget(parent), m_ui(std::make_unique<Ui::NodePages>())
{
    m_ui->setupUi(this);
}

NodePages::~NodePages() = default;

void NodePages::Attach(ConData& con)
{
    m_con = &con;
    m_ui->grdNodeParam->SetGridSize(NodeGridRows + 1, GridColumns);
    m_ui->grdNodeParam->horizontalHeader()->setSectionResizeMode(ParameterGrid::ValueColumn,
                                                                 QHeaderView::Stretch);
    GridAttach(*m_ui->grdNodeParam, *m_ui->txtGridEdit, *m_ui->cboGridEdit, *m_ui->spnGridEdit);
    GridEdit().GridWpName = con.GetConWpName(1);
    GridEdit().GridWpData = &con.GetWpData(1);
    con.SelectedWpIndx = 0;
    connect(m_ui->lstWPlist, &QListWidget::currentRowChanged, this,
            [this] { RunGuarded([this] { lstWPlist_Click(); }); });
}

void NodePages::Detach()
{
    GridDetach(*m_ui->grdNodeParam);
    m_ui->lstWPlist->disconnect(this);
}

// Class -----------------------------------------------------------------------------------------------------

void NodePages::ShowNode()
{
    FillList();
    m_ui->lstWPlist->setCurrentRow(0);
}

bool NodePages::ChangeClass(const QString& longName, const std::function<void()>& prepare)
{
    m_typeChanging = true;
    const auto changed = qScopeGuard([this] { m_typeChanging = false; });
    ClearGrid();
    m_con->SelectedWpIndx = 0;
    const bool loaded = LoadClass(longName);
    if (loaded && prepare)
        prepare();
    ShowNode();
    return loaded;
}

bool NodePages::LoadClass(const QString& longName)
{
    bool loaded = false;
    RunGuarded([&] { loaded = m_con->SetWpDataFromNodeType(longName); });
    if (loaded)
        m_con->NodeTypeName = longName;
    else
        m_con->ClearWP();
    return loaded;
}

void NodePages::ClearGrid()
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
    m_ui->lblParameterHeader->setText(tr("Parameters:"));
}

// Pages -----------------------------------------------------------------------------------------------------

void NodePages::FillList()
{
    const QSignalBlocker quiet(m_ui->lstWPlist);
    m_ui->lstWPlist->clear();
    for (int waypoint = 1; waypoint <= m_con->NodeWpCount; ++waypoint) {
        QString longName;
        if (!Gateway().GetWpLongNameDb(m_con->GetConWpName(waypoint), longName))
            longName = m_con->GetConWpLongName(waypoint);
        m_ui->lstWPlist->addItem(longName);
    }
}

void NodePages::lstWPlist_Click()
{
    const int row = m_ui->lstWPlist->currentRow();
    if (row < 0)
        return;
    GridCommitEdit();
    StoreValues();
    ShowPage(row + 1);
}

void NodePages::ShowPage(int waypoint)
{
    m_con->SelectedWpIndx = waypoint;
    m_ui->grdNodeParam->SetGridSize(NodeGridRows + 1, GridColumns);
    QString title;
    FillWpGrid(GridParameters(), *m_con, title, m_rowCount);
    m_ui->lblParameterHeader->setText(DoubleAnyChar(title, QStringLiteral("&")));
    WidenNames();
    GridEditState& state = GridEdit();
    state.GridLastRow = m_rowCount;
    state.GridValueCol = ParameterGrid::ValueColumn;
    state.GridWpName = m_con->GetConWpName(waypoint);
    state.GridWpData = &m_con->GetWpData(waypoint);
}

void NodePages::WidenNames()
{
    FlexGrid& grid = *m_ui->grdNodeParam;
    const int width = qMax(NameWidth, grid.columnWidth(ParameterGrid::NameColumn));
    grid.resizeColumnToContents(ParameterGrid::NameColumn);
    grid.setColumnWidth(ParameterGrid::NameColumn, qBound(width, grid.columnWidth(ParameterGrid::NameColumn),
                                                          qMax(width, LongestNameWidth)));
}

void NodePages::StoreValues()
{
    if (m_typeChanging || m_con->NodeWpCount == 0)
        return;
    // The FE parameters are optional as a whole: without an FE ID the node has none.
    const bool isUnused = Trim(m_ui->grdNodeParam->TextMatrix(1, ParameterGrid::ValueColumn)).isEmpty();
    if (IsFePage(m_con->SelectedWpIndx - 1) && isUnused)
        return;
    TakeWpGridValues(GridParameters(), *m_con, m_rowCount, m_con->NodeWpCount);
}

// What is shown ---------------------------------------------------------------------------------------------

FlexGrid& NodePages::Grid() const
{
    return *m_ui->grdNodeParam;
}

bool NodePages::IsFePage(int row) const
{
    const QListWidgetItem* page = m_ui->lstWPlist->item(row);
    return page && page->text() == QLatin1String("FE Parameters");
}

bool NodePages::IsFePageShown() const
{
    return IsFePage(m_ui->lstWPlist->currentRow());
}

QString NodePages::ShownValue(int row) const
{
    const bool isCurrent = m_ui->grdNodeParam->Row() == row;
    if (isCurrent && GridTextOpen())
        return m_ui->txtGridEdit->text();
    if (isCurrent && GridComboOpen())
        return GridComboValue();
    return m_ui->grdNodeParam->TextMatrix(row, ParameterGrid::ValueColumn);
}

void NodePages::GoToFirstValue(bool openEditor)
{
    if (m_rowCount == 0)
        return;
    if (openEditor && Database().EditRight)
        GridPlaceCell(1, ParameterGrid::ValueColumn);
    else
        m_ui->grdNodeParam->SetCell(1, ParameterGrid::ValueColumn);
}

void NodePages::SetUpRows()
{
    if (m_ui->txtGridEdit->isHidden() && m_ui->cboGridEdit->isHidden())
        GridSetupRowHeight();
}
