#include "ZelkaRunner.h"
#include "tests/support/PostgresServer.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonObject>
#include <QTest>

/// `zelka` on the databases of a PostgreSQL server.
class TestZelkaServer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();

    void Init_Url_MakesAUsableDatabase();
    void Init_Demo_IsTheSameNetworkAsInAFile();
    void Init_Existing_IsRefusedAndForceKeepsIt();
    void Environment_Url_IsTheSource();
    void Edit_OnServer_DoesAsInAFile();
    void Rights_OnServer_AreRoles();
    void Rights_Refusals_AreTold_data();
    void Rights_Refusals_AreTold();
    void Managers_OnServer_AddListRemove();
    void Import_WithoutEditRight_IsRefused();
    void Copy_ThereAndBack_AnswersTheSame();
    void Copy_UnknownRole_IsTold();

    void Unavailable_AnyCommand_IsOneLineAndThree_data();
    void Unavailable_AnyCommand_IsOneLineAndThree();
    void Unavailable_Init_IsOneLineAndMakesNothing_data();
    void Unavailable_Init_IsOneLineAndMakesNothing();
    void Unavailable_Copy_IsOneLineAndLeavesNothing_data();
    void Unavailable_Copy_IsOneLineAndLeavesNothing();
    void Unavailable_Maintenance_EndsWithThree();

private:
    [[nodiscard]] QString Url(const QString& user = QStringLiteral("keeper"),
                              const QString& database = QStringLiteral("dbs32")) const
    {
        return m_server->Url(database, user, Password);
    }
    /// The address as it may be shown.
    [[nodiscard]] QString ShownUrl() const
    {
        return m_server->Url(QStringLiteral("dbs32"), QStringLiteral("keeper"), QStringLiteral("***"));
    }
    void PostgresSql(const QString& text) const { m_server->RunSql(QStringLiteral("postgres"), text); }
    /// An address that fails in that way.
    [[nodiscard]] QString BadUrl(const QString& kind) const;
    [[nodiscard]] bool HasDatabase(const QString& name) const
    {
        return m_server->RunSql(
                   QStringLiteral("postgres"),
                   QStringLiteral("SELECT count(*) FROM pg_database WHERE datname = '%1'").arg(name)) ==
               QLatin1String("1");
    }

    static inline const QString Password = QStringLiteral("t0p-s3cret");
    std::unique_ptr<PostgresServer> m_server;
};

namespace {

const QStringList SourceOption{QStringLiteral("--source")};

/// One line of words, without the password.
void VerifyToldOnce(const ZelkaResult& result)
{
    QVERIFY2(result.words.startsWith("zelka: "), result.words.constData());
    QVERIFY2(result.words.count('\n') == 1, result.words.constData());
    QVERIFY2(!result.words.contains("s3cret"), result.words.constData());
    QVERIFY2(!result.data.contains("s3cret"), result.data.constData());
}

} // namespace

void TestZelkaServer::initTestCase()
{
    m_server = std::make_unique<PostgresServer>(PostgresServer::Login::Password);
}

void TestZelkaServer::cleanupTestCase()
{
    m_server.reset();
}

void TestZelkaServer::init()
{
    PostgresSql(QStringLiteral("DROP DATABASE IF EXISTS dbs32 WITH (FORCE)"));
    const QStringList roles =
        m_server
            ->RunSql(QStringLiteral("postgres"),
                     QStringLiteral("SELECT rolname FROM pg_roles WHERE rolname !~ '^pg_' AND rolname NOT IN"
                                    " ('zelka')"))
            .split(u'\n', Qt::SkipEmptyParts);
    for (const QString& role : roles)
        PostgresSql(QStringLiteral("DROP ROLE \"%1\"").arg(role));
    PostgresSql(QStringLiteral("CREATE ROLE keeper LOGIN CREATEDB CREATEROLE PASSWORD '%1'").arg(Password));
    PostgresSql(QStringLiteral("CREATE ROLE eva LOGIN PASSWORD '%1'").arg(Password));
}

