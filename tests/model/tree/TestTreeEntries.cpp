#include "model/TreeEntries.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>
#include <memory>

/// Keys, texts, order, finding and what views are told, one rule at a time.
class TestTreeEntries : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void Add_Keys_AcceptedOrRefused_data();
    void Add_Keys_AcceptedOrRefused();
    void Add_FirstEntry_IsIndexOne();
    void Add_TakenKey_Refused_data();
    void Add_TakenKey_Refused();
    void Add_UnknownParent_Refused();
    void Add_Texts_GivenBack_data();
    void Add_Texts_GivenBack();
    void Add_SortedParent_StandsInOrder();
    void Add_UnsortedParent_StandsLast();
    void AddNodes_SomeKnown_AddsTheRest();
    void AddNodes_WithConnection_KeysHaveThreeFields();
    void AddNodes_Unsorted_OneInsertion();
    void AddNodes_Sorted_EachAtItsPlace();
    void AddConnections_NegativeId_Skipped();
    void Remove_Entry_TakesAllBelow();
    void Remove_Unknown_ReturnsFalse();
    void Remove_LastChild_KeepsExpanded();
    void RemoveChildren_Entry_OneRemoval();
    void Index_AfterRemoval_NeverReused();
    void Clear_Tree_BeginsAnew();
    void Missing_Entry_EmptyAnswers();

    void SetKey_Mark_FoundByEitherSign();
    void SetKey_TakenOrMalformed_Refused_data();
    void SetKey_TakenOrMalformed_Refused();
    void SetKey_OtherKind_TellsChange();
    void SetText_Unsorted_ChangesInPlace();
    void SetText_Sorted_MovesOrStays_data();
    void SetText_Sorted_MovesOrStays();
    void SetTag_Entry_GivenBack();
    void SetSorted_AppendedTail_KeepsPersistentIndexes();
    void SetSorted_OrderedAlready_TellsNothing();
    void SetSorted_SameText_OrderOfIndex();

    void FindByText_CollectionOrder_ChildrenBehindConnection();
    void FindByText_Kind_Separates();
    void AllByText_AnyKindAndCase_GivesThoseThatAreThere();
    void FindContinued_SeveralMarks_FirstShown();
    void ParentsWithChildren_RootLeftOut();
    void FindVisibleByPrefix_From_NextWrapsAround_data();
    void FindVisibleByPrefix_From_NextWrapsAround();
    void FindVisibleByPrefix_HiddenStart_BeginsAtVisibleParent();

    void SetExpanded_Entry_RowsAndSignals();
    void SetExpanded_NoChildren_KeptForLater();
    void VisibleRows_Outside_Invalid();
    void DepthOf_Levels_CountsFromTop();
    void Data_Roles_Answered();
    void MemoryBytes_ShortNames_Below160();
    void MemoryBytes_EntriesChurned_ReturnsToWhatItWas();

private:
    QStringList ChildTexts(TreeEntries::Index parent) const;
    /// Root with connections Alpha (nodes Zeta, eta), beta (no children), Gamma (node Alpha 2), all expanded.
    void FillSmallTree();

    std::unique_ptr<TreeEntries> m_entries;
    std::unique_ptr<QAbstractItemModelTester> m_tester;
};

void TestTreeEntries::init()
{
    m_entries = std::make_unique<TreeEntries>();
    m_tester = std::make_unique<QAbstractItemModelTester>(
        m_entries.get(), QAbstractItemModelTester::FailureReportingMode::Fatal);
}

void TestTreeEntries::cleanup()
{
    m_tester.reset();
    m_entries.reset();
}

QStringList TestTreeEntries::ChildTexts(TreeEntries::Index parent) const
{
    QStringList texts;
    for (int row = 0; row < m_entries->ChildCount(parent); ++row)
        texts.append(m_entries->Text(m_entries->Child(parent, row)));
    return texts;
}

void TestTreeEntries::FillSmallTree()
{
    m_entries->Add(0, "R,0", "Connections");
    m_entries->Add(1, "C,10", "Alpha");
    m_entries->Add(1, "C,11", "beta");
    m_entries->Add(1, "C,12", "Gamma");
    m_entries->Add(2, "N,20", "Zeta");
    m_entries->Add(2, "N,21", "eta");
    m_entries->Add(4, "N,22", "Alpha 2");
    for (const int entry : {1, 2, 4})
        m_entries->SetExpanded(entry, true);
}

// Building ----------------------------------------------------------------------------------------------

