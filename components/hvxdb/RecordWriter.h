#pragma once

#include "components/hvxdb/HvxStore.h"

/// Writes connections and nodes. Each procedure happens whole or not at all, needs the edit right and raises
/// ComponentError: Refused for a taken or empty name, a missing record, a missing right.
///
/// Names are stored trimmed. Ids and Journal records are the business of the database's triggers.
class RecordWriter
{
public:
    explicit RecordWriter(HvxStore& store) : m_store(&store) {}

    void SaveConnection(const QString& name, const QString& target);
    void SaveNode(const QString& name, const QString& nodeType, const QString& target, const QString& conName,
                  const QString& commandTail);
    /// The users text goes along.
    void RenameConnection(const QString& oldName, const QString& newName);
    void RenameNode(const QString& oldName, const QString& newName);
    void SetConnectionTarget(const QString& name, const QString& target);
    void SetNodeTarget(const QString& name, const QString& conName, const QString& target);
    void DeleteConnection(const QString& name, bool withNodes);
    void DeleteNodesOf(const QString& conName);
    void DeleteNode(const QString& name, bool keepUsersText);
    void StoreUsersText(const QString& kind, const QString& name, const QString& users);
    void SetNodeManager(const QString& name, const QString& index);

private:
    struct KindOfRecord;

    void Rename(const KindOfRecord& kind, const QString& oldName, const QString& newName);
    void DeleteNodesAndTexts(const QString& key);

    HvxStore* m_store;
};
