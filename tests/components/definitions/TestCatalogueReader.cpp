#include "components/hvxdb/Catalogue.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QByteArray BuiltInText()
{
    QFile file(BuiltInCatalogueFile());
    if (!file.open(QIODevice::ReadOnly))
        qFatal("The built-in catalogue cannot be read.");
    return file.readAll();
}

/// A catalogue with one connection type, one node type and one waypoint: the smallest that keeps all rules.
QByteArray SmallText()
{
    return R"({
    "connectionTypes": [
        { "shortName": "C", "longName": "Con", "hops": [["A", 1]] },
        { "shortName": "Unknown", "longName": "Unknown", "hops": [] }
    ],
    "nodeTypes": [{ "shortName": "N", "longName": "Node", "hops": [["A", 0]] }],
    "groups": { "timing": [
        { "keyword": "TIME", "longName": "TIME OUT", "required": 0, "default": "5", "bounds": [0, 9] },
        { "keyword": "RETRY", "longName": "RETRY COUNT", "required": 0, "list": ["1", "2"] }
    ] },
    "waypoints": [{ "name": "A", "longName": "Hop A", "parameters": [
        { "keyword": "K", "longName": "KEY", "required": 1, "text": 8 },
        { "keyword": "F", "longName": "FREE", "required": 0 },
        { "group": "timing" }
    ] }]
}
)";
}

} // namespace

class TestCatalogueReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ReadCatalogue_SmallText_GivesRows();
    void ReadCatalogue_WithoutGroups_GivesRows();
    void ReadCatalogue_OffendingRow_NamesIt_data();
    void ReadCatalogue_OffendingRow_NamesIt();
    void ReadCatalogue_SeveralOffendingRows_NamesEach();
    void ReadCatalogue_BrokenRule_NamesRow();
    void ReadCatalogue_MalformedText_NamesLineAndColumn_data();
    void ReadCatalogue_MalformedText_NamesLineAndColumn();
    void ReadCatalogue_NoObject_IsRefused();
    void ReadCatalogue_UnusableFile_NamesFile();
    void ReadCatalogue_TooLargeFile_IsRefused();
    void ReadCatalogue_Failure_LeavesCatalogueAlone();
    void ReadCatalogue_CutText_NeverPasses();

private:
    /// Writes the text to a file and reads it as a catalogue.
    bool Read(const QByteArray& text, Catalogue& catalogue, QStringList& problems);

    QTemporaryDir m_folder;
};

bool TestCatalogueReader::Read(const QByteArray& text, Catalogue& catalogue, QStringList& problems)
{
    const QString name = m_folder.filePath("catalogue.json");
    QFile file(name);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        qFatal("The file cannot be written.");
    file.close();
    return ReadCatalogue(name, catalogue, problems);
}

void TestCatalogueReader::ReadCatalogue_SmallText_GivesRows()
{
    Catalogue catalogue;
    QStringList problems;

    QVERIFY2(Read(SmallText(), catalogue, problems), qPrintable(problems.join(u'\n')));

    QCOMPARE(catalogue.conTypes.size(), size_t(2));
    QCOMPARE(catalogue.conTypes[0].shortName, "C");
    QCOMPARE(catalogue.conTypes[0].longName, "Con");
    QCOMPARE(catalogue.conTypes[0].hops[0].waypoint, "A");
    QVERIFY(catalogue.conTypes[0].hops[0].mandatory);
    QVERIFY(!catalogue.nodeTypes[0].hops[0].mandatory);
    const std::vector<ParameterDefinition>& rows = catalogue.waypoints[0].parameters;
    QCOMPARE(rows.size(), size_t(4));
    QCOMPARE(rows[0].kind, ParameterKind::Text);
    QCOMPARE(rows[0].textLength, 8);
    QCOMPARE(rows[0].requirement, 1);
    QCOMPARE(rows[0].defaultValue, QString());
    QCOMPARE(rows[1].kind, ParameterKind::Free);
    QCOMPARE(rows[2].keyword, "TIME");
    QCOMPARE(rows[2].defaultValue, "5");
    QCOMPARE(rows[2].high, 9);
    QCOMPARE(rows[3].values, QStringList({"1", "2"}));
}