void TestTreeEntries::Add_Keys_AcceptedOrRefused_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<bool>("accepted");
    const QStringList good = {"R,0", "C,1",  "C,2147483647", "W,1,1",        "W,1,10",
                              "N,1", "N,-1", "N,1,2",        "N,-2147483647"};
    const QStringList bad = {
        "",       "R",      "R,1",  "R,0,1",   "C",    "C,",       "C,-1",          "C,1,1",
        "C,01",   "C, 1",   "C,1 ", "C,+1",    "C,1x", "c,1",      "C,2147483648",  "W,1",
        "W,1,0",  "W,-1,1", "W,1,", "W,1,1,1", "N,-0", "N,--1",    "N,-2147483648", "N,1,0",
        "N,1,-2", "N1",     "X,1",  "N,1,01",  ",1",   "N,\u0661", "N,1\t",         "\u014e,1"};
    for (const QString& key : good)
        QTest::addRow("good %s", qPrintable(key)) << key << true;
    for (const QString& key : bad)
        QTest::addRow("bad '%s'", qPrintable(key)) << key << false;
}

void TestTreeEntries::Add_Keys_AcceptedOrRefused()
{
    QFETCH(QString, key);
    QFETCH(bool, accepted);

    const TreeEntries::Index entry = m_entries->Add(0, key, "Name");

    QCOMPARE(entry != 0, accepted);
    QCOMPARE(m_entries->Count(), int(accepted));
    QCOMPARE(m_entries->Key(entry), accepted ? key : QString());
    QCOMPARE(m_entries->FindByKey(key), entry);
}

void TestTreeEntries::Add_FirstEntry_IsIndexOne()
{
    QCOMPARE(m_entries->Add(0, "R,0", "Nodes"), 1);
    QCOMPARE(m_entries->Add(1, "N,5", "Node"), 2);
    QCOMPARE(m_entries->Parent(2), 1);
    QCOMPARE(m_entries->Parent(1), 0);
    QCOMPARE(m_entries->Kind(1), QChar(u'R'));
    QCOMPARE(m_entries->Kind(2), QChar(u'N'));
    QCOMPARE(m_entries->Id(2), 5);
}

void TestTreeEntries::Add_TakenKey_Refused_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::addColumn<bool>("refused");
    QTest::newRow("same node") << "N,5"
                               << "N,5" << true;
    QTest::newRow("continued node") << "N,-5"
                                    << "N,5" << true;
    QTest::newRow("node, then its mark") << "N,5"
                                         << "N,-5" << true;
    QTest::newRow("another connection's") << "N,5,1"
                                          << "N,5,2" << false;
    QTest::newRow("with and without connection") << "N,5"
                                                 << "N,5,1" << false;
    QTest::newRow("another kind") << "N,5"
                                  << "C,5" << false;
    QTest::newRow("same waypoint") << "W,5,1"
                                   << "W,5,1" << true;
    QTest::newRow("another position") << "W,5,1"
                                      << "W,5,2" << false;
}

void TestTreeEntries::Add_TakenKey_Refused()
{
    QFETCH(QString, first);
    QFETCH(QString, second);
    QFETCH(bool, refused);
    m_entries->Add(0, "R,0", "Root");
    m_entries->Add(1, first, "First");

    QCOMPARE(m_entries->Add(0, second, "Second") == 0, refused);
}

void TestTreeEntries::Add_UnknownParent_Refused()
{
    QCOMPARE(m_entries->Add(7, "N,1", "Node"), 0);
    QCOMPARE(m_entries->Add(-1, "N,1", "Node"), 0);
    const NewTreeEntry node = {1, u"Node"};
    QCOMPARE(m_entries->AddNodes(7, {&node, 1}), 0);
    QCOMPARE(m_entries->Count(), 0);
}

void TestTreeEntries::Add_Texts_GivenBack_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("one") << "x";
    QTest::newRow("twelve") << "NODE 0000001";
    QTest::newRow("in place, longest") << QString(22, u'n');
    QTest::newRow("too long for its place") << QString(23, u'n');
    QTest::newRow("10,000 characters") << QString(10000, u'L');
    QTest::newRow("10,000 wide characters") << QString(10000, QChar(0x0416));
    QTest::newRow("Latin-1") << QString::fromUtf8("\u00c4\u00e5 \u00ff \u00b5");
    QTest::newRow("wide, in place, longest") << QString(11, QChar(0x0416));
    QTest::newRow("wide, too long") << QString(12, QChar(0x0416));
    QTest::newRow("emoji") << QString::fromUtf8("\U0001F600\U0001F468\u200D\U0001F469");
    QTest::newRow("combining") << QString::fromUtf8("e\u0301o\u0308");
    QTest::newRow("half a pair") << QString(QChar(0xd83d));
    QTest::newRow("control characters") << QString::fromUtf8("a\tb\nc\"d,e");
    QTest::newRow("null character") << QString(3, QChar(u'\0'));
}

