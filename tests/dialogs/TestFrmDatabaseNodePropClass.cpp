#include "dialogs/GridEdit.h"
#include "model/ModelState.h"
#include "tests/dialogs/NodePropFixture.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>

/// What another connection, class or page does in the node dialog.
class TestFrmDatabaseNodePropClass : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Connection_BeforeActivation_ChangesNothing();
    void Connection_OfTheSameFamily_KeepsClassAndValues();
    void Connection_Snmp_LeavesSnmpClassesOnly();
    void Connection_SnmpWithSeveralClasses_TakesTheFirst();
    void Connection_Type15_IsOfTheSnmpFamily();
    void Connection_BackFromSnmp_BringsClassAndValuesBack();
    void Connection_SteppedPastSnmp_KeepsFocusAndWhatWasTyped();
    void Connection_BackToSnmp_BringsItsClassAndValuesBack();
    void Connection_BackButClassIsGone_TakesTheFirst();
    void Connection_TypeUnknown_ShowsThePictureOfNone();
    void Connection_ClassesUnreadable_KeepsTheClass();
    void Class_Changed_ShowsItsPages();
    void Class_Changed_DiscardsTheOldValues();
    void Class_ChangedWithAnOpenEditor_LosesTheEdit();
    void Class_ChangedToPassword_HidesIt();
    void Class_Unknown_EmptiesThePages();
    void Class_UnknownThenChosenAgain_Loads();
    void Class_TooManyWaypoints_TellsTheError();
    void Page_Clicked_ShowsItsParameters();
    void Page_Clicked_StoresTheOneLeft();
    void Page_OfTenParameters_LeavesNoRowBehind();
    void Page_ClickedWithAnOpenEditor_StoresTheEdit();
    void Page_OutOfRange_KeepsTheOldValue();
    void Page_Shared_ReachesTheOtherPages();
    void FePage_WithoutId_IsNotStored();
    void FePage_WithId_IsStored();
};

void TestFrmDatabaseNodePropClass::Connection_BeforeActivation_ChangesNothing()
{
    NodePropFixture f;
    f.EditNode("North");
    f.Make();
    f.Forget();
    f.Find<QComboBox>("cboConName").setCurrentIndex(2);

    QCOMPARE(f.Component.Calls, QStringList());
    QCOMPARE(f.Text("lblConnectionType"), "Connection Type: T4 Bus");
}

void TestFrmDatabaseNodePropClass::Connection_OfTheSameFamily_KeepsClassAndValues()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.Forget();
    f.Choose("cboConName", "Beta");

    QCOMPARE(f.Text("lblConnectionType"), "Connection Type: T4 Bus over TCP/IP");
    QCOMPARE(f.Find<QLabel>("imgConArray").property("picture").toInt(), 1);
    QCOMPARE(f.Chosen("cboNodeType"), "T4 Node");
    QCOMPARE(f.Cell(1), "17");
    QCOMPARE(f.Component.Count("GetNodeTypeWpList"), 0);
    QVERIFY(f.Enabled("cmdManager"));
}

void TestFrmDatabaseNodePropClass::Connection_Snmp_LeavesSnmpClassesOnly()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.Choose("cboConName", "Gamma");

    QCOMPARE(f.Entries("cboNodeType"), QStringList{"SNMP Node"});
    QCOMPARE(f.Chosen("cboNodeType"), "SNMP Node");
    QVERIFY(!f.Enabled("cmdManager"));
    QCOMPARE(f.Find<QLabel>("imgConArray").property("picture").toInt(), 16);
    QCOMPARE(f.Con().NodeTypeName, "SNMP Node");
    QCOMPARE(f.Con().NodeTypeID, 2);
    QCOMPARE(f.Con().NodeWpCount, 1);
    QCOMPARE(f.Text("lblParameterHeader"), "SNMPNODE-waypoint parameters:");
}

void TestFrmDatabaseNodePropClass::Connection_SnmpWithSeveralClasses_TakesTheFirst()
{
    NodePropFixture f;
    f.Component.Answer("GetNodeTypeList()", {"NET4\tA\tSNMPNODE"});
    f.Component.Answer("GetNodeTypeLongName(A)", {"snmp agent"});
    f.Component.Answer("GetNodeTypeShortName(snmp agent)", {"SNMPNODE"});
    f.ShowNode("North");
    f.Choose("cboConName", "Gamma");

    QCOMPARE(f.Entries("cboNodeType"), (QStringList{"snmp agent", "SNMP Node"}));
    QCOMPARE(f.Con().NodeTypeName, "snmp agent");
}

