#include "tests/browser/ControlOnDatabase.h"

#include <QProcess>

namespace {

/// Entries below one that an operator sees, with their ids, in the order in which they stand.
QStringList Children(const TreeEntries& tree, TreeEntries::Index parent)
{
    QStringList lines;
    for (int k = 0; k < tree.ChildCount(parent); ++k) {
        const TreeEntries::Index child = tree.Child(parent, k);
        lines << QStringLiteral("%1 %2").arg(tree.Text(child)).arg(tree.Id(child));
        if (tree.Expanded(child))
            lines << Children(tree, child)
                         .replaceInStrings(QRegularExpression(QStringLiteral("^")), QStringLiteral("  "));
    }
    return lines;
}

} // namespace

/// What the database's own shell, psql or sqlite3, writes into the tables is seen by the next refresh.
class TestOtherPrograms : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Refresh_ShellChangedTables_TreesShowIt_data();
    void Refresh_ShellChangedTables_TreesShowIt();
    void Refresh_ShellRolledBack_TreesStay();
    void ViewNodes_ShellChangesMeanwhile_NoNodeIsMissing_data();
    void ViewNodes_ShellChangesMeanwhile_NoNodeIsMissing();
    void Select_ShellChangedRecord_OperatorIsToldAndSeesIt();

private:
    /// Feeds the shell of the engine that the run is for.
    static void RunShell(const DatabaseFixture& database, const QString& script);
    /// A control that shows its connections with their nodes, Alpha and Beta open.
    static void Open(ControlOnDatabase& fixture);
    static void Refresh(ControlOnDatabase& fixture);
    static QStringList Shown(const ControlOnDatabase& fixture);
    /// The same from the tables.
    static QStringList Stored(const DatabaseFixture& database, const QStringList& opened);
};

void TestOtherPrograms::RunShell(const DatabaseFixture& database, const QString& script)
{
    QProcess shell;
    shell.setProcessChannelMode(QProcess::MergedChannels);
    if (DatabaseFixture::OnServer()) {
        shell.start(QStringLiteral("psql"), {QStringLiteral("-X"), QStringLiteral("-q"), QStringLiteral("-v"),
                                             QStringLiteral("ON_ERROR_STOP=1"), database.Source()});
    } else {
        shell.start(QStringLiteral("sqlite3"), {QStringLiteral("-bail"), database.Source()});
    }
    shell.write(script.toUtf8());
    shell.closeWriteChannel();
    QVERIFY2(shell.waitForFinished(), qPrintable(shell.errorString()));
    QCOMPARE(QString::fromUtf8(shell.readAll()), QString());
    QCOMPARE(shell.exitCode(), 0);
}

void TestOtherPrograms::Open(ControlOnDatabase& fixture)
{
    fixture.Start();
    fixture.ShowConnections();
    fixture.Find<QCheckBox>("chkViewNodes").setChecked(true);
    auto& view = fixture.Find<TreeView>("tvwConTree");
    for (const QString& name : {QStringLiteral("Alpha"), QStringLiteral("Beta")}) {
        const TreeEntries& tree = fixture.Entries("tvwConTree");
        const QModelIndex index = tree.ModelIndex(tree.FindByText(name, false));
        fixture.ClickConnection(name);
        QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(index).center());
    }
    QCOMPARE(Shown(fixture), Stored(fixture.Database, {QStringLiteral("Alpha"), QStringLiteral("Beta")}));
}

void TestOtherPrograms::Refresh(ControlOnDatabase& fixture)
{
    QTest::mouseClick(&fixture.Find<QPushButton>("cmdRefresh"), Qt::LeftButton);
    QCOMPARE(fixture.Operator.Texts(), QStringList());
}

QStringList TestOtherPrograms::Shown(const ControlOnDatabase& fixture)
{
    return Children(fixture.Entries("tvwConTree"), 1) + QStringList(QStringLiteral("--")) +
           Children(fixture.Entries("tvwNodesTree"), 1);
}

QStringList TestOtherPrograms::Stored(const DatabaseFixture& database, const QStringList& opened)
{
    QStringList lines;
    const QString columns = QStringLiteral("SELECT name || ' ' || id FROM ");
    const QStringList connections = database.Rows(columns + QStringLiteral("connection ORDER BY name_key"));
    for (const QString& connection : connections) {
        lines << connection;
        const QString name = connection.section(u' ', 0, -2);
        if (!opened.contains(name))
            continue;
        const QStringList nodes = database.Rows(
            columns + QStringLiteral("node WHERE connection_key = (SELECT row_key FROM connection"
                                     " WHERE name = '%1') ORDER BY name_key")
                          .arg(name));
        for (const QString& node : nodes)
            lines << QStringLiteral("  ") + node;
    }
    return lines + QStringList(QStringLiteral("--")) +
           database.Rows(columns + QStringLiteral("node ORDER BY name_key"));
}

