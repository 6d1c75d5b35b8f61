#include "database/DatabaseState.h"
#include "dialogs/GridEdit.h"
#include "model/ModelState.h"
#include "tests/dialogs/SaveDirectNodeFixture.h"

#include <QListWidget>
#include <QTest>

/// What the dialog that saves a node of the Direct tab shows when it opens.
class TestFrmSaveDirectNodeLoad : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Load_FoundNode_ShowsItsConnectionAndClass();
    void Load_FoundNode_ShowsTheClassesWaypoints();
    void Load_FoundNode_TakesAddressTimeAndRetry();
    void Load_FoundNode_AsksInOrder();
    void Load_NoAddressTimeAndRetry_ShowsDefaults();
    void Load_LongClassName_IsAccepted();
    void Load_Name_IsOfferedSelected();
    void Load_NewConnection_IsShown();
    void Load_ConnectionTypeUnknown_StaysEmpty();
    void Load_LongTexts_AreShownFromTheirStart();
    void Load_Class_IsUnknown_data();
    void Load_Class_IsUnknown();
    void Manager_FollowsTheFamily_data();
    void Manager_FollowsTheFamily();
    void Manager_FollowsTheNewConnection();
    void Activate_Edits_OpensTheFirstValue();
    void Activate_NoConnections_StaysOpen();
    void Rights_NoEdit_NothingCanBeChanged();
};

void TestFrmSaveDirectNodeLoad::Load_FoundNode_ShowsItsConnectionAndClass()
{
    SaveDirectNodeFixture f;
    f.ShowOn("Beta");

    QCOMPARE(f.Form->windowTitle(), "Save Node");
    QCOMPARE(f.Shown("txtConName"), "Beta");
    QCOMPARE(f.Shown("txtConType"), "T4 Bus over TCP/IP");
    QCOMPARE(f.Shown("txtNodeType"), "T4 Node");
    for (const char* box : {"txtConName", "txtConType", "txtNodeType"})
        QVERIFY2(f.Find<QLineEdit>(box).isReadOnly(), box);
    QCOMPARE(f.Name(), QString());
    QVERIFY(f.Enabled("cmdSave"));
    QVERIFY(f.Enabled("cmdManager"));
    QVERIFY(f.Operator.Boxes.empty());
}

void TestFrmSaveDirectNodeLoad::Load_FoundNode_ShowsTheClassesWaypoints()
{
    SaveDirectNodeFixture f;
    f.ShowOn("Beta");

    QCOMPARE(f.Pages(), (QStringList{"T4 Network", "Options", "FE Parameters"}));
    QCOMPARE(f.Find<QListWidget>("lstWPlist").currentRow(), 0);
    QCOMPARE(f.Direct().NodeWpCount, 3);
    QCOMPARE(f.Direct().SelectedWpIndx, 1);
    QCOMPARE(f.Text("lblParameterHeader"), "NET4-waypoint parameters:");
    QCOMPARE(f.Parameters().GridRows(), 10);
    QCOMPARE(GridEdit().GridWpName, "NET4");
    QCOMPARE(GridEdit().GridWpData, &f.Direct().GetWpData(1));
    QCOMPARE(GridEdit().GridLastRow, 6);
    QCOMPARE(GridEdit().GridValueCol, 1);
}

void TestFrmSaveDirectNodeLoad::Load_FoundNode_TakesAddressTimeAndRetry()
{
    SaveDirectNodeFixture f;
    f.ShowOn("Beta");

    QCOMPARE(f.Column(0),
             (QStringList{"ADDRESS", "SUBADDRESS", "PRIORITY", "CHECKSUM", "TIME OUT", "RETRY COUNT"}));
    QCOMPARE(f.Column(1), (QStringList{"99", "0", "NORMAL", "ON", "3000", "5"}));
}

void TestFrmSaveDirectNodeLoad::Load_FoundNode_AsksInOrder()
{
    SaveDirectNodeFixture f;
    DirectNodes::Choose(f, "Alpha");
    f.Make();

    QStringList calls = f.Component.Calls.filter(QRegularExpression("^(?!.*Transaction)"));
    QCOMPARE(calls.mid(0, 4), (QStringList{"GetConTypeLongName(T4BUS)", "GetNodeTypeLongName(NET4)",
                                           "GetNodeTypeShortName(T4 Node)", "GetNodeTypeId(NET4)"}));
    QCOMPARE(calls.mid(calls.size() - 3),
             (QStringList{"GetWpLongName(NET4)", "GetWpLongName(OPT)", "GetWpLongName(FE)"}));
    QCOMPARE(f.Component.Count("GetParent"), 0);
}

void TestFrmSaveDirectNodeLoad::Load_NoAddressTimeAndRetry_ShowsDefaults()
{
    SaveDirectNodeFixture f;
    DirectNodes::Choose(f, "Alpha");
    for (QString* value : {&f.Direct().NodeAddress, &f.Direct().Time, &f.Direct().Retry})
        value->clear();
    f.Show();

    QCOMPARE(f.Column(1), (QStringList{"", "0", "NORMAL", "ON", "2000", "2"}));
}

void TestFrmSaveDirectNodeLoad::Load_LongClassName_IsAccepted()
{
    SaveDirectNodeFixture f;
    DirectNodes::Choose(f, "Alpha");
    f.Direct().NodeTypeName = "T4 Node";
    f.Show();

    QCOMPARE(f.Shown("txtNodeType"), "T4 Node");
    QCOMPARE(f.Cell(1), "99");
}