void TestFrmDatabaseNodePropClass::Connection_Type15_IsOfTheSnmpFamily()
{
    NodePropFixture f;
    f.Component.Answer("AnalyzeConType(" + SaveFixture::BetaTarget + ")", {"15\tPROXY"});
    f.Component.Answer("GetConTypeLongName(PROXY)", {"Agent Proxy"});
    f.ShowNode("North");
    f.Choose("cboConName", "Beta");

    QCOMPARE(f.Text("lblConnectionType"), "Connection Type: Agent Proxy");
    QCOMPARE(f.Entries("cboNodeType"), QStringList{"SNMP Node"});
    QVERIFY(!f.Enabled("cmdManager"));
}

void TestFrmDatabaseNodePropClass::Connection_BackFromSnmp_BringsClassAndValuesBack()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.Choose("cboNodeType", "MML Network Element");
    f.EnterValue(1, "operator");
    f.EnterValue(2, "secret");
    f.Choose("cboConName", "Gamma");
    QCOMPARE(GridEdit().GridPasswordRow, 0);
    f.Choose("cboConName", "Alpha");

    QCOMPARE(f.Entries("cboNodeType"), (QStringList{"T4 Node", "MML Network Element"}));
    QCOMPARE(f.Chosen("cboNodeType"), "MML Network Element");
    QCOMPARE(f.Con().NodeTypeName, "MML Network Element");
    QCOMPARE(f.Column(1), (QStringList{"operator", "******", "", "2000", "2"}));
    QCOMPARE(f.Value(1, 1), "operator");
    QCOMPARE(GridEdit().GridPasswordValue, "secret");
    QVERIFY(f.Enabled("cmdManager"));
}

void TestFrmDatabaseNodePropClass::Connection_SteppedPastSnmp_KeepsFocusAndWhatWasTyped()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.ClickPage(1);
    f.EnterValue(2, "UNIHEX");
    f.ClickPage(0);
    f.EnterValue(1, "99");
    auto& connections = f.Find<QComboBox>("cboConName");
    connections.setFocus();
    QTest::keyClick(&connections, Qt::Key_End);
    QCOMPARE(f.Chosen("cboConName"), "Gamma");
    QCOMPARE(f.Chosen("cboNodeType"), "SNMP Node");
    QVERIFY(!f.Editor());
    QVERIFY(connections.hasFocus());
    QTest::keyClick(&connections, Qt::Key_Up);

    QCOMPARE(f.Chosen("cboConName"), "Beta");
    QCOMPARE(f.Chosen("cboNodeType"), "T4 Node");
    QCOMPARE(f.Cell(1), "99");
    QCOMPARE(f.Value(2, 2), "UNIHEX");
    QCOMPARE(f.Parameters().Row(), 1);
    QVERIFY(connections.hasFocus());
}

void TestFrmDatabaseNodePropClass::Connection_BackToSnmp_BringsItsClassAndValuesBack()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.Choose("cboConName", "Gamma");
    f.EnterValue(1, "private");
    f.Choose("cboConName", "Beta");
    f.EnterValue(1, "33");
    f.Choose("cboConName", "Gamma");
    QCOMPARE(f.Cell(1), "private");
    f.Choose("cboConName", "Alpha");

    QCOMPARE(f.Cell(1), "33");
}

void TestFrmDatabaseNodePropClass::Connection_BackButClassIsGone_TakesTheFirst()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.Choose("cboConName", "Gamma");
    f.Component.Answer("GetNodeTypeList()", {"NEMML\tSNMPNODE"});
    f.Choose("cboConName", "Alpha");

    QCOMPARE(f.Chosen("cboNodeType"), "MML Network Element");
    QCOMPARE(f.Column(1), (QStringList{"", "******", "", "2000", "2"}));
}

void TestFrmDatabaseNodePropClass::Connection_TypeUnknown_ShowsThePictureOfNone()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.RemoveElsewhere("Beta");
    f.Choose("cboConName", "Beta");

    QCOMPARE(f.Text("lblConnectionType"), "Connection Type: Unknown");
    QCOMPARE(f.Find<QLabel>("imgConArray").property("picture").toInt(), 14);
    QCOMPARE(f.Chosen("cboNodeType"), "T4 Node");
}

void TestFrmDatabaseNodePropClass::Connection_ClassesUnreadable_KeepsTheClass()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.Component.Fail("GetNodeTypeList");
    f.Choose("cboConName", "Beta");

    QCOMPARE(f.Entries("cboNodeType"), QStringList{"T4 Node"});
    QCOMPARE(f.Cell(1), "17");
}

