#include "tests/browser/ControlOnDatabase.h"

#include <QFile>
#include <QTabWidget>
#include <QTest>

/// The control on databases that open and hold damaged definitions or strange records: one box tells what is
/// wrong, and the rest of the database can be used.
class TestBadData : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Click_DamagedData_IsToldAndTheNextEntryWorks_data();
    void Click_DamagedData_IsToldAndTheNextEntryWorks();
    void HostAsks_DamagedData_GetsFalseWithoutABox_data();
    void HostAsks_DamagedData_GetsFalseWithoutABox();
    void Start_DamagedTypeList_IsToldAndGoesOn_data();
    void Start_DamagedTypeList_IsToldAndGoesOn();
    void Click_LimitsJustReached_GivesTheTarget_data();
    void Click_LimitsJustReached_GivesTheTarget();
    void Click_UnknownWaypoint_GivesNoTargetAndNoBox();
    void DoubleClick_DamagedConnection_StillOpens();
    void ShowAgain_DamagedEntrySelected_IsToldAndLivesOn();
    void Click_UnreadableRecord_LeavesTheOthersUsable_data();
    void Click_UnreadableRecord_LeavesTheOthersUsable();
    void StrangeNames_NodeClicked_GivesItsTarget_data();
    void StrangeNames_NodeClicked_GivesItsTarget();
    void StrangeNames_ConnectionClicked_GivesItsTarget_data();
    void StrangeNames_ConnectionClicked_GivesItsTarget();
    void NamesWithControlCharacters_Clicked_AreRefused_data();
    void NamesWithControlCharacters_Clicked_AreRefused();
    void StrangeTargets_Clicked_AreGiven_data();
    void StrangeTargets_Clicked_AreGiven();
};

