#include "model/LookupHelpers.h"
#include "platform/NamedValues.h"
#include "tests/model/ScriptedModelDatabase.h"

#include <QTemporaryDir>
#include <QTest>

class TestLookupHelpers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { Model().ConObject.reset(); }

    void GetConTypeOfParent_Connections_data();
    void GetConTypeOfParent_Connections();
    void GetConTypeOfParent_FailedLookUp_GivesNoType_data();
    void GetConTypeOfParent_FailedLookUp_GivesNoType();
    void GetConTypeOfParent_BlankName_AsksNothing();
    void GetConTypeOfParent_NoDatabase_GivesNoType();
    void ReadTimeRetryNames_Answers_data();
    void ReadTimeRetryNames_Answers();
    void GetNodeManagerName_Managers_data();
    void GetNodeManagerName_Managers();
    void GetNodeManagerName_NothingToAsk_GivesEmptyText();
    void ReadRegistryValue_StoredTexts_data();
    void ReadRegistryValue_StoredTexts();
    void ReadRegistryValue_MissingValue_GivesFalseAndEmptyText();
    void ReadRegistryValue_EmptyValueName_ReadsTheKeysOwnValue();
};

void TestLookupHelpers::GetConTypeOfParent_Connections_data()
{
    QTest::addColumn<QString>("analysis");
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("shortName");
    QTest::newRow("known type") << QStringLiteral("14\tSNMP") << 14 << QStringLiteral("SNMP");
    QTest::newRow("first type") << QStringLiteral("0\tT4BUS") << 0 << QStringLiteral("T4BUS");
    QTest::newRow("unknown type") << QStringLiteral("-1\tUnknown") << 16 << QStringLiteral("Unknown");
}

void TestLookupHelpers::GetConTypeOfParent_Connections()
{
    QFETCH(QString, analysis);
    QFETCH(int, id);
    QFETCH(QString, shortName);
    ScriptedModelDatabase database;
    database.AddConnection("Con", 5, "WP=X", analysis);
    QString name;

    QCOMPARE(GetConTypeOfParent("Con", name), id);
    QCOMPARE(name, shortName);
    QCOMPARE(database.Calls, (QStringList{"GetParentDb(Con)", "AnalyzeConTypeDb(WP=X)"}));
}

void TestLookupHelpers::GetConTypeOfParent_FailedLookUp_GivesNoType_data()
{
    QTest::addColumn<int>("failing");
    QTest::newRow("target") << 0;
    QTest::newRow("analysis") << 1;
}

void TestLookupHelpers::GetConTypeOfParent_FailedLookUp_GivesNoType()
{
    QFETCH(int, failing);
    ScriptedModelDatabase database;
    database.AddConnection("Con", 5, "WP=X", "2\tKD7");
    database.FailingCall = failing;
    QString name = "as it was";

    QCOMPARE(GetConTypeOfParent("Con", name), 16);
    QCOMPARE(name, QStringLiteral("as it was"));
}

void TestLookupHelpers::GetConTypeOfParent_BlankName_AsksNothing()
{
    ScriptedModelDatabase database;
    QString name;

    QCOMPARE(GetConTypeOfParent("  ", name), 16);
    QVERIFY(database.Calls.isEmpty());
}

void TestLookupHelpers::GetConTypeOfParent_NoDatabase_GivesNoType()
{
    QString name;

    QCOMPARE(GetConTypeOfParent("Con", name), 16);
}

void TestLookupHelpers::ReadTimeRetryNames_Answers_data()
{
    QTest::addColumn<QString>("time");
    QTest::addColumn<QString>("retry");
    QTest::addColumn<QString>("timeName");
    QTest::addColumn<QString>("retryName");
    QTest::newRow("both") << "PATIENCE"
                          << "REPEATS"
                          << "PATIENCE"
                          << "REPEATS";
    QTest::newRow("no time") << ""
                             << "REPEATS"
                             << "TIME OUT"
                             << "REPEATS";
    QTest::newRow("no retry") << "PATIENCE"
                              << ""
                              << "PATIENCE"
                              << "RETRY COUNT";
    QTest::newRow("none") << ""
                          << ""
                          << "TIME OUT"
                          << "RETRY COUNT";
}

void TestLookupHelpers::ReadTimeRetryNames_Answers()
{
    QFETCH(QString, time);
    QFETCH(QString, retry);
    ScriptedModelDatabase database;
    if (!time.isEmpty())
        database.Answers["GetWpLongNameDb(TIME)"] = {time};
    if (!retry.isEmpty())
        database.Answers["GetWpLongNameDb(RETRY)"] = {retry};
    Model().TimeRetryNames = {"left", "left"};

    ReadTimeRetryNames();

    QTEST(Model().TimeRetryNames[0], "timeName");
    QTEST(Model().TimeRetryNames[1], "retryName");
    Model().TimeRetryNames = {};
}

