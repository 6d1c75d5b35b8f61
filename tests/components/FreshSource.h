#pragma once

#include "tests/components/PlainSql.h"

#include <QFile>
#include <QTemporaryDir>

#include <functional>

/// A source at which a test can make a database: a file in a temporary folder or a name on the server of the
/// run, as the environment's ZELKA_TEST_ENGINE tells. Nothing is there at first; what was made goes with it.
class FreshSource
{
public:
    FreshSource() : m_source(OnServer() ? FreeName() : m_folder.filePath(QStringLiteral("Dbs.mdb"))) {}
    ~FreshSource()
    {
        if (!OnServer())
            return;
        const PlainSql server(Server() + QStringLiteral("postgres"));
        const QString name = Name(m_source);
        server.Run(QStringLiteral("DROP DATABASE IF EXISTS %1 WITH (FORCE)").arg(name));
        for (const char* group : {"read", "scan", "edit"})
            server.Run(QStringLiteral("DROP ROLE IF EXISTS %1_%2").arg(name, QString::fromLatin1(group)));
    }
    FreshSource(const FreshSource&) = delete;
    FreshSource& operator=(const FreshSource&) = delete;

    /// True when databases of tests are made on a server.
    static bool OnServer() { return qgetenv("ZELKA_TEST_ENGINE") == "postgresql"; }

    [[nodiscard]] QString Source() const { return m_source; }
    /// Makes the database as a copy of a database of the server that `make` makes at the source it is given;
    /// it does so once for each `kind` and server. For servers: to make each anew takes ten times as long.
    void CopyFromServer(const QString& kind, const std::function<void(const QString& source)>& make) const
    {
        const PlainSql server(Server() + QStringLiteral("postgres"));
        const QString original = QStringLiteral("original_") + kind;
        const QString known = QStringLiteral("SELECT 1 FROM pg_database WHERE datname = '%1'").arg(original);
        if (server.Run(known).isNull()) {
            // Only one test program makes it; what it left unfinished has another name.
            server.Run(QStringLiteral("SET lock_timeout = '60s'"));
            server.Run(QStringLiteral("SELECT pg_advisory_lock(1)"));
            if (server.Run(known).isNull()) {
                const QString made = FreeName();
                make(made);
                server.Run(QStringLiteral("ALTER DATABASE %1 RENAME TO %2").arg(Name(made), original));
            }
            server.Run(QStringLiteral("SELECT pg_advisory_unlock(1)"));
        }
        server.Run(QStringLiteral("CREATE DATABASE %1 TEMPLATE %2").arg(Name(m_source), original));
    }
    /// A folder for files of the test; a database file lies in it.
    [[nodiscard]] QString Folder() const { return m_folder.path(); }

private:
    /// The beginning of the URLs of all databases on the server of the run.
    static QString Server()
    {
        QFile file(qEnvironmentVariable("ZELKA_TEST_SERVER") + QStringLiteral("/url"));
        if (!file.open(QIODevice::ReadOnly))
            qFatal("No server runs for the tests: %s", qUtf8Printable(file.fileName()));
        return QString::fromUtf8(file.readAll());
    }

    static QString Name(const QString& source) { return source.mid(Server().size()); }

    static QString FreeName()
    {
        return Server() + QStringLiteral("zelka_") + QUuid::createUuid().toString(QUuid::Id128).left(16);
    }

    QTemporaryDir m_folder;
    QString m_source;
};