namespace {

const QString AlphaReduced = QStringLiteral("WP=BUST4,ID=254");
const QString BetaReduced = QStringLiteral("WP=SOCKET,HOST=gateway-2,WP=BUST4,ID=7");
const QString EastReduced = QStringLiteral("WP=SOCKET,HOST=gateway-2,WP=BUST4,ID=7,WP=NET4,ADDR=4094");
const QString MmlReduced = QStringLiteral("WP=BUST4,ID=254,WP=NEMML,USER=anna");

/// Numbers from `first` to `last` as "i" of a statement.
QString Numbers(int first, int last, const QString& statement)
{
    return QStringLiteral("WITH RECURSIVE n(i) AS (VALUES(%1) UNION ALL SELECT i + 1 FROM n WHERE i < %2) %3")
        .arg(first)
        .arg(last)
        .arg(statement);
}

/// Adds optional waypoints to the type T4BUS until it has `total`.
QString Hops(int total)
{
    return Numbers(1, total,
                   QStringLiteral("INSERT INTO con_type_hop SELECT 0, 100 + i, 'OPT', 0 FROM n"
                                  " WHERE i > (SELECT count(*) FROM con_type_hop WHERE type_id = 0)"));
}

/// The same for the node type NET4.
QString NodeWaypoints(int total)
{
    return Numbers(1, total,
                   QStringLiteral("INSERT INTO node_type_waypoint SELECT 0, 100 + i, 'OPT', 0 FROM n"
                                  " WHERE i > (SELECT count(*) FROM node_type_waypoint WHERE type_id = 0)"));
}

/// Adds parameters to a waypoint until it has `total`.
QString Parameters(const QString& waypoint, int total)
{
    return Numbers(
        1, total,
        QStringLiteral("INSERT INTO parameter (waypoint, position, keyword, long_name, requirement,"
                       " default_value, kind) SELECT '%1', 100 + i, 'X' || i, 'EXTRA ' || i, 0, '', 1 FROM n"
                       " WHERE i > (SELECT count(*) FROM parameter WHERE waypoint = '%1')")
            .arg(waypoint));
}

/// Gives Gamma a target whose item list has 4 + 2 * `parameters` items.
QString LongTarget(int parameters)
{
    return Numbers(1, parameters,
                   QStringLiteral("UPDATE connection SET target = 'WP=SNMP' ||"
                                  " (SELECT group_concat(',VERSION=1', '') FROM n) WHERE name = 'Gamma'"));
}

QString MoreTypes(int first, int last)
{
    return Numbers(first, last,
                   QStringLiteral("INSERT INTO con_type SELECT i, 'TYPE' || i, 'Type ' || i FROM n"));
}

QString Quoted(QString text)
{
    text.replace(QLatin1Char('\''), QLatin1String("''"));
    return QLatin1Char('\'') + text + QLatin1Char('\'');
}

QString RenameSql(const QString& table, const QString& oldName, const QString& name)
{
    return QStringLiteral("UPDATE %1 SET name = %2, name_key = lower(trim(%2)) WHERE name = %3")
        .arg(table, Quoted(name), Quoted(oldName));
}

/// Clicks on "node North" or "connection Alpha" in the view of its kind.
void ClickEntry(const ControlOnDatabase& f, const QString& entry)
{
    const QString name = entry.section(QLatin1Char(' '), 1);
    const bool isNode = entry.startsWith(QLatin1String("node "));
    f.Find<QRadioButton>(isNode ? "optNodes" : "optCon").setChecked(true);
    if (isNode)
        f.ClickNode(name);
    else
        f.ClickConnection(name);
}

void DamageRows()
{
    QTest::addColumn<QString>("sql");
    QTest::addColumn<QString>("bad");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("good");
    QTest::addColumn<QString>("goodTarget");
    const QString waypoint = QStringLiteral("Index out of range: waypoint 11, allowed 1 to 10");
    const QString parameter = QStringLiteral("Index out of range: parameter row 11, allowed 1 to 10");
    const QString item = QStringLiteral("Index out of range: item 101, allowed 1 to 100");
    const auto row = [](const char* name, const QString& sql, const char* bad, const QString& text,
                        const char* good, const QString& goodTarget) {
        QTest::newRow(name) << sql << QString::fromLatin1(bad) << text << QString::fromLatin1(good)
                            << goodTarget;
    };
    row("type of eleven waypoints, its connection", Hops(11), "connection Alpha", waypoint, "connection Beta",
        BetaReduced);
    row("type of eleven waypoints, its node", Hops(11), "node North", waypoint, "node East", EastReduced);
    row("node type of eleven waypoints", NodeWaypoints(11), "node North", waypoint, "node Mml", MmlReduced);
    row("eleven parameters, connection", Parameters(QStringLiteral("SOCKET"), 11), "connection Beta",
        parameter, "connection Alpha", AlphaReduced);
    row("eleven parameters, node", Parameters(QStringLiteral("NET4"), 11), "node North", parameter,
        "node Mml", MmlReduced);
    row("a hundred parameters", Parameters(QStringLiteral("SOCKET"), 100), "node East", parameter,
        "node North", AlphaReduced + QStringLiteral(",WP=NET4,ADDR=17"));
    row("eleven waypoints of no type",
        QStringLiteral("UPDATE connection SET target = '%1' WHERE name = 'Gamma'")
            .arg(QStringList(11, QStringLiteral("WP=SNMP")).join(QLatin1Char(','))),
        "connection Gamma", waypoint, "connection Alpha", AlphaReduced);
    row("target of more than a hundred items", LongTarget(49), "connection Gamma", item, "connection Alpha",
        AlphaReduced);
}

} // namespace

void TestBadData::Click_DamagedData_IsToldAndTheNextEntryWorks_data()
{
    DamageRows();
}

