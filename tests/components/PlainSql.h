#pragma once

#include "platform/ComponentError.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QStringList>
#include <QUrl>
#include <QUuid>
#include <QVariant>

/// SQL on a source as another program runs it: past the component, on a connection of its own.
///
/// Failures: ComponentError with the engine's words.
class PlainSql
{
public:
    /// `source`: a file, which is made when it is missing, or the URL of a server's database.
    explicit PlainSql(const QString& source) : m_name(QUuid::createUuid().toString())
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(
            IsUrl(source) ? QStringLiteral("QPSQL") : QStringLiteral("QSQLITE"), m_name);
        if (IsUrl(source))
            SetServer(database, QUrl(source));
        else
            database.setDatabaseName(source);
        if (!database.open()) {
            const QString words = database.lastError().text();
            database = QSqlDatabase();
            QSqlDatabase::removeDatabase(m_name);
            Raise(words);
        }
    }
    ~PlainSql()
    {
        QSqlDatabase::database(m_name, false).close();
        QSqlDatabase::removeDatabase(m_name);
    }
    PlainSql(const PlainSql&) = delete;
    PlainSql& operator=(const PlainSql&) = delete;

    static bool IsUrl(const QString& source) { return source.startsWith(QStringLiteral("postgresql://")); }

    /// Gives the first value of the first row; invalid without one.
    QVariant Run(const QString& text) const // NOLINT(modernize-use-nodiscard)
    {
        QSqlQuery query = Execute(text);
        return query.next() ? query.value(0) : QVariant();
    }

    /// The first column of all rows.
    [[nodiscard]] QStringList Rows(const QString& text) const
    {
        QStringList rows;
        QSqlQuery query = Execute(text);
        while (query.next())
            rows << query.value(0).toString();
        return rows;
    }

private:
    static void SetServer(QSqlDatabase& database, const QUrl& url)
    {
        database.setHostName(url.host());
        database.setPort(url.port());
        database.setUserName(url.userName());
        database.setPassword(url.password());
        database.setDatabaseName(url.path().mid(1));
        // As the other driver does by itself: a test that locks itself out fails.
        database.setConnectOptions(
            QStringLiteral("options='-c lock_timeout=5s -c client_min_messages=warning'"));
    }

    [[noreturn]] static void Raise(const QString& words)
    {
        throw ComponentError(1, QStringLiteral("SQL"), words);
    }

    [[nodiscard]] QSqlQuery Execute(const QString& text) const
    {
        QSqlQuery query(QSqlDatabase::database(m_name, false));
        query.setForwardOnly(true);
        if (!query.exec(text))
            Raise(query.lastError().text());
        return query;
    }

    QString m_name;
};
