#include "bench/BareJournal.h"

#include "components/hvxdb/HvxAdministration.h"

#include <cstdio>
#include <cstdlib>
#include <vector>

BareJournal::BareJournal(const QString& file)
    : m_database(file),
      m_ids(m_database.Prepare("SELECT id FROM journal WHERE id > ? ORDER BY id")),
      m_record(m_database.Prepare("SELECT record_type, text1, number, text2 FROM journal WHERE id = ?")),
      m_node(m_database.Prepare("SELECT n.id, c.name, n.target FROM node n"
                                " JOIN connection c ON c.row_key = n.connection_key"
                                " WHERE n.name_key = ?"))
{
    // As the product reads.
    m_database.Execute("PRAGMA cache_size = -16384");
}

BareJournal::~BareJournal()
{
    for (sqlite3_stmt* const statement : {m_ids, m_record, m_node})
        sqlite3_finalize(statement);
}

int BareJournal::Read(qint64 after)
{
    m_database.Execute("BEGIN");
    sqlite3_bind_int64(m_ids, 1, after);
    std::vector<qint64> ids;
    while (sqlite3_step(m_ids) == SQLITE_ROW)
        ids.push_back(sqlite3_column_int64(m_ids, 0));
    sqlite3_reset(m_ids);
    for (const qint64 id : ids)
        ReadRecord(id);
    m_database.Execute("COMMIT");
    return static_cast<int>(ids.size());
}

void BareJournal::ReadRecord(qint64 id)
{
    sqlite3_bind_int64(m_record, 1, id);
    if (sqlite3_step(m_record) != SQLITE_ROW) {
        std::fprintf(stderr, "bare side: no record %lld\n", static_cast<long long>(id));
        std::exit(2);
    }
    const int type = sqlite3_column_int(m_record, 0);
    const QString name = ColumnText(m_record, 1);
    m_sum += sqlite3_column_int(m_record, 2) + ColumnText(m_record, 3).size();
    sqlite3_reset(m_record);
    if (type == 30 || type == 40)
        ReadNode(name);
}

void BareJournal::ReadNode(const QString& name)
{
    BindText(m_node, 1, FoldedName(name));
    if (sqlite3_step(m_node) == SQLITE_ROW) {
        ++m_nodes;
        m_sum += sqlite3_column_int(m_node, 0) + ColumnText(m_node, 1).size() + ColumnText(m_node, 2).size();
    }
    sqlite3_reset(m_node);
}