void TestTreeEntries::Add_Texts_GivenBack()
{
    QFETCH(QString, text);
    m_entries->Add(0, "R,0", "Root");

    const TreeEntries::Index entry = m_entries->Add(1, "N,1", text);

    QCOMPARE(m_entries->Text(entry), text);
    QCOMPARE(m_entries->FindByText(text, true), entry);
    QCOMPARE(m_entries->FindByText(text.toCaseFolded(), true), entry);
    m_entries->SetText(entry, "other");
    m_entries->SetText(entry, text);
    QCOMPARE(m_entries->Text(entry), text);
}

void TestTreeEntries::Add_SortedParent_StandsInOrder()
{
    m_entries->Add(0, "R,0", "Root");
    m_entries->SetSorted(1, true);
    const QStringList texts = {"b", "B", "a", "", "\u00e4", "\u00c4", "z", "Aa", "10", "9", "A"};

    for (int id = 0; id < texts.size(); ++id)
        m_entries->Add(1, QStringLiteral("N,%1").arg(id), texts.at(id));

    QCOMPARE(ChildTexts(1), QStringList({"", "10", "9", "A", "a", "Aa", "B", "b", "z", "\u00c4", "\u00e4"}));
    QVERIFY(m_entries->Sorted(1));
}

void TestTreeEntries::Add_UnsortedParent_StandsLast()
{
    m_entries->Add(0, "R,0", "Root");
    m_entries->Add(1, "N,1", "b");
    m_entries->SetSorted(1, true);
    m_entries->SetSorted(1, false);

    m_entries->Add(1, "N,2", "a");

    QCOMPARE(ChildTexts(1), QStringList({"b", "a"}));
    QVERIFY(!m_entries->Sorted(1));
}

void TestTreeEntries::AddNodes_SomeKnown_AddsTheRest()
{
    FillSmallTree();
    const std::vector<NewTreeEntry> nodes = {
        {23, u"new"}, {20, u"Zeta again"}, {24, u"new 2"}, {23, u"twice"}, {-24, u"twice, marked"}};

    QCOMPARE(m_entries->AddNodes(3, nodes), 2);

    QCOMPARE(ChildTexts(3), QStringList({"new", "new 2"}));
    QCOMPARE(m_entries->Text(m_entries->FindByKey("N,20")), "Zeta");
    QCOMPARE(m_entries->AddNodes(3, nodes), 0);
}

void TestTreeEntries::AddNodes_WithConnection_KeysHaveThreeFields()
{
    FillSmallTree();
    const std::vector<NewTreeEntry> nodes = {{20, u"Zeta"}};

    QCOMPARE(m_entries->AddNodes(3, nodes, 11), 1);

    QCOMPARE(m_entries->Key(m_entries->Child(3, 0)), "N,20,11");
}

void TestTreeEntries::AddNodes_Unsorted_OneInsertion()
{
    FillSmallTree();
    QSignalSpy inserted(m_entries.get(), &QAbstractItemModel::rowsInserted);
    const std::vector<NewTreeEntry> nodes = {{1, u"c"}, {2, u"b"}, {3, u"a"}};

    QCOMPARE(m_entries->AddNodes(2, nodes), 3);

    QCOMPARE(inserted.size(), 1);
    QCOMPARE(inserted.at(0).at(0).toModelIndex(), m_entries->ModelIndex(2));
    QCOMPARE(inserted.at(0).at(1).toInt(), 2);
    QCOMPARE(inserted.at(0).at(2).toInt(), 4);
    QCOMPARE(ChildTexts(2), QStringList({"Zeta", "eta", "c", "b", "a"}));
}

void TestTreeEntries::AddNodes_Sorted_EachAtItsPlace()
{
    FillSmallTree();
    m_entries->SetSorted(2, true);
    const std::vector<NewTreeEntry> nodes = {{1, u"Z"}, {2, u"f"}, {3, u"a"}};

    QCOMPARE(m_entries->AddNodes(2, nodes), 3);

    QCOMPARE(ChildTexts(2), QStringList({"a", "eta", "f", "Z", "Zeta"}));
}

void TestTreeEntries::AddConnections_NegativeId_Skipped()
{
    m_entries->Add(0, "R,0", "Root");
    const std::vector<NewTreeEntry> connections = {{-1, u"bad"}, {1, u"good"}};

    QCOMPARE(m_entries->AddConnections(1, connections), 1);

    QCOMPARE(m_entries->Key(m_entries->Child(1, 0)), "C,1");
}

