#include "browser/ConNodesLoading.h"

#include "browser/LoadState.h"
#include "database/DatabaseError.h"
#include "database/Gateway.h"
#include "model/TreeFilling.h"

namespace {

constexpr int RowsBetweenEvents = 50;

} // namespace

LoadStep ConNodesLoading::Prepare()
{
    LoadState& load = Load();
    load.LoadTree->SetSorted(load.LoadParentNode, false);
    m_conName = load.LoadTree->Text(load.LoadParentNode);

    if (!BeginTransaction())
        return LoadStep::GivenUp;
    qint32 count = 0;
    if (!Gateway().GetParentNodesCountDb(m_conName, count))
        throw DatabaseFailure(DbError::Unreported);
    CommitTransaction();

    m_barMax = qMax(2, count);
    m_barValue = qMin(qMax(1, load.LoadTree->ChildCount(load.LoadParentNode)), m_barMax);
    Display().ShowRange(1, m_barMax);
    Display().ShowValue(m_barValue);

    FindContinueMark(*load.LoadTree, load.LoadParentNode, m_position, true);
    m_state = State::Reading;
    return LoadStep::More;
}

LoadStep ConNodesLoading::ReadRows()
{
    LoadState& load = Load();
    if (!BeginTransaction())
        return LoadStep::GivenUp;
    QString list;
    if (!Gateway().GetParentNodesExDb(m_conName, list, m_position))
        FailLoading();
    CommitTransaction();
    m_rows.SetList(list);
    if (load.LoadAddRoot) {
        load.LoadTree->Clear();
        load.LoadParentNode = load.LoadTree->Add(0, QStringLiteral("R,0"), load.LoadRootKey);
        load.LoadTree->SetSorted(load.LoadParentNode, true);
    }
    m_state = State::Adding;
    return LoadStep::More;
}

LoadStep ConNodesLoading::AddRows()
{
    const bool stopped = Stopped();
    if (stopped && m_rows.Given() > 0)
        return EndAtMark();

    // A load that was stopped while it read its rows still takes one, which can carry the mark.
    const auto rows = m_rows.Next(stopped ? 1 : RowsBetweenEvents);
    if (rows.empty())
        return EndOfAnswer();
    Load().LoadTree->AddNodes(Load().LoadParentNode, rows);
    m_lastId = rows.back().id;
    m_barValue = qMin(m_barValue + static_cast<int>(rows.size()), m_barMax);
    Display().ShowValue(m_barValue);

    if (stopped)
        return EndAtMark();
    const bool eventsAreDue = m_rows.Given() % RowsBetweenEvents == 0;
    return m_rows.AtEnd() && !eventsAreDue ? EndOfAnswer() : LoadStep::More;
}

LoadStep ConNodesLoading::EndOfAnswer()
{
    if (m_position <= 0)
        return End();
    m_state = State::Reading;
    return LoadStep::More;
}

LoadStep ConNodesLoading::EndAtMark()
{
    TreeEntries& tree = *Load().LoadTree;
    const QString prefix = Load().LoadKeySuffix + QLatin1Char(',');
    tree.SetKey(tree.FindByKey(prefix + QString::number(m_lastId)), prefix + QString::number(-m_lastId));
    return End();
}

LoadStep ConNodesLoading::End()
{
    Load().LoadTree->SetSorted(Load().LoadParentNode, true);
    if (Load().LoadAddRoot)
        Load().LoadTree->SetExpanded(Load().LoadParentNode, true);
    return LoadStep::Done;
}
