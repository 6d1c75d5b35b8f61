#include "scan/FoundNodesMenu.h"

#include "model/ConData.h"
#include "platform/Words.h"
#include "platform/controls/CommandMenu.h"
#include "scan/ui_frmScan.h"

#include <QKeySequence>

namespace {

/// The target of a node that was found behind a connection; empty without an address.
QString FoundTarget(const ConData& direct, const QString& address)
{
    if (address.isEmpty())
        return {};
    QString target;
    direct.SetTargetWithoutDefaults(target);
    if (!target.isEmpty())
        target += QLatin1Char(',');
    return target + QStringLiteral("WP=NET4,ADDR=") + address;
}

} // namespace

void OpenFoundNodesMenu(const Ui::frmScan& ui, const ConData& direct, const QPoint& place)
{
    const FoundNodesGrid& grid = *ui.grdFoundNodes;
    const int row = grid.Row() <= grid.FoundCount() ? grid.Row() : 0;
    const auto cell = [&](int column) { return row > 0 ? grid.TextMatrix(row, column) : QString(); };
    const QString nothing = Words::tr("Select a found node first.");
    const QString address = cell(FoundNodesGrid::AddressColumn);

    CommandMenu menu(*ui.grdFoundNodes);
    menu.AddCommand(*ui.cmdSelect);
    menu.AddCommand(*ui.cmdSave);
    menu.AddCommand(*ui.cmdSaveAll);
    menu.AddLine();
    menu.AddCopy(Words::tr("&Copy Address"), address, nothing,
                 QKeySequence(QKeySequence::Copy).toString(QKeySequence::NativeText));
    menu.AddCopy(Words::tr("Copy &Identification"), cell(FoundNodesGrid::IdentificationColumn), nothing);
    menu.AddCopy(Words::tr("Copy Ta&rget"), FoundTarget(direct, address), nothing);
    menu.AddLine();
    menu.AddCommand(*ui.cmdStartStop);
    menu.AddLine();
    menu.AddCommand(*ui.cmdHelp, QString(), QKeySequence(Qt::Key_F1).toString());
    menu.Open(place);
}