void TestOtherPrograms::Refresh_ShellChangedTables_TreesShowIt_data()
{
    QTest::addColumn<QString>("script");
    /// Connections that are open afterwards.
    QTest::addColumn<QStringList>("opened");
    const QString alpha = QStringLiteral("Alpha");
    const QString beta = QStringLiteral("Beta");
    const QString onAlpha = QStringLiteral("(SELECT row_key FROM connection WHERE name = 'Alpha')");

    QTest::newRow("new connection") << "INSERT INTO connection (name, target)"
                                       " VALUES ('Delta', 'WP=BUST4,ID=3');"
                                    << QStringList{alpha, beta};
    QTest::newRow("retargeted connection")
        << "UPDATE connection SET target = 'WP=BUST4,ID=4' WHERE name = 'Alpha';" << QStringList{beta};
    QTest::newRow("renamed connection")
        << "UPDATE connection SET name = 'Zeta' WHERE name = 'Alpha';" << QStringList{beta};
    QTest::newRow("deleted connection with nodes")
        << "DELETE FROM connection WHERE name = 'Alpha';" << QStringList{beta};
    QTest::newRow("new node") << QStringLiteral("INSERT INTO node (name, target, connection_key)"
                                                " VALUES ('West', 'WP=NET4,ADDR=7', %1);")
                                     .arg(onAlpha)
                              << QStringList{alpha, beta};
    QTest::newRow("changed node") << "UPDATE node SET target = 'WP=NET4,ADDR=8' WHERE name = 'North';"
                                  << QStringList{alpha, beta};
    QTest::newRow("renamed node") << "UPDATE node SET name = 'Far North' WHERE name = 'North';"
                                  << QStringList{alpha, beta};
    QTest::newRow("moved node")
        << QStringLiteral("UPDATE node SET connection_key = %1 WHERE name = 'East';").arg(onAlpha)
        << QStringList{alpha, beta};
    QTest::newRow("deleted node") << "DELETE FROM node WHERE name = 'East';" << QStringList{alpha, beta};
    QTest::newRow("many at once") << QStringLiteral(
                                         "BEGIN;"
                                         "DELETE FROM node WHERE name = 'North';"
                                         "UPDATE connection SET name = 'North' WHERE name = 'Gamma';"
                                         "INSERT INTO node (name, target, connection_key)"
                                         " SELECT 'Gamma', 'WP=NET4,ADDR=9', row_key"
                                         " FROM connection WHERE name = 'North';"
                                         "UPDATE node SET target = 'WP=NET4,ADDR=1';"
                                         "COMMIT;")
                                  << QStringList{alpha, beta};
}

void TestOtherPrograms::Refresh_ShellChangedTables_TreesShowIt()
{
    QFETCH(QString, script);
    QFETCH(QStringList, opened);
    ControlOnDatabase fixture;
    Open(fixture);

    RunShell(fixture.Database, script);
    Refresh(fixture);

    QCOMPARE(Shown(fixture), Stored(fixture.Database, opened));
    QCOMPARE(HvxAdministration::Open(fixture.Database.Source())->Check(), QStringList());
}

void TestOtherPrograms::Refresh_ShellRolledBack_TreesStay()
{
    ControlOnDatabase fixture;
    Open(fixture);
    const QStringList before = Shown(fixture);

    RunShell(fixture.Database, QStringLiteral("BEGIN; DELETE FROM node; DELETE FROM connection; ROLLBACK;"));
    Refresh(fixture);

    QCOMPARE(Shown(fixture), before);
}

void TestOtherPrograms::ViewNodes_ShellChangesMeanwhile_NoNodeIsMissing_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("meanwhile");
    /// While waypoints are shown already, and told by a refresh; else before, and not told.
    QTest::addColumn<bool>("seen");
    QTest::newRow("first node of an empty connection")
        << "DELETE FROM node WHERE name = 'East';"
        << "INSERT INTO node (name, target, connection_key) SELECT 'West', 'WP=NET4,ADDR=7', row_key"
           " FROM connection WHERE name = 'Beta';"
        << true;
    QTest::newRow("connection that has gone") << "DELETE FROM connection WHERE name = 'Gamma';"
                                              << "DELETE FROM connection WHERE name = 'Alpha';" << false;
}

void TestOtherPrograms::ViewNodes_ShellChangesMeanwhile_NoNodeIsMissing()
{
    QFETCH(QString, before);
    QFETCH(QString, meanwhile);
    QFETCH(bool, seen);
    ControlOnDatabase fixture;
    Open(fixture);
    auto& viewNodes = fixture.Find<QCheckBox>("chkViewNodes");

    RunShell(fixture.Database, before);
    Refresh(fixture);
    viewNodes.setChecked(!seen);
    RunShell(fixture.Database, meanwhile);
    if (seen)
        Refresh(fixture);
    viewNodes.setChecked(false);
    viewNodes.setChecked(true);
    // What has gone could not be read, which was told.
    fixture.Operator.Boxes.clear();
    Refresh(fixture);

    const TreeEntries& tree = fixture.Entries("tvwConTree");
    QStringList opened;
    for (int k = 0; k < tree.ChildCount(1); ++k) {
        if (tree.Expanded(tree.Child(1, k)))
            opened << tree.Text(tree.Child(1, k));
    }
    QCOMPARE(Shown(fixture), Stored(fixture.Database, opened));
}

void TestOtherPrograms::Select_ShellChangedRecord_OperatorIsToldAndSeesIt()
{
    ControlOnDatabase fixture;
    Open(fixture);

    RunShell(fixture.Database,
             QStringLiteral("UPDATE node SET target = 'WP=NET4,ADDR=8' WHERE name = 'North';"
                            "DELETE FROM node WHERE name = 'East';"));
    fixture.Click("tvwConTree", QStringLiteral("North"), true);

    QCOMPARE(fixture.Operator.Texts(),
             QStringList(QStringLiteral("Node North cannot be accessed, because another application has "
                                        "changed it. Automatic update follows, try again.")));
    QCOMPARE(Shown(fixture), Stored(fixture.Database, {QStringLiteral("Alpha"), QStringLiteral("Beta")}));
}

QTEST_MAIN(TestOtherPrograms)
#include "TestOtherPrograms.moc"