QString TestZelkaServer::BadUrl(const QString& kind) const
{
    if (kind == QLatin1String("unreachable"))
        return QStringLiteral("postgresql://keeper:%1@127.0.0.1:1/dbs32").arg(Password);
    if (kind == QLatin1String("wrong password"))
        return m_server->Url(QStringLiteral("dbs32"), QStringLiteral("keeper"), QStringLiteral("n0t-s3cret"));
    if (kind == QLatin1String("missing database"))
        return Url(QStringLiteral("keeper"), QStringLiteral("nowhere"));
    if (kind == QLatin1String("no right to read"))
        return Url(QStringLiteral("eva"));
    if (kind == QLatin1String("unknown parameter"))
        return Url() + QStringLiteral("?pasword=s3cret");
    return {};
}

void TestZelkaServer::Init_Url_MakesAUsableDatabase()
{
    const ZelkaRunner zelka;

    const ZelkaResult made = zelka.Run({"db", "init", "--source", Url()});

    QCOMPARE(made.words, QByteArray());
    QCOMPARE(made.code, 0);
    QCOMPARE(made.Lines(),
             QStringList{
                 QStringLiteral("Made the database \"%1\" with 0 connections and 0 nodes.").arg(ShownUrl())});
    QCOMPARE(zelka.Run({"list", "nodes", "--source", Url()}).data, QByteArray());
    QCOMPARE(zelka.Run({"db", "check", "--source", Url()}).Lines(), QStringList{"No problem was found."});
    QVERIFY(!QFile::exists(zelka.Database()));
}

void TestZelkaServer::Init_Demo_IsTheSameNetworkAsInAFile()
{
    const ZelkaRunner zelka;
    zelka.MakeDemoDatabase();

    const ZelkaResult made = zelka.Run({"db", "init", "--demo", "--source", Url(), "--json"});

    QCOMPARE(made.code, 0);
    QCOMPARE(made.Json().object().value("source").toString(), ShownUrl());
    QCOMPARE(made.Json().object().value("nodes").toInt(), 600);
    const QList<QStringList> commands = {{"list", "nodes", "--json"},
                                         {"list", "connections", "--json"},
                                         {"db", "export"},
                                         {"db", "managers", "list"},
                                         {"db", "check"}};
    for (const QStringList& command : commands)
        QCOMPARE(zelka.Run(command + SourceOption + QStringList{Url()}).data, zelka.Run(command).data);
}

void TestZelkaServer::Init_Existing_IsRefusedAndForceKeepsIt()
{
    const ZelkaRunner zelka;
    QCOMPARE(zelka.Run({"db", "init", "--connections", "2", "--source", Url()}).code, 0);

    const ZelkaResult refused = zelka.Run({"db", "init", "--source", Url(), "--json"});
    const ZelkaResult forced = zelka.Run({"db", "init", "--force", "--source", Url(), "--json"});

    QCOMPARE(refused.code, 1);
    VerifyToldOnce(refused);
    QCOMPARE(forced.code, 0);
    VerifyToldOnce(forced);
    const QString kept = forced.Json().object().value("kept").toString();
    QCOMPARE(m_server->RunSql("dbs32", QStringLiteral("SELECT count(*) FROM \"%1\".connection").arg(kept)),
             QStringLiteral("2"));
    QCOMPARE(zelka.Run({"list", "connections", "--source", Url()}).data, QByteArray());
}

void TestZelkaServer::Environment_Url_IsTheSource()
{
    const ZelkaRunner zelka;
    const QString line = QStringLiteral("ZELKA_DBS32='%1' exec \"$@\"").arg(Url());

    QCOMPARE(zelka.RunInShell(line, {"db", "init"}).code, 0);

    QCOMPARE(zelka.RunInShell(line, {"db", "check"}).code, 0);
    QVERIFY(HasDatabase("dbs32"));
    QVERIFY(!QFile::exists(zelka.Database()));
}

