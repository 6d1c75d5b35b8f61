#include "browser/FoundEntries.h"

#include <QAbstractItemModelTester>
#include <QTest>

namespace {

using Index = TreeEntries::Index;

/// Root with connections Alpha (nodes 1, 2) and Beta (node 3) and Gamma.
class FoundFixture
{
public:
    FoundFixture()
    {
        const Index root = Tree.Add(0, QStringLiteral("R,0"), QStringLiteral("Connections"));
        Alpha = Tree.Add(root, QStringLiteral("C,1"), QStringLiteral("Alpha"));
        One = Tree.Add(Alpha, QStringLiteral("N,11"), QStringLiteral("One"));
        Two = Tree.Add(Alpha, QStringLiteral("N,12"), QStringLiteral("Two"));
        Beta = Tree.Add(root, QStringLiteral("C,2"), QStringLiteral("Beta"));
        Three = Tree.Add(Beta, QStringLiteral("N,13"), QStringLiteral("Three"));
        Gamma = Tree.Add(root, QStringLiteral("C,3"), QStringLiteral("Gamma"));
    }

    TreeEntries Tree;
    Index Alpha = 0;
    Index One = 0;
    Index Two = 0;
    Index Beta = 0;
    Index Three = 0;
    Index Gamma = 0;
    FoundEntries Found;
    QAbstractItemModelTester Tester{&Found, QAbstractItemModelTester::FailureReportingMode::QtTest};

    void ShowLoaded(std::initializer_list<Index> hits)
    {
        std::vector<TreeEntries::Found> found;
        for (const Index hit : hits)
            found.push_back({hit, Tree.Parent(hit)});
        Found.ShowLoaded(Tree, found);
    }
    [[nodiscard]] QStringList Rows() const
    {
        QStringList rows;
        for (int row = 0; row < Found.VisibleRowCount(); ++row) {
            const QModelIndex index = Found.IndexAtVisibleRow(row);
            if (Found.VisibleRowOf(index) != row)
                rows << QStringLiteral("at another row:");
            rows << QString(Found.DepthOf(index), u' ') + index.data().toString();
        }
        return rows;
    }
    static UnloadedEntry Node(int number, const QString& text, int conId)
    {
        return {text, number, false, QStringLiteral("Con %1").arg(conId), conId};
    }
};

} // namespace

/// The rows of found entries.
class TestFoundEntries : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ShowLoaded_Hits_StandBelowTheirParents();
    void ShowUnloaded_Hits_StandInAGroupOfTheirOwn();
    void ShowUnloaded_Again_ReplacesTheGroup();
    void SetExpanded_Rows_ComeAndGo();
    void EntryAt_Rows_GiveWhatCanBeChosen();
    void FirstHit_Hits_NotAHeading();
    void FindVisibleByPrefix_Rows_WrapAround();
    void SourceReset_LoadedHits_Go();
};

void TestFoundEntries::ShowLoaded_Hits_StandBelowTheirParents()
{
    FoundFixture f;
    QCOMPARE(f.Rows(), QStringList());
    f.ShowLoaded({f.Alpha, f.Two, f.Three, f.Gamma});
    QCOMPARE(f.Rows(),
             QStringList({QStringLiteral("Connections"), QStringLiteral(" Alpha"), QStringLiteral("  Two"),
                          QStringLiteral(" Beta"), QStringLiteral("  Three"), QStringLiteral(" Gamma")}));
    QCOMPARE(f.Found.HitCount(), 4);
    QCOMPARE(f.Found.IndexOfEntry(f.Three).data(TreeEntries::KindRole).toChar(), QChar(u'N'));
    QCOMPARE(f.Found.IndexOfEntry(f.Beta).data(TreeEntries::KindRole).toChar(), QChar(u'C'));
    QVERIFY(!f.Found.IndexOfEntry(f.One).isValid());
}

void TestFoundEntries::ShowUnloaded_Hits_StandInAGroupOfTheirOwn()
{
    FoundFixture f;
    f.ShowLoaded({f.One});
    f.Found.ShowUnloaded({FoundFixture::Node(21, QStringLiteral("a"), 7),
                          FoundFixture::Node(22, QStringLiteral("b"), 7),
                          FoundFixture::Node(23, QStringLiteral("c"), 8)},
                         true);
    QCOMPARE(f.Rows(),
             QStringList({QStringLiteral("Connections"), QStringLiteral(" Alpha"), QStringLiteral("  One"),
                          QStringLiteral("Not loaded yet"), QStringLiteral(" Con 7"), QStringLiteral("  a"),
                          QStringLiteral("  b"), QStringLiteral(" Con 8"), QStringLiteral("  c"),
                          QStringLiteral(" There are more than 1000. Search for a longer text.")}));
    QCOMPARE(f.Found.HitCount(), 4);
}

