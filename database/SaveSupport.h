#pragma once

#include "model/ConData.h"

#include <QString>

class UnitOfWork;

/// Remembers the flags, names, counts and ids of a working copy that a save changes on its way, and puts them
/// back when it ends, unless they were kept.
class SaveFlags
{
public:
    explicit SaveFlags(ConData& con);
    ~SaveFlags();
    SaveFlags(const SaveFlags&) = delete;
    SaveFlags& operator=(const SaveFlags&) = delete;

    void Keep() { m_kept = true; }

private:
    ConData& m_con;
    bool m_kept = false;
    bool m_newCon;
    bool m_newNode;
    QString m_conName;
    QString m_nodeName;
    int m_conWpCount;
    qint32 m_conDbId;
    qint32 m_nodeDbId;
    qint32 m_selectedTreeNodeIndex;
};

/// Words that the saves of connections and nodes share.
namespace SaveText {

QString ParametersRefused();
QString SearchFailure();
QString ReservedName();
QString ConnectionFailure();
QString ConnectionUnread();

} // namespace SaveText

/// Asks, without a transaction, whether a record may be replaced, and goes on in a new one. Cancel, or a
/// refused begin, ends the work; `cancelText` is told after Cancel.
void AskToReplace(UnitOfWork& unit, const QString& question, const QString& title,
                  const QString& cancelText = QString());

/// Rolls back and ends the work with the report that a database operation failed.
[[noreturn]] void FailAfterRollback(UnitOfWork& unit);

/// Ends the work without what a save routine has done; tells its error text, or, where it has none, that a
/// database operation failed.
[[noreturn]] void RollbackFailedSave(UnitOfWork& unit, const QString& errorText);

/// Ends the work but keeps what a save routine has done; tells its error text where it has one.
[[noreturn]] void CommitFailedSave(UnitOfWork& unit, const QString& errorText);
