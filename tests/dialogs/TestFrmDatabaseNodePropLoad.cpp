#include "database/DatabaseState.h"
#include "dialogs/GridEdit.h"
#include "tests/dialogs/NodePropFixture.h"

#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QListWidget>
#include <QTest>

namespace {

const QString EmptyDatabase =
    QStringLiteral("Database is empty. In addition, before a node can be defined there must be at least one "
                   "connection in the database.");

} // namespace

/// What the node dialog shows when it opens.
class TestFrmDatabaseNodePropLoad : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Load_StoredNode_ShowsNameConnectionAndClass();
    void Load_StoredNode_ShowsItsPages();
    void Load_StoredNode_ShowsTheFirstWaypoint();
    void Load_StoredNode_AsksInOrder();
    void Load_LongClassName_IsAccepted();
    void Load_ClassNotOffered_JoinsTheList();
    void Load_ConnectionGone_ChoosesNone();
    void Load_NewNodeWithoutConnection_TakesTheFirst();
    void Load_NewNodeOnSnmpConnection_TakesItsClass();
    void Load_ClassUnknown_StaysEmpty();
    void Load_ManyWaypoints_TellsTheError();
    void Activate_Edits_OpensTheFirstValue();
    void Activate_Again_KeepsTheOpenEditor();
    void Activate_NoConnections_EndsTheDialog();
    void Activate_NoConnectionsInExec_EndsTheDialog();
    void Activate_ConnectionsUnreadable_EndsTheDialog();
    void Rights_NoEdit_NothingCanBeChanged();
    void Open_ManyConnections_IsQuick();
    void TypeConnection_ManyConnections_FindsIt();
};

void TestFrmDatabaseNodePropLoad::Load_StoredNode_ShowsNameConnectionAndClass()
{
    NodePropFixture f;
    f.ShowNode("North");

    QCOMPARE(f.Form->windowTitle(), "Node Properties");
    QCOMPARE(f.Name(), "North");
    QCOMPARE(f.Entries("cboConName"), (QStringList{"Alpha", "Beta", "Gamma"}));
    QCOMPARE(f.Chosen("cboConName"), "Alpha");
    QCOMPARE(f.Text("lblConnectionType"), "Connection Type: T4 Bus");
    QCOMPARE(f.Find<QLabel>("imgConArray").property("picture").toInt(), 0);
    QCOMPARE(f.Entries("cboNodeType"), (QStringList{"T4 Node", "MML Network Element"}));
    QCOMPARE(f.Chosen("cboNodeType"), "T4 Node");
    QVERIFY(f.Enabled("cmdManager"));
    QVERIFY(f.Enabled("cmdSave"));
    QVERIFY(f.Operator.Boxes.empty());
}

void TestFrmDatabaseNodePropLoad::Load_StoredNode_ShowsItsPages()
{
    NodePropFixture f;
    f.ShowNode("North");

    QCOMPARE(f.Pages(), (QStringList{"T4 Network", "Options", "FE Parameters"}));
    QCOMPARE(f.Find<QListWidget>("lstWPlist").currentRow(), 0);
    QCOMPARE(f.Con().SelectedWpIndx, 1);
    QCOMPARE(GridEdit().GridWpName, "NET4");
    QCOMPARE(GridEdit().GridWpData, &f.Con().GetWpData(1));
    QCOMPARE(GridEdit().GridLastRow, 6);
    QCOMPARE(GridEdit().GridValueCol, 1);
}

void TestFrmDatabaseNodePropLoad::Load_StoredNode_ShowsTheFirstWaypoint()
{
    NodePropFixture f;
    f.ShowNode("North");

    QCOMPARE(f.Text("lblParameterHeader"), "NET4-waypoint parameters:");
    QCOMPARE(f.Parameters().GridRows(), 10);
    QCOMPARE(f.Cell(0, 0), "Parameter");
    QCOMPARE(f.Cell(0, 1), "Value");
    QCOMPARE(f.Column(0),
             (QStringList{"ADDRESS", "SUBADDRESS", "PRIORITY", "CHECKSUM", "TIME OUT", "RETRY COUNT"}));
    QCOMPARE(f.Column(1), (QStringList{"17", "0", "NORMAL", "ON", "2000", "2"}));
    QVERIFY(f.Parameters().item(0, 0)->font().bold());
    QVERIFY(!f.Parameters().item(1, 0)->font().bold());
}