void TestBadData::Click_DamagedData_IsToldAndTheNextEntryWorks()
{
    QFETCH(const QString, sql);
    QFETCH(const QString, bad);
    QFETCH(const QString, text);
    QFETCH(const QString, good);
    QFETCH(const QString, goodTarget);
    ControlOnDatabase f;
    f.Database.OpenComponent()->SaveNode(QStringLiteral("Mml"), QStringLiteral("NEMML"),
                                         QStringLiteral("WP=NEMML,USER=anna"), QStringLiteral("Alpha"),
                                         QString());
    f.Database.RunSql(sql);
    f.Start();
    QCOMPARE(f.Operator.Texts(), QStringList());

    // Twice: the first time must leave nothing behind that changes the second.
    for (int time = 1; time <= 2; ++time) {
        f.Operator.Boxes.clear();
        ClickEntry(f, bad);
        QCOMPARE(f.Operator.Texts(), QStringList{text});
        QCOMPARE(f.Operator.Boxes.front(), RecordedBox::Error(text));
        QCOMPARE(Browser().Busy, 0);
        ClickEntry(f, good);
        QCOMPARE(f.HostTarget(), goodTarget);
        QCOMPARE(f.Find<QLineEdit>("txtTarget").text(), goodTarget);
        QCOMPARE(f.Control->Sobriquet(), good.section(QLatin1Char(' '), 1));
        QCOMPARE(f.Operator.Boxes.size(), std::size_t(1));
    }
    // No transaction stays open behind the failure.
    f.Database.OpenComponent()->SaveParent(QStringLiteral("Delta"), QString());
}

void TestBadData::HostAsks_DamagedData_GetsFalseWithoutABox_data()
{
    QTest::addColumn<QString>("sql");
    QTest::newRow("type of eleven waypoints") << Hops(11);
    QTest::newRow("eleven parameters") << Parameters(QStringLiteral("BUST4"), 11);
}

void TestBadData::HostAsks_DamagedData_GetsFalseWithoutABox()
{
    QFETCH(const QString, sql);
    ControlOnDatabase f;
    f.Database.RunSql(sql);
    f.Start();

    QString target = QStringLiteral("as it was");
    QVERIFY(!f.Control->GetSobriquetTarget(QStringLiteral("North"), target));
    QCOMPARE(target, QStringLiteral("as it was"));
    QCOMPARE(f.Operator.Texts(), QStringList());
}

void TestBadData::Start_DamagedTypeList_IsToldAndGoesOn_data()
{
    QTest::addColumn<QString>("sql");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("a hundred types") << MoreTypes(17, 99) << QStringList();
    QTest::newRow("a hundred and one types")
        << MoreTypes(17, 100)
        << QStringList{QStringLiteral("Index out of range: item 101, allowed 1 to 100")};
    QTest::newRow("three types") << QStringLiteral("DELETE FROM con_type WHERE id BETWEEN 3 AND 15")
                                 << QStringList();
}

void TestBadData::Start_DamagedTypeList_IsToldAndGoesOn()
{
    QFETCH(const QString, sql);
    QFETCH(const QStringList, texts);
    ControlOnDatabase f;
    f.Database.RunSql(sql);

    f.Start();
    std::vector<RecordedBox> boxes;
    for (const QString& text : texts)
        boxes.push_back(RecordedBox::Error(text));
    QCOMPARE(f.Operator.Boxes, boxes);
    QVERIFY(f.Find<QTabWidget>("tabMain").isTabEnabled(0));
    f.ClickNode(QStringLiteral("East"));
    QCOMPARE(f.HostTarget(), EastReduced);
    QCOMPARE(f.Operator.Boxes, boxes);
}

void TestBadData::Click_LimitsJustReached_GivesTheTarget_data()
{
    QTest::addColumn<QString>("sql");
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("target");
    // An empty waypoint is left out at the end only.
    QTest::newRow("ten waypoints") << Hops(10) << QStringLiteral("connection Alpha")
                                   << AlphaReduced + QStringLiteral(",WP=OPT").repeated(8);
    QTest::newRow("ten parameters") << Parameters(QStringLiteral("SOCKET"), 10)
                                    << QStringLiteral("connection Beta") << BetaReduced;
    QTest::newRow("a hundred items") << LongTarget(48) << QStringLiteral("connection Gamma")
                                     << QStringLiteral("WP=SNMP,VERSION=1");
}

