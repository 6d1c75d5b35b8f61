#include "dialogs/frmWpProp.h"

#include "dialogs/DialogState.h"
#include "dialogs/GridEdit.h"
#include "dialogs/ui_frmWpProp.h"
#include "model/ConData.h"
#include "model/GridChecks.h"
#include "model/ParameterLists.h"
#include "model/TextHelpers.h"
#include "platform/HelpHook.h"
#include "platform/HelpLinks.h"
#include "platform/MsgBox.h"
#include "platform/Words.h"
#include "platform/controls/HelpKey.h"

#include <QHeaderView>

namespace {

constexpr int Columns = 2;
/// Rows that are seen without scrolling.
constexpr int SeenRows = 8;
/// Width of the names, in pixels: as much as they need between these two.
constexpr int NameWidth = 133;
constexpr int LongestNameWidth = 240;

QString HeaderText(const QString& longName)
{
    return TextContains(longName, u"param") ? longName : Words::tr("%1 Parameters").arg(longName);
}

} // namespace

frmWpProp::frmWpProp(ConData& con, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmWpProp>()), m_con(con)
{
    m_ui->setupUi(this);
    connect(m_ui->CmdOk, &QPushButton::clicked, this, &frmWpProp::CmdOk_Click);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_ui->CmdHelp, &QPushButton::clicked, this, &frmWpProp::CmdHelp_Click);
    UseHelpKey(*this, *m_ui->CmdHelp);
    Form_Load();
}

frmWpProp::~frmWpProp()
{
    GridDetach(*m_ui->grdConParam);
}

void frmWpProp::Form_Load()
{
    m_ui->grdConParam->SetGridSize(1, Columns);
    GridAttach(*m_ui->grdConParam, *m_ui->txtGridEdit, *m_ui->cboGridEdit, *m_ui->spnGridEdit);
    const int waypoint = m_con.SelectedWpIndx;
    if (waypoint >= 1 && waypoint <= ConData::MaxWaypoints) {
        const WpData& table = m_con.GetWpData(waypoint);
        GridEdit().GridWpName = m_con.GetConWpName(waypoint);
        GridEdit().GridWpData = &table;
        // An ampersand of the name is no access key.
        m_ui->lblParameterHeader->setText(
            HeaderText(m_con.GetConWpLongName(waypoint)).replace(u'&', QStringLiteral("&&")));
        m_rowCount = ShownParameterCount(table, m_con.ReduceParameterCount);
        ShowWpRows(GridParameters(), m_con, waypoint, m_rowCount);
    }
    GridEdit().GridLastRow = m_rowCount;
    SizeGrid();
}

void frmWpProp::SizeGrid()
{
    FlexGrid& grid = *m_ui->grdConParam;
    GridSetupRowHeight();
    grid.setMinimumHeight(grid.HeightForRows(SeenRows));
    grid.resizeColumnToContents(ParameterGrid::NameColumn);
    grid.setColumnWidth(ParameterGrid::NameColumn,
                        qBound(NameWidth, grid.columnWidth(ParameterGrid::NameColumn), LongestNameWidth));
    grid.horizontalHeader()->setSectionResizeMode(ParameterGrid::ValueColumn, QHeaderView::Stretch);
}

void frmWpProp::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (std::exchange(m_activated, true))
        return;
    Form_Activate();
}

void frmWpProp::Form_Activate()
{
    GridSetupRowHeight();
    const int row = Dialogs().SelectedWpIndex;
    GridPlaceCell(row != 0 ? row : 1, ParameterGrid::ValueColumn);
}

void frmWpProp::CmdOk_Click()
{
    if (!GridCommitEdit()) {
        GridPlaceCell(m_ui->grdConParam->Row(), ParameterGrid::ValueColumn);
        return;
    }
    bool exclusiveFailure = false;
    if (!CheckGridValues(m_con, GridParameters(), m_rowCount, exclusiveFailure)) {
        MsgBox(GridRefusalText(exclusiveFailure));
        return;
    }
    if (m_rowCount > 0)
        TakeWpGridValues(GridParameters(), m_con, m_rowCount, m_con.ConWpCount);
    accept();
}

void frmWpProp::CmdHelp_Click()
{
    ShowHelpTopic(HelpLinks::WpProp);
}