void TestFoundEntries::ShowUnloaded_Again_ReplacesTheGroup()
{
    FoundFixture f;
    f.ShowLoaded({f.Gamma});
    f.Found.ShowUnloaded({FoundFixture::Node(21, QStringLiteral("a"), 7)}, false);
    f.Found.ShowUnloaded({FoundFixture::Node(22, QStringLiteral("b"), 8)}, false);
    QCOMPARE(f.Rows(), QStringList({QStringLiteral("Connections"), QStringLiteral(" Gamma"),
                                    QStringLiteral("Not loaded yet"), QStringLiteral(" Con 8"),
                                    QStringLiteral("  b")}));
    f.Found.ShowUnloaded({}, false);
    QCOMPARE(f.Found.VisibleRowCount(), 2);
}

void TestFoundEntries::SetExpanded_Rows_ComeAndGo()
{
    FoundFixture f;
    f.ShowLoaded({f.Alpha, f.One, f.Two, f.Three});
    f.Found.ShowUnloaded({FoundFixture::Node(21, QStringLiteral("a"), 7)}, false);
    const QModelIndex alpha = f.Found.IndexOfEntry(f.Alpha);
    const QModelIndex two = f.Found.IndexOfEntry(f.Two);
    QVERIFY(f.Found.IsExpanded(alpha) && !f.Found.IsExpanded(two));
    f.Found.SetExpanded(alpha, false);
    QCOMPARE(f.Found.VisibleRowOf(two), -1);
    QCOMPARE(f.Rows(),
             QStringList({QStringLiteral("Connections"), QStringLiteral(" Alpha"), QStringLiteral(" Beta"),
                          QStringLiteral("  Three"), QStringLiteral("Not loaded yet"),
                          QStringLiteral(" Con 7"), QStringLiteral("  a")}));
    f.Found.SetExpanded(f.Found.IndexAtVisibleRow(0), false);
    QCOMPARE(f.Rows().first(2),
             QStringList({QStringLiteral("Connections"), QStringLiteral("Not loaded yet")}));
    QCOMPARE(f.Found.VisibleRowOf(alpha), -1);
    f.Found.SetExpanded(alpha, true);
    f.Found.SetExpanded(f.Found.IndexAtVisibleRow(0), true);
    QCOMPARE(f.Found.VisibleRowOf(two), 3);
}

void TestFoundEntries::EntryAt_Rows_GiveWhatCanBeChosen()
{
    FoundFixture f;
    f.ShowLoaded({f.One});
    f.Found.ShowUnloaded({FoundFixture::Node(21, QStringLiteral("a"), 7)}, true);
    QStringList chosen;
    for (int row = 0; row < f.Found.VisibleRowCount(); ++row) {
        const FoundEntry entry = f.Found.EntryAt(f.Found.IndexAtVisibleRow(row));
        chosen << (entry.entry != 0 ? f.Tree.Text(entry.entry)
                   : entry.unloaded ? entry.unloaded->text
                                    : QString());
    }
    QCOMPARE(chosen, QStringList({QString(), QStringLiteral("Alpha"), QStringLiteral("One"), QString(),
                                  QString(), QStringLiteral("a"), QString()}));
    QVERIFY(!f.Found.EntryAt({}));
}

void TestFoundEntries::FirstHit_Hits_NotAHeading()
{
    FoundFixture f;
    QVERIFY(!f.Found.FirstHit().isValid());
    f.ShowLoaded({f.Two, f.Beta});
    QCOMPARE(f.Found.FirstHit().data().toString(), QStringLiteral("Two"));
    f.ShowLoaded({f.Beta, f.Three});
    QCOMPARE(f.Found.FirstHit().data().toString(), QStringLiteral("Beta"));
    f.ShowLoaded({});
    f.Found.ShowUnloaded({FoundFixture::Node(21, QStringLiteral("a"), 7)}, false);
    QCOMPARE(f.Found.FirstHit().data().toString(), QStringLiteral("a"));
}

void TestFoundEntries::FindVisibleByPrefix_Rows_WrapAround()
{
    FoundFixture f;
    f.ShowLoaded({f.Alpha, f.Two, f.Three});
    const QModelIndex two = f.Found.IndexOfEntry(f.Two);
    const QModelIndex three = f.Found.IndexOfEntry(f.Three);
    QCOMPARE(f.Found.FindVisibleByPrefix(two, QStringLiteral("t")), three);
    QCOMPARE(f.Found.FindVisibleByPrefix(three, QStringLiteral("T")), two);
    QVERIFY(!f.Found.FindVisibleByPrefix(three, QStringLiteral("x")).isValid());
    QVERIFY(f.Found.FindVisibleByPrefix({}, QStringLiteral("c")).isValid());
}

void TestFoundEntries::SourceReset_LoadedHits_Go()
{
    FoundFixture f;
    f.ShowLoaded({f.Two});
    f.Tree.Clear();
    QCOMPARE(f.Found.VisibleRowCount(), 0);
    QCOMPARE(f.Found.HitCount(), 0);
}

QTEST_GUILESS_MAIN(TestFoundEntries)
#include "TestFoundEntries.moc"