void TestFrmDatabaseNodePropClass::Class_Changed_ShowsItsPages()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.Choose("cboNodeType", "MML Network Element");

    QCOMPARE(f.Pages(), QStringList{"MML Parameters"});
    QCOMPARE(f.Find<QListWidget>("lstWPlist").currentRow(), 0);
    QCOMPARE(f.Text("lblParameterHeader"), "NEMML-waypoint parameters:");
    QCOMPARE(f.Column(0), (QStringList{"USER NAME", "PASSWORD", "PATH", "TIME OUT", "RETRY COUNT"}));
    QCOMPARE(f.Con().NodeTypeName, "MML Network Element");
    QCOMPARE(f.Con().NodeTypeID, 1);
    QCOMPARE(f.Con().NodeWpCount, 1);
    QCOMPARE(f.Parameters().Row(), 1);
    QCOMPARE(f.Editor(), &f.Find<QWidget>("txtGridEdit"));
    QCOMPARE(GridEdit().GridWpName, "NEMML");
    QVERIFY(!f.Parameters().item(5, 0) || !f.Parameters().item(5, 0)->font().bold());
}

void TestFrmDatabaseNodePropClass::Class_Changed_DiscardsTheOldValues()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.EnterValue(1, "99");
    f.Choose("cboNodeType", "MML Network Element");
    for (int row = 1; row <= 5; ++row)
        QCOMPARE(f.Value(1, row), QString());
    f.Choose("cboNodeType", "T4 Node");

    QCOMPARE(f.Column(1), (QStringList{"", "0", "NORMAL", "ON", "2000", "2"}));
    for (int row = 1; row <= 6; ++row)
        QCOMPARE(f.Value(1, row), QString());
}

void TestFrmDatabaseNodePropClass::Class_ChangedWithAnOpenEditor_LosesTheEdit()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.TypeValue(2, "5");
    f.Find<QComboBox>("cboNodeType").setCurrentIndex(1);

    QCOMPARE(f.Column(1), (QStringList{"", "******", "", "2000", "2"}));
    QCOMPARE(f.Find<QLineEdit>("txtGridEdit").text(), QString());
}

void TestFrmDatabaseNodePropClass::Class_ChangedToPassword_HidesIt()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.Choose("cboNodeType", "MML Network Element");
    f.EnterValue(2, "secret");

    QCOMPARE(f.Cell(2), "******");
    QCOMPARE(GridEdit().GridPasswordRow, 2);
    QCOMPARE(GridEdit().GridPasswordValue, "secret");
    f.Choose("cboNodeType", "T4 Node");
    QCOMPARE(GridEdit().GridPasswordRow, 0);
    QCOMPARE(GridEdit().GridPasswordValue, QString());
}

void TestFrmDatabaseNodePropClass::Class_Unknown_EmptiesThePages()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.Component.Fail("GetNodeTypeShortName(MML Network Element)");
    f.Choose("cboNodeType", "MML Network Element");

    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Plain("Error: Unknown node type.")});
    QCOMPARE(f.Pages(), QStringList());
    QCOMPARE(f.Column(0), QStringList());
    QCOMPARE(f.Column(1), QStringList());
    QVERIFY(!f.Editor());
    f.Forget();
    f.Click("cmdSave");
    QCOMPARE(f.Operator.Texts(),
             QStringList{"No saving, because of an error in waypoint parameters or mandatory waypoint is "
                         "missing all its parameters."});
    QVERIFY(f.Form->isVisible());
}

void TestFrmDatabaseNodePropClass::Class_UnknownThenChosenAgain_Loads()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.Component.Fail("GetWpParameters(NEMML,0)");
    f.Choose("cboNodeType", "MML Network Element");
    QCOMPARE(f.Pages(), QStringList());
    f.Component.Repair();
    f.Choose("cboNodeType", "T4 Node");

    QCOMPARE(f.Pages(), (QStringList{"T4 Network", "Options", "FE Parameters"}));
    QCOMPARE(f.Column(0).size(), 6);
}

void TestFrmDatabaseNodePropClass::Class_TooManyWaypoints_TellsTheError()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.Component.Answer("GetNodeTypeWpList(,1)", {QStringList(11, "NEMML\t1").join(u'\t')});
    f.Choose("cboNodeType", "MML Network Element");

    QCOMPARE(f.Operator.Boxes.size(), size_t{1});
    QCOMPARE(f.Operator.Boxes[0].title, ErrorBoxTitle());
    QCOMPARE(f.Pages(), QStringList());
    QVERIFY(f.Form->isVisible());
}

void TestFrmDatabaseNodePropClass::Page_Clicked_ShowsItsParameters()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.ClickPage(1);

    QCOMPARE(f.Text("lblParameterHeader"), "OPT-waypoint parameters:");
    QCOMPARE(f.Column(0), (QStringList{"PROTOCOL", "DATA TYPE", "VERIFY"}));
    QCOMPARE(f.Column(1), (QStringList{"T4DT", "TEXT", "YES"}));
    QVERIFY(!f.Parameters().item(0, 0)->font().bold());
    QCOMPARE(f.Con().SelectedWpIndx, 2);
    QCOMPARE(GridEdit().GridWpName, "OPT");
    QCOMPARE(GridEdit().GridWpData, &f.Con().GetWpData(2));
    QCOMPARE(GridEdit().GridLastRow, 3);
    QVERIFY(!f.Editor());
}