void TestLookupHelpers::GetNodeManagerName_Managers_data()
{
    QTest::addColumn<QString>("nodeType");
    QTest::addColumn<QString>("expected");
    QTest::newRow("ignores case") << QStringLiteral("t4 MANAGER") << QStringLiteral("2|/opt/t4");
    QTest::newRow("first of two") << QStringLiteral("SNMP") << QStringLiteral("3|/opt/snmp");
    QTest::newRow("unknown") << QStringLiteral("none") << QString();
}

void TestLookupHelpers::GetNodeManagerName_Managers()
{
    QFETCH(QString, nodeType);
    QFETCH(QString, expected);
    ScriptedModelDatabase database;
    database.Answers["GetNMANamesDb()"] = {"T4 Manager\t2|/opt/t4\tSNMP\t3|/opt/snmp\tsnmp\t4|/opt/other"};
    Model().ConObject = std::make_unique<ConData>();
    Model().ConObject->NodeType = nodeType;

    QCOMPARE(GetNodeManagerName(), expected);
}

void TestLookupHelpers::GetNodeManagerName_NothingToAsk_GivesEmptyText()
{
    QCOMPARE(GetNodeManagerName(), QString());
    Model().ConObject = std::make_unique<ConData>();
    QCOMPARE(GetNodeManagerName(), QString());
    ScriptedModelDatabase database;
    QCOMPARE(GetNodeManagerName(), QString());
}

void TestLookupHelpers::ReadRegistryValue_StoredTexts_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<bool>("result");
    QTest::addColumn<QString>("expected");
    QTest::newRow("text") << QStringLiteral("Terminal Server") << true << QStringLiteral("Terminal Server");
    QTest::newRow("empty text") << QStringLiteral("") << true << QString();
    QTest::newRow("trailing zero") << QStringLiteral("a") + QChar(QChar::Null) << true << QStringLiteral("a");
    QTest::newRow("number") << QStringLiteral("dword:0000012A") << true << QStringLiteral("298");
    QTest::newRow("highest bit set") << QStringLiteral("dword:ffffffff") << true << QStringLiteral("-1");
    QTest::newRow("no digits") << QStringLiteral("dword:") << false << QString();
    QTest::newRow("nine digits") << QStringLiteral("dword:000000001") << false << QString();
    QTest::newRow("no hex digits") << QStringLiteral("dword:0x1") << false << QString();
    QTest::newRow("1024 bytes") << QString(1024, u'x') << true << QString(1024, u'x');
    QTest::newRow("1025 bytes") << QString(1025, u'x') << false << QString();
    QTest::newRow("1026 bytes of 513 characters") << QString(513, QChar(0xE4)) << false << QString();
}

void TestLookupHelpers::ReadRegistryValue_StoredTexts()
{
    QFETCH(QString, stored);
    QFETCH(bool, result);
    QFETCH(QString, expected);
    const QTemporaryDir folder;
    NamedValues values(folder.filePath("values.ini"));
    values.Write("HKEY_LOCAL_MACHINE/SYSTEM/Server/ProductName", stored);
    QString text = "as it was";

    QCOMPARE(ReadRegistryValue(values, "HKEY_LOCAL_MACHINE", "SYSTEM\\Server", "ProductName", text), result);
    QCOMPARE(text, expected);
}

void TestLookupHelpers::ReadRegistryValue_MissingValue_GivesFalseAndEmptyText()
{
    const QTemporaryDir folder;
    const NamedValues values(folder.filePath("values.ini"));
    QString text = "as it was";

    QVERIFY(!ReadRegistryValue(values, "HKEY_LOCAL_MACHINE", "SYSTEM", "ProductName", text));
    QVERIFY(text.isEmpty());
}

void TestLookupHelpers::ReadRegistryValue_EmptyValueName_ReadsTheKeysOwnValue()
{
    const QTemporaryDir folder;
    NamedValues values(folder.filePath("values.ini"));
    values.Write("HKEY_CLASSES_ROOT/Zelka.Control/Clsid/@", "{1}");
    QString text;

    QVERIFY(ReadRegistryValue(values, "HKEY_CLASSES_ROOT", "Zelka.Control\\Clsid", QString(), text));
    QCOMPARE(text, QStringLiteral("{1}"));
}

QTEST_GUILESS_MAIN(TestLookupHelpers)
#include "TestLookupHelpers.moc"