void TestCatalogueReader::ReadCatalogue_WithoutGroups_GivesRows()
{
    Catalogue catalogue;
    QStringList problems;
    QByteArray text = SmallText();
    const qsizetype groups = text.indexOf("    \"groups\"");
    text.remove(groups, text.indexOf("    \"waypoints\"") - groups);
    text.replace(R"({ "group": "timing" })", R"({ "keyword": "TIME", "longName": "T", "required": 0 },
        { "keyword": "RETRY", "longName": "R", "required": 0 })");

    QVERIFY2(Read(text, catalogue, problems), qPrintable(problems.join(u'\n')));
    QCOMPARE(catalogue.waypoints[0].parameters.size(), size_t(4));
}

void TestCatalogueReader::ReadCatalogue_OffendingRow_NamesIt_data()
{
    QTest::addColumn<QByteArray>("from");
    QTest::addColumn<QByteArray>("to");
    QTest::addColumn<QStringList>("problems");
    const auto row = [](const char* name, const char* from, const char* to, const QStringList& problems) {
        QTest::newRow(name) << QByteArray(from) << QByteArray(to) << problems;
    };
    row("unknown key at the top", "\"nodeTypes\"", "\"extra\": 1, \"nodeTypes\"",
        {"catalogue: unknown key \"extra\""});
    row("missing part", "\"nodeTypes\"", "\"nodeType\"",
        {"catalogue: unknown key \"nodeType\"", "catalogue: \"nodeTypes\" is missing"});
    row("part of the wrong kind",
        R"("nodeTypes": [{ "shortName": "N", "longName": "Node", "hops": [["A", 0]] }])",
        R"("nodeTypes": {})", {"catalogue: \"nodeTypes\" must be an array"});
    row("type that is no object", R"("nodeTypes": [)", R"("nodeTypes": [5, )",
        {"node type no. 1: must be an object"});
    row("unknown key of a type", R"("longName": "Con")", R"("longName": "Con", "picture": 3)",
        {"connection type C: unknown key \"picture\""});
    row("type without a short name", R"("shortName": "C")", R"("short": "C")",
        {"connection type no. 1: unknown key \"short\"", "connection type no. 1: \"shortName\" is missing"});
    row("long name that is no text", R"("longName": "Con")", R"("longName": 7)",
        {"connection type C: \"longName\" must be a text"});
    row("type without hops", R"("longName": "Con", "hops": [["A", 1]])", R"("longName": "Con")",
        {"connection type C: \"hops\" is missing"});
    row("hop without a flag", R"([["A", 1]])", R"([["A"]])",
        {"connection type C, hop no. 1: must be a waypoint and a flag"});
    row("hop that is a text", R"([["A", 1]])", R"([["A", 1], "OPT"])",
        {"connection type C, hop no. 2: must be a waypoint and a flag"});
    row("hop of two numbers", R"([["A", 0]])", R"([[1, 0]])",
        {"node type N, hop no. 1: must be a waypoint and a flag"});
    row("flag 2", R"([["A", 1]])", R"([["A", 2]])",
        {"connection type C, hop no. 1: the flag must be 0 or 1"});
    row("flag as a text", R"([["A", 0]])", R"([["A", "0"]])",
        {"node type N, hop no. 1: the flag must be 0 or 1"});
    row("flag as a truth value", R"([["A", 0]])", R"([["A", true]])",
        {"node type N, hop no. 1: the flag must be 0 or 1"});
    row("flag between", R"([["A", 0]])", R"([["A", 0.5]])",
        {"node type N, hop no. 1: the flag must be 0 or 1"});
    row("unknown key of a waypoint", R"("longName": "Hop A")", R"("longName": "Hop A", "rows": [])",
        {"waypoint A: unknown key \"rows\""});
    row("waypoint that is no object", R"("waypoints": [)", R"("waypoints": [null, )",
        {"waypoint no. 1: must be an object"});
    row("waypoint without parameters", R"("longName": "Hop A", "parameters")", R"("longName": "Hop A", "x")",
        {"waypoint A: unknown key \"x\"", "waypoint A: \"parameters\" is missing"});
    row("unknown key of a parameter", R"("text": 8)", R"("txt": 8)",
        {"waypoint A, parameter K: unknown key \"txt\""});
    row("parameter without a keyword", R"("keyword": "F", )", "",
        {"waypoint A, parameter no. 2: \"keyword\" is missing"});
    row("parameter without a requirement", R"("longName": "FREE", "required": 0)", R"("longName": "FREE")",
        {"waypoint A, parameter F: \"required\" is missing"});
    row("requirement as a text", R"("longName": "FREE", "required": 0)",
        R"("longName": "FREE", "required": "0")",
        {"waypoint A, parameter F: \"required\" must be a whole number"});
    row("requirement between", R"("longName": "FREE", "required": 0)",
        R"("longName": "FREE", "required": 0.5)",
        {"waypoint A, parameter F: \"required\" must be a whole number"});
    row("default that is no text", R"("default": "5")", R"("default": 5)",
        {"group timing, parameter TIME: \"default\" must be a text"});
    row("two kinds", R"("text": 8)", R"("text": 8, "list": ["1"])",
        {"waypoint A, parameter K: has more than one of \"text\", \"bounds\" and \"list\""});
    row("length that is no number", R"("text": 8)", R"("text": "8")",
        {"waypoint A, parameter K: \"text\" must be a whole number"});
    row("one bound", "[0, 9]", "[0]",
        {"group timing, parameter TIME: \"bounds\" must be the lowest and the highest value"});
    row("bound beyond 32 bits", "[0, 9]", "[0, 2147483648]",
        {"group timing, parameter TIME: \"bounds\" must be a whole number"});
    row("huge bound", "[0, 9]", "[0, 1e300]",
        {"group timing, parameter TIME: \"bounds\" must be a whole number"});
    row("list that is a text", R"(["1", "2"])", R"("1 2")",
        {"group timing, parameter RETRY: \"list\" must be an array"});
    row("list value that is a number", R"(["1", "2"])", R"(["1", 2])",
        {"group timing, parameter RETRY: each value of \"list\" must be a text"});
    row("parameter that is no object", R"({ "keyword": "F", "longName": "FREE", "required": 0 })", "\"F\"",
        {"waypoint A, parameter no. 2: must be an object"});
    row("unknown group", R"({ "group": "timing" })", R"({ "group": "other" })",
        {"waypoint A, parameter no. 3: there is no group \"other\""});
    row("group with more", R"({ "group": "timing" })", R"({ "group": "timing", "required": 1 })",
        {"waypoint A, parameter no. 3: unknown key \"required\""});
    row("group in a group", R"("timing": [)", R"("timing": [ { "group": "timing" }, )",
        {"group timing, parameter no. 1: a group must not hold a group"});
    row("group that is no array", R"("timing": [)", R"("other": 5, "timing": [)",
        {"group other: must be an array"});
}