void TestZelkaServer::Edit_OnServer_DoesAsInAFile()
{
    const ZelkaRunner zelka;
    const QList<QStringList> commands = {
        {"db", "init"},
        {"db", "managers", "add", "Radio", "/opt/radio"},
        {"add", "connection", "Bus", "--target", "WP=BUST4,ID=254"},
        {"add", "node", "Tower", "--target", "WP=NET4,ADDR=1", "--connection", "Bus", "--manager", "Radio"},
        {"add", "node", "Mast", "--target", "WP=NET4,ADDR=2", "--connection", "Bus"},
        {"add", "node", "TOWER", "--target", "WP=NET4,ADDR=3", "--connection", "Bus"},
        {"set", "Mast", "name=Stožár"},
        {"remove", "Tower"},
        {"show", "Stožár", "--json"},
        {"target", "Stožár"},
        {"check", "WP=LAN"},
        {"db", "export"},
        {"list", "nodes", "--json"}};
    for (const QStringList& command : commands) {
        const ZelkaResult inFile = zelka.Run(command);
        const ZelkaResult onServer = zelka.Run(command + SourceOption + QStringList{Url()});
        QVERIFY2(onServer.code == inFile.code, onServer.words.constData());
        QCOMPARE(onServer.words, inFile.words);
        if (command.at(1) != QLatin1String("init"))
            QCOMPARE(onServer.data, inFile.data);
    }
    QCOMPARE(zelka.Run({"list", "nodes", "--source", Url()}).Lines(), QStringList{QStringLiteral("Stožár")});
}

void TestZelkaServer::Rights_OnServer_AreRoles()
{
    const ZelkaRunner zelka;
    QCOMPARE(zelka.Run({"db", "init", "--source", Url()}).code, 0);
    const QByteArray records = "kind,name,target\nconnection,x,WP=LAN\n";

    const ZelkaResult result =
        zelka.Run({"db", "rights", "eva", "--scan", "yes", "--edit", "yes", "--source", Url(), "--json"});

    QCOMPARE(result.code, 0);
    QCOMPARE(result.Json().object(), (QJsonObject{{"user", "eva"}, {"scan", true}, {"edit", true}}));
    QCOMPARE(zelka.Run({"db", "import", "-", "--source", Url("eva")}, records).code, 0);
    QCOMPARE(zelka.Run({"db", "rights", "eva", "--scan", "no", "--edit", "no", "--source", Url()}).code, 0);
    QCOMPARE(zelka.Run({"list", "connections", "--source", Url("eva")}).Lines(), QStringList{"x"});
    QCOMPARE(zelka.Run({"db", "import", "-", "--source", Url("eva")}, records).code, 1);
}

void TestZelkaServer::Rights_Refusals_AreTold_data()
{
    QTest::addColumn<QString>("user");
    QTest::newRow("everyone") << "*";
    QTest::newRow("no role") << "nobody at all";
}

void TestZelkaServer::Rights_Refusals_AreTold()
{
    QFETCH(QString, user);
    const ZelkaRunner zelka;
    QCOMPARE(zelka.Run({"db", "init", "--source", Url()}).code, 0);

    const ZelkaResult result =
        zelka.Run({"db", "rights", user, "--scan", "yes", "--edit", "no", "--source", Url(), "--json"});

    QCOMPARE(result.code, 1);
    VerifyToldOnce(result);
}

void TestZelkaServer::Managers_OnServer_AddListRemove()
{
    const ZelkaRunner zelka;
    QCOMPARE(zelka.Run({"db", "init", "--source", Url()}).code, 0);

    const ZelkaResult added = zelka.Run(
        {"db", "managers", "add", "Ústředna", "/opt/e", "--command", "-v \"x\\\"", "--source", Url()});

    QCOMPARE(added.Lines(), QStringList{"1"});
    QCOMPARE(zelka.Run({"db", "managers", "list", "--source", Url()}).Lines(),
             QStringList{QStringLiteral("1\tÚstředna\t/opt/e\t-v \"x\\\"")});
    QCOMPARE(zelka.Run({"db", "managers", "add", "Ústředna", "/x", "--source", Url()}).code, 1);
    QCOMPARE(zelka.Run({"db", "managers", "remove", "Ústředna", "--source", Url()}).code, 0);
    QCOMPARE(zelka.Run({"db", "managers", "remove", "Ústředna", "--source", Url()}).code, 1);
}

