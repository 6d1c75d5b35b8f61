#pragma once

#include "components/hvxdb/HvxStatements.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

class CopySide;
class SqlSession;
class SqlStatement;

/// What differs between database engines: how a source is opened, SQL texts, scripts, error numbers.
class HvxEngine
{
public:
    virtual ~HvxEngine() = default;

    /// The engine for a file path or a URL. Raises ComponentError (SourceMissing) for a URL of no engine.
    static std::unique_ptr<HvxEngine> ForSource(const QString& source);

    /// Name of the Qt SQL driver.
    [[nodiscard]] virtual QString Driver() const = 0;
    /// Raises ComponentError when the source is missing, no database or not writable. Changes nothing.
    virtual void CheckSource(const QString& source) const = 0;
    /// Opens the connection; raises ComponentError. The source is never created.
    virtual void Connect(QSqlDatabase& database, const QString& source, int busyMs) = 0;
    /// What a session sets once its database has proved to be a good one. Counts as no statement.
    virtual void Settle(const QSqlDatabase& database) const = 0;

    /// The database is on a server: its roles are the rights, and a transaction that only reads keeps nobody
    /// out.
    [[nodiscard]] virtual bool IsServer() const { return false; }
    /// Begin, commit, rollback and savepoints can be prepared. Where they cannot, Begin may give a row of
    /// HvxStatement::SessionState behind it.
    [[nodiscard]] virtual bool PreparesTransactions() const { return true; }
    /// A statement of the connection, prepared once it runs; `rowByRow`: see ReadsRowByRow.
    [[nodiscard]] virtual std::unique_ptr<SqlStatement>
    MakeStatement(const QSqlDatabase& database, const QString& text, bool rowByRow) const;
    /// The driver hands the rows of this statement over one by one. No other statement can run meanwhile on
    /// an engine that does so for some statements only.
    [[nodiscard]] virtual bool ReadsRowByRow(HvxStatement) const { return true; }
    /// Texts may hold the character 0.
    [[nodiscard]] virtual bool KeepsZeroCharacter() const { return true; }

    [[nodiscard]] virtual QString StatementText(HvxStatement statement) const;
    /// A query for the names of all tables, indexes, triggers and what else the scripts make.
    [[nodiscard]] virtual QString ObjectNamesText() const = 0;
    /// Queries that look through the stored data; each row that is not "ok" tells a damage.
    [[nodiscard]] virtual QStringList IntegrityTexts() const = 0;
    /// Folder of the scripts, as a resource: schema.sql, upgrade-2.sql, …
    [[nodiscard]] virtual QString ScriptFolder() const = 0;

    /// What copying a database takes on an open session of this engine.
    [[nodiscard]] virtual std::unique_ptr<CopySide> MakeCopySide(SqlSession& session) const = 0;

    /// The component's number for a failure of the engine.
    [[nodiscard]] virtual quint32 ErrorNumber(const QSqlError& error) const = 0;
    /// The engine's own words for it.
    [[nodiscard]] virtual QString ErrorText(const QSqlError& error) const { return error.text(); }

    /// A number that changes when the database has changed, the own changes included; to be asked inside a
    /// transaction, it costs no statement. Nothing when the engine cannot tell.
    [[nodiscard]] virtual std::optional<quint32> DataVersion(const QSqlDatabase& database) const = 0;
    /// True when the engine undid the open transaction by itself, as it does when the disk is full.
    [[nodiscard]] virtual bool HasLostTransaction(const QSqlDatabase& database) const = 0;
    /// True when a failed statement keeps the open transaction from being committed.
    [[nodiscard]] virtual bool HasSpoiltTransaction(const QSqlDatabase&) const { return false; }
    /// True when what the connection leads to is no longer the source: the server has ended it, the file is
    /// gone or another one stands in its place. Costs no statement.
    [[nodiscard]] virtual bool HasLostSource(const QSqlDatabase& database) const = 0;
};