void TestCatalogueReader::ReadCatalogue_OffendingRow_NamesIt()
{
    QFETCH(QByteArray, from);
    QFETCH(QByteArray, to);
    QFETCH(QStringList, problems);

    QByteArray text = SmallText();
    QCOMPARE(text.count(from), 1);
    text.replace(from, to);
    Catalogue catalogue;
    QStringList found;
    QVERIFY(!Read(text, catalogue, found));
    QCOMPARE(found, problems);
}

void TestCatalogueReader::ReadCatalogue_SeveralOffendingRows_NamesEach()
{
    QByteArray text = BuiltInText();
    text.replace(R"("keyword": "ADDR")", R"("keyword": "ADDR", "foo": 1)");
    text.replace(R"(["LAN", 1])", R"(["LAN", 3])");
    text.replace(R"("longName": "FE Parameters",)", "");

    Catalogue catalogue;
    QStringList problems;
    QVERIFY(!Read(text, catalogue, problems));
    QCOMPARE(problems, QStringList({"connection type LAN, hop no. 1: the flag must be 0 or 1",
                                    "waypoint NET4, parameter ADDR: unknown key \"foo\"",
                                    "waypoint FE: \"longName\" is missing"}));
}

void TestCatalogueReader::ReadCatalogue_BrokenRule_NamesRow()
{
    QByteArray text = BuiltInText();
    text.replace(R"("keyword": "ADDR")", R"("keyword": "SUB")");
    text.replace(R"(["KD7", 1])", R"(["KD8", 1])");

    Catalogue catalogue;
    QStringList problems;
    QVERIFY(!Read(text, catalogue, problems));
    QCOMPARE(problems.first(), "connection type KD7: there is no waypoint \"KD8\"");
    QCOMPARE(problems.last(), "waypoint NET4, parameter SUB: there are two of this keyword");
}