void TestFrmDatabaseNodePropLoad::Load_StoredNode_AsksInOrder()
{
    NodePropFixture f;
    f.EditNode("North");
    f.Make();

    QCOMPARE(f.Component.Calls.filter(QRegularExpression("^(?!.*Transaction)")),
             (QStringList{"GetNodeTypeLongName(NET4)", "GetWpLongName(NET4)", "GetWpLongName(OPT)",
                          "GetWpLongName(FE)", "QueryParentsWithID()", "GetParent(Alpha)",
                          "AnalyzeConType(" + SaveFixture::AlphaTarget + ")", "GetConTypeLongName(T4BUS)",
                          "GetNodeTypeList()", "GetNodeTypeLongName(NET4)", "GetNodeTypeLongName(NEMML)",
                          "GetNodeTypeLongName(SNMPNODE)"}));
}

void TestFrmDatabaseNodePropLoad::Load_LongClassName_IsAccepted()
{
    NodePropFixture f;
    f.EditNode("North");
    f.Con().NodeTypeName = QStringLiteral("T4 Node");
    f.Show();

    QCOMPARE(f.Chosen("cboNodeType"), "T4 Node");
    QCOMPARE(f.Cell(1), "17");
}

void TestFrmDatabaseNodePropLoad::Load_ClassNotOffered_JoinsTheList()
{
    NodePropFixture f;
    f.EditNode("North");
    f.Con().ConName = QStringLiteral("Gamma");
    f.Show();

    QCOMPARE(f.Entries("cboNodeType"), (QStringList{"SNMP Node", "T4 Node"}));
    QCOMPARE(f.Chosen("cboNodeType"), "T4 Node");
    QCOMPARE(f.Cell(1), "17");
    QVERIFY(!f.Enabled("cmdManager"));
}

void TestFrmDatabaseNodePropLoad::Load_ConnectionGone_ChoosesNone()
{
    NodePropFixture f;
    f.EditNode("North");
    f.RemoveElsewhere("Alpha");
    f.Show();

    QCOMPARE(f.Entries("cboConName"), (QStringList{"Beta", "Gamma"}));
    QCOMPARE(f.Chosen("cboConName"), QString());
    QCOMPARE(f.Text("lblConnectionType"), "Connection Type: Unknown");
    QCOMPARE(f.Find<QLabel>("imgConArray").property("picture").toInt(), 14);
    QCOMPARE(f.Chosen("cboNodeType"), "T4 Node");
}

void TestFrmDatabaseNodePropLoad::Load_NewNodeWithoutConnection_TakesTheFirst()
{
    NodePropFixture f;
    f.AddNode("North");
    f.Con().ConName.clear();
    f.Show();

    QCOMPARE(f.Name(), "New Node");
    QCOMPARE(f.Chosen("cboConName"), "Alpha");
    QCOMPARE(f.Text("lblConnectionType"), "Connection Type: T4 Bus");
}

void TestFrmDatabaseNodePropLoad::Load_NewNodeOnSnmpConnection_TakesItsClass()
{
    NodePropFixture f;
    f.AddNode("North");
    f.Con().ConName = QStringLiteral("Gamma");
    f.Show();

    QCOMPARE(f.Entries("cboNodeType"), QStringList{"SNMP Node"});
    QCOMPARE(f.Con().NodeTypeName, "SNMP Node");
    QCOMPARE(f.Pages(), QStringList{"SNMP Node Parameters"});
    QCOMPARE(f.Text("lblParameterHeader"), "SNMPNODE-waypoint parameters:");
    QCOMPARE(f.Column(1), (QStringList{"", "161", "public"}));
}

void TestFrmDatabaseNodePropLoad::Load_ClassUnknown_StaysEmpty()
{
    NodePropFixture f;
    f.EditNode("North");
    f.Component.Fail("GetNodeTypeLongName(NET4)");
    f.Show();

    QCOMPARE(f.Pages(), QStringList());
    QCOMPARE(f.Entries("cboConName"), QStringList());
    QVERIFY(!f.Enabled("cmdSave"));
    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Error(EmptyDatabase)});
    QVERIFY(!f.Form->isVisible());
}

void TestFrmDatabaseNodePropLoad::Load_ManyWaypoints_TellsTheError()
{
    NodePropFixture f;
    f.EditNode("North");
    f.Con().NodeWpCount = 11;
    f.Make();

    QCOMPARE(f.Operator.Boxes.size(), size_t{1});
    QCOMPARE(f.Operator.Boxes[0].title, ErrorBoxTitle());
    QVERIFY2(f.Operator.Boxes[0].text.contains("11"), qPrintable(f.Operator.Boxes[0].text));
    QVERIFY(!f.Enabled("cmdSave"));
}