void TestBadData::Click_LimitsJustReached_GivesTheTarget()
{
    QFETCH(const QString, sql);
    QFETCH(const QString, entry);
    QFETCH(const QString, target);
    ControlOnDatabase f;
    f.Database.RunSql(sql);
    f.Start();
    ClickEntry(f, entry);
    QCOMPARE(f.HostTarget(), target);
    QCOMPARE(f.Operator.Texts(), QStringList());
}

void TestBadData::Click_UnknownWaypoint_GivesNoTargetAndNoBox()
{
    ControlOnDatabase f;
    f.Database.RunSql(QStringLiteral("DELETE FROM waypoint WHERE name = 'SOCKET'"));
    f.Start();
    f.ClickNode(QStringLiteral("North"));
    f.ClickNode(QStringLiteral("East"));
    QCOMPARE(f.Find<QLineEdit>("txtTarget").text(), QString());
    QCOMPARE(f.Control->Sobriquet(), QString());
    f.ClickNode(QStringLiteral("North"));
    QCOMPARE(f.HostTarget(), AlphaReduced + QStringLiteral(",WP=NET4,ADDR=17"));
    QCOMPARE(f.Operator.Texts(), QStringList());
}

void TestBadData::DoubleClick_DamagedConnection_StillOpens()
{
    ControlOnDatabase f;
    f.Database.RunSql(Hops(11));
    f.Start();
    f.ShowConnections();
    auto& view = f.Find<TreeView>("tvwConTree");
    const TreeEntries& entries = f.Entries("tvwConTree");
    const TreeEntries::Index alpha = entries.FindByText(QStringLiteral("Alpha"), false);
    f.ClickConnection(QStringLiteral("Alpha"));
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {},
                       view.visualRect(entries.ModelIndex(alpha)).center());
    QCOMPARE(entries.ChildCount(alpha), 2);
    QCOMPARE(f.Operator.Texts().value(0), QStringLiteral("Index out of range: waypoint 11, allowed 1 to 10"));

    f.Operator.Boxes.clear();
    f.ClickConnection(QStringLiteral("Beta"));
    QCOMPARE(f.HostTarget(), BetaReduced);
    QCOMPARE(f.Operator.Texts(), QStringList());
}

void TestBadData::ShowAgain_DamagedEntrySelected_IsToldAndLivesOn()
{
    ControlOnDatabase f;
    f.Database.RunSql(NodeWaypoints(11));
    f.Start();
    f.ClickNode(QStringLiteral("North"));
    f.Operator.Boxes.clear();

    f.Control->hide();
    f.Control->show();
    QCOMPARE(f.Operator.Texts(),
             QStringList{QStringLiteral("Index out of range: waypoint 11, allowed 1 to 10")});
    QVERIFY(f.Find<QTabWidget>("tabMain").isTabEnabled(0));
    QCOMPARE(f.Find<QTabWidget>("tabMain").currentIndex(), 0);
    ClickEntry(f, QStringLiteral("connection Alpha"));
    QCOMPARE(f.HostTarget(), AlphaReduced);
    QCOMPARE(f.Operator.Boxes.size(), std::size_t(1));
}