void TestZelkaServer::Import_WithoutEditRight_IsRefused()
{
    const ZelkaRunner zelka;
    QCOMPARE(zelka.Run({"db", "init", "--source", Url()}).code, 0);
    QCOMPARE(zelka.Run({"db", "rights", "eva", "--scan", "yes", "--edit", "no", "--source", Url()}).code, 0);

    const ZelkaResult import =
        zelka.Run({"db", "import", "-", "--source", Url("eva")}, "kind,name,target\nconnection,x,WP=LAN\n");
    const ZelkaResult manager = zelka.Run({"db", "managers", "add", "x", "/x", "--source", Url("eva")});
    const ZelkaResult rights =
        zelka.Run({"db", "rights", "eva", "--scan", "yes", "--edit", "yes", "--source", Url("eva")});

    for (const ZelkaResult& result : {import, manager, rights}) {
        QCOMPARE(result.code, 1);
        VerifyToldOnce(result);
    }
    QCOMPARE(zelka.Run({"list", "connections", "--source", Url("eva")}).data, QByteArray());
}

void TestZelkaServer::Copy_ThereAndBack_AnswersTheSame()
{
    const ZelkaRunner zelka;
    zelka.MakeDemoDatabase();
    const QString back = zelka.Path("back.mdb");

    const ZelkaResult there = zelka.Run({"db", "copy", zelka.Database(), Url()});
    const ZelkaResult andBack = zelka.Run({"db", "copy", Url(), back});

    QVERIFY2(there.code == 0, there.words.constData());
    QVERIFY2(andBack.code == 0, andBack.words.constData());
    QCOMPARE(there.Lines(),
             QStringList{QStringLiteral("Copied \"%1\" to \"%2\" with 40 connections and 600 nodes.")
                             .arg(zelka.Database(), ShownUrl())});
    const QString node = zelka.Run({"list", "nodes"}).Lines().constFirst();
    const QList<QStringList> commands = {{"list", "nodes", "--json"},
                                         {"list", "connections", "--json"},
                                         {"db", "export"},
                                         {"db", "managers", "list"},
                                         {"target", node},
                                         {"show", node, "--json"},
                                         {"manage", node, "--print"},
                                         {"db", "check"}};
    for (const QStringList& command : commands) {
        const QByteArray ofFile = zelka.Run(command).data;
        QVERIFY(!ofFile.isEmpty());
        QCOMPARE(zelka.Run(command + SourceOption + QStringList{Url()}).data, ofFile);
        QCOMPARE(zelka.Run(command + SourceOption + QStringList{back}).data, ofFile);
    }
}

void TestZelkaServer::Copy_UnknownRole_IsTold()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();
    zelka.Sql("DELETE FROM user_rights; INSERT INTO user_rights VALUES ('eva', 1, 1), ('jan', 1, 0);");

    const ZelkaResult result = zelka.Run({"db", "copy", zelka.Database(), Url(), "--json"});

    QCOMPARE(result.code, 0);
    QCOMPARE(result.words, QByteArray("zelka: no role jan on the server: its rights were not copied\n"));
    QCOMPARE(result.Json().object().value("remarks").toArray(),
             QJsonArray{"no role jan on the server: its rights were not copied"});
    QCOMPARE(zelka.Run({"db", "managers", "add", "x", "/x", "--source", Url("eva")}).code, 0);
}

void TestZelkaServer::Unavailable_AnyCommand_IsOneLineAndThree_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QStringList>("arguments");
    const QList<QStringList> commands = {{"list", "nodes"},
                                         {"list", "connections"},
                                         {"show", "x"},
                                         {"target", "x"},
                                         {"check", "WP=LAN"},
                                         {"manage", "x"},
                                         {"add", "connection", "x", "--type", "T4 Bus"},
                                         {"set", "x", "name=y"},
                                         {"remove", "x"},
                                         {"db", "check"},
                                         {"db", "export"},
                                         {"db", "import", "-"},
                                         {"db", "rights", "u", "--scan", "yes", "--edit", "yes"},
                                         {"db", "managers", "list"}};
    for (const QStringList& command : commands)
        QTest::newRow(qPrintable("unreachable, " + command.join(u' '))) << "unreachable" << command;
    for (const char* kind : {"wrong password", "missing database", "no right to read", "unknown parameter"}) {
        QTest::addRow("%s, list", kind) << kind << commands.first();
        QTest::addRow("%s, db check", kind) << kind << QStringList{"db", "check"};
    }
}

