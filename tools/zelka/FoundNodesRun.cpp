#include "tools/zelka/FoundNodesRun.h"

#include "components/hvxdb/ItemText.h"
#include "database/DatabaseClass.h"
#include "model/ConData.h"
#include "model/TextHelpers.h"
#include "scan/network/FoundNodeSave.h"
#include "tools/zelka/AddressWalk.h"
#include "tools/zelka/CommandContext.h"
#include "tools/zelka/CommandError.h"
#include "tools/zelka/DatabaseSession.h"
#include "tools/zelka/Interruption.h"
#include "tools/zelka/ScanSaveOptions.h"

#include <algorithm>

namespace {

const QString Saved = QStringLiteral("saved");
const QString Replaced = QStringLiteral("replaced");
const QString Refused = QStringLiteral("refused");
const QString Failed = QStringLiteral("failed");
const QString Unsaved = QStringLiteral("unsaved");
const QString Found = QStringLiteral("found");

QString WordOf(NameStanding standing)
{
    switch (standing) {
    case NameStanding::New:
        return QStringLiteral("new");
    case NameStanding::Known:
        return QStringLiteral("known");
    case NameStanding::Elsewhere:
        return QStringLiteral("elsewhere");
    case NameStanding::Taken:
        return QStringLiteral("taken");
    case NameStanding::Unusable:
        return QStringLiteral("unusable");
    }
    return {};
}

} // namespace

// Steps -----------------------------------------------------------------------------------------------------

void FoundNodesRun::Take(const AnsweringNode& node, const QString& retries, const QString& timeOut)
{
    PlannedNode planned;
    planned.row =
        FoundNodeRows({{QString::number(node.address), node.type, node.identification}}, retries, timeOut)
            .front();
    planned.row.name = m_options.NameOf(planned.row);
    planned.identification = node.identification;
    m_nodes.push_back(planned);
}

void FoundNodesRun::Run()
{
    if (m_nodes.empty())
        return;
    DatabaseSession session(m_context);
    RequireUnchanged(session);
    PlanFoundNodes(session, m_direct.ConName, m_nodes);
    m_planned = true;
    m_refused = static_cast<int>(std::count_if(m_nodes.begin(), m_nodes.end(),
                                               [this](const PlannedNode& node) { return IsRefused(node); }));
    if (m_options.DryRun())
        PrintPlan();
    else if (m_refused > 0 && m_options.OnConflict() == ScanSaveOptions::Conflict::Fail)
        PrintRefusals();
    else
        SaveAll(session);
}

void FoundNodesRun::RequireUnchanged(const DatabaseSession& session) const
{
    bool exists = false;
    QString id;
    session.Require(session.Gateway().ConNameExistDb(m_direct.ConName, exists));
    if (exists)
        session.Require(session.Gateway().GetParentIDDb(m_direct.ConName, id));
    if (!exists || ValInt(id) != m_direct.ConDbID)
        throw CommandError(ExitCode::Refused, ScannedConnectionChanged(m_direct.ConName));
}

bool FoundNodesRun::MayReplace(const PlannedNode& node) const
{
    return node.replaceable && m_options.OnConflict() == ScanSaveOptions::Conflict::Replace;
}

bool FoundNodesRun::IsRefused(const PlannedNode& node) const
{
    return node.standing != NameStanding::New && node.standing != NameStanding::Known && !MayReplace(node);
}

void FoundNodesRun::PrintPlan()
{
    for (const PlannedNode& node : m_nodes)
        PrintNext(WordOf(node.standing), node.reason);
}

void FoundNodesRun::PrintRefusals()
{
    for (const PlannedNode& node : m_nodes) {
        if (IsRefused(node))
            PrintNext(Refused, node.reason);
        else if (node.standing == NameStanding::Known)
            PrintNext(WordOf(node.standing));
        else
            PrintNext(Unsaved, QStringLiteral("Other nodes are refused."));
    }
}

