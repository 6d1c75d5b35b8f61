#include "components/hvxdb/RecordWriter.h"

#include "components/hvxdb/HvxAdministration.h"
#include "components/hvxdb/HvxNames.h"
#include "components/hvxdb/SqlFailure.h"

namespace {

/// Kinds of users texts, as the browser names them.
const QString ConnectionTexts = QStringLiteral("Parent");
const QString NodeTexts = QStringLiteral("NodeWP");

QString MissingConnection(const QString& name)
{
    return QStringLiteral("There is no connection %1.").arg(name);
}

QString MissingNode(const QString& name)
{
    return QStringLiteral("There is no node %1.").arg(name);
}

} // namespace

/// What renaming does alike for both kinds of records.
struct RecordWriter::KindOfRecord
{
    HvxStatement rename;
    HvxStatement setKey;
    QString texts;
    QString (*missing)(const QString& name);
};

void RecordWriter::SaveConnection(const QString& name, const QString& target)
{
    const QString stored = StoredName(name);
    WriteScope scope(*m_store);
    if (m_store->Session().Write(HvxStatement::InsertConnection, {stored, FoldedName(stored), target}) == 0)
        RaiseRefusal(TakenName(stored));
    scope.Commit();
}

void RecordWriter::SaveNode(const QString& name, const QString& nodeType, const QString& target,
                            const QString& conName, const QString& commandTail)
{
    const QString stored = StoredName(name);
    WriteScope scope(*m_store);
    const int saved =
        m_store->Session().Write(HvxStatement::InsertNode, {stored, FoldedName(stored), nodeType, target,
                                                            commandTail, FoldedName(conName)});
    if (saved == 0)
        RaiseRefusal(MissingConnection(conName));
    scope.Commit();
}

void RecordWriter::RenameConnection(const QString& oldName, const QString& newName)
{
    Rename(
        {HvxStatement::RenameConnection, HvxStatement::SetConnectionKey, ConnectionTexts, MissingConnection},
        oldName, newName);
}

void RecordWriter::RenameNode(const QString& oldName, const QString& newName)
{
    Rename({HvxStatement::RenameNode, HvxStatement::SetNodeKey, NodeTexts, MissingNode}, oldName, newName);
}

void RecordWriter::Rename(const KindOfRecord& kind, const QString& oldName, const QString& newName)
{
    const QString stored = StoredName(newName);
    const QString oldKey = FoldedName(oldName);
    const QString newKey = FoldedName(stored);
    WriteScope scope(*m_store);
    SqlSession& session = m_store->Session();
    if (session.Write(kind.rename, {stored, newKey, oldKey}) == 0)
        RaiseRefusal(kind.missing(oldName));
    if (NeedsOwnKey(stored))
        session.Write(kind.setKey, {newKey});
    if (newKey != oldKey) {
        // A text that an earlier record of the new name left behind makes room.
        session.Write(HvxStatement::DeleteUsersText, {kind.texts, newKey});
        session.Write(HvxStatement::MoveUsersText, {newKey, kind.texts, oldKey});
    }
    scope.Commit();
}

void RecordWriter::SetConnectionTarget(const QString& name, const QString& target)
{
    WriteScope scope(*m_store);
    if (m_store->Session().Write(HvxStatement::SetConnectionTarget, {target, FoldedName(name)}) == 0)
        RaiseRefusal(MissingConnection(name));
    scope.Commit();
}

void RecordWriter::SetNodeTarget(const QString& name, const QString& conName, const QString& target)
{
    WriteScope scope(*m_store);
    if (m_store->Session().Write(HvxStatement::SetNodeTarget,
                                 {target, FoldedName(conName), FoldedName(name)}) == 0) {
        RaiseRefusal(QStringLiteral("There is no node %1 or no connection %2.").arg(name, conName));
    }
    scope.Commit();
}

void RecordWriter::DeleteConnection(const QString& name, bool withNodes)
{
    const QString key = FoldedName(name);
    WriteScope scope(*m_store);
    SqlSession& session = m_store->Session();
    if (withNodes) {
        DeleteNodesAndTexts(key);
    } else {
        SqlRows rows = session.Read(HvxStatement::NodeCountOfConnection, {key});
        if (rows.Next() && rows.Number(0) > 0)
            RaiseRefusal(QStringLiteral("Connection %1 has nodes.").arg(name));
    }
    if (session.Write(HvxStatement::DeleteConnection, {key}) == 0)
        RaiseRefusal(MissingConnection(name));
    session.Write(HvxStatement::DeleteUsersText, {ConnectionTexts, key});
    scope.Commit();
}

void RecordWriter::DeleteNodesOf(const QString& conName)
{
    const QString key = FoldedName(conName);
    WriteScope scope(*m_store);
    {
        SqlRows rows = m_store->Session().Read(HvxStatement::ConnectionKey, {key});
        if (!rows.Next())
            RaiseRefusal(MissingConnection(conName));
    }
    DeleteNodesAndTexts(key);
    scope.Commit();
}

void RecordWriter::DeleteNodesAndTexts(const QString& key)
{
    SqlSession& session = m_store->Session();
    session.Write(HvxStatement::DeleteUsersTextsOfNodes, {NodeTexts, key});
    session.Write(HvxStatement::DeleteNodesOfConnection, {key});
}

void RecordWriter::DeleteNode(const QString& name, bool keepUsersText)
{
    const QString key = FoldedName(name);
    WriteScope scope(*m_store);
    SqlSession& session = m_store->Session();
    if (session.Write(HvxStatement::DeleteNode, {key}) == 0)
        RaiseRefusal(MissingNode(name));
    if (!keepUsersText)
        session.Write(HvxStatement::DeleteUsersText, {NodeTexts, key});
    scope.Commit();
}

void RecordWriter::StoreUsersText(const QString& kind, const QString& name, const QString& users)
{
    WriteScope scope(*m_store);
    m_store->Session().Write(HvxStatement::StoreUsersText, {kind, FoldedName(name), users});
    scope.Commit();
}

void RecordWriter::SetNodeManager(const QString& name, const QString& index)
{
    bool isNumber = false;
    const int number = index.trimmed().toInt(&isNumber);
    WriteScope scope(*m_store);
    SqlSession& session = m_store->Session();
    bool known = false;
    if (isNumber) {
        SqlRows rows = session.Read(HvxStatement::ManagerExists, {number});
        known = rows.Next();
    }
    if (!known)
        RaiseRefusal(QStringLiteral("There is no manager %1.").arg(index));
    if (session.Write(HvxStatement::SetNodeManager, {number, FoldedName(name)}) == 0)
        RaiseRefusal(MissingNode(name));
    scope.Commit();
}
