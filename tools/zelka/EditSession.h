#pragma once

#include "model/TreeEntries.h"
#include "tools/zelka/Assignments.h"
#include "tools/zelka/DatabaseSession.h"
#include "tools/zelka/RecordLookup.h"

#include <optional>

/// What a command that writes works with: the gateway, the working copy, and trees that hold no more than
/// the record concerned, which the save routines bring into line.
class EditSession
{
public:
    /// Raises CommandError: DatabaseUnavailable, or Refused for a user who may not edit.
    explicit EditSession(CommandContext& context);
    EditSession(const EditSession&) = delete;
    EditSession& operator=(const EditSession&) = delete;

    [[nodiscard]] const DatabaseSession& Session() const { return m_session; }
    [[nodiscard]] DatabaseClass& Gateway() const { return m_session.Gateway(); }
    [[nodiscard]] ConData& Con() const { return m_session.Connection(); }
    [[nodiscard]] TreeEntries& ConTree() { return m_conTree; }
    [[nodiscard]] TreeEntries& NodesTree() { return m_nodesTree; }

    /// Loads a record into the working copy, with its id, in one transaction. Raise CommandError.
    void LoadConnection(const FoundRecord& record);
    void LoadNode(const FoundRecord& record);
    /// Gives the record its entry in the tree of its kind.
    void ShowEntry(const FoundRecord& record);

    /// The target in the database's spelling. Raises CommandError (Refused).
    [[nodiscard]] QString CheckedTarget(const QString& target) const;

private:
    DatabaseSession m_session;
    TreeEntries m_conTree;
    TreeEntries m_nodesTree;
};

/// Raises CommandError: DatabaseUnavailable, or Refused for a user who may not edit.
void RequireEditRight(const DatabaseSession& session);

/// A record that was saved.
struct EditedRecord
{
    QString kind;
    QString name;
    qint32 id = 0;
};

/// A name that is given anew, without blanks at its ends. Raises CommandError (Refused) for one that would
/// break lists or is too long.
[[nodiscard]] QString CheckedNewName(const QString& name);

/// Raises CommandError (Usage) when both a type and a target are given.
void RefuseTypeBesideTarget(const RecordChanges& changes);
