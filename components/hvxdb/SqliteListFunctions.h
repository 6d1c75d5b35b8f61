#pragma once

struct sqlite3;

/// Adds to a connection the aggregate functions that join many rows to one text, at half of what joining
/// texts in SQL costs:
/// pair_list(name, id): the pairs as an item list, control characters of names as blanks;
/// id_list(id): the numbers as an item list;
/// packed_rows(...): all values of all rows, separated by PackedFieldSeparator, NULL as an empty one.
///
/// And plain_key(text): what lower(trim(text)) gives, in one step.
///
/// False: the connection goes without.
bool AddListFunctions(sqlite3* connection);
