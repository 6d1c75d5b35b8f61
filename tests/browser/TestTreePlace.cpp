#include "browser/TreePlace.h"
#include "model/TreeFilling.h"

#include <QTest>

namespace {

using Entry = TreeEntries::Index;

/// A tree of connections "A" to "D"; below "B" the nodes "b1" to "b3", below "C" two waypoints called alike
/// and one called "B".
struct Tree
{
    TreeEntries Entries;

    Tree()
    {
        Fill(1);
        OpenNodes(Con("B"));
        OpenWaypoints(Con("C"));
    }
    /// The connections, with ids from `firstId`.
    void Fill(int firstId, const QStringList& names = {QStringLiteral("A"), QStringLiteral("B"),
                                                       QStringLiteral("C"), QStringLiteral("D")})
    {
        Entries.Clear();
        Entries.Add(0, RootKey, QStringLiteral("Connections"));
        for (const QString& name : names)
            Entries.Add(1, QStringLiteral("C,%1").arg(firstId++), name);
        Entries.SetSorted(1, true);
        Entries.SetExpanded(1, true);
    }
    void OpenNodes(Entry connection, const QStringList& names = {QStringLiteral("b1"), QStringLiteral("b2"),
                                                                 QStringLiteral("b3")})
    {
        int id = 100 * Entries.Id(connection);
        for (const QString& name : names)
            Entries.Add(connection, QStringLiteral("N,%1,%2").arg(++id).arg(Entries.Id(connection)), name);
        Entries.SetExpanded(connection, true);
    }
    void OpenWaypoints(Entry connection,
                       const QStringList& names = {QStringLiteral("OPT"), QStringLiteral("OPT"),
                                                   QStringLiteral("B")})
    {
        int position = 0;
        for (const QString& name : names)
            Entries.Add(connection, QStringLiteral("W,%1,%2").arg(Entries.Id(connection)).arg(++position),
                        name);
        Entries.SetExpanded(connection, true);
    }
    [[nodiscard]] Entry Con(const char* name) const { return ChildOf(1, name); }
    [[nodiscard]] Entry ChildOf(Entry parent, const char* name) const
    {
        for (Entry child = Entries.Child(parent, 0); child != 0; child = Entries.NextSibling(child)) {
            if (Entries.Text(child) == QLatin1String(name))
                return child;
        }
        return 0;
    }
    [[nodiscard]] QString Path(Entry entry) const
    {
        const Entry parent = Entries.Parent(entry);
        return entry == 0    ? QStringLiteral("none")
               : parent == 0 ? QStringLiteral("root")
               : parent == 1 ? Entries.Text(entry)
                             : Entries.Text(parent) + QLatin1Char('/') + Entries.Text(entry);
    }
};

} // namespace

class TestTreePlace : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Find_AfterAReload_GivesTheEntryOrItsNeighbour_data();
    void Find_AfterAReload_GivesTheEntryOrItsNeighbour();
    void Find_WaypointsCalledAlike_GivesTheOneAtItsPlace();
    void Find_WaypointMovedToAnotherPlace_IsFoundByItsText();
    void Find_NothingNotedOrGone_GivesNone();
    void Find_EmptyTree_GivesNone();
    void Find_ConnectionCalledAsAWaypointBeforeIt_IsTheConnection();
    void OpenAgain_ExpandedConnections_AreFilledOnce();
    void OpenAgain_ClosedOrGone_StaysClosed();
    void OpenAgain_PartlyLoaded_StaysClosed();
    void OpenAgain_TooMuchToRead_StaysClosed_data();
    void OpenAgain_TooMuchToRead_StaysClosed();
};

