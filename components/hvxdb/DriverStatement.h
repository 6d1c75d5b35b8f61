#pragma once

#include "components/hvxdb/SqlStatement.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>

/// A statement that the Qt SQL driver runs.
class DriverStatement : public SqlStatement
{
public:
    /// How values reach the driver; one that keeps placeholders by name makes a name of each position.
    enum class Binding
    {
        ByPosition,
        ByName,
    };

    /// `rowByRow`: the driver need not keep the rows that were read.
    DriverStatement(const QSqlDatabase& database, const QString& text, bool rowByRow, Binding binding);

    [[nodiscard]] bool Execute(const QVariantList& values) override;
    [[nodiscard]] bool Next() override { return m_query.next(); }
    [[nodiscard]] std::optional<QSqlError> Failure() const override;
    [[nodiscard]] QVariant Value(int column) const override;
    [[nodiscard]] bool HasColumns() const override { return m_query.isSelect(); }
    [[nodiscard]] int ChangedRows() const override { return m_query.numRowsAffected(); }
    void Finish() override { m_query.finish(); }

    /// The value as a driver takes it.
    [[nodiscard]] static QVariant BoundValue(const QVariant& value);

private:
    QSqlQuery m_query;
    QString m_text;
    Binding m_binding;
    bool m_prepared = false;
};
