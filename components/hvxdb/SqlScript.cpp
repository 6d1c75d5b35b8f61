#include "components/hvxdb/SqlScript.h"

#include <QRegularExpression>

namespace {

bool BeginsTrigger(const QString& statement)
{
    static const QRegularExpression trigger(QStringLiteral("^CREATE (TEMP(ORARY)? )?TRIGGER\\b"),
                                            QRegularExpression::CaseInsensitiveOption);
    return trigger.match(statement).hasMatch();
}

/// Between two of these marks stands the body of a procedure.
bool IsInsideBody(const QString& statement)
{
    return statement.count(QLatin1String("$$")) % 2 != 0;
}

bool EndsStatement(const QString& statement, QStringView line)
{
    if (IsInsideBody(statement))
        return false;
    if (BeginsTrigger(statement))
        return line.compare(QLatin1String("END;"), Qt::CaseInsensitive) == 0;
    return line.endsWith(u';');
}

} // namespace

QStringList SplitSqlScript(const QString& script)
{
    QStringList statements;
    QString statement;
    const QStringList lines = script.split(u'\n');
    for (const QString& line : lines) {
        const QStringView text = QStringView(line).trimmed();
        if (text.isEmpty() || text.startsWith(QLatin1String("--")))
            continue;
        statement += line + u'\n';
        if (EndsStatement(statement, text)) {
            statements << statement.trimmed();
            statement.clear();
        }
    }
    if (!statement.isEmpty())
        statements << statement.trimmed();
    return statements;
}
