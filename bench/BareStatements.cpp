#include "bench/BareStatements.h"

BareStatements::BareStatements(const QString& file) : m_database(file)
{
    // As the product has it.
    m_database.Execute("PRAGMA cache_size = -16384");
}

BareStatements::~BareStatements()
{
    for (auto& [statement, prepared] : m_prepared)
        sqlite3_finalize(prepared);
}

void BareStatements::Run(HvxStatement statement, const QStringList& values)
{
    sqlite3_stmt*& prepared = m_prepared[statement];
    if (!prepared)
        prepared = m_database.Prepare(StandardStatementText(statement).toUtf8());
    for (int i = 0; i < values.size(); ++i)
        BindText(prepared, i + 1, values[i]);
    while (sqlite3_step(prepared) == SQLITE_ROW) {
        for (int column = 0; column < sqlite3_column_count(prepared); ++column)
            m_characters += ColumnText(prepared, column).size();
    }
    sqlite3_reset(prepared);
}