void TestFrmSaveDirectNodeLoad::Load_Name_IsOfferedSelected()
{
    SaveDirectNodeFixture f;
    DirectNodes::Choose(f, "Alpha");
    f.Direct().NodeName = "NMX-12";
    f.Show();

    QCOMPARE(f.Name(), "NMX-12");
    QCOMPARE(f.Find<QLineEdit>("txtNodeName").selectedText(), "NMX-12");
}

void TestFrmSaveDirectNodeLoad::Load_NewConnection_IsShown()
{
    SaveDirectNodeFixture f;
    DirectNodes::Compose(f, "Delta");
    f.Direct().ConName = "Alpha";
    f.Direct().ConTypeName = "T4TCP";
    f.Show();

    QCOMPARE(f.Shown("txtConName"), "Delta");
    QCOMPARE(f.Shown("txtConType"), "T4 Bus");
}

void TestFrmSaveDirectNodeLoad::Load_ConnectionTypeUnknown_StaysEmpty()
{
    SaveDirectNodeFixture f;
    f.Component.Fail("GetConTypeLongName");
    f.ShowOn("Alpha");

    QCOMPARE(f.Shown("txtConName"), "Alpha");
    QCOMPARE(f.Shown("txtConType"), QString());
    QVERIFY(f.Enabled("cmdSave"));
}

void TestFrmSaveDirectNodeLoad::Load_LongTexts_AreShownFromTheirStart()
{
    SaveDirectNodeFixture f;
    DirectNodes::Choose(f, "Alpha");
    f.Direct().ConName = QString(300, 'A');
    f.Show();

    QCOMPARE(f.Find<QLineEdit>("txtConName").cursorPosition(), 0);
    QCOMPARE(f.Shown("txtConName").size(), 300);
}

void TestFrmSaveDirectNodeLoad::Load_Class_IsUnknown_data()
{
    QTest::addColumn<QString>("call");
    QTest::newRow("long name") << "GetNodeTypeLongName";
    QTest::newRow("short name") << "GetNodeTypeShortName";
    QTest::newRow("id") << "GetNodeTypeId";
    QTest::newRow("waypoints") << "GetNodeTypeWpList";
    QTest::newRow("parameters") << "GetWpParameters";
}

void TestFrmSaveDirectNodeLoad::Load_Class_IsUnknown()
{
    QFETCH(QString, call);
    SaveDirectNodeFixture f;
    DirectNodes::Choose(f, "Alpha");
    f.Component.Fail(call);
    f.Show();

    QCOMPARE(f.Operator.Texts().value(f.Operator.Texts().size() - 1), "Unknown node type:NET4");
    QCOMPARE(f.Pages(), QStringList());
    QCOMPARE(f.Column(1), QStringList());
    QCOMPARE(f.Text("lblParameterHeader"), "Parameters:");
    QVERIFY(!f.Enabled("cmdSave"));
    QVERIFY(!f.Editor());
    QVERIFY(f.Form->isVisible());
}

void TestFrmSaveDirectNodeLoad::Manager_FollowsTheFamily_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("enabled");
    QTest::newRow("bus") << 0 << "T4BUS" << true;
    QTest::newRow("by its name") << 14 << "SNMP" << false;
    QTest::newRow("by its id") << 15 << "PROXY" << false;
    QTest::newRow("unknown") << -1 << "Unknown" << true;
}

void TestFrmSaveDirectNodeLoad::Manager_FollowsTheFamily()
{
    QFETCH(int, type);
    QFETCH(QString, name);
    QFETCH(bool, enabled);
    SaveDirectNodeFixture f;
    DirectNodes::Choose(f, "Alpha");
    f.Direct().ConTypeID = type;
    f.Direct().ConTypeName = name;
    f.Show();

    QCOMPARE(f.Enabled("cmdManager"), enabled);
}

void TestFrmSaveDirectNodeLoad::Manager_FollowsTheNewConnection()
{
    SaveDirectNodeFixture f;
    DirectNodes::Compose(f, "Delta");
    f.NewDirect().ConTypeID = 14;
    f.NewDirect().ConTypeName = "SNMP";
    f.Show();

    QVERIFY(!f.Enabled("cmdManager"));
}

void TestFrmSaveDirectNodeLoad::Activate_Edits_OpensTheFirstValue()
{
    SaveDirectNodeFixture f;
    f.ShowOn("Alpha");

    QCOMPARE(f.Parameters().Row(), 1);
    QCOMPARE(f.Find<QLineEdit>("txtGridEdit").selectedText(), "99");
    QVERIFY(f.Editor());
}

void TestFrmSaveDirectNodeLoad::Activate_NoConnections_StaysOpen()
{
    SaveDirectNodeFixture f;
    DirectNodes::Compose(f, "Delta");
    f.Component.Store.Now.connections.clear();
    f.Show();

    QVERIFY(f.Form->isVisible());
    QVERIFY(f.Operator.Boxes.empty());
}

void TestFrmSaveDirectNodeLoad::Rights_NoEdit_NothingCanBeChanged()
{
    SaveDirectNodeFixture f;
    Database().EditRight = false;
    f.ShowOn("Alpha");

    QVERIFY(!f.Enabled("cmdSave"));
    QVERIFY(!f.Editor());
    f.OpenEditor(1);
    QVERIFY(!f.Editor());
}

QTEST_MAIN(TestFrmSaveDirectNodeLoad)
#include "TestFrmSaveDirectNodeLoad.moc"
