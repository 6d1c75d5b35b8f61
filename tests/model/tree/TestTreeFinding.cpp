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
    void FindContaining_RemovedEntries_AreNotFound();
    void FindContaining_EmptyTree_Ends();
    void FindContaining_MoreThanOneLeaf_GivesAll();
};

namespace {

bool Occurs(const QString& searched, const QString& text)
{
    const TreeText stored{QStringView(text)};
    return TreePattern(searched).OccursIn(stored.View());
}

QStringList TextsOf(const TreeEntries& tree, const std::vector<TreeEntries::Index>& entries)
{
    QStringList texts;
    for (const TreeEntries::Index entry : entries)
        texts << tree.Text(entry);
    return texts;
}

QStringList Find(const TreeEntries& tree, const QString& searched)
{
    std::vector<TreeEntries::Index> entries;
    for (const TreeEntries::Found& found : tree.FindContaining(TreePattern(searched))) {
        if (tree.Parent(found.entry) == found.parent)
            entries.push_back(found.entry);
    }
    return TextsOf(tree, entries);
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
    QCOMPARE(Find(tree, QStringLiteral("abc")), Expected);
    QCOMPARE(Find(tree, QStringLiteral("root")), QStringList());
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
    std::vector<TreeEntries::Index> found;
    TreeEntries::Index next = 1;
    const TreePattern pattern(QStringLiteral("abc"));
    int steps = 1;
    while (tree.FindContaining(pattern, next, most, found))
        ++steps;
    QStringList texts = TextsOf(tree, found);
    QStringList expected = Expected;
    texts.sort();
    expected.sort();
    QCOMPARE(texts, expected);
    QCOMPARE(steps, (tree.Count() + most - 1) / most);
}

void TestTreeFinding::FindContaining_RemovedEntries_AreNotFound()
{
    TreeEntries tree;
    FillConnections(tree);
    tree.Remove(tree.FindByText(QStringLiteral("xABCy"), false));
    QCOMPARE(Find(tree, QStringLiteral("abc")),
             QStringList({QStringLiteral("A1 aBC"), QStringLiteral("A2 Abc"), QStringLiteral("zabc"),
                          QStringLiteral("z1 aBC"), QStringLiteral("z2 Abc")}));
    tree.RemoveChildren(1);
    QCOMPARE(Find(tree, QStringLiteral("abc")), QStringList());
}

void TestTreeFinding::FindContaining_EmptyTree_Ends()
{
    TreeEntries tree;
    QCOMPARE(Find(tree, QStringLiteral("a")), QStringList());
    tree.Add(0, QStringLiteral("R,0"), QStringLiteral("a"));
    QCOMPARE(Find(tree, QStringLiteral("a")), QStringList());
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
    QCOMPARE(Find(tree, QStringLiteral("NODE")), names);
    QCOMPARE(Find(tree, QStringLiteral("e 2999")), QStringList{QStringLiteral("Node 2999")});
}

QTEST_GUILESS_MAIN(TestTreeFinding)
#include "TestTreeFinding.moc"