void TestBadData::Click_UnreadableRecord_LeavesTheOthersUsable_data()
{
    QTest::addColumn<QString>("sql");
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<QString>("target");
    const QString setTarget = QStringLiteral("UPDATE %1 SET target = '%2' WHERE name = '%3'");
    const QString north = QStringLiteral("node North");
    const QString gamma = QStringLiteral("connection Gamma");
    const QStringList nodeFailure{QStringLiteral("Failure to get node data from database.")};
    const QStringList nothing;
    QTest::newRow("node of no target")
        << setTarget.arg("node", "", "North") << north << nodeFailure << AlphaReduced + QLatin1Char(',');
    QTest::newRow("node target that is none") << setTarget.arg("node", "no target", "North") << north
                                              << nodeFailure << AlphaReduced + QLatin1Char(',');
    QTest::newRow("node target of unknown waypoint")
        << setTarget.arg("node", "WP=NOWHERE,ADDR=1", "North") << north << nodeFailure
        << AlphaReduced + QLatin1Char(',');
    QTest::newRow("unknown parameter") << setTarget.arg("node", "WP=NET4,ADDR=17,COLOUR=red", "North")
                                       << north << QStringList{QStringLiteral("Unknown parameter:COLOUR")}
                                       << AlphaReduced + QStringLiteral(",WP=NET4,ADDR=17");
    QTest::newRow("connection of no target")
        << setTarget.arg("connection", "", "Gamma") << gamma << nothing << QString();
    QTest::newRow("connection target that is none")
        << setTarget.arg("connection", "no target", "Gamma") << gamma << nothing << QString();
    QTest::newRow("node of no connection")
        << QStringLiteral("UPDATE node SET connection_key = 4711 WHERE name = 'North'") << north << nothing
        << QString();
}

void TestBadData::Click_UnreadableRecord_LeavesTheOthersUsable()
{
    QFETCH(const QString, sql);
    QFETCH(const QString, entry);
    QFETCH(const QStringList, texts);
    QFETCH(const QString, target);
    ControlOnDatabase f;
    f.Database.RunSql(sql);
    f.Start();
    ClickEntry(f, entry);
    QCOMPARE(f.Operator.Texts(), texts);
    QCOMPARE(f.Find<QLineEdit>("txtTarget").text(), target);

    f.Operator.Boxes.clear();
    ClickEntry(f, QStringLiteral("node East"));
    QCOMPARE(f.HostTarget(), EastReduced);
    QCOMPARE(f.Operator.Texts(), QStringList());
}

static void StrangeNames()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("quotes") << QStringLiteral("O'Neill \"north\" `x`");
    QTest::newRow("comma") << QStringLiteral("a, b,,c");
    QTest::newRow("emoji") << QStringLiteral("mast \U0001F4E1");
    QTest::newRow("ampersand") << QStringLiteral("R&D && <b>x</b>");
    QTest::newRow("patterns") << QStringLiteral("100%_*?[a]\\");
    QTest::newRow("statement") << QStringLiteral("x'; DROP TABLE node; --");
    QTest::newRow("right to left") << QStringLiteral("\u05DE\u05D2\u05D3\u05DC");
    QTest::newRow("key of an entry") << QStringLiteral("N,1");
    QTest::newRow("10,000 characters") << QString(10000, QLatin1Char('n'));
}

void TestBadData::StrangeNames_NodeClicked_GivesItsTarget_data()
{
    StrangeNames();
}

void TestBadData::StrangeNames_NodeClicked_GivesItsTarget()
{
    QFETCH(const QString, name);
    ControlOnDatabase f;
    f.Database.RunSql(RenameSql(QStringLiteral("node"), QStringLiteral("North"), name));
    f.Start();
    QVERIFY(f.Entries("tvwNodesTree").FindByText(name, true) != 0);
    f.ClickNode(name);
    QCOMPARE(f.Control->Sobriquet(), name);
    QCOMPARE(f.HostTarget(), AlphaReduced + QStringLiteral(",WP=NET4,ADDR=17"));
    QCOMPARE(f.Operator.Texts(), QStringList());
}

void TestBadData::StrangeNames_ConnectionClicked_GivesItsTarget_data()
{
    StrangeNames();
}

