#include "components/hvxdb/HvxEngine.h"

#include "components/hvxdb/DriverStatement.h"
#include "components/hvxdb/PostgresEngine.h"
#include "components/hvxdb/SqlFailure.h"
#include "components/hvxdb/SqliteEngine.h"

std::unique_ptr<HvxEngine> HvxEngine::ForSource(const QString& source)
{
    if (PostgresSource::IsOne(source))
        return std::make_unique<PostgresEngine>();
    const qsizetype scheme = source.indexOf(QStringLiteral("://"));
    if (scheme > 1) {
        RaiseFailure(DatabaseErrorNumber::SourceMissing,
                     QStringLiteral("There is no database engine for %1 sources.").arg(source.left(scheme)));
    }
    return std::make_unique<SqliteEngine>();
}

QString HvxEngine::StatementText(HvxStatement statement) const
{
    return StandardStatementText(statement);
}

std::unique_ptr<SqlStatement> HvxEngine::MakeStatement(const QSqlDatabase& database, const QString& text,
                                                       bool rowByRow) const
{
    return std::make_unique<DriverStatement>(database, text, rowByRow, DriverStatement::Binding::ByPosition);
}
