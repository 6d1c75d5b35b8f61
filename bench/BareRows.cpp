#include "bench/BareRows.h"

#include <algorithm>

std::vector<BareRow> ReadBareRows(BareDatabase& database, int after, int limit)
{
    sqlite3_stmt* statement = database.Prepare("SELECT name, id FROM node WHERE id > ? ORDER BY id LIMIT ?");
    sqlite3_bind_int(statement, 1, after);
    sqlite3_bind_int(statement, 2, limit);
    std::vector<BareRow> rows;
    while (sqlite3_step(statement) == SQLITE_ROW)
        rows.push_back({ColumnText(statement, 0), sqlite3_column_int(statement, 1)});
    sqlite3_finalize(statement);
    return rows;
}

void SortBareRows(std::vector<BareRow>& rows)
{
    std::sort(rows.begin(), rows.end(), [](const BareRow& left, const BareRow& right) {
        if (const int order = left.name.compare(right.name, Qt::CaseInsensitive))
            return order < 0;
        if (const int order = left.name.compare(right.name))
            return order < 0;
        return left.id < right.id;
    });
}
