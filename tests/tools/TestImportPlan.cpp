#include "tools/zelka/CommandError.h"
#include "tools/zelka/ImportPlan.h"
#include "tools/zelka/ImportResolver.h"

#include <QBuffer>
#include <QTest>

namespace {

Definitions BuiltInDefinitions()
{
    Catalogue catalogue;
    QStringList problems;
    if (!ReadCatalogue(BuiltInCatalogueFile(), catalogue, problems))
        qFatal("%s", qUtf8Printable(problems.join(u'\n')));
    return Definitions(catalogue);
}

const char* const Header = "kind,name,target,connection,manager,command\n";
const char* const Bus = "connection,Bus,\"WP=BUST4,ID=254\",,,\n";
const QString LongestName = QString(255, u'n');

/// One file against a database that holds connection "Stored", node "Stored node" on it and the manager
/// "Radio" with index 7.
struct Import
{
    Definitions definitions = BuiltInDefinitions();
    ImportProblems problems;
    ImportPlan plan{definitions, problems};
    std::vector<ImportRename> renames;

    explicit Import(const QByteArray& text, ConflictRule rule = ConflictRule::Fail,
                    const std::vector<ConnectionRecord>& connections = {},
                    const std::vector<NodeRecord>& nodes = {})
    {
        QBuffer buffer;
        buffer.setData(text);
        buffer.open(QIODevice::ReadOnly);
        plan.Read(buffer);
        ImportResolver resolver(plan, rule, problems);
        resolver.TakeManagers({{"7", "Radio", "/opt/radio", ""}});
        for (const ConnectionRecord& connection : connections)
            resolver.TakeStored(connection);
        for (const NodeRecord& node : nodes)
            resolver.TakeStored(node);
        resolver.TakeStored(StoredConnection());
        resolver.TakeStored(StoredNode());
        resolver.Resolve();
        renames = resolver.Renames();
    }

    static ConnectionRecord StoredConnection() { return {1, "Stored", "WP=BUST4,ID=1"}; }
    static NodeRecord StoredNode()
    {
        return {2, "Stored node", "Stored", "Radio", "WP=NET4,ADDR=1,WP=OPT,PR=T4DT", "7", "-x"};
    }

    [[nodiscard]] QStringList Problems() const
    {
        QStringList texts;
        for (const auto& [line, text] : problems.Listed())
            texts << QString::number(line) + u' ' + text;
        return texts;
    }
    [[nodiscard]] QString Text(std::size_t row, ImportText which) const
    {
        return plan.Rows().at(row).Text(which);
    }
    [[nodiscard]] ImportAction Action(std::size_t row) const { return plan.Rows().at(row).action; }
};

QByteArray NodeLine(const QString& name, const QString& connection)
{
    return QStringLiteral("node,%1,\"WP=NET4,ADDR=5\",%2,,\n").arg(name, connection).toUtf8();
}

} // namespace

class TestImportPlan : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Read_Header_IsChecked_data();
    void Read_Header_IsChecked();
    void Read_Record_ProblemsAreListed_data();
    void Read_Record_ProblemsAreListed();
    void Read_ManyProblems_AreAllListedInOrder();
    void Read_ManyProblems_ListingIsCappedAndAllAreCounted();
    void Read_ColumnsInAnyOrder_GoToTheirTexts();
    void Read_TargetInLowerCase_IsRewritten();
    void Read_NameWithBlanksAround_IsTrimmed();
    void Read_LongestName_IsTaken();
    void Resolve_ReferenceInOtherCase_MeansTheStoredName();
    void Resolve_ReferenceBeforeItsConnection_IsFound();
    void Resolve_Fail_ListsStoredNames_data();
    void Resolve_Fail_ListsStoredNames();
    void Resolve_Skip_LeavesStoredRecords();
    void Resolve_SkippedConnectionWhoseNameIsANodes_CannotBeReferred();
    void Resolve_Update_TakesNewContents();
    void Resolve_UpdateWithSameContents_IsUnchanged();
    void Resolve_UpdateOfOtherKind_IsAProblem();
    void Resolve_UpdateWithoutColumns_KeepsStoredTexts();
    void Resolve_Rename_NodesFollowTheirConnection();
    void Resolve_Rename_ChoosesFreeNames_data();
    void Resolve_Rename_ChoosesFreeNames();
    void Resolve_RenameOfLongestName_StaysInTheLimit_data();
    void Resolve_RenameOfLongestName_StaysInTheLimit();
    void JoinCommand_AnyParts_SplitBackTheSame_data();
    void JoinCommand_AnyParts_SplitBackTheSame();
};

