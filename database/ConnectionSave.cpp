#include "database/ConnectionSave.h"

#include "database/Gateway.h"
#include "database/SaveRoutines.h"
#include "database/SaveSupport.h"
#include "database/UnitOfWork.h"
#include "model/ConData.h"
#include "model/TextHelpers.h"
#include "platform/Words.h"

namespace {

/// The steps of one save, inside its unit of work.
class ConnectionSaving
{
public:
    ConnectionSaving(UnitOfWork& unit, ConData& con, QString& name) : m_unit(unit), m_con(con), m_name(name)
    {}

    void Run();

private:
    void ComposeTarget();
    void CheckConnectionName();
    void AskForReplacement();
    void RefuseNodeName();
    void SaveAsNew();
    void Change();
    void RequireUnchanged(const QString& name, qint32 id);
    /// The id, the name and the entry that the saved connection now has.
    void TakeRecord(qint32 position);

    UnitOfWork& m_unit;
    ConData& m_con;
    QString& m_name;
    bool m_replace = false;
};

void ConnectionSaving::Run()
{
    m_unit.Begin();
    m_name = Trim(m_name);
    ComposeTarget();
    CheckConnectionName();
    RefuseNodeName();
    if (m_con.NewCon)
        SaveAsNew();
    else
        Change();
    m_unit.Commit();
}

void ConnectionSaving::ComposeTarget()
{
    if (!m_con.SetTargetString(true) || m_name.isEmpty())
        m_unit.Refuse(SaveText::ParametersRefused());
}

void ConnectionSaving::CheckConnectionName()
{
    bool exists = false;
    if (!Gateway().ConNameExistDb(m_name, exists))
        FailAfterRollback(m_unit);
    if (!exists)
        return;
    if (m_name != m_con.ConName)
        m_unit.Refuse(Words::tr("Connection %1 already exists. Give a new name.").arg(m_name),
                      BoxFlags::Plain, Words::tr("Information"));
    if (m_con.NewCon)
        AskForReplacement();
}

void ConnectionSaving::AskForReplacement()
{
    QString id;
    if (!Gateway().GetParentIDDb(m_name, id))
        m_unit.Refuse(SaveText::ConnectionUnread());
    AskToReplace(m_unit,
                 Words::tr("Connection %1 exists in database. Do you want to replace it ?").arg(m_name),
                 Words::tr("Replace Connection"));
    // Only what the operator has been asked about is replaced.
    RequireUnchanged(m_name, ValInt(id));
    m_replace = true;
    m_con.NewCon = false;
}

void ConnectionSaving::RefuseNodeName()
{
    bool exists = false;
    if (!Gateway().NodeNameExistDb(m_name, exists))
        m_unit.Refuse(SaveText::SearchFailure());
    if (exists)
        m_unit.Refuse(Words::tr("Node name %1 already exists in the database. No saving, because "
                                "connections and nodes cannot share the same name.")
                          .arg(m_name));
}

void ConnectionSaving::SaveAsNew()
{
    qint32 position = 0;
    QString errorText;
    if (!SaveNewConnection(m_name, m_con.TargetString, *m_con.ConTree, position, m_con.ViewNodesChecked,
                           errorText))
        CommitFailedSave(m_unit, errorText);
    TakeRecord(position);
}

void ConnectionSaving::Change()
{
    if (!m_replace)
        RequireUnchanged(m_con.ConName, m_con.ConDbID);
    qint32 position = 0;
    if (!SaveConnectionChanges(m_con.ConName, m_name, m_con.TargetString, *m_con.ConTree,
                               m_con.ViewNodesChecked, position))
        m_unit.Refuse(SaveText::ConnectionFailure());
    TakeRecord(position);
}

void ConnectionSaving::RequireUnchanged(const QString& name, qint32 id)
{
    QString current;
    if (!Gateway().GetParentIDDb(name, current) || ValInt(current) != id)
        m_unit.Refuse(Words::tr("Save is prevented, because another application has changed this "
                                "connection. Close dialog and try again."));
}

void ConnectionSaving::TakeRecord(qint32 position)
{
    QString id;
    if (!Gateway().GetParentIDDb(m_name, id))
        m_unit.Refuse(SaveText::ConnectionUnread());
    m_con.ConDbID = ValInt(id);
    m_con.ConName = m_name;
    m_con.SelectedTreeNodeIndex = position;
}

} // namespace

bool SaveConnection(ConData& con, QString& name)
{
    SaveFlags flags(con);
    UnitOfWork unit{con.ConTree, con.NodesTree};
    if (!unit.Run([&](UnitOfWork& work) { ConnectionSaving(work, con, name).Run(); }))
        return false;
    flags.Keep();
    return true;
}

bool IsReservedConnectionName(const QString& name)
{
    return TrimBlanks(name).compare(u"New Connection", Qt::CaseInsensitive) == 0;
}
