#include "tests/convergence/Workstation.h"

#include "browser/DialogOpening.h"
#include "browser/LoadState.h"
#include "database/DatabaseState.h"
#include "database/Gateway.h"
#include "model/ModelState.h"
#include "model/TreeKey.h"
#include "platform/controls/TreeView.h"
#include "tests/convergence/RandomRecords.h"
#include "tests/support/ShownTrees.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QPushButton>
#include <QRadioButton>
#include <QThread>

namespace {

constexpr TreeEntries::Index Root = 1;
constexpr int TickMs = 1;
/// Rounds of refreshing that must do when nobody changes anything.
constexpr int MostRounds = 20;

} // namespace

Workstation::Workstation(quint32 seed) : m_random(seed), m_operator(m_random)
{
    Opening().ConnectionProperties = [this](ConData& con, QWidget*) { InConnectionDialog(con); };
    Opening().NodeProperties = [this](ConData& con, QWidget*) { InNodeDialog(con); };
}

Workstation::~Workstation() = default;

bool Workstation::Start(int recordLimit, int recordsToKeep)
{
    m_control = std::make_unique<T4ZelkaBrowser>();
    m_control->UserControl_InitProperties();
    m_control->SetJournalRecordLimit(recordLimit);
    m_control->SetJournalRecordsToKeep(recordsToKeep);
    m_control->SetRefreshInterval(TickMs);
    m_control->SetRefreshTimer(true);
    // The start fills the tree of nodes alone.
    ShowConnections(false);
    ShowConnections(true);
    return Database().DatabaseOpen;
}

// The control -----------------------------------------------------------------------------------------------

template <typename Widget>
Widget& Workstation::Find(const char* name) const
{
    auto* widget = m_control->findChild<Widget*>(QString::fromLatin1(name));
    if (!widget)
        qFatal("no control %s", name);
    return *widget;
}

TreeEntries& Workstation::Entries(const char* tree) const
{
    return static_cast<TreeEntries&>(*Find<TreeView>(tree).model());
}

void Workstation::Press(const char* button) const
{
    Find<QPushButton>(button).click();
}

void Workstation::ShowConnections(bool connections) const
{
    Find<QRadioButton>(connections ? "optCon" : "optNodes").setChecked(true);
}

TreeEntries::Index Workstation::AnyChild(const TreeEntries& tree, TreeEntries::Index parent)
{
    const int count = tree.ChildCount(parent);
    return count == 0 ? 0 : tree.Child(parent, Draw(count));
}

TreeEntries::Index Workstation::AnyConnection()
{
    return AnyChild(ConTree(), Root);
}

TreeEntries::Index Workstation::AnyNode()
{
    return AnyChild(NodesTree(), Root);
}

bool Workstation::Click(TreeEntries& tree, TreeEntries::Index entry)
{
    const bool inConnections = &tree == &ConTree();
    ShowConnections(inConnections);
    // The other view may have told that this one is stale.
    if (!tree.Exists(entry))
        return false;
    auto& view = Find<TreeView>(inConnections ? "tvwConTree" : "tvwNodesTree");
    const QModelIndex index = tree.ModelIndex(entry);
    view.SelectIndex(index);
    Q_EMIT view.ClickBegins();
    Q_EMIT view.NodeClick(index);
    Q_EMIT view.Click();
    Q_EMIT view.ClickEnded();
    return m_operator.Refusal().isEmpty() && tree.Exists(entry);
}

void Workstation::Open(TreeEntries::Index connection)
{
    if (!Click(ConTree(), connection))
        return;
    if (OneIn(3))
        m_watcher.StopNextLoad(Draw(4));
    auto& view = Find<TreeView>("tvwConTree");
    Q_EMIT view.DblClick();
    Q_EMIT view.Click();
}

void Workstation::LookAround()
{
    m_operator.BeginChange();
    const TreeEntries::Index connection = AnyConnection();
    switch (Draw(10)) {
    case 0:
    case 1:
        Press("cmdRefresh");
        break;
    case 2:
        QThread::msleep(TickMs);
        QCoreApplication::processEvents();
        break;
    case 3:
    case 4:
    case 5:
        Open(connection);
        break;
    case 6:
        // By its indicator, which an empty one has not.
        if (ConTree().ChildCount(connection) > 0)
            ConTree().SetExpanded(connection, !ConTree().Expanded(connection));
        break;
    case 7:
        Find<QCheckBox>("chkViewNodes").click();
        break;
    case 8:
        if (Click(ConTree(), connection))
            Press("cmdLoadMore");
        break;
    default:
        ShowConnections(OneIn(2));
        break;
    }
}