void TestImportPlan::Read_Header_IsChecked_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("no file") << QByteArray() << QStringList{"1 the header is missing"};
    QTest::newRow("all columns") << QByteArray(Header) << QStringList();
    QTest::newRow("required columns alone") << QByteArray("kind,name,target\n") << QStringList();
    QTest::newRow("other case and blanks") << QByteArray("Kind, NAME ,target\n") << QStringList();
    QTest::newRow("unknown column") << QByteArray("kind,name,target,colour\nx,y\n")
                                    << QStringList{"1 unknown column \"colour\" in the header"};
    QTest::newRow("column twice") << QByteArray("kind,name,target,name\n")
                                  << QStringList{"1 column \"name\" stands twice in the header"};
    QTest::newRow("kind missing") << QByteArray("name,target\n")
                                  << QStringList{"1 column \"kind\" is missing in the header"};
    QTest::newRow("all missing") << QByteArray("\nmanager\n")
                                 << QStringList{"2 column \"kind\" is missing in the header",
                                                "2 column \"name\" is missing in the header",
                                                "2 column \"target\" is missing in the header"};
    QTest::newRow("no header") << QByteArray("node,a,WP=LAN\n")
                               << QStringList{"1 unknown column \"node\" in the header",
                                              "1 unknown column \"a\" in the header",
                                              "1 unknown column \"WP=LAN\" in the header",
                                              "1 column \"kind\" is missing in the header",
                                              "1 column \"name\" is missing in the header",
                                              "1 column \"target\" is missing in the header"};
    QTest::newRow("malformed header")
        << QByteArray("kind,na\"me\nnode,a,b\n") << QStringList{"1 malformed quoting"};
}

void TestImportPlan::Read_Header_IsChecked()
{
    QFETCH(QByteArray, text);
    QFETCH(QStringList, expected);

    const Import import(text);

    QCOMPARE(import.Problems(), expected);
    QVERIFY(import.plan.Rows().empty());
}

