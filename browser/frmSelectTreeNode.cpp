#include "browser/frmSelectTreeNode.h"

#include "browser/EntryIcons.h"
#include "browser/ui_frmSelectTreeNode.h"
#include "model/TreePattern.h"
#include "platform/MsgBox.h"

#include <QScrollBar>
#include <QShowEvent>

namespace {

constexpr int KeyReturn = 13;
/// A search that takes longer shows that it runs.
constexpr int ProgressDueMs = 200;

} // namespace

frmSelectTreeNode::frmSelectTreeNode(QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmSelectTreeNode>())
{
    m_ui->setupUi(this);
    // It keeps its place, so that nothing moves when it appears.
    QSizePolicy keepsPlace = m_ui->fraSearch->sizePolicy();
    keepsPlace.setRetainSizeWhenHidden(true);
    m_ui->fraSearch->setSizePolicy(keepsPlace);
    m_ui->fraSearch->setVisible(false);
    TreeView* const nodes = m_ui->tvwNodes;
    nodes->setModel(&m_found);
    nodes->SetIconProvider(EntryIcons());
    connect(nodes->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &frmSelectTreeNode::tvwNodes_Change);
    connect(&m_found, &QAbstractItemModel::modelReset, this, &frmSelectTreeNode::tvwNodes_Change);
    connect(nodes, &TreeView::DblClick, this, &frmSelectTreeNode::tvwNodes_DblClick);
    connect(nodes, &TreeView::KeyPress, this, &frmSelectTreeNode::tvwNodes_KeyPress);
    connect(m_ui->btnOK, &QPushButton::clicked, this, &frmSelectTreeNode::btnOK_Click);
    connect(m_ui->btnBack, &QPushButton::clicked, this, &frmSelectTreeNode::btnBack_Click);
    connect(m_ui->cmdSearchStop, &QPushButton::clicked, this, &frmSelectTreeNode::cmdSearchStop_Click);

    m_copyDue.setSingleShot(true);
    connect(&m_copyDue, &QTimer::timeout, this, &frmSelectTreeNode::CopyAnew);
    m_betweenSteps.setSingleShot(true);
    connect(&m_betweenSteps, &QTimer::timeout, this, &frmSelectTreeNode::SearchSome);
    m_progressDue.setSingleShot(true);
    m_progressDue.setInterval(ProgressDueMs);
    connect(&m_progressDue, &QTimer::timeout, m_ui->fraSearch, &QWidget::show);
}

frmSelectTreeNode::~frmSelectTreeNode()
{
    // The view goes behind the members.
    m_ui->tvwNodes->setModel(nullptr);
}

const TreeEntries* frmSelectTreeNode::Tree() const
{
    return tvw ? static_cast<const TreeEntries*>(tvw->model()) : nullptr;
}

// Showing ---------------------------------------------------------------------------------------------------

void frmSelectTreeNode::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (!event->spontaneous() && !m_formActivated)
        Form_Activate();
}

void frmSelectTreeNode::Form_Activate()
{
    m_formActivated = true;
    m_ui->tvwNodes->setFocus();
    copyTreeView();
    ShowUnloaded();
    SelectFirstHit();
    const TreeEntries* const tree = Tree();
    if (!tree)
        return;
    const auto copyIsDue = [this] { m_copyDue.start(); };
    connect(tree, &QAbstractItemModel::rowsInserted, this, copyIsDue);
    connect(tree, &QAbstractItemModel::rowsRemoved, this, copyIsDue);
    connect(tree, &QAbstractItemModel::rowsMoved, this, copyIsDue);
    connect(tree, &QAbstractItemModel::layoutChanged, this, copyIsDue);
    connect(tree, &QAbstractItemModel::modelReset, this, copyIsDue);
    connect(tree, &QAbstractItemModel::dataChanged, this, copyIsDue);
    BeginSearch();
}