void TestCatalogueReader::ReadCatalogue_MalformedText_NamesLineAndColumn_data()
{
    QTest::addColumn<QByteArray>("text");
    /// The words behind it are Qt's.
    QTest::addColumn<QString>("start");
    QTest::newRow("empty") << QByteArray() << "line 1, column 1: ";
    QTest::newRow("no JSON") << QByteArray("[catalogue]\n") << "line 1, column 2: ";
    QTest::newRow("missing colon") << QByteArray("{\n  \"nodeTypes\" []\n}") << "line 2, column 16: ";
    QTest::newRow("behind wide characters")
        << QByteArray("{\n\n\"\u00e4\u00e4\" []}") << "line 3, column 7: ";
    QTest::newRow("not UTF-8") << QByteArray("{\n \"\xff\": 1 }") << "line 2, column ";
    QTest::newRow("text behind the end") << QByteArray("{}\n}") << "line 2, column ";
}

void TestCatalogueReader::ReadCatalogue_MalformedText_NamesLineAndColumn()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, start);

    Catalogue catalogue;
    QStringList problems;
    QVERIFY(!Read(text, catalogue, problems));
    QCOMPARE(problems.size(), 1);
    QVERIFY2(problems.first().startsWith(start), qPrintable(problems.first()));
    QVERIFY2(problems.first().section(": ", 1).size() > 5, qPrintable(problems.first()));
}

void TestCatalogueReader::ReadCatalogue_NoObject_IsRefused()
{
    Catalogue catalogue;
    QStringList problems;
    QVERIFY(!Read("[]", catalogue, problems));
    QCOMPARE(problems, QStringList("catalogue: must be an object"));
}

void TestCatalogueReader::ReadCatalogue_UnusableFile_NamesFile()
{
    Catalogue catalogue;
    for (const QString& file : {m_folder.filePath("missing.json"), m_folder.path()}) {
        QStringList problems;
        QVERIFY(!ReadCatalogue(file, catalogue, problems));
        QCOMPARE(problems.size(), 1);
        QVERIFY2(problems.first().startsWith(file + ": "), qPrintable(problems.first()));
        QVERIFY(problems.first().size() > file.size() + 2);
    }
}

void TestCatalogueReader::ReadCatalogue_TooLargeFile_IsRefused()
{
    Catalogue catalogue;
    QStringList problems;
    const QByteArray text = SmallText();
    constexpr qsizetype limit = 4 * 1024 * 1024;

    QVERIFY(Read(text + QByteArray(limit - text.size(), ' '), catalogue, problems));
    QVERIFY(!Read(text + QByteArray(limit - text.size() + 1, ' '), catalogue, problems));
    QCOMPARE(problems, QStringList(m_folder.filePath("catalogue.json") + ": larger than 4194304 bytes"));
}

void TestCatalogueReader::ReadCatalogue_Failure_LeavesCatalogueAlone()
{
    Catalogue catalogue;
    QStringList problems;
    QVERIFY(Read(SmallText(), catalogue, problems));

    QVERIFY(!Read("{}", catalogue, problems));

    QCOMPARE(problems,
             QStringList({"catalogue: \"connectionTypes\" is missing", "catalogue: \"nodeTypes\" is missing",
                          "catalogue: \"waypoints\" is missing"}));
    QCOMPARE(catalogue.waypoints.size(), size_t(1));
}

void TestCatalogueReader::ReadCatalogue_CutText_NeverPasses()
{
    const QByteArray text = SmallText().trimmed();
    for (qsizetype size = 0; size < text.size(); size += 7) {
        Catalogue catalogue;
        QStringList problems;
        QVERIFY2(!Read(text.left(size), catalogue, problems), text.left(size).constData());
        QCOMPARE(problems.size(), 1);
        QVERIFY2(problems.first().startsWith("line "), qPrintable(problems.first()));
    }
}

QTEST_GUILESS_MAIN(TestCatalogueReader)
#include "TestCatalogueReader.moc"
