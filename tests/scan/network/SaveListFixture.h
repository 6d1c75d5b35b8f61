#pragma once

#include "scan/network/FoundNodeSave.h"
#include "scan/network/ScanState.h"
#include "tests/database/SaveFixture.h"

/// Nodes that a scan has found on Alpha, on their way into the database; see SaveFixture for its records.
class SaveListFixture : public SaveFixture
{
public:
    explicit SaveListFixture(const std::function<void()>& useOther = {});
    ~SaveListFixture();
    SaveListFixture(const SaveListFixture&) = delete;
    SaveListFixture& operator=(const SaveListFixture&) = delete;

    /// Alpha, with the tables of the nodes' type once nodes are found, and what is composed on the Direct
    /// tab.
    ConData Direct;
    ConData NewDirect;

    /// A node of that name at each address from 101 on, all named by their identification. Forgets what was
    /// recorded.
    void FindNodes(const QStringList& names);
    /// Loads the connection again, as before anything was found.
    void LoadDirect();
    /// Selects rows from 1, as the list does; none: all.
    void Select(std::vector<int> rows = {});

    [[nodiscard]] static ScanSaveRow& Row(int row);
    [[nodiscard]] static QStringList Names();
    /// "exists", "free" or "saved" of each row.
    [[nodiscard]] static QStringList States();
    /// Names of the nodes in the store, sorted.
    [[nodiscard]] QStringList Nodes() const;
    [[nodiscard]] QString TargetOf(const QString& node) const;
    /// What a save that is refused leaves as it was in the connection.
    [[nodiscard]] QStringList DirectFlags() const;
};
