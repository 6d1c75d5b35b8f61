#include "browser/BrowserControl.h"
#include "browser/BrowserState.h"
#include "browser/JournalRefresh.h"
#include "browser/LoadState.h"
#include "browser/TreePlace.h"
#include "browser/frmLoadProgress.h"
#include "browser/ui_BrowserControl.h"
#include "database/DatabaseState.h"
#include "database/Gateway.h"
#include "database/ReadBracket.h"
#include "model/ModelState.h"
#include "model/TreeFilling.h"
#include "platform/MachineSeams.h"
#include "platform/MsgBox.h"
#include "platform/Words.h"
#include "platform/controls/IntervalTimer.h"
#include "platform/controls/ModalForm.h"

#include <QLocale>
#include <QPointer>

#include <limits>

// What other applications change is brought into the trees here, while the operator goes on reading.

namespace {

/// The time, and the date too where it is not of today.
QString TimeText(const QDateTime& time, const QDateTime& now)
{
    const QLocale locale;
    return time.date() == now.date() ? locale.toString(time.time(), QLocale::ShortFormat)
                                     : locale.toString(time, QLocale::ShortFormat);
}

/// What the line below the trees tells while the database cannot be read.
QString OutdatedText()
{
    const QDateTime& asOf = Load().AsOf;
    if (!asOf.isValid())
        return Words::tr("The database cannot be read now.");
    return Words::tr("As of %1; the database cannot be read now.").arg(TimeText(asOf, Machine().WallClock()));
}

/// The controls whose trees follow the Journal together; each may go while a box or a form stands open.
std::vector<QPointer<BrowserControl>> LoadedControls()
{
    return {Browser().Loaded.begin(), Browser().Loaded.end()};
}

} // namespace

void BrowserControl::tmrRefreshTimer_Timer()
{
    if (!Database().DatabaseOpen || !m_userMode || Browser().Busy > 0)
        return;
    const QPointer<BrowserControl> alive(this);
    m_tmrRefreshTimer->SetEnabled(false);
    cmdRefresh_Click();
    if (alive)
        m_tmrRefreshTimer->SetEnabled(m_refreshTimer);
}

void BrowserControl::cmdRefresh_Click()
{
    const BusyScope busy;
    const QPointer<BrowserControl> alive(this);
    m_tmrRefreshTimer->SetEnabled(false);
    EndClickReads();
    const QDateTime begin = Machine().WallClock();
    std::vector<JournalRefresh::Trees> trees;
    std::vector<std::pair<QPointer<BrowserControl>, QStringList>> selections;
    for (BrowserControl* const control : Browser().Loaded) {
        trees.push_back({control->m_conTree, control->m_nodesTree, control->m_ui->chkViewNodes->isChecked()});
        selections.emplace_back(control, control->SelectionMark());
    }
    JournalRefresh refresh(std::move(trees), {m_journalRecordLimit, m_journalRecordsToKeep, m_journalDayLimit,
                                              m_journalDaysToKeep});
    // After a refresh that finds nothing new and after a reload the timer stays off; ticks and commands set
    // it themselves.
    bool restoresTimer = false;
    switch (refresh.Run()) {
    case JournalRefresh::Outcome::Failed:
        TellOutdated();
        restoresTimer = true;
        break;
    case JournalRefresh::Outcome::NothingNew:
        TellCurrent(begin);
        break;
    case JournalRefresh::Outcome::Patched:
        TellCurrent(begin);
        for (const auto& [control, selection] : selections) {
            if (control)
                control->FollowSelection(selection);
        }
        restoresTimer = true;
        break;
    case JournalRefresh::Outcome::RecordsMissed:
        MsgBox(tr("Connections and nodes must be reloaded, because of changes made by another "
                  "application. Automatic reload follows."));
        ReloadAll();
        break;
    case JournalRefresh::Outcome::LoadDue:
        ReloadAll();
        break;
    }
    if (alive && restoresTimer)
        m_tmrRefreshTimer->SetEnabled(m_refreshTimer);
}

QStringList BrowserControl::SelectionMark() const
{
    const TreeEntries& tree = ShownEntries();
    QStringList mark;
    for (Entry entry = SelectedEntry(ShownView()); entry != 0 && entry != RootEntry;
         entry = tree.Parent(entry))
        mark << QString::number(entry) << tree.Key(entry) << QString::number(tree.ChildCount(entry))
             << QString::number(tree.FindContinued(entry));
    return mark;
}

void BrowserControl::FollowSelection(const QStringList& before)
{
    const Entry selected = SelectedEntry(ShownView());
    // Whether more can be loaded below a connection without entries, the database alone can tell.
    const bool mayHaveMore = m_ui->optCon->isChecked() && m_ui->chkViewNodes->isChecked() &&
                             m_conTree->Kind(selected) == QLatin1Char('C') &&
                             m_conTree->ChildCount(selected) == 0;
    if (!mayHaveMore && SelectionMark() == before)
        return;
    const ClickReads reads(*this);
    EnableForSelection();
}

