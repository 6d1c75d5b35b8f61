#include "browser/BrowserStatus.h"

#include "browser/BrowserControl.h"
#include "browser/LoadState.h"
#include "browser/T4ZelkaBrowser.h"
#include "database/DatabaseState.h"
#include "platform/controls/TreeView.h"

namespace {

constexpr TreeEntries::Index Root = 1;

const TreeEntries& EntriesOf(const T4ZelkaBrowser& control, const char* tree)
{
    return static_cast<const TreeEntries&>(*control.findChild<TreeView*>(QLatin1String(tree))->model());
}

} // namespace

BrowserStatus::BrowserStatus(T4ZelkaBrowser& control)
    : m_control(*control.findChild<BrowserControl*>()),
      m_connections(EntriesOf(control, "tvwConTree")),
      m_nodes(EntriesOf(control, "tvwNodesTree"))
{
    m_tell.setSingleShot(true);
    connect(&m_tell, &QTimer::timeout, this, &BrowserStatus::Changed);
    const auto later = [this] {
        if (!m_tell.isActive())
            m_tell.start();
    };
    connect(&m_control, &BrowserControl::StatusChanged, this, later);
    for (const TreeEntries* entries : {&m_connections, &m_nodes}) {
        connect(entries, &QAbstractItemModel::rowsInserted, this, later);
        connect(entries, &QAbstractItemModel::rowsRemoved, this, later);
        connect(entries, &QAbstractItemModel::modelReset, this, later);
    }
}

bool BrowserStatus::IsDatabaseOpen()
{
    return Database().DatabaseOpen;
}

QDateTime BrowserStatus::AsOf()
{
    return Load().AsOf;
}

bool BrowserStatus::IsOutdated()
{
    return Load().Outdated;
}

bool BrowserStatus::MayScan()
{
    return Database().ScanRight;
}

bool BrowserStatus::MayEdit()
{
    return Database().EditRight;
}

int BrowserStatus::Connections() const
{
    return m_connections.Count() == 0 ? -1 : m_connections.ChildCount(Root);
}

int BrowserStatus::NodesLoaded() const
{
    return m_nodes.Count() == 0 ? 0 : m_nodes.ChildCount(Root);
}

int BrowserStatus::NodesTotal() const
{
    // With nothing left to load, later changes have been followed and the count has not.
    return Load().LoadMoreId == 0 ? NodesLoaded() : qMax(NodesLoaded(), Load().NodeCount);
}
