#pragma once

class ConData;
class QPoint;

namespace Ui {
class frmScan;
}

/// Opens the context menu of the found nodes: the commands of the scan dialog, and what can be copied of the
/// selected node. `direct`: the connection over which it was found.
void OpenFoundNodesMenu(const Ui::frmScan& ui, const ConData& direct, const QPoint& place);
