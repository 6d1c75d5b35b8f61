#include "bench/BareDatabase.h"

#include <cstdio>
#include <cstdlib>

BareDatabase::BareDatabase(const QString& file)
{
    if (sqlite3_open_v2(file.toUtf8().constData(), &m_database, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK)
        Fail();
    Execute("PRAGMA synchronous = NORMAL; PRAGMA foreign_keys = ON");
}

BareDatabase::~BareDatabase()
{
    sqlite3_close(m_database);
}

void BareDatabase::Execute(const char* sql)
{
    if (sqlite3_exec(m_database, sql, nullptr, nullptr, nullptr) != SQLITE_OK)
        Fail();
}

sqlite3_stmt* BareDatabase::Prepare(const QByteArray& sql)
{
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v3(m_database, sql.constData(), static_cast<int>(sql.size()),
                           SQLITE_PREPARE_PERSISTENT, &statement, nullptr) != SQLITE_OK)
        Fail();
    return statement;
}

void BareDatabase::Step(sqlite3_stmt* statement)
{
    if (sqlite3_step(statement) != SQLITE_DONE)
        Fail();
    sqlite3_reset(statement);
}

void BareDatabase::Fail() const
{
    std::fprintf(stderr, "bare side: %s\n", sqlite3_errmsg(m_database));
    std::exit(2);
}
