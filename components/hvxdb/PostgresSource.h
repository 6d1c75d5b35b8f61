#pragma once

#include <QSqlDatabase>
#include <QString>

#include <map>

/// A PostgreSQL source: the address of a database on a server, postgresql://… as libpq takes it. What it
/// leaves out comes from the service file, the environment and the password file, as everywhere with libpq.
class PostgresSource
{
public:
    /// True for postgresql://… and postgres://….
    static bool IsOne(const QString& source);

    /// Raises ComponentError (SourceMissing) for an address that cannot be read.
    explicit PostgresSource(const QString& url);

    /// The same server by another database.
    [[nodiscard]] PostgresSource WithDatabase(const QString& name) const;

    /// Hands the parameters to the driver; nothing is opened. Raises ComponentError (SourceMissing) for a
    /// value that the driver cannot take.
    void ApplyTo(QSqlDatabase& database) const;
    /// All parameters by their libpq names, with what this program asks of each connection.
    [[nodiscard]] const std::map<QString, QString>& Parameters() const { return m_parameters; }

private:
    std::map<QString, QString> m_parameters;
};