void TestTreePlace::Find_AfterAReload_GivesTheEntryOrItsNeighbour_data()
{
    QTest::addColumn<QString>("noted");
    QTest::addColumn<QString>("connections");
    QTest::addColumn<QString>("nodes");
    QTest::addColumn<QString>("found");
    const auto row = [](const char* noted, const char* connections, const char* nodes, const char* found) {
        QTest::addRow("%s in %s: %s", noted, connections, nodes)
            << QString::fromLatin1(noted) << QString::fromLatin1(connections) << QString::fromLatin1(nodes)
            << QString::fromLatin1(found);
    };
    row("root", "A B", "", "root");
    row("B", "A B C D", "", "B");
    row("B", "A b C D", "", "b");
    row("B", "A C D", "", "C");
    row("B", "A D", "", "A");
    row("B", "D", "", "root");
    row("D", "A B C", "", "C");
    row("B/b2", "A B C D", "b1 b2 b3", "B/b2");
    row("B/b2", "A B C D", "b1 b3", "B/b3");
    row("B/b2", "A B C D", "b1", "B/b1");
    row("B/b3", "A B C D", "b1 b2", "B/b2");
    row("B/b2", "A B C D", "", "B");
    row("B/b2", "A C D", "", "C");
    row("C/B", "A B C D", "", "C");
    row("C/B", "A B D", "", "D");
}
void TestTreePlace::Find_AfterAReload_GivesTheEntryOrItsNeighbour()
{
    QFETCH(const QString, noted);
    QFETCH(const QString, connections);
    QFETCH(const QString, nodes);
    QFETCH(const QString, found);
    Tree tree;
    TreePlace place(tree.Entries);
    const QByteArray connection = noted.section(QLatin1Char('/'), 0, 0).toLatin1();
    const QByteArray below = noted.section(QLatin1Char('/'), 1).toLatin1();
    Entry entry = connection == "root" ? 1 : tree.Con(connection);
    if (!below.isEmpty())
        entry = tree.ChildOf(entry, below);
    const std::size_t number = place.Note(entry);

    // All ids are new.
    tree.Fill(50, connections.split(QLatin1Char(' ')));
    if (tree.Con("B") != 0)
        tree.OpenNodes(tree.Con("B"), nodes.split(QLatin1Char(' '), Qt::SkipEmptyParts));
    QCOMPARE(tree.Path(place.Find(number)), found);
}

void TestTreePlace::Find_WaypointsCalledAlike_GivesTheOneAtItsPlace()
{
    for (const int row : {0, 1}) {
        Tree tree;
        TreePlace place(tree.Entries);
        const std::size_t number = place.Note(tree.Entries.Child(tree.Con("C"), row));
        tree.Fill(50);
        tree.OpenWaypoints(tree.Con("C"));
        QCOMPARE(place.Find(number), tree.Entries.Child(tree.Con("C"), row));
    }
}

void TestTreePlace::Find_WaypointMovedToAnotherPlace_IsFoundByItsText()
{
    Tree tree;
    TreePlace place(tree.Entries);
    const std::size_t number = place.Note(tree.Entries.Child(tree.Con("C"), 2));
    tree.Fill(50);
    tree.OpenWaypoints(tree.Con("C"), {QStringLiteral("B"), QStringLiteral("OPT")});
    QCOMPARE(place.Find(number), tree.Entries.Child(tree.Con("C"), 0));
}

void TestTreePlace::Find_NothingNotedOrGone_GivesNone()
{
    Tree tree;
    TreePlace place(tree.Entries);
    const std::size_t none = place.Note(0);
    const std::size_t unknown = place.Note(4711);
    const std::size_t last = place.Note(tree.Con("A"));
    QCOMPARE(place.Find(none), 0);
    QCOMPARE(place.Find(unknown), 0);
    QCOMPARE(place.Find(last), tree.Con("A"));
}

void TestTreePlace::Find_EmptyTree_GivesNone()
{
    Tree tree;
    TreePlace place(tree.Entries);
    const std::size_t node = place.Note(tree.ChildOf(tree.Con("B"), "b1"));
    const std::size_t waypoint = place.Note(tree.Entries.Child(tree.Con("C"), 0));
    tree.Entries.Clear();
    int fills = 0;
    place.OpenAgain([&](Entry) { ++fills; });
    QCOMPARE(fills, 0);
    QCOMPARE(place.Find(node), 0);
    QCOMPARE(place.Find(waypoint), 0);
}

