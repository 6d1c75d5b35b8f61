#include "ZelkaRunner.h"

#include <QJsonObject>
#include <QTest>

/// `zelka db journal` as a program: arguments, signals, and readers that go.
class TestZelkaJournal : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Journal_BadArguments_AreUsage_data();
    void Journal_BadArguments_AreUsage();
    void Journal_NoDatabase_EndsWithThree();
    void Follow_NoDatabase_EndsWithThree();
    void Follow_Signal_EndsWithZero();
    void Follow_FileAway_IsWaitedFor();
    void Follow_ReaderGone_EndsWithZero();
    void Follow_FullDisk_IsTold();
};

void TestZelkaJournal::Journal_BadArguments_AreUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("negative id") << QStringList{"--after", "-1"};
    QTest::newRow("no number") << QStringList{"--last", "many"};
    QTest::newRow("interval without follow") << QStringList{"--interval", "2"};
    QTest::newRow("no interval") << QStringList{"--follow", "--interval", "0"};
    QTest::newRow("extra word") << QStringList{"Tower"};
}

void TestZelkaJournal::Journal_BadArguments_AreUsage()
{
    QFETCH(QStringList, arguments);
    const ZelkaRunner zelka;

    const ZelkaResult result = zelka.Run(QStringList{"db", "journal"} + arguments);

    QCOMPARE(result.code, 2);
    QCOMPARE(result.words.count('\n'), 1);
}

void TestZelkaJournal::Journal_NoDatabase_EndsWithThree()
{
    const ZelkaRunner zelka;

    const ZelkaResult result = zelka.Run({"db", "journal", "--json"});

    QCOMPARE(result.code, 3);
    QVERIFY(!result.Json().object().value("error").toString().isEmpty());
}

void TestZelkaJournal::Follow_NoDatabase_EndsWithThree()
{
    const ZelkaRunner zelka;

    QCOMPARE(zelka.Run({"db", "journal", "--follow"}).code, 3);
}

void TestZelkaJournal::Follow_Signal_EndsWithZero()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();

    // The signal comes when the program has printed what there was: each line goes out at once.
    const ZelkaResult result = zelka.RunInShell(
        QStringLiteral("\"$@\" >out & until grep -q Tower out; do sleep 0.05; done; kill -TERM $!; wait $!"),
        {"db", "journal", "--follow"});

    QCOMPARE(result.words, QByteArray());
    QCOMPARE(result.code, 0);
    QCOMPARE(ZelkaRunner::Read(zelka.Path("out")).count('\n'), 2);
}

void TestZelkaJournal::Follow_FileAway_IsWaitedFor()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();

    const ZelkaResult result =
        zelka.RunInShell(QStringLiteral("\"$@\" >out 2>err & until grep -q Tower out; do sleep 0.05; done;"
                                        " mv Dbs.mdb away; until grep -q Waiting err; do sleep 0.05; done;"
                                        " mv away Dbs.mdb; until grep -q again err; do sleep 0.05; done;"
                                        " kill -TERM $!; wait $!"),
                         {"db", "journal", "--follow", "--interval", "0.1"});

    QCOMPARE(result.code, 0);
    QCOMPARE(ZelkaRunner::Read(zelka.Path("out")).count('\n'), 2);
    QCOMPARE(ZelkaRunner::Read(zelka.Path("err")).count('\n'), 2);
}

void TestZelkaJournal::Follow_ReaderGone_EndsWithZero()
{
    const ZelkaRunner zelka;
    zelka.MakeDemoDatabase();

    const ZelkaResult result = zelka.RunInShell(QStringLiteral("{ \"$@\"; echo $? >code; } | head -n 1"),
                                                {"db", "journal", "--follow"});

    QCOMPARE(result.words, QByteArray());
    QCOMPARE(result.data.count('\n'), 1);
    QCOMPARE(ZelkaRunner::Read(zelka.Path("code")), QByteArray("0\n"));
}

void TestZelkaJournal::Follow_FullDisk_IsTold()
{
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();

    const ZelkaResult result =
        zelka.RunInShell(QStringLiteral("exec \"$@\" >/dev/full"), {"db", "journal", "--follow"});

    QCOMPARE(result.code, 1);
    QVERIFY2(result.Words().contains("cannot be written"), result.words.constData());
}

QTEST_GUILESS_MAIN(TestZelkaJournal)
#include "TestZelkaJournal.moc"