void TestImportPlan::Read_Record_ProblemsAreListed_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<QStringList>("expected");

    const auto connection = [](const QString& name) {
        return QStringLiteral("connection,%1,WP=X,,,\n").arg(name).toUtf8();
    };
    QTest::newRow("good") << Bus + NodeLine("a", "Bus") << QStringList();
    QTest::newRow("bad kind") << QByteArray("hub,a,WP=X,,,\n")
                              << QStringList{"2 the kind is \"hub\" and not connection or node"};
    QTest::newRow("empty kind") << QByteArray(",a,WP=X,,,\n")
                                << QStringList{"2 the kind is \"\" and not connection or node"};
    QTest::newRow("empty name") << connection("") << QStringList{"2 the name is empty"};
    QTest::newRow("blank name") << connection("  ") << QStringList{"2 the name is empty"};
    QTest::newRow("long name") << connection(LongestName + u'x')
                               << QStringList{"2 the name has more than 255 characters"};
    QTest::newRow("10,000 characters")
        << connection(QString(10000, u'x')) << QStringList{"2 the name has more than 255 characters"};
    QTest::newRow("tab in name") << connection("a\tb") << QStringList{"2 the name holds control characters"};
    QTest::newRow("line break in name")
        << connection("\"a\nb\"") << QStringList{"2 the name holds control characters"};
    QTest::newRow("delete character in name") << connection("a\x7f"
                                                            "b")
                                              << QStringList{"2 the name holds control characters"};
    QTest::newRow("comma in a connection's name")
        << connection("\"a,b\"") << QStringList{"2 the name \"a,b\" of a connection holds a comma"};
    QTest::newRow("comma in a node's name") << NodeLine("\"a,b\"", "Stored") << QStringList();
    QTest::newRow("reserved connection")
        << connection("New Connection") << QStringList{"2 the name \"New Connection\" is reserved"};
    QTest::newRow("reserved node") << NodeLine("new node", "Stored")
                                   << QStringList{"2 the name \"new node\" is reserved"};
    QTest::newRow("taken in the file")
        << connection("a") + connection("A") << QStringList{"3 the name \"A\" is taken by line 2"};
    QTest::newRow("taken by the other kind")
        << connection("a") + NodeLine("a", "a") << QStringList{"3 the name \"a\" is taken by line 2"};
    QTest::newRow("taken three times")
        << connection("a") + connection(" a ") + connection("a")
        << QStringList{"3 the name \"a\" is taken by line 2", "4 the name \"a\" is taken by line 2"};
    QTest::newRow("taken in folded letters")
        << connection(QStringLiteral("Ødegård")) + connection(QStringLiteral("ØDEGÅRD"))
        << QStringList{QStringLiteral("3 the name \"ØDEGÅRD\" is taken by line 2")};
    QTest::newRow("unknown connection")
        << NodeLine("a", "nowhere") << QStringList{"2 unknown connection \"nowhere\""};
    QTest::newRow("a node is no connection")
        << NodeLine("a", "Stored node") << QStringList{"2 unknown connection \"Stored node\""};
    QTest::newRow("no connection") << NodeLine("a", "") << QStringList{"2 the node has no connection"};
    QTest::newRow("empty target") << QByteArray("connection,a,,,,\n")
                                  << QStringList{"2 the target \"\" is refused"};
    QTest::newRow("refused target") << QByteArray("connection,a,nonsense,,,\n")
                                    << QStringList{"2 the target \"nonsense\" is refused"};
    QTest::newRow("unknown manager") << QByteArray("node,a,WP=X,Stored,Nobody,\n")
                                     << QStringList{"2 unknown manager \"Nobody\""};
    QTest::newRow("unknown manager index")
        << QByteArray("node,a,WP=X,Stored,Radio,8|-y\n") << QStringList{"2 unknown manager index \"8\""};
    QTest::newRow("known manager") << QByteArray("node,a,WP=X,Stored,radio,7|-y\n") << QStringList();
    QTest::newRow("command without an index") << QByteArray("node,a,WP=X,Stored,Radio,-y\n") << QStringList();
    QTest::newRow("a connection has no connection")
        << QByteArray("connection,a,WP=X,Stored,Radio,-y\n")
        << QStringList{"2 a connection has no connection", "2 a connection has no manager",
                       "2 a connection has no command"};
    QTest::newRow("too few fields") << QByteArray("node,a\n") << QStringList{"2 2 fields instead of 6"};
    QTest::newRow("too many fields") << QByteArray("node,a,WP=X,Stored,,,\n")
                                     << QStringList{"2 7 fields instead of 6"};
    QTest::newRow("target without quotes")
        << QByteArray("connection,a,WP=BUST4,ID=1,,,\n") << QStringList{"2 7 fields instead of 6"};
    QTest::newRow("malformed quoting")
        << QByteArray("node,a\"b,WP=X,Stored,,\n") << QStringList{"2 malformed quoting"};
    QTest::newRow("not UTF-8") << QByteArray("node,a\xFF,WP=X,Stored,,\n")
                               << QStringList{"2 the record holds bytes that are not UTF-8"};
    QTest::newRow("several in one record")
        << QByteArray("node,,bad,nowhere,Nobody,8|\n")
        << QStringList{"2 the name is empty", "2 the target \"bad\" is refused",
                       "2 unknown connection \"nowhere\"", "2 unknown manager \"Nobody\"",
                       "2 unknown manager index \"8\""};
    QTest::newRow("emoji") << NodeLine(QStringLiteral("😀 tower"), "Stored") << QStringList();
}

void TestImportPlan::Read_Record_ProblemsAreListed()
{
    QFETCH(QByteArray, lines);
    QFETCH(QStringList, expected);

    QCOMPARE(Import(Header + lines).Problems(), expected);
}

void TestImportPlan::Read_ManyProblems_AreAllListedInOrder()
{
    const Import import(QByteArray(Header) + NodeLine("a", "nowhere") + NodeLine("", "Stored") +
                        NodeLine("Stored", "Stored") + "x,b,WP=X,,,\n");

    QCOMPARE(import.Problems(), (QStringList{"2 unknown connection \"nowhere\"", "3 the name is empty",
                                             "4 the name \"Stored\" is taken by a stored connection",
                                             "5 the kind is \"x\" and not connection or node"}));
}