void TestZelkaServer::Unavailable_AnyCommand_IsOneLineAndThree()
{
    QFETCH(QString, kind);
    QFETCH(QStringList, arguments);
    const ZelkaRunner zelka;
    if (kind != QLatin1String("unreachable"))
        QCOMPARE(zelka.Run({"db", "init", "--source", Url()}).code, 0);

    const ZelkaResult result = zelka.Run(arguments + SourceOption + QStringList{BadUrl(kind)});

    QVERIFY2(result.code == 3, result.words.constData());
    QCOMPARE(result.data, QByteArray());
    VerifyToldOnce(result);
}

void TestZelkaServer::Unavailable_Init_IsOneLineAndMakesNothing_data()
{
    QTest::addColumn<QString>("url");
    QTest::newRow("unreachable") << QStringLiteral("unreachable");
    QTest::newRow("wrong password") << QStringLiteral("wrong password");
    QTest::newRow("unknown parameter") << QStringLiteral("unknown parameter");
    QTest::newRow("no right to create") << QStringLiteral("no right to read");
}

void TestZelkaServer::Unavailable_Init_IsOneLineAndMakesNothing()
{
    QFETCH(QString, url);
    const ZelkaRunner zelka;

    const ZelkaResult result = zelka.Run({"db", "init", "--source", BadUrl(url), "--json"});

    QVERIFY2(result.code == 3 || (result.code == 1 && url.startsWith(QLatin1String("no right"))),
             result.words.constData());
    VerifyToldOnce(result);
    QVERIFY(!result.Json().object().value("error").toString().isEmpty());
    QVERIFY(!HasDatabase("dbs32"));
}

void TestZelkaServer::Unavailable_Copy_IsOneLineAndLeavesNothing_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<bool>("fromServer");
    for (const char* kind : {"unreachable", "wrong password", "unknown parameter"}) {
        QTest::addRow("from, %s", kind) << kind << true;
        QTest::addRow("to, %s", kind) << kind << false;
    }
    QTest::newRow("from, missing database") << "missing database" << true;
    QTest::newRow("from, no right to read") << "no right to read" << true;
}

void TestZelkaServer::Unavailable_Copy_IsOneLineAndLeavesNothing()
{
    QFETCH(QString, kind);
    QFETCH(bool, fromServer);
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();
    if (fromServer)
        QCOMPARE(zelka.Run({"db", "init", "--source", Url()}).code, 0);
    const QStringList before = QDir(zelka.Path(".")).entryList(QDir::Files);

    const ZelkaResult result = fromServer ? zelka.Run({"db", "copy", BadUrl(kind), "copy.mdb"})
                                          : zelka.Run({"db", "copy", zelka.Database(), BadUrl(kind)});

    QVERIFY2(result.code == 3, result.words.constData());
    VerifyToldOnce(result);
    QCOMPARE(QDir(zelka.Path(".")).entryList(QDir::Files), before);
    QCOMPARE(HasDatabase("dbs32"), fromServer);
}

void TestZelkaServer::Unavailable_Maintenance_EndsWithThree()
{
    const ZelkaRunner zelka;
    QCOMPARE(zelka.Run({"db", "init", "--source", Url()}).code, 0);
    m_server->RunSql("dbs32", "INSERT INTO cam_lock VALUES (1, 'token', 'somebody', 'elsewhere', 1,"
                              " extract(epoch FROM now()) * 1000)");

    const ZelkaResult list = zelka.Run({"list", "nodes", "--source", Url()});
    const ZelkaResult copy = zelka.Run({"db", "copy", Url(), "copy.mdb"});

    QCOMPARE(list.code, 3);
    VerifyToldOnce(list);
    QCOMPARE(copy.code, 3);
    VerifyToldOnce(copy);
    QVERIFY(!QFile::exists(zelka.Path("copy.mdb")));
}

QTEST_GUILESS_MAIN(TestZelkaServer)
#include "TestZelkaServer.moc"
