#pragma once

#include "components/hvxdb/HvxEngine.h"
#include "components/hvxdb/PostgresSource.h"

/// PostgreSQL: the database is on a server, which holds the rights and keeps writers apart.
class PostgresEngine : public HvxEngine
{
public:
    [[nodiscard]] QString Driver() const override;
    void CheckSource(const QString& source) const override;
    void Connect(QSqlDatabase& database, const QString& source, int busyMs) override;
    void Settle(const QSqlDatabase& database) const override;
    [[nodiscard]] bool IsServer() const override { return true; }
    [[nodiscard]] bool PreparesTransactions() const override { return false; }
    [[nodiscard]] bool ReadsRowByRow(HvxStatement statement) const override;
    [[nodiscard]] bool KeepsZeroCharacter() const override { return false; }
    [[nodiscard]] QString StatementText(HvxStatement statement) const override;
    [[nodiscard]] QString ObjectNamesText() const override;
    [[nodiscard]] QStringList IntegrityTexts() const override;
    [[nodiscard]] QString ScriptFolder() const override;
    [[nodiscard]] std::unique_ptr<CopySide> MakeCopySide(SqlSession& session) const override;
    [[nodiscard]] quint32 ErrorNumber(const QSqlError& error) const override;
    [[nodiscard]] QString ErrorText(const QSqlError& error) const override;
    [[nodiscard]] std::optional<quint32> DataVersion(const QSqlDatabase& database) const override;
    [[nodiscard]] bool HasLostTransaction(const QSqlDatabase& database) const override;
    [[nodiscard]] bool HasSpoiltTransaction(const QSqlDatabase& database) const override;
    [[nodiscard]] bool HasLostSource(const QSqlDatabase& database) const override;

    /// As Connect, to an address that is taken apart already.
    void ConnectTo(QSqlDatabase& database, const PostgresSource& source, int busyMs) const;
};