void frmSelectTreeNode::copyTreeView()
{
    const TreeEntries* const tree = Tree();
    if (!tree)
        return;
    m_found.ShowLoaded(*tree, tree->FindContaining(TreePattern(match)));
}

void frmSelectTreeNode::CopyAnew()
{
    const FoundEntry selected = m_found.EntryAt(m_ui->tvwNodes->SelectedIndex());
    copyTreeView();
    ShowUnloaded();
    if (selected.entry != 0)
        m_ui->tvwNodes->SelectIndex(m_found.IndexOfEntry(selected.entry));
    if (!m_ui->tvwNodes->SelectedIndex().isValid())
        SelectFirstHit();
}

void frmSelectTreeNode::SelectFirstHit()
{
    m_ui->tvwNodes->SelectIndex(m_found.FirstHit());
    // Its parents show where it stands.
    m_ui->tvwNodes->verticalScrollBar()->setValue(0);
}

void frmSelectTreeNode::tvwNodes_Change()
{
    m_ui->btnOK->setEnabled(bool(m_found.EntryAt(m_ui->tvwNodes->SelectedIndex())));
}

void frmSelectTreeNode::tvwNodes_DblClick()
{
    if (m_found.rowCount(m_ui->tvwNodes->SelectedIndex()) == 0)
        m_ui->btnOK->click();
}

void frmSelectTreeNode::tvwNodes_KeyPress(ushort keyAscii)
{
    if (keyAscii == KeyReturn)
        m_ui->btnOK->click();
}

void frmSelectTreeNode::btnOK_Click()
{
    result = m_found.EntryAt(m_ui->tvwNodes->SelectedIndex());
    accept();
}

void frmSelectTreeNode::btnBack_Click()
{
    reject();
}

// The database ----------------------------------------------------------------------------------------------

void frmSelectTreeNode::BeginSearch()
{
    m_search = std::make_shared<UnloadedSearch>(*Tree(), unloaded, match);
    m_progressDue.start();
    m_betweenSteps.start();
}

void frmSelectTreeNode::SearchSome()
{
    const QPointer<frmSelectTreeNode> alive(this);
    const std::shared_ptr<UnloadedSearch> running = m_search;
    if (!running)
        return;
    const bool more = running->Next();
    if (!alive || !m_search || !isVisible())
        return;
    if (more)
        m_betweenSteps.start();
    else
        EndSearch();
}

void frmSelectTreeNode::cmdSearchStop_Click()
{
    m_stopped = true;
    if (m_search)
        EndSearch();
}

void frmSelectTreeNode::EndSearch()
{
    const std::shared_ptr<UnloadedSearch> ended = std::exchange(m_search, nullptr);
    m_betweenSteps.stop();
    m_progressDue.stop();
    const bool hadFocus = m_ui->cmdSearchStop->hasFocus();
    m_ui->fraSearch->setVisible(false);
    if (hadFocus)
        m_ui->tvwNodes->setFocus();
    m_hits = ended->TakeHits();
    m_hasMore = ended->HasMore();
    m_failed = ended->Failed();
    ShowUnloaded();
    if (m_found.HitCount() == 0) {
        TellNoItems();
        return;
    }
    if (!m_ui->tvwNodes->SelectedIndex().isValid())
        SelectFirstHit();
}

void frmSelectTreeNode::ShowUnloaded()
{
    m_found.ShowUnloaded(m_hits, m_hasMore);
    QString state = tr("Entries found: %1").arg(m_found.HitCount());
    if (m_failed)
        state += tr("\nWhat is not loaded yet could not be searched to the end.");
    else if (m_stopped)
        state += tr("\nWhat is not loaded yet was not searched to the end.");
    m_ui->lblState->setText(state);
}

void frmSelectTreeNode::TellNoItems()
{
    const QPointer<frmSelectTreeNode> alive(this);
    MsgBox(tr("No items found!"), BoxFlags::Exclamation, tr("Search result"));
    if (alive)
        reject();
}