void TestFrmDatabaseNodePropLoad::Activate_Edits_OpensTheFirstValue()
{
    NodePropFixture f;
    f.ShowNode("North");

    QCOMPARE(f.Parameters().Row(), 1);
    QCOMPARE(f.Parameters().Col(), 1);
    QVERIFY(f.Editor());
    QCOMPARE(f.Find<QLineEdit>("txtGridEdit").text(), "17");
    QCOMPARE(f.Find<QLineEdit>("txtGridEdit").selectedText(), "17");
    QVERIFY(f.Find<QWidget>("spnGridEdit").isVisible());
}

void TestFrmDatabaseNodePropLoad::Activate_Again_KeepsTheOpenEditor()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.TypeValue(3, "HIGH");
    QEvent activation(QEvent::WindowActivate);
    QCoreApplication::sendEvent(f.Form.get(), &activation);
    QCoreApplication::processEvents();

    QCOMPARE(f.Editor(), &f.Find<QWidget>("cboGridEdit"));
    QCOMPARE(f.Chosen("cboGridEdit"), "HIGH");
    QCOMPARE(f.Parameters().Row(), 3);
}

void TestFrmDatabaseNodePropLoad::Activate_NoConnections_EndsTheDialog()
{
    NodePropFixture f;
    f.EditNode("North");
    f.Component.Store.Now.connections.clear();
    f.Show();

    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Error(EmptyDatabase)});
    QVERIFY(!f.Form->isVisible());
    QCOMPARE(f.Form->result(), int(QDialog::Rejected));
}

void TestFrmDatabaseNodePropLoad::Activate_NoConnectionsInExec_EndsTheDialog()
{
    NodePropFixture f;
    f.EditNode("North");
    f.Component.Store.Now.connections.clear();
    f.Make();

    QCOMPARE(f.Form->exec(), int(QDialog::Rejected));
    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Error(EmptyDatabase)});
}

void TestFrmDatabaseNodePropLoad::Activate_ConnectionsUnreadable_EndsTheDialog()
{
    NodePropFixture f;
    f.EditNode("North");
    f.Component.Fail("QueryParentsWithID");
    f.Show();

    QCOMPARE(f.Operator.Boxes.size(), size_t{2});
    QCOMPARE(f.Operator.Boxes.back(), RecordedBox::Error(EmptyDatabase));
    QVERIFY(!f.Form->isVisible());
}

void TestFrmDatabaseNodePropLoad::Rights_NoEdit_NothingCanBeChanged()
{
    NodePropFixture f;
    Database().EditRight = false;
    f.ShowNode("North");

    QVERIFY(!f.Enabled("cmdSave"));
    QVERIFY(!f.Editor());
    f.OpenEditor(1);
    QVERIFY(!f.Editor());
    QTest::keyClick(&f.Parameters(), Qt::Key_5);
    QVERIFY(!f.Editor());
    f.ClickPage(1);
    f.OpenEditor(2);
    QVERIFY(!f.Editor());
    QCOMPARE(f.Column(1), (QStringList{"T4DT", "TEXT", "YES"}));
}

void TestFrmDatabaseNodePropLoad::Open_ManyConnections_IsQuick()
{
    NodePropFixture f;
    for (int number = 0; number < 20'000; ++number)
        f.Component.Store.AddConnection(QStringLiteral("Line %1").arg(number), SaveFixture::AlphaTarget);
    f.EditNode("North");
    f.Con().ConName = QStringLiteral("Line 19999");
    qint64 best = std::numeric_limits<qint64>::max();
    for (int attempt = 0; attempt < 5; ++attempt) {
        f.Form.reset();
        QElapsedTimer clock;
        clock.start();
        f.Show();
        best = std::min(best, clock.elapsed());
    }

    QCOMPARE(f.Find<QComboBox>("cboConName").count(), 20'003);
    QCOMPARE(f.Chosen("cboConName"), "Line 19999");
    QVERIFY2(best < 100, qPrintable(QStringLiteral("%1 ms").arg(best)));
}

void TestFrmDatabaseNodePropLoad::TypeConnection_ManyConnections_FindsIt()
{
    NodePropFixture f;
    for (int number = 0; number < 20'000; ++number)
        f.Component.Store.AddConnection(QStringLiteral("Line%1").arg(number), SaveFixture::BetaTarget);
    f.ShowNode("North");
    f.Choose("cboConName", "Line12345");

    QCOMPARE(f.Text("lblConnectionType"), "Connection Type: T4 Bus over TCP/IP");
    QVERIFY(!f.Find<QComboBox>("cboConName").isEditable());
}

QTEST_MAIN(TestFrmDatabaseNodePropLoad)
#include "TestFrmDatabaseNodePropLoad.moc"
