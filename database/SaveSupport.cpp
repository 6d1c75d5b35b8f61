#include "database/SaveSupport.h"

#include "database/UnitOfWork.h"
#include "platform/MsgBox.h"
#include "platform/Words.h"

SaveFlags::SaveFlags(ConData& con)
    : m_con(con),
      m_newCon(con.NewCon),
      m_newNode(con.NewNode),
      m_conName(con.ConName),
      m_nodeName(con.NodeName),
      m_conWpCount(con.ConWpCount),
      m_conDbId(con.ConDbID),
      m_nodeDbId(con.NodeDbID),
      m_selectedTreeNodeIndex(con.SelectedTreeNodeIndex)
{}

SaveFlags::~SaveFlags()
{
    if (m_kept)
        return;
    m_con.NewCon = m_newCon;
    m_con.NewNode = m_newNode;
    m_con.ConName = m_conName;
    m_con.NodeName = m_nodeName;
    m_con.ConWpCount = m_conWpCount;
    m_con.ConDbID = m_conDbId;
    m_con.NodeDbID = m_nodeDbId;
    m_con.SelectedTreeNodeIndex = m_selectedTreeNodeIndex;
}

QString SaveText::ParametersRefused()
{
    return Words::tr(
        "No saving, because of an error in waypoint parameters or mandatory waypoint is missing all its "
        "parameters.");
}

QString SaveText::SearchFailure()
{
    return Words::tr("Failure in database search.");
}

QString SaveText::ReservedName()
{
    return Words::tr("'New Connection' cannot be used as a connection name, give a new name.");
}

QString SaveText::ConnectionFailure()
{
    return Words::tr("Error in connection database saving.");
}

QString SaveText::ConnectionUnread()
{
    return Words::tr("Failure to get connection data from database.");
}

void AskToReplace(UnitOfWork& unit, const QString& question, const QString& title, const QString& cancelText)
{
    // The question must not hold the database, and what a transaction that cannot be ended would make of the
    // next one is not known.
    if (!unit.RollbackForGood())
        UnitOfWork::Fail();
    if (MsgBox(question, BoxFlags::OkCancel, title) != BoxAnswer::Ok) {
        if (cancelText.isEmpty())
            UnitOfWork::GiveUp();
        UnitOfWork::RefuseEnded(cancelText);
    }
    unit.Begin();
}

void FailAfterRollback(UnitOfWork& unit)
{
    unit.Rollback();
    UnitOfWork::Fail();
}

void RollbackFailedSave(UnitOfWork& unit, const QString& errorText)
{
    if (errorText.isEmpty())
        FailAfterRollback(unit);
    unit.Refuse(errorText);
}

void CommitFailedSave(UnitOfWork& unit, const QString& errorText)
{
    unit.CommitBeforeRefusal();
    if (errorText.isEmpty())
        UnitOfWork::Fail();
    UnitOfWork::RefuseEnded(errorText);
}
