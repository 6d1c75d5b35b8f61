#include "tools/zelka/EditSession.h"

#include "database/DatabaseClass.h"
#include "database/DatabaseState.h"
#include "database/UnitOfWork.h"
#include "model/ConData.h"
#include "model/LookupHelpers.h"
#include "model/TextHelpers.h"
#include "model/TreeFilling.h"
#include "platform/MachineSeams.h"
#include "tools/zelka/CommandError.h"
#include "tools/zelka/ImportPlan.h"

#include <algorithm>

EditSession::EditSession(CommandContext& context) : m_session(context)
{
    RequireEditRight(m_session);
    ReadTimeRetryNames();
    for (TreeEntries* const tree : {&m_conTree, &m_nodesTree})
        tree->Add(0, RootKey, QString());
    Con().ConTree = &m_conTree;
    Con().NodesTree = &m_nodesTree;
}

void EditSession::LoadConnection(const FoundRecord& record)
{
    const bool loaded = UnitOfWork({}).Run([&](UnitOfWork& unit) {
        unit.Begin();
        if (!Con().SetParentConData(record.name, true))
            unit.Refuse(QStringLiteral("Failure to get connection data from database."), ErrorBoxFlags(),
                        ErrorBoxTitle());
        unit.Commit();
    });
    if (!loaded)
        m_session.Refused();
}

void EditSession::LoadNode(const FoundRecord& record)
{
    const bool loaded = UnitOfWork({}).Run([&](UnitOfWork& unit) {
        unit.Begin();
        QString id;
        if (!Con().SetNodeDataFromNodeName(record.name) || !Gateway().GetNodeIDDb(record.name, id))
            unit.Refuse(QStringLiteral("Failure to get node data from database."), ErrorBoxFlags(),
                        ErrorBoxTitle());
        Con().NodeDbID = ValInt(id);
        unit.Commit();
    });
    if (!loaded)
        m_session.Refused();
}

void EditSession::ShowEntry(const FoundRecord& record)
{
    TreeEntries& tree = record.isConnection ? m_conTree : m_nodesTree;
    AddTreeEntry(tree, RootKey, TreeChild,
                 (record.isConnection ? QStringLiteral("C,") : QStringLiteral("N,")) +
                     QString::number(record.id),
                 record.name);
}

QString EditSession::CheckedTarget(const QString& target) const
{
    QString reformatted;
    bool valid = false;
    m_session.Require(Gateway().CheckTargetSyntaxDb(target, 0, reformatted, valid));
    if (!valid)
        throw CommandError(ExitCode::Refused, QStringLiteral("The target \"%1\" is refused.").arg(target));
    return reformatted;
}

void RequireEditRight(const DatabaseSession& session)
{
    session.Require(session.Gateway().SetUserSecurityDb());
    if (!Database().EditRight)
        throw CommandError(ExitCode::Refused,
                           QStringLiteral("%1 has no right to edit the database.").arg(Machine().UserName()));
}

QString CheckedNewName(const QString& name)
{
    const QString trimmed = Trim(name);
    if (trimmed.contains(u','))
        throw CommandError(ExitCode::Refused, QStringLiteral("The name \"%1\" holds a comma.").arg(trimmed));
    if (std::any_of(trimmed.begin(), trimmed.end(),
                    [](QChar c) { return c.category() == QChar::Other_Control; }))
        throw CommandError(ExitCode::Refused, QStringLiteral("The name holds control characters."));
    if (trimmed.size() > ImportPlan::MaxNameLength)
        throw CommandError(
            ExitCode::Refused,
            QStringLiteral("The name has more than %1 characters.").arg(ImportPlan::MaxNameLength));
    return trimmed;
}

void RefuseTypeBesideTarget(const RecordChanges& changes)
{
    if (changes.type && changes.target)
        throw CommandError(ExitCode::Usage, QStringLiteral("A type and a target cannot be given together."));
}