void TestTreeEntries::Remove_Entry_TakesAllBelow()
{
    FillSmallTree();
    QSignalSpy removed(m_entries.get(), &QAbstractItemModel::rowsRemoved);

    QVERIFY(m_entries->Remove(2));

    QCOMPARE(removed.size(), 1);
    QCOMPARE(m_entries->Count(), 4);
    QCOMPARE(m_entries->VisibleRowCount(), 4);
    for (const int gone : {2, 5, 6})
        QVERIFY(!m_entries->Exists(gone));
    QCOMPARE(m_entries->FindByKey("N,20"), 0);
    QCOMPARE(m_entries->FindByText("Zeta", true), 0);
    QCOMPARE(ChildTexts(1), QStringList({"beta", "Gamma"}));
}

void TestTreeEntries::Remove_Unknown_ReturnsFalse()
{
    FillSmallTree();
    QVERIFY(!m_entries->Remove(0));
    QVERIFY(!m_entries->Remove(-1));
    QVERIFY(!m_entries->Remove(99));
    QVERIFY(m_entries->Remove(3));
    QVERIFY(!m_entries->Remove(3));
}

void TestTreeEntries::Remove_LastChild_KeepsExpanded()
{
    FillSmallTree();

    QVERIFY(m_entries->Remove(7));

    QCOMPARE(m_entries->ChildCount(4), 0);
    QVERIFY(m_entries->Expanded(4));
}

void TestTreeEntries::RemoveChildren_Entry_OneRemoval()
{
    FillSmallTree();
    QSignalSpy removed(m_entries.get(), &QAbstractItemModel::rowsRemoved);

    m_entries->RemoveChildren(1);
    m_entries->RemoveChildren(1);
    m_entries->RemoveChildren(99);

    QCOMPARE(removed.size(), 1);
    QCOMPARE(removed.at(0).at(2).toInt(), 2);
    QCOMPARE(m_entries->Count(), 1);
    QCOMPARE(m_entries->VisibleRowCount(), 1);
}

void TestTreeEntries::Index_AfterRemoval_NeverReused()
{
    m_entries->Add(0, "R,0", "Root");
    TreeEntries::Index last = 1;
    // More than a page of handles comes and goes.
    for (int round = 0; round < 3000; ++round) {
        const TreeEntries::Index entry = m_entries->Add(1, "N,1", "Node");
        QCOMPARE(entry, last + 1);
        last = entry;
        QVERIFY(m_entries->Remove(entry));
        QVERIFY(!m_entries->Exists(entry));
    }
    QCOMPARE(m_entries->Text(1), "Root");
}

void TestTreeEntries::Clear_Tree_BeginsAnew()
{
    FillSmallTree();
    m_entries->SetSorted(0, true);
    QSignalSpy reset(m_entries.get(), &QAbstractItemModel::modelReset);

    m_entries->Clear();

    QCOMPARE(reset.size(), 1);
    QCOMPARE(m_entries->Count(), 0);
    QCOMPARE(m_entries->VisibleRowCount(), 0);
    QVERIFY(!m_entries->Sorted(0));
    QCOMPARE(m_entries->Add(0, "R,0", "Root"), 1);
}

void TestTreeEntries::Missing_Entry_EmptyAnswers()
{
    FillSmallTree();
    for (const int missing : {0, -5, 100, 2147483647}) {
        QVERIFY(!m_entries->Exists(missing));
        QVERIFY(m_entries->Key(missing).isEmpty());
        QVERIFY(m_entries->Kind(missing).isNull());
        QVERIFY(m_entries->Text(missing).isEmpty());
        QVERIFY(m_entries->Tag(missing).isEmpty());
        QCOMPARE(m_entries->Parent(missing), 0);
        QCOMPARE(m_entries->NextSibling(missing), 0);
        QVERIFY(!m_entries->SetKey(missing, "N,77"));
        m_entries->SetText(missing, "text");
        m_entries->SetTag(missing, "tag");
        m_entries->SetExpanded(missing, true);
        QVERIFY(!m_entries->Expanded(missing));
        QVERIFY(!m_entries->ModelIndex(missing).isValid());
        QCOMPARE(m_entries->FindContinued(missing), 0);
    }
    QCOMPARE(m_entries->Child(1, -1), 0);
    QCOMPARE(m_entries->Child(1, 3), 0);
    QCOMPARE(m_entries->Count(), 7);
}

