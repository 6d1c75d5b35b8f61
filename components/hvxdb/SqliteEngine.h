#pragma once

#include "components/hvxdb/HvxEngine.h"

#include <QByteArray>

struct sqlite3;

/// SQLite: the database is one file, with two more beside it while it is open.
class SqliteEngine : public HvxEngine
{
public:
    [[nodiscard]] QString Driver() const override;
    void CheckSource(const QString& source) const override;
    void Connect(QSqlDatabase& database, const QString& source, int busyMs) override;
    void Settle(const QSqlDatabase& database) const override;
    [[nodiscard]] std::unique_ptr<SqlStatement>
    MakeStatement(const QSqlDatabase& database, const QString& text, bool rowByRow) const override;
    [[nodiscard]] QString StatementText(HvxStatement statement) const override;
    [[nodiscard]] QString ObjectNamesText() const override;
    [[nodiscard]] QStringList IntegrityTexts() const override;
    [[nodiscard]] QString ScriptFolder() const override;
    [[nodiscard]] std::unique_ptr<CopySide> MakeCopySide(SqlSession& session) const override;
    [[nodiscard]] quint32 ErrorNumber(const QSqlError& error) const override;
    [[nodiscard]] std::optional<quint32> DataVersion(const QSqlDatabase& database) const override;
    [[nodiscard]] bool HasLostTransaction(const QSqlDatabase& database) const override;
    [[nodiscard]] bool HasLostSource(const QSqlDatabase& database) const override;

    /// Makes an empty file that becomes a database; for those who create one. Raises ComponentError.
    void ConnectNew(QSqlDatabase& database, const QString& source) const;

private:
    /// Which file a path leads to.
    struct FileIdentity
    {
        quint64 device = 0;
        quint64 node = 0;
        bool operator==(const FileIdentity&) const = default;
    };

    [[nodiscard]] static std::optional<FileIdentity> IdentityOf(const QByteArray& path);
    /// The driver's own handle; null when it cannot be used here.
    [[nodiscard]] sqlite3* Handle(const QSqlDatabase& database) const;

    /// Of the connection that Connect opened.
    sqlite3* m_handle = nullptr;
    /// The connection builds lists itself, see SqliteListFunctions.
    bool m_buildsLists = false;
    /// As the file system knows it.
    QByteArray m_path;
    std::optional<FileIdentity> m_identity;
};