void TestBadData::StrangeNames_ConnectionClicked_GivesItsTarget()
{
    QFETCH(const QString, name);
    ControlOnDatabase f;
    f.Database.RunSql(RenameSql(QStringLiteral("connection"), QStringLiteral("Alpha"), name));
    f.Start();
    f.ShowConnections();
    QVERIFY(f.Entries("tvwConTree").FindByText(name, false) != 0);
    f.ClickConnection(name);
    QCOMPARE(f.Control->Sobriquet(), name);
    QCOMPARE(f.HostTarget(), AlphaReduced);
    QCOMPARE(f.Find<CaptionFrame>("fraConData").Caption(), QStringLiteral("T4 Bus: ") + name);
    f.Find<QRadioButton>("optNodes").setChecked(true);
    f.ClickNode(QStringLiteral("North"));
    QCOMPARE(f.HostTarget(), AlphaReduced + QStringLiteral(",WP=NET4,ADDR=17"));
    QCOMPARE(f.Operator.Texts(), QStringList());
}

void TestBadData::NamesWithControlCharacters_Clicked_AreRefused_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("tab") << QStringLiteral("mast\tone");
    QTest::newRow("line break") << QStringLiteral("mast\none");
    QTest::newRow("carriage return") << QStringLiteral("mast\rone");
}

void TestBadData::NamesWithControlCharacters_Clicked_AreRefused()
{
    QFETCH(const QString, name);
    const QString shown = QStringLiteral("mast one");
    ControlOnDatabase f;
    f.Database.RunSql(RenameSql(QStringLiteral("node"), QStringLiteral("North"), name));
    f.Database.RunSql(
        RenameSql(QStringLiteral("connection"), QStringLiteral("Gamma"), QStringLiteral("g ") + name));
    f.Start();
    QCOMPARE(f.Entries("tvwNodesTree").Count(), 4);
    f.ClickNode(shown);
    QCOMPARE(f.Operator.Texts().value(0),
             QStringLiteral("Node mast one cannot be accessed, because another application has changed it. "
                            "Automatic update follows, try again."));
    f.ShowConnections();
    f.ClickConnection(QStringLiteral("g ") + shown);
    QCOMPARE(
        f.Operator.Texts().value(1),
        QStringLiteral("Connection g mast one cannot be accessed, because another application has changed "
                       "it. Automatic update follows, try again."));
    QCOMPARE(f.Operator.Boxes.size(), std::size_t(2));

    f.ClickConnection(QStringLiteral("Beta"));
    QCOMPARE(f.HostTarget(), BetaReduced);
    f.Find<QRadioButton>("optNodes").setChecked(true);
    f.ClickNode(QStringLiteral("East"));
    QCOMPARE(f.HostTarget(), EastReduced);
    QCOMPARE(f.Operator.Boxes.size(), std::size_t(2));
}

void TestBadData::StrangeTargets_Clicked_AreGiven_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("shown");
    const auto same = [](const char* name, const QString& value) { QTest::newRow(name) << value << value; };
    same("quotes", QStringLiteral("\"O'Neill\""));
    same("emoji", QStringLiteral("\U0001F4E1"));
    same("equals signs", QStringLiteral("a=b=c"));
    same("10,000 characters", QString(10000, QLatin1Char('x')));
    QTest::newRow("tab") << QStringLiteral("1\t7") << QStringLiteral("1 7");
    QTest::newRow("line break") << QStringLiteral("1\n7") << QStringLiteral("1 7");
}

void TestBadData::StrangeTargets_Clicked_AreGiven()
{
    QFETCH(const QString, value);
    QFETCH(const QString, shown);
    ControlOnDatabase f;
    f.Database.RunSql(QStringLiteral("UPDATE node SET target = %1 WHERE name = 'North'")
                          .arg(Quoted(QStringLiteral("WP=NET4,ADDR=") + value)));
    f.Start();
    f.ClickNode(QStringLiteral("North"));
    QCOMPARE(f.HostTarget(), AlphaReduced + QStringLiteral(",WP=NET4,ADDR=") + shown);
    QCOMPARE(f.Operator.Texts(), QStringList());
}

QTEST_MAIN(TestBadData)
#include "TestBadData.moc"
