#include "NaiveTree.h"
#include "model/TreeEntries.h"

#include <QAbstractItemModelTester>
#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <map>

/// Random operations on TreeEntries and on a naive tree side by side.
class TestTreeEntriesRandom : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Operations_Random_SameAsNaive_data();
    void Operations_Random_SameAsNaive();
    void Batches_Random_SameAsSorted_data();
    void Batches_Random_SameAsSorted();
    void SingleChanges_LargeParent_KeepOrderAndRows_data();
    void SingleChanges_LargeParent_KeepOrderAndRows();
};

namespace {

/// Both trees and the means to change them alike.
class TwoTrees
{
public:
    explicit TwoTrees(quint32 seed) : m_random(seed) {}

    TreeEntries& Entries() { return m_entries; }
    void Step();
    void Compare();
    QString RandomText();

private:
    int Below(int limit) { return int(m_random.bounded(limit)); }
    int RandomEntry();
    QString RandomKey();
    void AddOne();
    void AddBatch();
    void CompareEntry(int entry);
    void CompareVisible();
    void CompareFinding();

    QRandomGenerator m_random;
    NaiveTree m_naive;
    TreeEntries m_entries;
    std::map<int, QPersistentModelIndex> m_held;
};

QString TwoTrees::RandomText()
{
    static const QStringList beginnings = {
        QString(),
        QStringLiteral("Net"),
        QStringLiteral("NET"),
        QStringLiteral("\u00c4ther"),
        QStringLiteral("\u00e4ther"),
        QStringLiteral("e\u0301"),
        QStringLiteral("\U0001F600 node"),
        QStringLiteral("\U00010400"),
        QStringLiteral("\U00010428"),
        QStringLiteral("\u00b5-station"),
        QStringLiteral("\u03bc-station"),
        QStringLiteral("a text that is too long for a place of its own "),
        QStringLiteral("\u0416\u0436 a long text of two bytes a character ")};
    const QString beginning = beginnings.at(Below(int(beginnings.size())));
    return Below(4) == 0 ? beginning : beginning + QString::number(Below(40));
}

QString TwoTrees::RandomKey()
{
    const QString id = QString::number(Below(300) + 1);
    switch (Below(6)) {
    case 0:
        return QStringLiteral("C,") + id;
    case 1:
        return QStringLiteral("W,%1,%2").arg(id).arg(Below(3) + 1);
    case 2:
        return QStringLiteral("N,-") + id;
    case 3:
        return QStringLiteral("N,%1,%2").arg(id).arg(Below(3) + 1);
    default:
        return QStringLiteral("N,") + id;
    }
}

/// An entry that is there, or 0 for the top.
int TwoTrees::RandomEntry()
{
    return std::next(m_naive.Entries().begin(), Below(int(m_naive.Entries().size())))->first;
}

void TwoTrees::AddOne()
{
    const int parent = RandomEntry();
    const QString key = RandomKey();
    const QString text = RandomText();
    QCOMPARE(m_entries.Add(parent, key, text), m_naive.Add(parent, key, text));
    const int added = m_entries.FindByKey(key);
    if (Below(4) == 0)
        m_held[added] = m_entries.ModelIndex(added);
}

void TwoTrees::AddBatch()
{
    const int parent = RandomEntry();
    const int conId = Below(3);
    std::vector<QString> texts;
    std::vector<NewTreeEntry> batch;
    for (int count = Below(20); count > 0; --count)
        texts.push_back(RandomText());
    for (const QString& text : texts)
        batch.push_back({Below(400) - 50, text});
    const bool nodes = Below(2) == 0;
    const int added =
        nodes ? m_entries.AddNodes(parent, batch, conId) : m_entries.AddConnections(parent, batch);
    int expected = 0;
    for (const NewTreeEntry& entry : batch) {
        QString key = (nodes ? QStringLiteral("N,") : QStringLiteral("C,")) + QString::number(entry.id);
        if (nodes && conId != 0)
            key += u',' + QString::number(conId);
        if (!nodes && entry.id < 0)
            continue;
        expected += int(m_naive.Add(parent, key, entry.text.toString()) != 0);
    }
    QCOMPARE(added, expected);
}

void TwoTrees::Step()
{
    const int operation = Below(100);
    if (operation < 45)
        return AddOne();
    if (operation < 50)
        return AddBatch();
    const int entry = RandomEntry();
    if (operation < 55) {
        const bool sorted = Below(3) != 0;
        m_naive.SetSorted(entry, sorted);
        return m_entries.SetSorted(entry, sorted);
    }
    if (entry == 0)
        return;
    if (operation < 70) {
        const bool expanded = Below(2) == 0;
        m_naive.At(entry).expanded = expanded;
        m_entries.SetExpanded(entry, expanded);
    } else if (operation < 80) {
        const QString text = RandomText();
        m_naive.SetText(entry, text);
        m_entries.SetText(entry, text);
    } else if (operation < 88) {
        const QString key = RandomKey();
        QCOMPARE(m_entries.SetKey(entry, key), m_naive.SetKey(entry, key));
    } else if (operation < 97) {
        m_naive.Remove(entry);
        QVERIFY(m_entries.Remove(entry));
    } else {
        m_naive.RemoveChildren(entry);
        m_entries.RemoveChildren(entry);
    }
}

void TwoTrees::Compare()
{
    QCOMPARE(m_entries.Count(), int(m_naive.Entries().size()) - 1);
    for (const auto& [entry, expected] : m_naive.Entries())
        CompareEntry(entry);
    CompareVisible();
    CompareFinding();
    for (const auto& [entry, index] : m_held) {
        QCOMPARE(index.isValid(), m_naive.Exists(entry));
        if (index.isValid())
            QCOMPARE(QModelIndex(index), m_entries.ModelIndex(entry));
    }
}

void TwoTrees::CompareEntry(int entry)
{
    const NaiveTree::Entry& expected = m_naive.At(entry);
    QCOMPARE(m_entries.ChildCount(entry), int(expected.children.size()));
    for (size_t at = 0; at < expected.children.size(); ++at) {
        const int child = expected.children[at];
        QCOMPARE(m_entries.Child(entry, int(at)), child);
        QCOMPARE(m_entries.ModelIndex(child).row(), int(at));
        QCOMPARE(m_entries.NextSibling(child),
                 at + 1 < expected.children.size() ? expected.children[at + 1] : 0);
    }
    QCOMPARE(m_entries.Sorted(entry), expected.sorted);
    if (entry == 0)
        return;
    QCOMPARE(m_entries.Key(entry), expected.key);
    QCOMPARE(m_entries.Text(entry), expected.text);
    QCOMPARE(m_entries.Parent(entry), expected.parent);
    QCOMPARE(m_entries.Expanded(entry), expected.expanded);
    QCOMPARE(m_entries.FindContinued(entry), m_naive.FindContinued(entry));
}

void TwoTrees::CompareVisible()
{
    const std::vector<int> visible = m_naive.Visible();
    QCOMPARE(m_entries.VisibleRowCount(), int(visible.size()));
    for (size_t row = 0; row < visible.size(); ++row) {
        const QModelIndex index = m_entries.ModelIndex(visible[row]);
        QCOMPARE(m_entries.IndexAtVisibleRow(int(row)), index);
        QCOMPARE(m_entries.VisibleRowOf(index), int(row));
    }
    for (const auto& [entry, expected] : m_naive.Entries()) {
        const bool shown = std::find(visible.begin(), visible.end(), entry) != visible.end();
        QCOMPARE(m_entries.VisibleRowOf(m_entries.ModelIndex(entry)) >= 0, shown);
    }
}

void TwoTrees::CompareFinding()
{
    QCOMPARE(m_entries.ParentsWithChildren(), m_naive.ParentsWithChildren());
    const std::vector<int> visible = m_naive.Visible();
    for (int count = 0; count < 20; ++count) {
        const QString text = RandomText();
        QCOMPARE(m_entries.FindByText(text, false), m_naive.FindByText(text, false));
        QCOMPARE(m_entries.FindByText(text.toUpper(), true), m_naive.FindByText(text.toUpper(), true));
        const QString key = RandomKey();
        QCOMPARE(m_entries.FindByKey(key), m_naive.FindByKey(key));
        const int from = visible.empty() ? 0 : visible[size_t(Below(int(visible.size())))];
        const QModelIndex found = m_entries.FindVisibleByPrefix(m_entries.ModelIndex(from), text);
        QCOMPARE(TreeEntries::EntryOf(found), m_naive.FindVisibleByPrefix(from, text));
    }
}

/// Texts, ids and expectations of a large flat list.
std::vector<QString> NumberedTexts(int count, quint32 seed)
{
    QRandomGenerator random(seed);
    std::vector<QString> texts;
    for (int at = 0; at < count; ++at)
        texts.push_back(QStringLiteral("Node %1").arg(random.bounded(100000)));
    return texts;
}

bool Stands(const TreeEntries& entries, int left, int right)
{
    const QString leftText = entries.Text(left);
    const QString rightText = entries.Text(right);
    if (const int folded = leftText.compare(rightText, Qt::CaseInsensitive))
        return folded < 0;
    const int exact = leftText.compare(rightText);
    return exact != 0 ? exact < 0 : left < right;
}

/// Every child stands in order, where it says that it stands, and all are shown.
void CheckSortedList(const TreeEntries& entries, int parent)
{
    const int count = entries.ChildCount(parent);
    int previous = 0;
    for (int row = 0; row < count; ++row) {
        const int child = entries.Child(parent, row);
        QVERIFY(previous == 0 || Stands(entries, previous, child));
        if (previous != 0)
            QCOMPARE(entries.NextSibling(previous), child);
        QCOMPARE(entries.ModelIndex(child).row(), row);
        QCOMPARE(TreeEntries::EntryOf(entries.IndexAtVisibleRow(row + 1)), child);
        QCOMPARE(entries.VisibleRowOf(entries.ModelIndex(child)), row + 1);
        previous = child;
    }
}

} // namespace

