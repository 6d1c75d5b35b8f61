#include "components/hvxdb/SqlRows.h"

#include "components/hvxdb/SqlFailure.h"

bool SqlRows::Next()
{
    if (m_statement->Next())
        return true;
    if (const std::optional<QSqlError> error = m_statement->Failure())
        RaiseFailure(m_engine->ErrorNumber(*error), m_engine->ErrorText(*error));
    return false;
}