// One entry ---------------------------------------------------------------------------------------------

void TestTreeEntries::SetKey_Mark_FoundByEitherSign()
{
    FillSmallTree();
    QSignalSpy changed(m_entries.get(), &QAbstractItemModel::dataChanged);

    QVERIFY(m_entries->SetKey(6, "N,-21"));

    QCOMPARE(changed.size(), 1);
    QCOMPARE(m_entries->Id(6), -21);
    QCOMPARE(m_entries->FindByKey("N,21"), 6);
    QCOMPARE(m_entries->FindByKey("N,-21"), 6);
    QCOMPARE(m_entries->FindContinued(2), 6);
    QVERIFY(m_entries->SetKey(6, "N,21"));
    QCOMPARE(m_entries->FindContinued(2), 0);
}

void TestTreeEntries::SetKey_TakenOrMalformed_Refused_data()
{
    QTest::addColumn<QString>("key");
    QTest::newRow("taken") << "N,21";
    QTest::newRow("taken, marked") << "N,-21";
    QTest::newRow("malformed") << "N,21,";
    QTest::newRow("empty") << QString();
}

void TestTreeEntries::SetKey_TakenOrMalformed_Refused()
{
    QFETCH(QString, key);
    FillSmallTree();

    QVERIFY(!m_entries->SetKey(5, key));

    QCOMPARE(m_entries->Key(5), "N,20");
    QCOMPARE(m_entries->FindByKey("N,20"), 5);
}

void TestTreeEntries::SetKey_OtherKind_TellsChange()
{
    FillSmallTree();
    QSignalSpy changed(m_entries.get(), &QAbstractItemModel::dataChanged);

    QVERIFY(m_entries->SetKey(3, "C,99"));
    QVERIFY(m_entries->SetKey(3, "C,99"));

    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed.at(0).at(0).toModelIndex(), m_entries->ModelIndex(3));
    QCOMPARE(m_entries->FindByKey("C,11"), 0);
    QCOMPARE(m_entries->FindByKey("C,99"), 3);
}

void TestTreeEntries::SetText_Unsorted_ChangesInPlace()
{
    FillSmallTree();
    QSignalSpy changed(m_entries.get(), &QAbstractItemModel::dataChanged);
    QSignalSpy moved(m_entries.get(), &QAbstractItemModel::rowsMoved);

    m_entries->SetText(2, "zz");
    m_entries->SetText(2, "zz");

    QCOMPARE(changed.size(), 1);
    QCOMPARE(moved.size(), 0);
    QCOMPARE(ChildTexts(1), QStringList({"zz", "beta", "Gamma"}));
    QCOMPARE(m_entries->FindByText("Alpha", false), 0);
    QCOMPARE(m_entries->FindByText("ZZ", false), 2);
    m_entries->SetSorted(1, true);
    QCOMPARE(ChildTexts(1), QStringList({"beta", "Gamma", "zz"}));
}

void TestTreeEntries::SetText_Sorted_MovesOrStays_data()
{
    QTest::addColumn<int>("entry");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("expected");
    QTest::addColumn<int>("moves");
    QTest::newRow("to the end") << 2 << "zz" << QStringList({"beta", "Gamma", "zz"}) << 1;
    QTest::newRow("to the beginning") << 4 << "1" << QStringList({"1", "Alpha", "beta"}) << 1;
    QTest::newRow("one down") << 2 << "C" << QStringList({"beta", "C", "Gamma"}) << 1;
    QTest::newRow("one up") << 4 << "B" << QStringList({"Alpha", "B", "beta"}) << 1;
    QTest::newRow("larger, stays") << 2 << "Az" << QStringList({"Az", "beta", "Gamma"}) << 0;
    QTest::newRow("smaller, stays") << 4 << "C" << QStringList({"Alpha", "beta", "C"}) << 0;
    QTest::newRow("case only") << 3 << "BETA" << QStringList({"Alpha", "BETA", "Gamma"}) << 0;
}

void TestTreeEntries::SetText_Sorted_MovesOrStays()
{
    QFETCH(int, entry);
    QFETCH(QString, text);
    QFETCH(QStringList, expected);
    QFETCH(int, moves);
    FillSmallTree();
    m_entries->SetSorted(1, true);
    const QPersistentModelIndex held = m_entries->ModelIndex(entry);
    QSignalSpy moved(m_entries.get(), &QAbstractItemModel::rowsMoved);

    m_entries->SetText(entry, text);

    QCOMPARE(ChildTexts(1), expected);
    QCOMPARE(moved.size(), moves);
    QCOMPARE(QModelIndex(held), m_entries->ModelIndex(entry));
    QCOMPARE(held.data().toString(), text);
}

