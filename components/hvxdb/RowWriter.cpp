#include "components/hvxdb/RowWriter.h"

void RowWriter::Add(const QSqlQuery& row)
{
    for (int column = 0; column < m_table->columns.size(); ++column)
        m_values << (row.isNull(column) ? QVariant() : row.value(column));
    ++m_count;
    if (m_count % RowsAtOnce != 0)
        return;
    if (!m_statement)
        m_statement = m_session->PrepareText(m_table->InsertText(RowsAtOnce));
    m_session->RunPrepared(*m_statement, m_values);
    m_values.clear();
}

void RowWriter::Finish()
{
    if (m_values.isEmpty())
        return;
    m_session->RunText(m_table->InsertText(static_cast<int>(m_count % RowsAtOnce)), m_values);
    m_values.clear();
}
