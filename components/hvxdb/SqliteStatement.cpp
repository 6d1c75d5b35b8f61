#include "components/hvxdb/SqliteStatement.h"

#include <sqlite3.h>

SqliteStatement::SqliteStatement(sqlite3* handle, const QString& text)
    : m_handle(handle), m_text(text.toUtf8())
{}

SqliteStatement::~SqliteStatement()
{
    LetGo();
}

bool SqliteStatement::Execute(const QVariantList& values)
{
    Finish();
    m_failure.reset();
    return (m_statement || Prepare()) && Bind(values) && Step(State::BeforeFirstRow);
}

bool SqliteStatement::Prepare()
{
    const int result = sqlite3_prepare_v3(m_handle, m_text.constData(), static_cast<int>(m_text.size()),
                                          SQLITE_PREPARE_PERSISTENT, &m_statement, nullptr);
    if (result != SQLITE_OK)
        Fail(QStringLiteral("Unable to execute statement"));
    return result == SQLITE_OK;
}

bool SqliteStatement::Bind(const QVariantList& values)
{
    if (values.size() != sqlite3_bind_parameter_count(m_statement)) {
        Fail(QStringLiteral("Parameter count mismatch"));
        return false;
    }
    m_values = values;
    for (qsizetype i = 0; i < m_values.size(); ++i) {
        if (BindValue(static_cast<int>(i) + 1, m_values[i]) != SQLITE_OK) {
            Fail(QStringLiteral("Unable to bind parameters"));
            return false;
        }
    }
    return true;
}

int SqliteStatement::BindValue(int position, const QVariant& value)
{
    switch (value.userType()) {
    case QMetaType::UnknownType:
        return sqlite3_bind_null(m_statement, position);
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
        return sqlite3_bind_int64(m_statement, position, value.toLongLong());
    case QMetaType::Double:
        return sqlite3_bind_double(m_statement, position, value.toDouble());
    case QMetaType::QString: {
        const QString& text = *static_cast<const QString*>(value.constData());
        return sqlite3_bind_text16(m_statement, position, text.utf16(),
                                   static_cast<int>(text.size() * qsizetype(sizeof(QChar))), SQLITE_STATIC);
    }
    default:
        return SQLITE_MISMATCH;
    }
}

bool SqliteStatement::Next()
{
    if (m_state == State::BeforeFirstRow) {
        m_state = State::OnRow;
        return true;
    }
    return m_state == State::OnRow && Step(State::OnRow) && m_state == State::OnRow;
}

bool SqliteStatement::Step(State onRow)
{
    switch (sqlite3_step(m_statement)) {
    case SQLITE_ROW:
        m_state = onRow;
        return true;
    case SQLITE_DONE:
        m_state = State::BehindLastRow;
        return true;
    default:
        Fail(QStringLiteral("Unable to fetch row"));
        return false;
    }
}

void SqliteStatement::Fail(const QString& what)
{
    m_failure = QSqlError(what, QString::fromUtf8(sqlite3_errmsg(m_handle)), QSqlError::StatementError,
                          QString::number(sqlite3_extended_errcode(m_handle)));
    sqlite3_reset(m_statement);
    m_state = State::Ready;
}

QVariant SqliteStatement::Value(int column) const
{
    switch (sqlite3_column_type(m_statement, column)) {
    case SQLITE_NULL:
        return {};
    case SQLITE_INTEGER:
        return static_cast<qint64>(sqlite3_column_int64(m_statement, column));
    case SQLITE_FLOAT:
        return sqlite3_column_double(m_statement, column);
    case SQLITE_BLOB:
        return QByteArray(static_cast<const char*>(sqlite3_column_blob(m_statement, column)),
                          sqlite3_column_bytes(m_statement, column));
    default: {
        const void* const text = sqlite3_column_text16(m_statement, column);
        return QString(static_cast<const QChar*>(text),
                       sqlite3_column_bytes16(m_statement, column) / qsizetype(sizeof(QChar)));
    }
    }
}

bool SqliteStatement::HasColumns() const
{
    return sqlite3_column_count(m_statement) > 0;
}

int SqliteStatement::ChangedRows() const
{
    return sqlite3_changes(m_handle);
}

void SqliteStatement::Finish()
{
    if (m_state == State::Ready)
        return;
    sqlite3_reset(m_statement);
    m_state = State::Ready;
}

void SqliteStatement::LetGo()
{
    sqlite3_finalize(m_statement);
    m_statement = nullptr;
    m_state = State::Ready;
}