void TestTreeEntries::SetTag_Entry_GivenBack()
{
    FillSmallTree();

    m_entries->SetTag(2, "Nodes");

    QCOMPARE(m_entries->Tag(2), "Nodes");
    QVERIFY(m_entries->Tag(3).isEmpty());
    m_entries->SetTag(2, QString());
    QVERIFY(m_entries->Tag(2).isEmpty());
    m_entries->SetTag(2, "again");
    m_entries->Remove(2);
    QVERIFY(m_entries->Tag(2).isEmpty());
}

void TestTreeEntries::SetSorted_AppendedTail_KeepsPersistentIndexes()
{
    FillSmallTree();
    m_entries->SetSorted(1, true);
    m_entries->SetSorted(1, false);
    m_entries->Add(1, "C,30", "Delta");
    m_entries->Add(1, "C,31", "aaa");
    QList<QPersistentModelIndex> held;
    for (int row = 0; row < 5; ++row)
        held.append(m_entries->index(row, 0, m_entries->ModelIndex(1)));
    const QPersistentModelIndex below = m_entries->ModelIndex(7);
    QSignalSpy changed(m_entries.get(), &QAbstractItemModel::layoutChanged);

    m_entries->SetSorted(1, true);

    QCOMPARE(changed.size(), 1);
    QCOMPARE(ChildTexts(1), QStringList({"aaa", "Alpha", "beta", "Delta", "Gamma"}));
    const QStringList texts = {"Alpha", "beta", "Gamma", "Delta", "aaa"};
    const QList<int> rows = {1, 2, 4, 3, 0};
    for (int at = 0; at < held.size(); ++at) {
        QCOMPARE(held.at(at).data().toString(), texts.at(at));
        QCOMPARE(held.at(at).row(), rows.at(at));
    }
    QCOMPARE(below.data().toString(), "Alpha 2");
    QCOMPARE(below.parent().row(), 4);
}

void TestTreeEntries::SetSorted_OrderedAlready_TellsNothing()
{
    FillSmallTree();
    QSignalSpy changed(m_entries.get(), &QAbstractItemModel::layoutChanged);

    m_entries->SetSorted(1, true);
    m_entries->SetSorted(1, false);
    m_entries->Add(1, "C,30", "Z");
    m_entries->SetSorted(1, true);
    m_entries->SetSorted(3, true);
    m_entries->SetSorted(99, true);

    QCOMPARE(changed.size(), 0);
    QVERIFY(m_entries->Sorted(1));
    QVERIFY(m_entries->Sorted(3));
    QVERIFY(!m_entries->Sorted(99));
}

void TestTreeEntries::SetSorted_SameText_OrderOfIndex()
{
    m_entries->Add(0, "R,0", "Root");
    for (const char* key : {"N,3", "N,1", "N,2"})
        m_entries->Add(1, key, "same");
    m_entries->Add(1, "N,4", "Same");

    m_entries->SetSorted(1, true);

    QList<int> order;
    for (int row = 0; row < 4; ++row)
        order.append(m_entries->Child(1, row));
    QCOMPARE(order, QList<int>({5, 2, 3, 4}));
}

// Finding -----------------------------------------------------------------------------------------------

void TestTreeEntries::FindByText_CollectionOrder_ChildrenBehindConnection()
{
    m_entries->Add(0, "R,0", "Root");
    m_entries->Add(1, "C,1", "First");
    m_entries->Add(1, "C,2", "Second");
    m_entries->Add(3, "N,1", "Name");
    m_entries->Add(1, "N,2", "Name");
    m_entries->Add(2, "N,3", "Name");
    m_entries->Add(2, "N,4", "name");

    // The children of the first connection come before older entries under the second one.
    QCOMPARE(m_entries->FindByText("NAME", true), 6);
    m_entries->SetSorted(2, true);
    QCOMPARE(m_entries->FindByText("NAME", true), 6);
    m_entries->SetText(6, "NAMEX");
    QCOMPARE(m_entries->FindByText("NAME", true), 7);
    m_entries->Remove(2);
    QCOMPARE(m_entries->FindByText("NAME", true), 4);
    m_entries->Remove(3);
    QCOMPARE(m_entries->FindByText("NAME", true), 5);
}

