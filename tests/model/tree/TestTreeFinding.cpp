#include "model/TreeEntries.h"
#include "model/TreePattern.h"

#include <QRandomGenerator>
#include <QTest>

/// Which texts contain a text, and in which order a tree gives them.
class TestTreeFinding : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void OccursIn_Texts_UpperCaseIsCompared_data();
    void OccursIn_Texts_UpperCaseIsCompared();
    void OccursIn_RandomTexts_AsUpperCaseContains();
    void FindContaining_ConnectionsAndChildren_OrderOfTheTree();
    void FindContaining_InSteps_GivesTheSame_data();
    void FindContaining_InSteps_GivesTheSame();
    void FindContaining_EmptyTree_Ends();
    void FindContaining_MoreThanOneLeaf_GivesAll();
};

namespace {

bool Occurs(const QString& searched, const QString& text)
{
    const TreeText stored{QStringView(text)};
    return TreePattern(searched).OccursIn(stored.View());
}

/// All that is found, `most` entries at a time.
QStringList Find(const TreeEntries& tree, const QString& searched, int most)
{
    std::vector<TreeEntries::Index> found;
    TreeEntries::SearchPlace place;
    const TreePattern pattern(searched);
    while (tree.FindContaining(pattern, place, most, found)) {
    }
    QStringList texts;
    for (const TreeEntries::Index entry : found)
        texts << tree.Text(entry);
    return texts;
}

void FillConnections(TreeEntries& tree)
{
    const TreeEntries::Index root = tree.Add(0, QStringLiteral("R,0"), QStringLiteral("abc root"));
    tree.SetSorted(root, true);
    int id = 0;
    for (const char* name : {"zabc", "Alpha", "xABCy"}) {
        const TreeEntries::Index connection =
            tree.Add(root, QStringLiteral("C,%1").arg(++id), QString::fromLatin1(name));
        tree.SetSorted(connection, true);
        for (const char* node : {"2 Abc", "none", "1 aBC"})
            tree.Add(connection, QStringLiteral("N,%1").arg(++id),
                     QString::fromLatin1(name).left(1) + QString::fromLatin1(node));
    }
}

const QStringList Expected = {"A1 aBC", "A2 Abc", "xABCy", "x1 aBC", "x2 Abc", "zabc", "z1 aBC", "z2 Abc"};

} // namespace

void TestTreeFinding::OccursIn_Texts_UpperCaseIsCompared_data()
{
    QTest::addColumn<QString>("searched");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("occurs");
    const auto row = [](const char* tag, const char* searched, const char* text, bool occurs) {
        QTest::newRow(tag) << QString::fromUtf8(searched) << QString::fromUtf8(text) << occurs;
    };
    row("case", "abc", "xABCy", true);
    row("upper searched", "ABC", "xabcy", true);
    row("begin", "ab", "Abxx", true);
    row("end", "yz", "xxYZ", true);
    row("one letter", "a", "xxA", true);
    row("not there", "abc", "abxc", false);
    row("longer than the text", "abcd", "abc", false);
    row("the text itself", "abc", "ABC", true);
    row("no text", "a", "", false);
    row("repeated", "aab", "aaaab", true);
    row("percent is itself", "a%c", "abc", false);
    row("percent", "%", "50 %", true);
    row("underscore", "_", "abc", false);
    row("star", "*", "abc", false);
    row("backslash", "\\", "a\\b", true);
    row("accent", "é", "CAFÉ", true);
    row("accent and none", "e", "É", false);
    row("sharp s", "strasse", "Straße", true);
    row("sharp s searched", "ß", "MASSE", true);
    row("y with dots", "Ÿ", "ÿ", true);
    row("micro", "Μ", "5 µm", true);
    row("greek", "αβγ", "xΑΒΓ", true);
    row("cyrillic", "север", "НАСОС СЕВЕР 2", true);
    row("outside the first plane", "𐐨", "x𐐀", true);
    row("dotless i", "i", "ı", true);
    row("long", "needle", "a text that is longer than what an entry keeps in place: NEEDLE", true);
}

void TestTreeFinding::OccursIn_Texts_UpperCaseIsCompared()
{
    QFETCH(const QString, searched);
    QFETCH(const QString, text);
    QTEST(Occurs(searched, text), "occurs");
}

void TestTreeFinding::OccursIn_RandomTexts_AsUpperCaseContains()
{
    QRandomGenerator random(4711);
    const QString letters = QStringLiteral("aAbBäÄßÿµéıſ Ωω1_%");
    const auto make = [&](int most) {
        QString text;
        for (int left = random.bounded(most); left >= 0; --left)
            text += letters.at(random.bounded(letters.size()));
        return text;
    };
    int hits = 0;
    for (int round = 0; round < 20000; ++round) {
        const QString searched = make(3);
        const QString text = make(30);
        const bool expected = text.toUpper().contains(searched.toUpper());
        hits += expected ? 1 : 0;
        QVERIFY2(Occurs(searched, text) == expected, qPrintable(searched + QLatin1String(" in ") + text));
    }
    QVERIFY(hits > 1000);
}

void TestTreeFinding::FindContaining_ConnectionsAndChildren_OrderOfTheTree()
{
    TreeEntries tree;
    FillConnections(tree);
    QCOMPARE(Find(tree, QStringLiteral("abc"), 1000), Expected);
    QCOMPARE(Find(tree, QStringLiteral("root"), 1000), QStringList());
}

void TestTreeFinding::FindContaining_InSteps_GivesTheSame_data()
{
    QTest::addColumn<int>("most");
    for (int most = 1; most <= 13; ++most)
        QTest::addRow("%d", most) << most;
}

void TestTreeFinding::FindContaining_InSteps_GivesTheSame()
{
    QFETCH(const int, most);
    TreeEntries tree;
    FillConnections(tree);
    QCOMPARE(Find(tree, QStringLiteral("abc"), most), Expected);
}

void TestTreeFinding::FindContaining_EmptyTree_Ends()
{
    TreeEntries tree;
    QCOMPARE(Find(tree, QStringLiteral("a"), 10), QStringList());
    tree.Add(0, QStringLiteral("R,0"), QStringLiteral("a"));
    QCOMPARE(Find(tree, QStringLiteral("a"), 10), QStringList());
}

void TestTreeFinding::FindContaining_MoreThanOneLeaf_GivesAll()
{
    TreeEntries tree;
    const TreeEntries::Index root = tree.Add(0, QStringLiteral("R,0"), QStringLiteral("Nodes"));
    QStringList names;
    std::vector<NewTreeEntry> nodes;
    for (int number = 1; number <= 3000; ++number)
        names << QStringLiteral("Node %1").arg(number);
    for (int number = 1; number <= 3000; ++number)
        nodes.push_back({number, names[number - 1]});
    tree.AddNodes(root, nodes);
    QCOMPARE(Find(tree, QStringLiteral("NODE"), 700), names);
    QCOMPARE(Find(tree, QStringLiteral("e 2999"), 700), QStringList{QStringLiteral("Node 2999")});
}

QTEST_GUILESS_MAIN(TestTreeFinding)
#include "TestTreeFinding.moc"