void TestImportPlan::Read_ManyProblems_ListingIsCappedAndAllAreCounted()
{
    QByteArray text(Header);
    for (int i = 0; i < 3000; ++i)
        text += i % 2 == 0 ? NodeLine("", "Stored") : NodeLine(QString::number(i), "nowhere");

    const Import import(text);

    QCOMPARE(import.problems.Count(), 3000);
    QCOMPARE(import.problems.Listed().size(), ImportProblems::MaxListed);
    QCOMPARE(import.Problems().first(), QStringLiteral("2 the name is empty"));
    QCOMPARE(import.Problems().last(), QStringLiteral("1001 unknown connection \"nowhere\""));
}

void TestImportPlan::Read_ColumnsInAnyOrder_GoToTheirTexts()
{
    const Import import("command,target,connection,kind,manager,name\n"
                        "7|-z,\"WP=NET4,ADDR=3\",Stored,node,Radio,Tower\n");

    QCOMPARE(import.Problems(), QStringList());
    QCOMPARE(import.plan.Rows().size(), 1U);
    QCOMPARE(import.plan.Rows()[0].kind, ImportKind::Node);
    QCOMPARE(import.plan.Rows()[0].line, 2U);
    QCOMPARE(import.Text(0, ImportText::Name), QStringLiteral("Tower"));
    QCOMPARE(import.Text(0, ImportText::Target), QStringLiteral("WP=NET4,ADDR=3"));
    QCOMPARE(import.Text(0, ImportText::Connection), QStringLiteral("Stored"));
    QCOMPARE(import.Text(0, ImportText::Manager), QStringLiteral("Radio"));
    QCOMPARE(import.Text(0, ImportText::Command), QStringLiteral("7|-z"));
}

void TestImportPlan::Read_TargetInLowerCase_IsRewritten()
{
    const Import import("kind,name,target\nconnection,a,\"wp=bust4,id=3\"\n");

    QCOMPARE(import.Text(0, ImportText::Target), QStringLiteral("WP=BUST4,ID=3"));
}

void TestImportPlan::Read_NameWithBlanksAround_IsTrimmed()
{
    const Import import("kind,name,target\nConnection , a b ,WP=X\n");

    QCOMPARE(import.Problems(), QStringList());
    QCOMPARE(import.Text(0, ImportText::Name), QStringLiteral("a b"));
}

void TestImportPlan::Read_LongestName_IsTaken()
{
    const Import import(Header + NodeLine(LongestName, "Stored"));

    QCOMPARE(import.Problems(), QStringList());
    QCOMPARE(import.Text(0, ImportText::Name), LongestName);
}

void TestImportPlan::Resolve_ReferenceInOtherCase_MeansTheStoredName()
{
    const Import import(QByteArray(Header) + Bus + NodeLine("a", " sTORED ") + NodeLine("b", "bUS"));

    QCOMPARE(import.Problems(), QStringList());
    QCOMPARE(import.Text(1, ImportText::Connection), QStringLiteral("Stored"));
    QCOMPARE(import.Text(2, ImportText::Connection), QStringLiteral("Bus"));
}

void TestImportPlan::Resolve_ReferenceBeforeItsConnection_IsFound()
{
    const Import import(Header + NodeLine("a", "Bus") + Bus);

    QCOMPARE(import.Problems(), QStringList());
    QCOMPARE(import.Action(0), ImportAction::Add);
}

void TestImportPlan::Resolve_Fail_ListsStoredNames_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("expected");
    QTest::newRow("connection by connection") << QByteArray("connection,STORED,WP=X,,,\n")
                                              << "2 the name \"STORED\" is taken by a stored connection";
    QTest::newRow("connection by node") << QByteArray("connection,stored NODE,WP=X,,,\n")
                                        << "2 the name \"stored NODE\" is taken by a stored node";
    QTest::newRow("node by connection")
        << NodeLine("Stored", "Stored") << "2 the name \"Stored\" is taken by a stored connection";
    QTest::newRow("node by node") << NodeLine("Stored node", "Stored")
                                  << "2 the name \"Stored node\" is taken by a stored node";
}