void TestTreeEntries::FindByText_Kind_Separates()
{
    m_entries->Add(0, "R,0", "Same");
    m_entries->Add(1, "N,1", "same");
    m_entries->Add(1, "C,1", "SAME");

    QCOMPARE(m_entries->FindByText("Same", true), 2);
    QCOMPARE(m_entries->FindByText("Same", false), 1);
    m_entries->SetText(1, "Root");
    QCOMPARE(m_entries->FindByText("Same", false), 3);
    QCOMPARE(m_entries->FindByText("Sam", false), 0);
    QCOMPARE(m_entries->FindByText(QString(), true), 0);
}

void TestTreeEntries::AllByText_AnyKindAndCase_GivesThoseThatAreThere()
{
    m_entries->Add(0, "R,0", "Same");
    m_entries->Add(1, "N,1", "same");
    m_entries->Add(1, "C,1", "SAME");
    m_entries->Add(3, "N,2", "other");
    const auto same = [this] {
        std::vector<TreeEntries::Index> found = m_entries->AllByText("Same");
        std::sort(found.begin(), found.end());
        return found;
    };

    QCOMPARE(same(), (std::vector<TreeEntries::Index>{1, 2, 3}));
    m_entries->Remove(2);
    m_entries->SetText(4, "same");
    QCOMPARE(same(), (std::vector<TreeEntries::Index>{1, 3, 4}));
    QVERIFY(m_entries->AllByText("Sam").empty());
}

void TestTreeEntries::FindContinued_SeveralMarks_FirstShown()
{
    FillSmallTree();
    m_entries->SetKey(5, "N,-20");
    m_entries->SetKey(6, "N,-21");
    m_entries->SetKey(7, "N,-22");

    QCOMPARE(m_entries->FindContinued(2), 5);
    m_entries->SetSorted(2, true);
    QCOMPARE(m_entries->FindContinued(2), 6);
    m_entries->Remove(6);
    QCOMPARE(m_entries->FindContinued(2), 5);
    QCOMPARE(m_entries->FindContinued(4), 7);
    QCOMPARE(m_entries->FindContinued(3), 0);
}

void TestTreeEntries::ParentsWithChildren_RootLeftOut()
{
    FillSmallTree();

    QCOMPARE(m_entries->ParentsWithChildren(), std::vector<int>({2, 4}));
    m_entries->Remove(7);
    m_entries->Add(3, "W,11,1", "Hop");
    QCOMPARE(m_entries->ParentsWithChildren(), std::vector<int>({2, 3}));
}

void TestTreeEntries::FindVisibleByPrefix_From_NextWrapsAround_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<QString>("prefix");
    QTest::addColumn<int>("expected");
    QTest::newRow("from the top") << 0 << "al" << 2;
    QTest::newRow("the next") << 2 << "al" << 7;
    QTest::newRow("wraps around") << 7 << "AL" << 2;
    QTest::newRow("itself last") << 3 << "beta" << 3;
    QTest::newRow("below an expanded entry") << 1 << "z" << 5;
    QTest::newRow("none") << 1 << "q" << 0;
    QTest::newRow("longer than the text") << 1 << "betas" << 0;
    QTest::newRow("everything begins with nothing") << 3 << "" << 4;
}

void TestTreeEntries::FindVisibleByPrefix_From_NextWrapsAround()
{
    QFETCH(int, from);
    QFETCH(QString, prefix);
    QFETCH(int, expected);
    FillSmallTree();

    for (const bool sorted : {false, true}) {
        m_entries->SetSorted(1, sorted);
        const QModelIndex found = m_entries->FindVisibleByPrefix(m_entries->ModelIndex(from), prefix);
        QCOMPARE(TreeEntries::EntryOf(found), expected);
    }
}

void TestTreeEntries::FindVisibleByPrefix_HiddenStart_BeginsAtVisibleParent()
{
    FillSmallTree();
    m_entries->SetExpanded(2, false);

    QCOMPARE(TreeEntries::EntryOf(m_entries->FindVisibleByPrefix(m_entries->ModelIndex(5), "b")), 3);
    QVERIFY(!m_entries->FindVisibleByPrefix(m_entries->ModelIndex(5), "eta").isValid());
}

// Rows --------------------------------------------------------------------------------------------------

