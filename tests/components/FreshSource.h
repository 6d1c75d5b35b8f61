#pragma once

#include "tests/components/PlainSql.h"

#include <QFile>
#include <QTemporaryDir>

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
        const QString name = m_source.mid(Server().size());
        server.Run(QStringLiteral("DROP DATABASE IF EXISTS %1 WITH (FORCE)").arg(name));
        for (const char* group : {"read", "scan", "edit"})
            server.Run(QStringLiteral("DROP ROLE IF EXISTS %1_%2").arg(name, QString::fromLatin1(group)));
    }
    FreshSource(const FreshSource&) = delete;
    FreshSource& operator=(const FreshSource&) = delete;

    /// True when databases of tests are made on a server.
    static bool OnServer() { return qgetenv("ZELKA_TEST_ENGINE") == "postgresql"; }

    [[nodiscard]] QString Source() const { return m_source; }
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

    static QString FreeName()
    {
        return Server() + QStringLiteral("zelka_") + QUuid::createUuid().toString(QUuid::Id128).left(16);
    }

    QTemporaryDir m_folder;
    QString m_source;
};