void TestTreePlace::Find_ConnectionCalledAsAWaypointBeforeIt_IsTheConnection()
{
    Tree tree;
    tree.Fill(1);
    TreePlace place(tree.Entries);
    const std::size_t number = place.Note(tree.Con("B"));
    tree.Fill(50);
    tree.OpenWaypoints(tree.Con("A"), {QStringLiteral("B")});
    QCOMPARE(tree.Path(tree.Entries.FindByText(QStringLiteral("B"), false)), QStringLiteral("A/B"));
    QCOMPARE(tree.Path(place.Find(number)), QStringLiteral("B"));
}

void TestTreePlace::OpenAgain_ExpandedConnections_AreFilledOnce()
{
    Tree tree;
    const TreePlace place(tree.Entries);
    tree.Fill(50);
    QStringList filled;
    const auto fill = [&](Entry connection) {
        filled << tree.Entries.Text(connection);
        tree.OpenNodes(connection, {QStringLiteral("node of ") + filled.last()});
    };
    place.OpenAgain(fill);
    QCOMPARE(filled, QStringList({QStringLiteral("B"), QStringLiteral("C")}));
    place.OpenAgain(fill);
    QCOMPARE(filled.size(), 2);
}

void TestTreePlace::OpenAgain_ClosedOrGone_StaysClosed()
{
    Tree tree;
    tree.Entries.SetExpanded(tree.Con("B"), false);
    const TreePlace place(tree.Entries);
    tree.Fill(50, {QStringLiteral("A"), QStringLiteral("B")});
    int fills = 0;
    place.OpenAgain([&](Entry) { ++fills; });
    QCOMPARE(fills, 0);
}

void TestTreePlace::OpenAgain_PartlyLoaded_StaysClosed()
{
    Tree tree;
    tree.Entries.Add(tree.Con("B"), QStringLiteral("N,-9,2"), QStringLiteral("z"));
    const TreePlace place(tree.Entries);
    QStringList filled;
    tree.Fill(50);
    place.OpenAgain([&](Entry connection) { filled << tree.Entries.Text(connection); });
    QCOMPARE(filled, QStringList{QStringLiteral("C")});
}

void TestTreePlace::OpenAgain_TooMuchToRead_StaysClosed_data()
{
    QTest::addColumn<int>("connections");
    QTest::addColumn<int>("nodesOfEach");
    QTest::addColumn<int>("filled");
    QTest::newRow("as many as may be") << TreePlace::MaxOpened << 1 << TreePlace::MaxOpened;
    QTest::newRow("more connections") << TreePlace::MaxOpened + 1 << 1 << TreePlace::MaxOpened;
    QTest::newRow("as many children") << 2 << TreePlace::MaxChildren / 2 << 2;
    QTest::newRow("more children") << 3 << TreePlace::MaxChildren / 2 << 2;
}
void TestTreePlace::OpenAgain_TooMuchToRead_StaysClosed()
{
    QFETCH(const int, connections);
    QFETCH(const int, nodesOfEach);
    QFETCH(const int, filled);
    TreeEntries entries;
    entries.Add(0, RootKey, QStringLiteral("Connections"));
    int id = 1000;
    for (int connection = 1; connection <= connections; ++connection) {
        const Entry entry =
            entries.Add(1, QStringLiteral("C,%1").arg(connection), QString::number(connection));
        for (int node = 0; node < nodesOfEach; ++node) {
            ++id;
            entries.Add(entry, QStringLiteral("N,%1").arg(id), QStringLiteral("n%1").arg(id));
        }
        entries.SetExpanded(entry, true);
    }
    const TreePlace place(entries);
    for (Entry entry = entries.Child(1, 0); entry != 0; entry = entries.NextSibling(entry))
        entries.RemoveChildren(entry);
    int fills = 0;
    place.OpenAgain([&](Entry) { ++fills; });
    QCOMPARE(fills, filled);
}

QTEST_GUILESS_MAIN(TestTreePlace)
#include "TestTreePlace.moc"
