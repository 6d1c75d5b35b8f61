#pragma once

#include "bench/BareDatabase.h"

/// Reads records of the Journal and the nodes that they name through the SQLite C API: the ids behind a
/// record, then each record by its id, and for each that tells of a saved node that node by its name, with
/// its connection and its target. All in one transaction, each statement prepared once, texts as QString.
class BareJournal
{
public:
    explicit BareJournal(const QString& file);
    ~BareJournal();
    BareJournal(const BareJournal&) = delete;
    BareJournal& operator=(const BareJournal&) = delete;

    /// Gives the number of records behind `after`. Ends the program when one cannot be read.
    int Read(qint64 after);
    /// Nodes that were found by name.
    [[nodiscard]] int Nodes() const { return m_nodes; }

private:
    void ReadRecord(qint64 id);
    void ReadNode(const QString& name);

    BareDatabase m_database;
    sqlite3_stmt* m_ids;
    sqlite3_stmt* m_record;
    sqlite3_stmt* m_node;
    int m_nodes = 0;
    /// Keeps the reading from being left out.
    qint64 m_sum = 0;
};