// Changes ---------------------------------------------------------------------------------------------------

LoggedChange Workstation::Change()
{
    m_operator.BeginChange();
    m_change = LoggedChange();
    m_change.number = ++m_changes;
    const bool connection = OneIn(4);
    m_change.what = connection ? QStringLiteral("connection") : QStringLiteral("node");
    switch (Draw(8)) {
    case 0:
    case 1:
        Add(connection);
        break;
    case 2:
    case 3:
        Edit(connection);
        break;
    case 4:
        Remove(connection);
        break;
    default:
        WorkBesideControl(connection);
        break;
    }
    if (!m_change.done && m_change.reason.isEmpty())
        m_change.reason = m_operator.Refusal();
    return m_change;
}

void Workstation::Edit(bool connection)
{
    m_change.what += QStringLiteral(" edited:");
    TreeEntries& tree = connection || OneIn(2) ? ConTree() : NodesTree();
    TreeEntries::Index entry = connection ? AnyConnection() : AnyNode();
    if (!connection && &tree == &ConTree())
        entry = AnyChild(tree, AnyConnection());
    if (tree.Kind(entry) != (connection ? u'C' : u'N'))
        WorkBesideControl(connection);
    else if (Click(tree, entry))
        Press("cmdDatabaseProp");
}

void Workstation::Add(bool connection)
{
    m_change.what += QStringLiteral(" added:");
    TreeEntries& tree = connection ? ConTree() : NodesTree();
    const TreeEntries::Index like = connection ? AnyConnection() : AnyNode();
    if (Click(tree, like != 0 && OneIn(2) ? like : Root))
        Press("cmdDatabaseAdd");
}

void Workstation::Remove(bool connection)
{
    TreeEntries& tree = connection ? ConTree() : NodesTree();
    const TreeEntries::Index entry = connection ? AnyConnection() : AnyNode();
    const QString name = tree.Text(entry);
    const qint32 id = qAbs(tree.Id(entry));
    m_change.what += QStringLiteral(" removed: ") + name;
    if (entry == 0) {
        WorkBesideControl(connection);
        return;
    }
    if (!Click(tree, entry))
        return;
    Press("cmdDatabaseRemove");
    m_change.done = m_operator.Agreed() && m_operator.Refusal().isEmpty();
    m_change.kind = connection ? QStringLiteral("connection") : QStringLiteral("node");
    m_change.verb = QStringLiteral("removed");
    m_change.id = id;
    m_change.name = name;
}

void Workstation::InConnectionDialog(ConData& con)
{
    RandomRecords::SaveConnectionOf(con, m_random, m_change);
}

void Workstation::InNodeDialog(ConData& con)
{
    const TreeEntries::Index connection = AnyConnection();
    const bool stays = !con.NewNode && OneIn(2);
    const QString conName = stays             ? QString()
                            : connection != 0 ? ConTree().Text(connection)
                                              : RandomRecords::AnyConnectionName(m_random);
    RandomRecords::SaveNodeOf(con, conName, m_random, m_change);
}

void Workstation::WorkBesideControl(bool connection)
{
    m_change.what += QStringLiteral(" beside:");
    if (connection)
        RandomRecords::ChangeConnectionBeside(m_random, m_change);
    else
        RandomRecords::ChangeNodeBeside(m_random, m_change);
}

// The end ---------------------------------------------------------------------------------------------------

bool Workstation::Settle()
{
    for (int round = 0; round < MostRounds; ++round) {
        const qint32 seen = Load().JournalLastId;
        const int reloads = m_operator.Reloads();
        Press("cmdRefresh");
        qint32 latest = 0;
        if (Load().JournalLastId == seen && m_operator.Reloads() == reloads &&
            Gateway().GetJournalLastIdDb(latest) && latest == seen) {
            LoadTheRest();
            return true;
        }
    }
    return false;
}

void Workstation::LoadTheRest()
{
    // What the last change was refused for is past, and so is a stop that no load has come for.
    m_operator.BeginChange();
    m_watcher.StopNoLoad();
    ShowConnections(true);
    for (int k = 0; k < ConTree().ChildCount(Root); ++k) {
        const TreeEntries::Index connection = ConTree().Child(Root, k);
        if (ConTree().FindContinued(connection) != 0 && Click(ConTree(), connection))
            Press("cmdLoadMore");
    }
    ShowConnections(false);
    for (int round = 0; Load().LoadMoreId != 0 && round < MostRounds; ++round)
        Press("cmdLoadMore");
    ShowConnections(true);
}

QStringList Workstation::Trees() const
{
    return ShownTrees(ConTree(), NodesTree(), Find<QCheckBox>("chkViewNodes").isChecked());
}