// Save ------------------------------------------------------------------------------------------------------

void FoundNodesRun::SaveAll(DatabaseSession& session)
{
    session.ForgetLastText();
    if (!LoadFoundNodeType(m_direct))
        session.Refused();
    while (m_printed < m_nodes.size()) {
        Interruption::Require();
        SaveNext(session);
    }
}

void FoundNodesRun::SaveNext(DatabaseSession& session)
{
    const PlannedNode& node = m_nodes[m_printed];
    if (IsRefused(node)) {
        PrintNext(Refused, node.reason);
        return;
    }
    if (node.standing == NameStanding::Known) {
        PrintNext(WordOf(node.standing));
        return;
    }
    session.ForgetLastText();
    TakeManager(session, node);
    ConData unused;
    switch (SaveFoundNode(m_direct, unused, node.row, MayReplace(node))) {
    case FoundNodeOutcome::Saved:
        ++m_saved;
        PrintNext(m_direct.NewNode ? Saved : Replaced);
        return;
    case FoundNodeOutcome::NotSaved:
        ++m_refused;
        PrintNext(Refused, session.LastText().isEmpty()
                               ? QStringLiteral("The name has been given away meanwhile.")
                               : session.LastText());
        return;
    case FoundNodeOutcome::Denied:
    case FoundNodeOutcome::ConnectionChanged:
    case FoundNodeOutcome::Failed:
        PrintNext(Failed, session.LastText());
        session.Refused();
    }
}

/// The device of a node in the database and its manager are the operator's; no scan tells them.
void FoundNodesRun::TakeManager(const DatabaseSession& session, const PlannedNode& node)
{
    m_direct.NodeType.clear();
    m_direct.CommandLine.clear();
    if (!MayReplace(node))
        return;
    QString conName;
    QString target;
    session.Require(session.Gateway().GetNodeExDb(node.row.name, conName, target, m_direct.NodeType,
                                                  m_direct.CommandLine));
}

// Telling ---------------------------------------------------------------------------------------------------

void FoundNodesRun::PrintNext(const QString& state, const QString& reason)
{
    const PlannedNode& node = m_nodes[m_printed++];
    CommandOutput& output = m_context.output;
    if (output.Json())
        output.Item({{QStringLiteral("address"), ValInt(node.row.address)},
                     {QStringLiteral("type"), node.row.type},
                     {QStringLiteral("identification"), node.identification},
                     {QStringLiteral("name"), node.row.name},
                     {QStringLiteral("state"), state},
                     {QStringLiteral("reason"), reason}});
    else
        output.Line(
            QStringList{node.row.address, state, ListItem(node.row.name), ListItem(reason)}.join(u'\t'));
    output.Flush();
}

QString FoundNodesRun::SavedWords() const
{
    return m_saved == 0 ? QStringLiteral("Nothing is saved.")
                        : QStringLiteral("%1 of %2 found nodes are saved.").arg(m_saved).arg(m_nodes.size());
}

void FoundNodesRun::TellEnd()
{
    if (!m_options.DryRun())
        m_context.output.Words(SavedWords());
    // As lines they have been printed when they answered.
    if (!m_planned && !m_context.output.Json())
        return;
    while (m_printed < m_nodes.size()) {
        if (m_planned)
            PrintNext(Unsaved, QStringLiteral("The command ended before it was saved."));
        else
            PrintNext(Found, QStringLiteral("The command ended before its name was checked."));
    }
}

void FoundNodesRun::RequireNoneRefused() const
{
    if (m_refused == 0)
        return;
    QString text = QStringLiteral("%1 of %2 found nodes").arg(m_refused).arg(m_nodes.size());
    if (m_options.DryRun())
        text += QStringLiteral(" would be refused.");
    else
        text += QStringLiteral(" are refused. ") + SavedWords();
    throw CommandError(ExitCode::Refused, text);
}
