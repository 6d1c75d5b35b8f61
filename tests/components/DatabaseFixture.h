#pragma once

#include "components/hvxdb/HvxAdministration.h"
#include "components/hvxdb/HvxDatabaseComponent.h"
#include "platform/ComponentError.h"
#include "tests/components/FreshSource.h"

#include <QCryptographicHash>

#include <memory>
#include <optional>

/// A small database with the built-in catalogue, on the engine that the run is for (FreshSource), for tests
/// of all folders.
///
/// Connections, in the order of ids: "Alpha" (T4 Bus), "Beta" (T4 Bus over TCP/IP), "Gamma" (SNMP Direct,
/// without nodes). Nodes: "North" and "South" on Alpha, "East" on Beta. The device "NET4" has a manager,
/// index 1, which is also chosen for North. The user of the process may scan and edit.
class DatabaseFixture
{
public:
    enum class Contents
    {
        /// The definitions and nothing else.
        Empty,
        /// The records told above.
        Records,
    };

    static constexpr const char* AlphaTarget =
        "WP=BUST4,ID=254,SPEED=9600,TIME=2000,RETRY=2,WP=OPT,PR=T4DT,DT=TEXT,"
        "VERIFY=YES";
    static constexpr const char* BetaTarget =
        "WP=SOCKET,HOST=gateway-2,PORT=4004,TIME=2000,RETRY=2,WP=BUST4,ID=7,"
        "SPEED=9600,TIME=2000,RETRY=2,WP=OPT,PR=T4DT,DT=TEXT,VERIFY=YES";
    static constexpr const char* GammaTarget = "WP=SNMP,VERSION=2c,TIME=2000,RETRY=2";
    static constexpr const char* NorthTarget = "WP=NET4,ADDR=17,SUB=0,PRIO=NORMAL,CRC=ON,TIME=2000,RETRY=2";
    static constexpr const char* SouthTarget = "WP=NET4,ADDR=18,SUB=0,PRIO=NORMAL,CRC=ON,TIME=2000,RETRY=2";
    static constexpr const char* EastTarget = "WP=NET4,ADDR=4094,SUB=0,PRIO=NORMAL,CRC=ON,TIME=2000,RETRY=2";

    explicit DatabaseFixture(Contents contents = Contents::Records)
    {
        const auto make = [contents](const QString& source) { Make(source, contents); };
        if (OnServer())
            m_place.CopyFromServer(Kind(contents), make);
        else
            make(Source());
    }

    /// Makes such a database at another source.
    static void Make(const QString& source, Contents contents = Contents::Records)
    {
        CreateHvxDatabase(source, BuiltInCatalogue(), false);
        if (contents == Contents::Records)
            AddRecords(source);
    }

    [[nodiscard]] QString Source() const { return m_place.Source(); }
    [[nodiscard]] QString Folder() const { return m_place.Folder(); }
    /// The source for an operator who may not edit; in a file that is everyone from now on.
    [[nodiscard]] QString SourceWithoutEditRight() const
    {
        if (!OnServer()) {
            RunSql(QStringLiteral("DELETE FROM user_rights"));
            return Source();
        }
        const QString user = QStringLiteral("reader_") + QUuid::createUuid().toString(QUuid::Id128).left(16);
        const QString group =
            RunSql(QStringLiteral("SELECT role_name FROM rights_role WHERE allows = 'read'")).toString();
        RunSql(QStringLiteral("CREATE ROLE %1 LOGIN IN ROLE \"%2\"").arg(user, group));
        QUrl url(Source());
        url.setUserName(user);
        return url.toString();
    }
    static bool OnServer() { return FreshSource::OnServer(); }

    /// A component on this database, opened, that waits for nobody.
    [[nodiscard]] std::unique_ptr<HvxDatabaseComponent> OpenComponent() const
    {
        auto component = std::make_unique<HvxDatabaseComponent>(Source());
        component->SetBusyTimeout(0);
        component->OpenDatabase();
        return component;
    }

    /// Runs plain SQL as another program would. Gives the first value of the first row; invalid without one.
    QVariant RunSql(const QString& text) const { return PlainSql(Source()).Run(text); }
    /// The same for the first value of all rows.
    [[nodiscard]] QStringList Rows(const QString& text) const { return PlainSql(Source()).Rows(text); }

    /// The number of the error that an action raises; 0 when it raises none.
    template <typename Action>
    static quint32 ErrorOf(Action action)
    {
        try {
            action();
        } catch (const ComponentError& error) {
            return error.Number();
        }
        return 0;
    }

    static const Catalogue& BuiltInCatalogue()
    {
        static const Catalogue catalogue = [] {
            Catalogue read;
            QStringList problems;
            if (!ReadCatalogue(BuiltInCatalogueFile(), read, problems))
                qFatal("%s", qPrintable(problems.join(u'\n')));
            return read;
        }();
        return catalogue;
    }

private:
    /// Another schema is another kind: a server may outlive the program that made the first copy.
    static QString Kind(Contents contents)
    {
        QCryptographicHash hash(QCryptographicHash::Md5);
        for (const QString& file :
             {QStringLiteral(":/hvxdb/postgresql/schema.sql"), BuiltInCatalogueFile()}) {
            QFile script(file);
            if (!script.open(QIODevice::ReadOnly) || !hash.addData(&script))
                qFatal("%s cannot be read.", qUtf8Printable(file));
        }
        return QString::fromLatin1(hash.result().toHex().left(12)) +
               (contents == Contents::Records ? QStringLiteral("_records") : QStringLiteral("_empty"));
    }

    static void AddRecords(const QString& source)
    {
        const std::unique_ptr<HvxAdministration> administration = HvxAdministration::Open(source);
        const QString net4 = QStringLiteral("NET4");
        const QString manager = administration->AddManager(net4, QStringLiteral("/opt/managers/net4"),
                                                           QStringLiteral("-view full"));
        const std::unique_ptr<HvxBulkWriter> writer = administration->BeginBulkWrite();
        writer->AddConnection(QStringLiteral("Alpha"), QString::fromLatin1(AlphaTarget));
        writer->AddConnection(QStringLiteral("Beta"), QString::fromLatin1(BetaTarget));
        writer->AddConnection(QStringLiteral("Gamma"), QString::fromLatin1(GammaTarget));
        writer->AddNode({0, QStringLiteral("North"), QStringLiteral("Alpha"), net4,
                         QString::fromLatin1(NorthTarget), manager, QStringLiteral("-port 1")});
        writer->AddNode({0, QStringLiteral("South"), QStringLiteral("Alpha"), net4,
                         QString::fromLatin1(SouthTarget), QString(), QStringLiteral("-port 2")});
        writer->AddNode({0, QStringLiteral("East"), QStringLiteral("Beta"), QString(),
                         QString::fromLatin1(EastTarget), QString(), QString()});
        writer->Commit();
    }

    FreshSource m_place;
};