void TestTreeEntriesRandom::Operations_Random_SameAsNaive_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 8; ++seed)
        QTest::addRow("numbers %u", seed) << seed;
}

void TestTreeEntriesRandom::Operations_Random_SameAsNaive()
{
    QFETCH(quint32, seed);
    TwoTrees trees(seed);
    const QAbstractItemModelTester tester(&trees.Entries(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    for (int step = 1; step <= 2000; ++step) {
        trees.Step();
        if (step % 100 == 0)
            trees.Compare();
        if (QTest::currentTestFailed())
            return;
    }
}

void TestTreeEntriesRandom::Batches_Random_SameAsSorted_data()
{
    QTest::addColumn<int>("batches");
    QTest::addColumn<int>("size");
    QTest::newRow("one batch") << 1 << 40000;
    QTest::newRow("few large") << 5 << 12000;
    QTest::newRow("many small") << 60 << 700;
    QTest::newRow("single entries") << 3000 << 1;
}

void TestTreeEntriesRandom::Batches_Random_SameAsSorted()
{
    QFETCH(int, batches);
    QFETCH(int, size);
    TreeEntries entries;
    const int root = entries.Add(0, "R,0", "Nodes");
    entries.SetExpanded(root, true);
    const std::vector<QString> texts = NumberedTexts(batches * size, 7);
    std::vector<QPersistentModelIndex> held;
    std::vector<int> heldEntries;

    for (int batch = 0; batch < batches; ++batch) {
        std::vector<NewTreeEntry> added;
        for (int at = batch * size; at < (batch + 1) * size; ++at)
            added.push_back({at + 1, texts[size_t(at)]});
        entries.SetSorted(root, false);
        QCOMPARE(entries.AddNodes(root, added), size);
        heldEntries.push_back(entries.FindByKey(QStringLiteral("N,%1").arg(batch * size + 1)));
        held.push_back(entries.ModelIndex(heldEntries.back()));
        entries.SetSorted(root, true);
    }

    QCOMPARE(entries.ChildCount(root), batches * size);
    CheckSortedList(entries, root);
    for (size_t at = 0; at < held.size(); ++at)
        QCOMPARE(QModelIndex(held[at]), entries.ModelIndex(heldEntries[at]));
}

void TestTreeEntriesRandom::SingleChanges_LargeParent_KeepOrderAndRows_data()
{
    QTest::addColumn<quint32>("seed");
    QTest::addColumn<int>("removeShare");
    QTest::newRow("growing") << 11u << 30;
    QTest::newRow("steady") << 12u << 50;
    QTest::newRow("shrinking to nothing") << 13u << 90;
}

void TestTreeEntriesRandom::SingleChanges_LargeParent_KeepOrderAndRows()
{
    QFETCH(quint32, seed);
    QFETCH(int, removeShare);
    TreeEntries entries;
    const int root = entries.Add(0, "R,0", "Nodes");
    entries.SetExpanded(root, true);
    const std::vector<QString> texts = NumberedTexts(20000, seed);
    std::vector<NewTreeEntry> first;
    for (size_t at = 0; at < texts.size(); ++at)
        first.push_back({int(at) + 1, texts[at]});
    QCOMPARE(entries.AddNodes(root, first), int(texts.size()));
    entries.SetSorted(root, true);

    QRandomGenerator random(seed);
    int id = 1000000;
    for (int step = 0; step < 26000; ++step) {
        const int count = entries.ChildCount(root);
        if (count > 0 && int(random.bounded(100)) < removeShare)
            QVERIFY(entries.Remove(entries.Child(root, int(random.bounded(count)))));
        else
            QVERIFY(entries.Add(root, QStringLiteral("N,%1").arg(++id),
                                QStringLiteral("NODE %1").arg(random.bounded(100000))) != 0);
        QCOMPARE(entries.VisibleRowCount(), entries.ChildCount(root) + 1);
    }
    CheckSortedList(entries, root);
}

QTEST_GUILESS_MAIN(TestTreeEntriesRandom)
#include "TestTreeEntriesRandom.moc"
