#include "ZelkaRunner.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>
#include <QTest>

/// `zelka db copy` from file to file.
class TestZelkaCopy : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Copy_File_AnswersAsTheSource();
    void Copy_Json_TellsWhatWasDone();
    void Copy_Existing_IsRefusedAndUntouched();
    void Copy_Force_KeepsTheOldDatabase();
    void Copy_BadArguments_AreUsage_data();
    void Copy_BadArguments_AreUsage();
    void Copy_Failure_IsOneLineAndLeavesNothing_data();
    void Copy_Failure_IsOneLineAndLeavesNothing();
    void Copy_DiskFull_IsToldAndLeavesNothing();
};

void TestZelkaCopy::Copy_File_AnswersAsTheSource()
{
    const ZelkaRunner zelka;
    zelka.MakeDemoDatabase();
    const QString copy = zelka.Path("kopie 星.mdb");

    const ZelkaResult result = zelka.Run({"db", "copy", zelka.Database(), copy});

    QCOMPARE(result.code, 0);
    QCOMPARE(result.words, QByteArray());
    QCOMPARE(result.Lines(),
             QStringList{QStringLiteral("Copied \"%1\" to \"%2\" with 40 connections and 600 nodes.")
                             .arg(zelka.Database(), copy)});
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
        const ZelkaResult ofSource = zelka.Run(command);
        QCOMPARE(ofSource.code, 0);
        QCOMPARE(zelka.Run(command + QStringList{"--source", copy}).data, ofSource.data);
    }
}

void TestZelkaCopy::Copy_Json_TellsWhatWasDone()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();
    const QString copy = zelka.Path("copy.mdb");

    const ZelkaResult result = zelka.Run({"db", "copy", zelka.Database(), copy, "--json"});

    QCOMPARE(result.code, 0);
    QCOMPARE(result.Json().object(), (QJsonObject{{"from", zelka.Database()},
                                                  {"to", copy},
                                                  {"connections", 1},
                                                  {"nodes", 1},
                                                  {"kept", ""},
                                                  {"remarks", QJsonArray()}}));
}

void TestZelkaCopy::Copy_Existing_IsRefusedAndUntouched()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();
    const QString other = zelka.Write("other.mdb", "somebody's text");

    const ZelkaResult refused = zelka.Run({"db", "copy", zelka.Database(), other, "--json"});

    QCOMPARE(refused.code, 1);
    QCOMPARE(refused.words.count('\n'), 1);
    QVERIFY2(refused.Json().object().value("error").toString().contains(other), refused.data.constData());
    QCOMPARE(ZelkaRunner::Read(other), QByteArray("somebody's text"));
}

void TestZelkaCopy::Copy_Force_KeepsTheOldDatabase()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();
    const QString other = zelka.Write("other.mdb", "somebody's text");

    const ZelkaResult made = zelka.Run({"db", "copy", zelka.Database(), other, "--force", "--json"});

    QCOMPARE(made.code, 0);
    const QString kept = made.Json().object().value("kept").toString();
    QCOMPARE(ZelkaRunner::Read(kept), QByteArray("somebody's text"));
    QVERIFY2(made.Words().contains(kept), made.words.constData());
    QCOMPARE(zelka.Run({"list", "nodes", "--source", other}).Lines(), QStringList{"Tower"});
}

void TestZelkaCopy::Copy_BadArguments_AreUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("none") << QStringList();
    QTest::newRow("no target") << QStringList{"a.mdb"};
    QTest::newRow("three") << QStringList{"a.mdb", "b.mdb", "c.mdb"};
    QTest::newRow("empty source") << QStringList{"", "b.mdb"};
    QTest::newRow("empty target") << QStringList{"a.mdb", ""};
    QTest::newRow("unknown option") << QStringList{"a.mdb", "b.mdb", "--fast"};
}

void TestZelkaCopy::Copy_BadArguments_AreUsage()
{
    QFETCH(QStringList, arguments);
    const ZelkaRunner zelka;

    const ZelkaResult result = zelka.Run(QStringList{"db", "copy"} + arguments);

    QCOMPARE(result.code, 2);
    QVERIFY(!result.words.isEmpty());
    QCOMPARE(result.data, QByteArray());
}

void TestZelkaCopy::Copy_Failure_IsOneLineAndLeavesNothing_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<int>("code");
    QTest::newRow("source missing") << "nowhere.mdb"
                                    << "copy.mdb" << 3;
    QTest::newRow("source is text") << "text"
                                    << "copy.mdb" << 3;
    QTest::newRow("source of no engine") << "odbc://server/dbs"
                                         << "copy.mdb" << 3;
    QTest::newRow("target of no engine") << "Dbs.mdb"
                                         << "odbc://server/dbs" << 3;
    QTest::newRow("target under a file") << "Dbs.mdb"
                                         << "text/copy.mdb" << 1;
    QTest::newRow("onto itself") << "Dbs.mdb"
                                 << "./Dbs.mdb" << 1;
}

void TestZelkaCopy::Copy_Failure_IsOneLineAndLeavesNothing()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(int, code);
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();
    zelka.Write("text", "This is no database.\n");
    const QStringList before = QDir(zelka.Path(".")).entryList(QDir::Files);

    const ZelkaResult result = zelka.Run({"db", "copy", from, to, "--force", "--json"});

    QCOMPARE(result.code, code);
    QVERIFY2(result.words.startsWith("zelka: "), result.words.constData());
    QCOMPARE(result.words.count('\n'), 1);
    QVERIFY(!result.Json().object().value("error").toString().isEmpty());
    QCOMPARE(QDir(zelka.Path(".")).entryList(QDir::Files), before);
}

void TestZelkaCopy::Copy_DiskFull_IsToldAndLeavesNothing()
{
    // A limit on the size of files fails as a full disk does.
    const ZelkaRunner zelka;
    QCOMPARE(zelka.Run({"db", "init", "--nodes", "20000"}).code, 0);
    const QStringList before = QDir(zelka.Path(".")).entryList(QDir::Files);

    const ZelkaResult result = zelka.RunInShell("trap '' XFSZ; ulimit -f 1000; exec \"$@\"",
                                                {"db", "copy", zelka.Database(), "copy.mdb"});

    QVERIFY(result.code == 1 || result.code == 3);
    QCOMPARE(result.words.count('\n'), 1);
    QCOMPARE(QDir(zelka.Path(".")).entryList(QDir::Files), before);
}

QTEST_GUILESS_MAIN(TestZelkaCopy)
#include "TestZelkaCopy.moc"