void TestImportPlan::Resolve_Fail_ListsStoredNames()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, expected);

    QCOMPARE(Import(Header + line).Problems(), QStringList{expected});
}

void TestImportPlan::Resolve_Skip_LeavesStoredRecords()
{
    const Import import(Header + QByteArray("connection,Stored,WP=X,,,\n") +
                            NodeLine("Stored node", "nowhere") + NodeLine("New", "stored"),
                        ConflictRule::Skip);

    QCOMPARE(import.Problems(), QStringList());
    QCOMPARE(import.Action(0), ImportAction::Skip);
    QCOMPARE(import.Action(1), ImportAction::Skip);
    QCOMPARE(import.Action(2), ImportAction::Add);
    QCOMPARE(import.Text(2, ImportText::Connection), QStringLiteral("Stored"));
}

void TestImportPlan::Resolve_SkippedConnectionWhoseNameIsANodes_CannotBeReferred()
{
    const Import import(Header + QByteArray("connection,Stored node,WP=X,,,\n") +
                            NodeLine("New", "Stored node"),
                        ConflictRule::Skip);

    QCOMPARE(import.Problems(), QStringList{"3 unknown connection \"Stored node\""});
}

void TestImportPlan::Resolve_Update_TakesNewContents()
{
    const Import import(Header + QByteArray("connection,STORED,WP=X,,,\n") +
                            NodeLine("Stored node", "Stored"),
                        ConflictRule::Update);

    QCOMPARE(import.Problems(), QStringList());
    QCOMPARE(import.Action(0), ImportAction::Update);
    QCOMPARE(import.Text(0, ImportText::Name), QStringLiteral("STORED"));
    QCOMPARE(import.Action(1), ImportAction::Update);
    QCOMPARE(import.Text(1, ImportText::Connection), QStringLiteral("STORED"));
    QCOMPARE(import.Text(1, ImportText::Manager), QString());
    QCOMPARE(import.Text(1, ImportText::Command), QString());
}

void TestImportPlan::Resolve_UpdateWithSameContents_IsUnchanged()
{
    const Import import(
        Header + QByteArray("connection,Stored,\"WP=BUST4,ID=1\",,,\n"
                            "node,Stored node,\"WP=NET4,ADDR=1,WP=OPT,PR=T4DT\",STORED,Radio,7|-x\n"),
        ConflictRule::Update);

    QCOMPARE(import.Problems(), QStringList());
    QCOMPARE(import.Action(0), ImportAction::Unchanged);
    QCOMPARE(import.Action(1), ImportAction::Unchanged);
}

void TestImportPlan::Resolve_UpdateOfOtherKind_IsAProblem()
{
    const Import import(Header + QByteArray("connection,Stored node,WP=X,,,\n") +
                            NodeLine("Stored", "Stored"),
                        ConflictRule::Update);

    QCOMPARE(import.Problems(), (QStringList{"2 the name \"Stored node\" is taken by a stored node",
                                             "3 the name \"Stored\" is taken by a stored connection"}));
}

void TestImportPlan::Resolve_UpdateWithoutColumns_KeepsStoredTexts()
{
    const Import import("kind,name,target\nnode,Stored node,\"WP=NET4,ADDR=9\"\n", ConflictRule::Update);

    QCOMPARE(import.Problems(), QStringList());
    QCOMPARE(import.Action(0), ImportAction::Update);
    QCOMPARE(import.Text(0, ImportText::Target), QStringLiteral("WP=NET4,ADDR=9"));
    QCOMPARE(import.Text(0, ImportText::Connection), QStringLiteral("Stored"));
    QCOMPARE(import.Text(0, ImportText::Manager), QStringLiteral("Radio"));
    QCOMPARE(import.Text(0, ImportText::Command), QStringLiteral("7|-x"));
}

