#include "tests/browser/CommandFixture.h"

namespace {

/// Programs started, each with its arguments.
struct Launches
{
    QStringList Started;
    bool Works = true;

    Launches()
    {
        Machine().StartProgram = [this](const QString& program, const QStringList& arguments) {
            Started << program + QLatin1Char(' ') + arguments.join(QLatin1Char(' '));
            return Works;
        };
    }
};

} // namespace

class TestCommandManage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Manage_ManagedNode_StartsItsManager_data();
    void Manage_ManagedNode_StartsItsManager();
    void Manage_NoNodeSelected_IsToldWithoutTheDatabase_data();
    void Manage_NoNodeSelected_IsToldWithoutTheDatabase();
    void Manage_CannotStart_IsTold_data();
    void Manage_CannotStart_IsTold();
    void Manage_ProgramDoesNotStart_IsToldWithItsCommandLine();
    void Manage_WithoutEditRight_StillWorks();
};

void TestCommandManage::Manage_ManagedNode_StartsItsManager_data()
{
    QTest::addColumn<QString>("view");
    QTest::newRow("node view") << QStringLiteral("nodes");
    QTest::newRow("connection view") << QStringLiteral("connections");
}
void TestCommandManage::Manage_ManagedNode_StartsItsManager()
{
    QFETCH(const QString, view);
    CommandFixture f;
    const Launches launches;
    f.Control->SetManageVisible(true);
    f.Select(view, QStringLiteral("node/North"));
    QVERIFY(f.Enabled("cmdDatabaseManage"));
    QTest::mouseClick(&f.Find<QPushButton>("cmdDatabaseManage"), Qt::LeftButton);
    QCOMPARE(launches.Started, QStringList{QStringLiteral("/opt/dev1 -sobriquet North -device cdfq01")});
    QCOMPARE(f.Operator.Texts(), QStringList());
    QVERIFY(f.IsAtRest());
}

void TestCommandManage::Manage_NoNodeSelected_IsToldWithoutTheDatabase_data()
{
    QTest::addColumn<QString>("view");
    QTest::addColumn<QString>("selected");
    QTest::addColumn<QString>("told");
    const QString nothing = QStringLiteral("Nothing is selected, select a node from the tree.");
    const QString onlyNodes =
        QStringLiteral("Only nodes can be used to launch a manager, select a node from the tree.");
    QTest::newRow("none") << QStringLiteral("nodes") << QStringLiteral("none") << nothing;
    QTest::newRow("none below") << QStringLiteral("connections") << QStringLiteral("none") << nothing;
    QTest::newRow("root") << QStringLiteral("nodes") << QStringLiteral("root") << onlyNodes;
    QTest::newRow("connection") << QStringLiteral("connections") << QStringLiteral("con/Alpha") << onlyNodes;
    QTest::newRow("waypoint") << QStringLiteral("waypoints") << QStringLiteral("wp/Alpha") << onlyNodes;
}
void TestCommandManage::Manage_NoNodeSelected_IsToldWithoutTheDatabase()
{
    QFETCH(const QString, view);
    QFETCH(const QString, selected);
    QFETCH(const QString, told);
    CommandFixture f;
    const Launches launches;
    f.Control->SetManageVisible(true);
    f.Select(view, selected);
    bool timerOn = true;
    f.Operator.WhileOpen = [&](const RecordedBox&) { timerOn = f.TimerOn(); };
    f.Press("cmdDatabaseManage");
    QCOMPARE(f.Operator.Boxes, std::vector<RecordedBox>{RecordedBox::Plain(told)});
    QVERIFY(!timerOn);
    QCOMPARE(f.Component.Calls, QStringList());
    QCOMPARE(launches.Started, QStringList());
    QVERIFY(f.IsAtRest());
}

void TestCommandManage::Manage_CannotStart_IsTold_data()
{
    QTest::addColumn<QString>("node");
    QTest::addColumn<QString>("failing");
    QTest::addColumn<QString>("told");
    QTest::newRow("denied") << QStringLiteral("North") << QStringLiteral("BeginTransaction")
                            << QStringLiteral(
                                   "Database access is denied, because another application is using it.");
    QTest::newRow("no device") << QStringLiteral("South") << QString()
                               << QStringLiteral("Missing Device Name, manager cannot be launched.");
    QTest::newRow("no manager") << QStringLiteral("North") << QStringLiteral("GetNMAInfo")
                                << QStringLiteral("Device Name DEV1 not found, manager cannot be launched.");
}
void TestCommandManage::Manage_CannotStart_IsTold()
{
    QFETCH(const QString, node);
    QFETCH(const QString, failing);
    QFETCH(const QString, told);
    CommandFixture f;
    const Launches launches;
    f.Control->SetManageVisible(true);
    f.Select(QStringLiteral("nodes"), QStringLiteral("node/") + node);
    if (!failing.isEmpty())
        f.Component.Fail(failing);
    bool held = false;
    f.Operator.WhileOpen = [&](const RecordedBox&) { held = f.Component.Store.Levels() > 0; };
    f.Press("cmdDatabaseManage");
    QCOMPARE(f.Operator.Texts().last(), told);
    QVERIFY(!held);
    QCOMPARE(launches.Started, QStringList());
    QVERIFY(f.IsAtRest());
}

void TestCommandManage::Manage_ProgramDoesNotStart_IsToldWithItsCommandLine()
{
    CommandFixture f;
    Launches launches;
    launches.Works = false;
    f.Control->SetManageVisible(true);
    f.Select(QStringLiteral("nodes"), QStringLiteral("node/North"));
    f.Press("cmdDatabaseManage");
    QCOMPARE(f.Operator.Boxes, std::vector<RecordedBox>{RecordedBox::Plain(QStringLiteral(
                                   "Manager Launch Error with Command Line:/opt/dev1 -sobriquet \"North\" "
                                   "-device \"cdfq01\""))});
    QVERIFY(f.IsAtRest());
}

void TestCommandManage::Manage_WithoutEditRight_StillWorks()
{
    CommandFixture f(false);
    const Launches launches;
    f.Control->SetManageVisible(true);
    f.Select(QStringLiteral("nodes"), QStringLiteral("node/North"));
    f.Find<QPushButton>("cmdDatabaseManage").click();
    QCOMPARE(launches.Started.size(), 1);
}

QTEST_MAIN(TestCommandManage)
#include "TestCommandManage.moc"
