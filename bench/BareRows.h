#pragma once

#include "bench/BareDatabase.h"

#include <vector>

/// A node as the bare side holds it.
struct BareRow
{
    QString name;
    qint32 id;
};

/// At most `limit` nodes whose ids are above `after`, by id.
std::vector<BareRow> ReadBareRows(BareDatabase& database, int after, int limit);

/// Puts rows into the order of a sorted tree: without case, then exactly, then by id.
void SortBareRows(std::vector<BareRow>& rows);