void TestFrmDatabaseNodePropClass::Page_Clicked_StoresTheOneLeft()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.EnterValue(1, "99");
    QCOMPARE(f.Value(1, 1), "17");
    f.ClickPage(1);

    QCOMPARE(f.Value(1, 1), "99");
    QCOMPARE(f.Value(1, 2), "0");
    f.ClickPage(0);
    QCOMPARE(f.Cell(1), "99");
    QCOMPARE(f.Value(2, 1), "T4DT");
}

void TestFrmDatabaseNodePropClass::Page_OfTenParameters_LeavesNoRowBehind()
{
    NodePropFixture f;
    QStringList values;
    QStringList names;
    for (int row = 1; row <= 10; ++row) {
        values << QStringLiteral("K%1").arg(row) << QString();
        names << QStringLiteral("NAME %1").arg(row) << QStringLiteral("0|D%1").arg(row);
    }
    f.Component.Answer("GetWpParameters(NEMML,0)", {values.join(u'\t')});
    f.Component.Answer("GetWpParametersLongNames(NEMML,0)", {names.join(u'\t')});
    f.Component.Answer("GetNodeTypeWpList(,1)", {"NEMML\t1\tOPT\t0"});
    f.ShowNode("North");
    f.Choose("cboNodeType", "MML Network Element");
    QCOMPARE(f.Cell(10), "D10");
    f.ClickPage(1);
    QCOMPARE(f.Column(0), (QStringList{"PROTOCOL", "DATA TYPE", "VERIFY"}));
    f.ClickPage(0);
    QCOMPARE(f.Cell(10), "D10");
    f.Choose("cboNodeType", "T4 Node");

    QCOMPARE(f.Parameters().GridRows(), 10);
    QCOMPARE(f.Column(0).size(), 6);
}

void TestFrmDatabaseNodePropClass::Page_ClickedWithAnOpenEditor_StoresTheEdit()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.TypeValue(3, "HIGH");
    f.ClickPage(1);

    QCOMPARE(f.Value(1, 3), "HIGH");
    QVERIFY(!f.Editor());
}

void TestFrmDatabaseNodePropClass::Page_OutOfRange_KeepsTheOldValue()
{
    NodePropFixture f;
    f.ShowNode("North");
    auto& list = f.Find<QListWidget>("lstWPlist");
    f.OpenEditor(1);
    f.Find<QLineEdit>("txtGridEdit").setText("5000");
    list.setCurrentRow(1);

    QCOMPARE(f.Operator.Boxes,
             std::vector{RecordedBox::Plain("Value 5000 out of range [ 0, 4094]. Give a new value.")});
    QCOMPARE(f.Value(1, 1), "17");
    QVERIFY(!f.Editor());
}

void TestFrmDatabaseNodePropClass::Page_Shared_ReachesTheOtherPages()
{
    NodePropFixture f;
    Model().TimeRetryNames = {QStringLiteral("TIME OUT"), QStringLiteral("RETRY COUNT")};
    f.Component.Answer("GetNodeTypeWpList(,1)", {"NEMML\t1\tNET4\t1"});
    f.ShowNode("North");
    f.Choose("cboNodeType", "MML Network Element");
    f.EnterValue(4, "777");
    f.ClickPage(1);

    QCOMPARE(f.Cell(5), "777");
    QCOMPARE(f.Value(2, 5), "777");
    Model().TimeRetryNames = {};
}

void TestFrmDatabaseNodePropClass::FePage_WithoutId_IsNotStored()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.ClickPage(2);
    QCOMPARE(f.Column(1), (QStringList{"", "0", "AUTO", "2", "100", "18"}));
    f.EnterValue(2, "15");
    f.ClickPage(0);

    for (int row = 1; row <= 6; ++row)
        QCOMPARE(f.Value(3, row), QString());
}

void TestFrmDatabaseNodePropClass::FePage_WithId_IsStored()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.ClickPage(2);
    f.EnterValue(1, "7");
    f.ClickPage(0);

    QStringList values;
    for (int row = 1; row <= 6; ++row)
        values << f.Value(3, row);
    QCOMPARE(values, (QStringList{"7", "0", "AUTO", "2", "100", "18"}));
}

QTEST_MAIN(TestFrmDatabaseNodePropClass)
#include "TestFrmDatabaseNodePropClass.moc"