void TestImportPlan::Resolve_Rename_NodesFollowTheirConnection()
{
    const Import import(Header + NodeLine("before", "stored") + QByteArray("connection,Stored,WP=X,,,\n") +
                            NodeLine("Stored node", "Stored"),
                        ConflictRule::Rename);

    QCOMPARE(import.Problems(), QStringList());
    QCOMPARE(import.Text(1, ImportText::Name), QStringLiteral("Stored (2)"));
    QCOMPARE(import.Text(0, ImportText::Connection), QStringLiteral("Stored (2)"));
    QCOMPARE(import.Text(2, ImportText::Name), QStringLiteral("Stored node (2)"));
    QCOMPARE(import.Text(2, ImportText::Connection), QStringLiteral("Stored (2)"));
    QCOMPARE(import.renames.size(), 2U);
    QCOMPARE(import.renames[0].line, 3U);
    QCOMPARE(import.renames[0].from, QStringLiteral("Stored"));
    QCOMPARE(import.renames[0].to, QStringLiteral("Stored (2)"));
}

void TestImportPlan::Resolve_Rename_ChoosesFreeNames_data()
{
    QTest::addColumn<QByteArray>("further");
    QTest::addColumn<QStringList>("stored");
    QTest::addColumn<QString>("expected");
    QTest::newRow("free") << QByteArray() << QStringList() << "Stored (2)";
    QTest::newRow("taken in the file") << NodeLine("STORED (2)", "Stored") << QStringList() << "Stored (3)";
    QTest::newRow("taken in the database")
        << QByteArray() << QStringList{"stored (2)", "Stored (3)"} << "Stored (4)";
    QTest::newRow("taken in both") << NodeLine("Stored (3)", "Stored") << QStringList{"Stored (2)"}
                                   << "Stored (4)";
}

void TestImportPlan::Resolve_Rename_ChoosesFreeNames()
{
    QFETCH(QByteArray, further);
    QFETCH(QStringList, stored);
    QFETCH(QString, expected);
    std::vector<NodeRecord> nodes;
    for (const QString& name : stored)
        nodes.push_back({10, name, "Stored", "", "WP=NET4", "", ""});

    const Import import(Header + QByteArray("connection,Stored,WP=X,,,\n") + further, ConflictRule::Rename,
                        {}, nodes);

    QCOMPARE(import.Problems(), QStringList());
    QCOMPARE(import.Text(0, ImportText::Name), expected);
}

void TestImportPlan::Resolve_RenameOfLongestName_StaysInTheLimit_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expected");
    QTest::newRow("letters") << LongestName << QString(251, u'n') + QStringLiteral(" (2)");
    // The cut would fall into the middle of a pair of units.
    QTest::newRow("emoji") << QString(250, u'n') + QStringLiteral("😀nnn")
                           << QString(250, u'n') + QStringLiteral(" (2)");
}

void TestImportPlan::Resolve_RenameOfLongestName_StaysInTheLimit()
{
    QFETCH(QString, name);
    QFETCH(QString, expected);

    const Import import(Header + NodeLine(name, "Stored"), ConflictRule::Rename, {},
                        {{10, name, "Stored", "", "WP=NET4", "", ""}});

    QCOMPARE(import.Problems(), QStringList());
    QCOMPARE(import.Text(0, ImportText::Name), expected);
}

void TestImportPlan::JoinCommand_AnyParts_SplitBackTheSame_data()
{
    QTest::addColumn<QString>("index");
    QTest::addColumn<QString>("tail");
    QTest::addColumn<QString>("command");
    QTest::newRow("both") << "7"
                          << "-x"
                          << "7|-x";
    QTest::newRow("tail alone") << ""
                                << "-x"
                                << "-x";
    QTest::newRow("index alone") << "7"
                                 << ""
                                 << "7|";
    QTest::newRow("none") << ""
                          << ""
                          << "";
    QTest::newRow("sign in the tail") << ""
                                      << "a|b"
                                      << "|a|b";
    QTest::newRow("sign in the tail behind an index") << "7"
                                                      << "a|b"
                                                      << "7|a|b";
}

void TestImportPlan::JoinCommand_AnyParts_SplitBackTheSame()
{
    QFETCH(QString, index);
    QFETCH(QString, tail);
    QFETCH(QString, command);

    QCOMPARE(JoinCommand(index, tail), command);
    QString splitIndex;
    QString splitTail;
    SplitCommand(command, splitIndex, splitTail);
    QCOMPARE(splitIndex, index);
    QCOMPARE(splitTail, tail);
}

QTEST_GUILESS_MAIN(TestImportPlan)
#include "TestImportPlan.moc"
