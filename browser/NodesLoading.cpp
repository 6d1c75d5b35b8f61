#include "browser/NodesLoading.h"

#include "browser/LoadState.h"
#include "database/Gateway.h"
#include "platform/Words.h"

namespace {

constexpr int RowsBetweenEvents = 100;

} // namespace

LoadStep NodesLoading::Prepare()
{
    LoadState& load = Load();
    Display().ShowLabel(Words::tr("Loading Nodes."));
    // What is loaded anew can be read until its rows are here: the database may be away.
    m_replaces = load.LoadAddRoot && load.LoadTree->Count() > 1;
    if (m_replaces)
        load.LoadParentNode = 0;
    else
        BeginEntries();

    m_barMax = 2;
    if (load.NodeCount > 2)
        m_barMax = load.LoadLimit >= 1000 ? load.NodeCount : qMin(load.LoadLimit, load.NodeCount);
    m_barValue = qMin(qMax(1, load.LoadTree->ChildCount(load.LoadParentNode)), m_barMax);
    Display().ShowRange(1, m_barMax);
    Display().ShowValue(m_barValue);
    m_state = State::Reading;
    return LoadStep::More;
}

void NodesLoading::BeginEntries()
{
    LoadState& load = Load();
    m_replaces = false;
    if (load.LoadAddRoot) {
        load.LoadTree->Clear();
        load.LoadParentNode = load.LoadTree->Add(0, QStringLiteral("R,0"), load.LoadRootKey);
    }
    load.LoadTree->SetSorted(load.LoadParentNode, false);
}

LoadStep NodesLoading::ReadRows()
{
    if (!BeginTransaction())
        return LoadStep::GivenUp;
    QString list;
    if (!Gateway().QueryNodesDb(QString(), QString(), list, Load().LoadMoreId))
        FailLoading();
    CommitTransaction();
    m_rows.SetList(list);
    if (m_replaces)
        BeginEntries();
    m_state = State::Adding;
    return LoadStep::More;
}

LoadStep NodesLoading::AddRows()
{
    LoadState& load = Load();
    const bool stopped = Stopped();
    if (stopped && m_rows.Given() > 0)
        return EndBehindLastRow();

    // A load that was stopped while it read its rows still takes one, behind which it can go on.
    const int count = stopped ? 1 : qMax(1, qMin(RowsBetweenEvents, load.LoadLimit - m_rows.Given()));
    const auto rows = m_rows.Next(count);
    if (rows.empty())
        return EndOfAnswer();
    load.LoadTree->AddNodes(load.LoadParentNode, rows);
    m_lastId = rows.back().id;
    m_barValue = qMin(m_barValue + static_cast<int>(rows.size()), m_barMax);
    Display().ShowValue(m_barValue);

    if (load.LoadLimit <= m_rows.Given())
        return load.LoadLimit == load.NodeCount ? End() : EndBehindLastRow();
    if (stopped)
        return EndBehindLastRow();
    const bool eventsAreDue = m_rows.Given() % RowsBetweenEvents == 0;
    return m_rows.AtEnd() && !eventsAreDue ? EndOfAnswer() : LoadStep::More;
}

LoadStep NodesLoading::EndOfAnswer()
{
    if (Load().LoadMoreId <= 0)
        return End();
    m_state = State::Reading;
    return LoadStep::More;
}

LoadStep NodesLoading::EndBehindLastRow()
{
    Load().LoadLimit = LoadState::LaterLimit;
    Load().LoadMoreId = m_lastId;
    return End();
}

LoadStep NodesLoading::End()
{
    Load().LoadTree->SetSorted(Load().LoadParentNode, true);
    if (Load().LoadAddRoot)
        Load().LoadTree->SetExpanded(Load().LoadParentNode, true);
    return LoadStep::Done;
}