void TestTreeEntries::SetExpanded_Entry_RowsAndSignals()
{
    FillSmallTree();
    QSignalSpy rows(m_entries.get(), &TreeRows::VisibleRowsChanged);
    QSignalSpy expanded(static_cast<TreeRows*>(m_entries.get()), &TreeRows::Expanded);
    QSignalSpy collapsed(static_cast<TreeRows*>(m_entries.get()), &TreeRows::Collapsed);
    QCOMPARE(m_entries->VisibleRowCount(), 7);

    m_entries->SetExpanded(2, false);
    m_entries->SetExpanded(2, false);

    QCOMPARE(m_entries->VisibleRowCount(), 5);
    QCOMPARE(m_entries->VisibleRowOf(m_entries->ModelIndex(5)), -1);
    QCOMPARE(m_entries->VisibleRowOf(m_entries->ModelIndex(7)), 4);
    QCOMPARE(rows.size(), 1);
    QCOMPARE(collapsed.size(), 1);
    m_entries->SetExpanded(m_entries->ModelIndex(1), false);
    QCOMPARE(m_entries->VisibleRowCount(), 1);
    m_entries->SetExpanded(2, true);
    QCOMPARE(m_entries->VisibleRowCount(), 1);
    m_entries->SetExpanded(1, true);
    QCOMPARE(m_entries->VisibleRowCount(), 7);
    QCOMPARE(expanded.size(), 2);
}

void TestTreeEntries::SetExpanded_NoChildren_KeptForLater()
{
    FillSmallTree();
    m_entries->SetExpanded(3, true);
    QCOMPARE(m_entries->VisibleRowCount(), 7);

    m_entries->Add(3, "W,11,1", "Hop");

    QCOMPARE(m_entries->VisibleRowCount(), 8);
    QCOMPARE(m_entries->IndexAtVisibleRow(5).data().toString(), "Hop");
}

void TestTreeEntries::VisibleRows_Outside_Invalid()
{
    QVERIFY(!m_entries->IndexAtVisibleRow(0).isValid());
    FillSmallTree();
    QVERIFY(!m_entries->IndexAtVisibleRow(-1).isValid());
    QVERIFY(!m_entries->IndexAtVisibleRow(7).isValid());
    QCOMPARE(m_entries->VisibleRowOf(QModelIndex()), -1);
}

void TestTreeEntries::DepthOf_Levels_CountsFromTop()
{
    FillSmallTree();
    QCOMPARE(m_entries->DepthOf(m_entries->ModelIndex(1)), 0);
    QCOMPARE(m_entries->DepthOf(m_entries->ModelIndex(2)), 1);
    QCOMPARE(m_entries->DepthOf(m_entries->ModelIndex(7)), 2);
}

void TestTreeEntries::Data_Roles_Answered()
{
    FillSmallTree();
    const QModelIndex index = m_entries->ModelIndex(6);
    QCOMPARE(index.data().toString(), "eta");
    QCOMPARE(index.data(TreeEntries::KeyRole).toString(), "N,21");
    QCOMPARE(index.data(TreeEntries::KindRole).toChar(), QChar(u'N'));
    QCOMPARE(index.data(TreeEntries::IndexRole).toInt(), 6);
    QVERIFY(!index.data(Qt::EditRole).isValid());
    QVERIFY(!m_entries->flags(index).testFlag(Qt::ItemIsEditable));
    QVERIFY(m_entries->flags(index).testFlag(Qt::ItemIsSelectable));
}

// Memory ------------------------------------------------------------------------------------------------

void TestTreeEntries::MemoryBytes_ShortNames_Below160()
{
    constexpr int Count = 100000;
    m_tester.reset();
    m_entries->Add(0, "R,0", "Nodes");
    std::vector<QString> texts;
    for (int id = 0; id < Count; ++id)
        texts.push_back(QStringLiteral("NODE %1").arg((id * 7919) % Count, 7, 10, QLatin1Char('0')));
    std::vector<NewTreeEntry> nodes;
    for (int id = 0; id < Count; ++id)
        nodes.push_back({id, texts[size_t(id)]});

    m_entries->AddNodes(1, nodes);
    m_entries->SetSorted(1, true);

    QVERIFY(m_entries->MemoryBytes() >= qint64(Count) * 64);
    QVERIFY(m_entries->MemoryBytes() <= qint64(Count) * 160);
}

void TestTreeEntries::MemoryBytes_EntriesChurned_ReturnsToWhatItWas()
{
    m_tester.reset();
    m_entries->Add(0, "R,0", "Nodes");
    const auto addAndRemoveAll = [this] {
        for (int id = 1; id <= 20000; ++id)
            m_entries->Add(1, QStringLiteral("N,%1").arg(id), QString(40, u'n') + QString::number(id));
        m_entries->RemoveChildren(1);
    };
    addAndRemoveAll();
    const qint64 once = m_entries->MemoryBytes();

    for (int round = 0; round < 5; ++round)
        addAndRemoveAll();

    QVERIFY(m_entries->MemoryBytes() < once + once / 2);
}

QTEST_GUILESS_MAIN(TestTreeEntries)
#include "TestTreeEntries.moc"