// Reload ----------------------------------------------------------------------------------------------------

void BrowserControl::ReloadAll()
{
    // The box that announces it lets the host close the database.
    if (!Database().DatabaseOpen)
        return;
    const QDateTime begin = Machine().WallClock();
    qint32 position = std::numeric_limits<qint32>::max();
    bool whole = true;
    for (const QPointer<BrowserControl>& control : LoadedControls()) {
        if (control)
            position = qMin(position, control->ReloadTrees(whole));
    }
    LoadState& load = Load();
    load.ReloadDue = !whole;
    load.JournalLastId = 1;
    ReadJournalPosition();
    // What came while the lists were read may be missing in them, and does no harm when it is not.
    load.JournalLastId = qMin(load.JournalLastId, position);
    load.JournalLastRecord = {};
    if (whole)
        TellCurrent(begin);
    else
        TellOutdated();
}

qint32 BrowserControl::ReloadTrees(bool& whole)
{
    const QPointer<BrowserControl> alive(this);
    TreePlace connections(*m_conTree);
    TreePlace nodes(*m_nodesTree);
    const std::size_t connection = connections.Note(SelectedEntry(*m_ui->tvwConTree));
    const std::size_t node = nodes.Note(SelectedEntry(*m_ui->tvwNodesTree));
    TreePlace& shown = m_ui->optCon->isChecked() ? connections : nodes;
    const bool works = Model().ConObject && Model().ConObject->ConTree == m_conTree;
    const std::size_t wanted = shown.Note(works ? Model().ConObject->SelectedTreeNodeIndex : 0);

    const bool haveConnections = ReloadConnections();
    const qint32 position = Load().JournalLastId;
    const bool haveNodes = alive && ReloadNodes();
    if (!alive)
        return position;
    whole = whole && haveConnections && haveNodes;
    const bool viewNodes = m_ui->chkViewNodes->isChecked();
    connections.OpenAgain([&](Entry entry) {
        const BusyPointer pointer;
        // One that cannot be read stays closed.
        (void)RefillConEntry(*m_conTree, entry, viewNodes);
    });
    m_ui->tvwConTree->SelectIndex(m_conTree->ModelIndex(connections.Find(connection)));
    m_ui->tvwNodesTree->SelectIndex(m_nodesTree->ModelIndex(nodes.Find(node)));
    if (works && Model().ConObject)
        Model().ConObject->SelectedTreeNodeIndex = shown.Find(wanted);
    EnableForSelection();
    return position;
}

bool BrowserControl::ReloadConnections()
{
    ReadJournalPosition();
    const BusyPointer pointer;
    QString list;
    if (!Gateway().QueryParentsDb(list))
        return false;
    PairTable items;
    int count = 0;
    const bool converted = ConvertItemListToArray(list, true, items, count);
    if (converted)
        FillConnectionTree(tr("Connections"), QStringLiteral("C"), count, items, *m_conTree, true);
    else
        MsgBox(tr("ConvertItemListToArray Error"));
    return converted;
}

bool BrowserControl::ReloadNodes()
{
    ReadJournalPosition();
    LoadState& load = Load();
    load.LoadLimit = LoadState::FirstLimit;
    if (!Gateway().GetNodeCountDb(load.NodeCount))
        load.NodeCount = LoadState::FirstLimit;
    load.LoadMoreId = 0;
    load.LoadRootKey = tr("Nodes");
    load.LoadKeySuffix = QStringLiteral("N");
    load.LoadTree = m_nodesTree;
    load.LoadAddRoot = true;
    if (!ShowModalForm<frmLoadProgress>(this))
        return false;
    load.LoadTree = nullptr;
    // After a load that failed too, as the Journal goes on to patch what is there.
    m_nodesTree->SetSorted(RootEntry, true);
    EnableCmdLoadMore(RootEntry);
    return !load.LoadFailed;
}

void BrowserControl::ReadJournalPosition()
{
    if (Gateway().GetJournalLastIdDb(Load().JournalLastId))
        return;
    MsgBox(tr("Journal table access failure."));
    Load().JournalLastId = 1;
}

// As of when ------------------------------------------------------------------------------------------------

void BrowserControl::TellCurrent(const QDateTime& asOf)
{
    Load().AsOf = asOf;
    Load().Outdated = false;
    for (BrowserControl* const control : Browser().Loaded)
        control->ShowAsOf(QString());
}

void BrowserControl::TellOutdated()
{
    Load().Outdated = true;
    for (BrowserControl* const control : Browser().Loaded)
        control->ShowAsOf(OutdatedText());
}

void BrowserControl::ShowAsOf(const QString& text)
{
    m_ui->lblAsOf->setText(text);
    m_ui->lblAsOf->setVisible(!text.isEmpty());
    Q_EMIT StatusChanged();
}
