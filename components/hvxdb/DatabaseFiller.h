#pragma once

#include <functional>

class SqlSession;

/// Writes the contents into a new database, which has all objects and its first rows, within the transaction
/// that makes it. What it raises leaves nothing of the database behind.
using DatabaseFiller = std::function<void(SqlSession& session)>;
