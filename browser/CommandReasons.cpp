#include "browser/CommandReasons.h"

#include "browser/DirectNodePages.h"
#include "browser/ui_BrowserControl.h"
#include "database/DatabaseState.h"
#include "model/ModelState.h"
#include "model/TreeEntries.h"

#include <QEvent>

namespace {

constexpr int DatabasePage = 0;

/// `reason`: asked for only where the command cannot be pressed.
template <typename Reason>
void Tell(QWidget& command, Reason reason)
{
    if (command.isEnabled())
        ShowReason(command, DisabledReason::None);
    else
        ShowReason(command, Database().DatabaseOpen ? reason() : DisabledReason::DatabaseClosed);
}

void TellPage(QTabWidget& pages, int page, DisabledReason reason)
{
    pages.setTabToolTip(page, pages.isTabEnabled(page) ? QString() : ReasonText(reason));
}

} // namespace

CommandReasons::CommandReasons(Ui::BrowserControl& ui) : m_ui(ui)
{
    for (QWidget* watched : std::initializer_list<QWidget*>{
             ui.cmdDatabaseAdd, ui.cmdDatabaseProp, ui.cmdDatabaseRemove, ui.cmdDbScan, ui.cmdDatabaseManage,
             ui.cmdLoadMore, ui.cmdScan, ui.pagNemml, ui.pagSnmp})
        watched->installEventFilter(this);
    for (TreeView* tree : {ui.tvwConTree, ui.tvwNodesTree})
        connect(tree->selectionModel(), &QItemSelectionModel::selectionChanged, this,
                &CommandReasons::Update);
    connect(ui.optCon, &QAbstractButton::toggled, this, &CommandReasons::Update);
    connect(ui.chkViewNodes, &QAbstractButton::toggled, this, &CommandReasons::Update);
    connect(ui.txtDirectConType, &QLineEdit::textChanged, this, &CommandReasons::Update);
    Update();
}

bool CommandReasons::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::EnabledChange)
        Update();
    return QObject::eventFilter(watched, event);
}

void CommandReasons::Update()
{
    const auto remove = [this] { return Database().EditRight ? OfEntry() : DisabledReason::NoEditRight; };
    Tell(*m_ui.cmdDatabaseAdd, [this] { return OfAdd(); });
    Tell(*m_ui.cmdDatabaseProp, [this] { return OfEntry(); });
    Tell(*m_ui.cmdDatabaseRemove, remove);
    Tell(*m_ui.cmdDbScan, [this] { return OfScan(); });
    Tell(*m_ui.cmdDatabaseManage, [this] { return OfManage(); });
    Tell(*m_ui.cmdLoadMore, [this] { return OfLoadMore(); });
    // Without a database nothing can be scanned either.
    Tell(*m_ui.cmdScan, [this] { return OfDirectScan(); });
    TellPage(*m_ui.tabMain, DatabasePage, DisabledReason::DatabaseClosed);
    TellPage(*m_ui.tabNode, DirectNodePages::Net4Page, DisabledReason::SnmpConnection);
    // Where the first page can be used, it is the host that keeps the second one closed.
    TellPage(*m_ui.tabNode, DirectNodePages::NemmlPage,
             m_ui.tabNode->isTabEnabled(DirectNodePages::Net4Page) ? DisabledReason::None
                                                                   : DisabledReason::SnmpConnection);
    TellPage(*m_ui.tabNode, DirectNodePages::SnmpPage, DisabledReason::OnlySnmpConnection);
}

TreeView& CommandReasons::ShownTree() const
{
    return m_ui.optCon->isChecked() ? *m_ui.tvwConTree : *m_ui.tvwNodesTree;
}

QChar CommandReasons::SelectedKind() const
{
    const QModelIndex selected = ShownTree().SelectedIndex();
    return selected.isValid() ? selected.data(TreeEntries::KindRole).toChar() : QChar();
}

DisabledReason CommandReasons::OfEntry() const
{
    switch (SelectedKind().unicode()) {
    case 0:
        return DisabledReason::NothingSelected;
    case u'W':
        return DisabledReason::WaypointSelected;
    default:
        return DisabledReason::RootSelected;
    }
}

DisabledReason CommandReasons::OfAdd() const
{
    return Database().EditRight ? DisabledReason::AddBelowNode : DisabledReason::NoEditRight;
}

DisabledReason CommandReasons::OfScan() const
{
    if (!Database().ScanRight)
        return DisabledReason::NoScanRight;
    if (!m_ui.optCon->isChecked())
        return DisabledReason::ScanInNodeView;
    switch (SelectedKind().unicode()) {
    case u'C':
        return DisabledReason::SnmpConnection;
    case u'W':
        return DisabledReason::WaypointSelected;
    case u'N':
        return DisabledReason::NodeSelected;
    default:
        return DisabledReason::NoConnectionSelected;
    }
}

DisabledReason CommandReasons::OfManage() const
{
    if (m_ui.optCon->isChecked() && !m_ui.chkViewNodes->isChecked())
        return DisabledReason::NodesNotViewed;
    return SelectedKind() == QLatin1Char('N') ? DisabledReason::NoManager : DisabledReason::NoNodeSelected;
}

DisabledReason CommandReasons::OfLoadMore() const
{
    if (!m_ui.optCon->isChecked())
        return DisabledReason::AllLoaded;
    if (!m_ui.chkViewNodes->isChecked())
        return DisabledReason::NodesNotViewed;
    const QChar kind = SelectedKind();
    return kind == QLatin1Char('C') || kind == QLatin1Char('N') ? DisabledReason::AllLoadedHere
                                                                : DisabledReason::NoConnectionSelected;
}

DisabledReason CommandReasons::OfDirectScan() const
{
    if (!Database().ScanRight)
        return DisabledReason::NoScanRight;
    const ConData* const direct = Model().DirectObject.get();
    return direct && !direct->ConName.isEmpty() ? DisabledReason::SnmpConnection
                                                : DisabledReason::NoConnectionChosen;
}
