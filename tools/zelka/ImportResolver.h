#pragma once

#include "components/hvxdb/HvxAdministration.h"
#include "tools/zelka/ImportPlan.h"

#include <QHash>
#include <QSet>

/// What happens to a row whose name a stored record has.
enum class ConflictRule
{
    Fail,
    Skip,
    Update,
    Rename,
};

/// A row that gets another name.
struct ImportRename
{
    quint32 line = 0;
    QString from;
    QString to;
};

/// Settles a plan against what a database holds: conflicts of names, references to connections and
/// managers. Give it all managers, connections and nodes, then call Resolve.
///
/// Memory: the names of the stored connections, and of stored nodes only those that look renamed.
class ImportResolver
{
public:
    ImportResolver(ImportPlan& plan, ConflictRule rule, ImportProblems& problems);

    void TakeManagers(const std::vector<ManagerRecord>& managers);
    void TakeStored(const ConnectionRecord& connection);
    void TakeStored(const NodeRecord& node);

    /// Settles what is left once all is known.
    void Resolve();

    [[nodiscard]] const std::vector<ImportRename>& Renames() const { return m_renames; }

private:
    [[nodiscard]] ImportRow* RowNamed(const QString& name);
    /// Settles a conflict where the rule alone decides. True: the row updates the stored record.
    [[nodiscard]] bool TakeConflict(ImportRow& row, ImportKind storedKind);
    void NoteStoredName(const QString& name);
    void ChooseName(quint32 row);
    [[nodiscard]] QString FreeName(const QString& name) const;
    void ResolveConnection(ImportRow& row);
    /// The name that a reference means in the end; nothing when there is no such connection.
    [[nodiscard]] std::optional<QByteArray> ReferredConnection(const QString& name) const;
    void CheckManager(const ImportRow& row);

    ImportPlan& m_plan;
    ConflictRule m_rule;
    ImportProblems& m_problems;
    /// Folded to stored name.
    QHash<QString, QByteArray> m_storedConnections;
    /// Folded names that end like "(2)"; only for renaming.
    QSet<QString> m_storedNumberedNames;
    QSet<QString> m_devices;
    QSet<QString> m_managerIndices;
    std::vector<quint32> m_rowsToRename;
    std::vector<ImportRename> m_renames;
    QHash<quint32, QByteArray> m_newNames;
    QSet<QString> m_givenNames;
    QByteArray m_lastReference;
    QByteArray m_lastReferred;
};

/// "index|tail" of a node's manager, or the tail alone where neither an index nor a "|" in the tail asks for
/// the sign.
QString JoinCommand(const QString& managerIndex, const QString& tail);

/// Splits at the first "|"; a text without one has no index.
void SplitCommand(const QString& command, QString& managerIndex, QString& tail);
