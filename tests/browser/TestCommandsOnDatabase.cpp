#include "dialogs/frmDatabaseConProp.h"
#include "dialogs/frmDatabaseNodeProp.h"
#include "tests/browser/ControlOnDatabase.h"

#include <QComboBox>
#include <QTimer>

// Whole ways of the commands: real dialogs on a database.

namespace {

/// Acts in the next dialog once it is open, and closes it if the actions have not.
template <typename Form>
void InNext(const std::function<void(Form& form)>& act)
{
    QTimer::singleShot(0, qApp, [act] {
        auto* const form = qobject_cast<Form*>(QApplication::activeModalWidget());
        if (!form)
            qFatal("the dialog did not open");
        const QPointer<Form> open(form);
        act(*form);
        if (open && open->isVisible())
            open->reject();
    });
}

void TypeName(QDialog& form, const char* box, const QString& name)
{
    auto& edit = Child<QLineEdit>(form, box);
    edit.selectAll();
    QTest::keyClicks(&edit, name);
}

class CommandsFixture : public ControlOnDatabase
{
public:
    CommandsFixture()
    {
        Start();
        ShowRealDialogs();
        Control->SetRefreshTimer(true);
    }
    void Press(const char* button) const
    {
        auto& pressed = Find<QPushButton>(button);
        if (!pressed.isEnabled())
            qFatal("%s is disabled", button);
        QTest::mouseClick(&pressed, Qt::LeftButton);
    }
    [[nodiscard]] QString Selected(const char* tree) const
    {
        return Find<TreeView>(tree).SelectedIndex().data().toString();
    }
    /// Opens a connection's waypoints or nodes.
    void Open(const QString& connection, bool nodes) const
    {
        ShowConnections();
        Find<QCheckBox>("chkViewNodes").setChecked(nodes);
        ClickConnection(connection);
        auto& view = Find<TreeView>("tvwConTree");
        QTest::mouseDClick(view.viewport(), Qt::LeftButton, {},
                           view.visualRect(view.SelectedIndex()).center());
    }
};

} // namespace

class TestCommandsOnDatabase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void AddConnection_CopiedAndSaved_IsStoredAndSelected();
    void AddConnection_Cancelled_StoresNothing();
    void AddNode_CopiedAndSaved_IsStoredAndSelected();
    void AddNode_New_HasTheDefaultType();
    void ConnectionProperties_Renamed_StaysSelectedAndItsNodesFollow();
    void NodeProperties_Renamed_StaysSelected_data();
    void NodeProperties_Renamed_StaysSelected();
    void Properties_WithoutEditRight_CannotSave();
    void Properties_RecordChangedUnderTheDialog_CannotBeSaved();
    void RemoveNode_InTheConnectionView_IsGoneEverywhere();
    void RemoveConnection_WithNodes_IsGoneEverywhere();
    void Remove_WhileAnotherWrites_IsDeniedAndKeepsTheTrees();
    void Refresh_ChangeOfAnother_KeepsThePlaceInBothTrees();
    void Manage_ManagedNode_StartsWithItsText();
    void EnterThroughTheTree_OpensAndCancelsEachRecord();
    void Dialog_ControlDestroyedUnderIt_GoesWithIt();
};

void TestCommandsOnDatabase::AddConnection_CopiedAndSaved_IsStoredAndSelected()
{
    CommandsFixture f;
    f.ShowConnections();
    f.ClickConnection(QStringLiteral("Beta"));
    InNext<frmDatabaseConProp>([&](frmDatabaseConProp& form) {
        QCOMPARE(Child<QLineEdit>(form, "txtConName").text(), QStringLiteral("New Connection"));
        QCOMPARE(Child<QComboBox>(form, "cboConType").currentText(), QStringLiteral("T4 Bus over TCP/IP"));
        TypeName(form, "txtConName", QStringLiteral("Copy"));
        QTest::mouseClick(&Child<QPushButton>(form, "cmdSave"), Qt::LeftButton);
    });
    f.Press("cmdDatabaseAdd");
    QCOMPARE(f.Operator.Texts(), QStringList());
    QCOMPARE(f.Selected("tvwConTree"), QStringLiteral("Copy"));
    QCOMPARE(f.HostTarget(), QStringLiteral("WP=SOCKET,HOST=gateway-2,WP=BUST4,ID=7"));
    QString target;
    f.Database.OpenComponent()->GetParent(QStringLiteral("Copy"), target);
    QVERIFY(target.startsWith(QLatin1String("WP=SOCKET,HOST=gateway-2")));
}

void TestCommandsOnDatabase::AddConnection_Cancelled_StoresNothing()
{
    CommandsFixture f;
    f.ShowConnections();
    f.ClickConnection(QStringLiteral("Beta"));
    InNext<frmDatabaseConProp>([](frmDatabaseConProp& form) {
        QTest::mouseClick(&Child<QPushButton>(form, "cmdCancel"), Qt::LeftButton);
    });
    f.Press("cmdDatabaseAdd");
    QString list;
    f.Database.OpenComponent()->QueryParentsWithID(QString(), list);
    QCOMPARE(list.split(QLatin1Char('\t')).size(), 6);
    QCOMPARE(f.Selected("tvwConTree"), QStringLiteral("Beta"));
    QCOMPARE(f.Operator.Texts(), QStringList());
}

void TestCommandsOnDatabase::AddNode_CopiedAndSaved_IsStoredAndSelected()
{
    CommandsFixture f;
    f.ClickNode(QStringLiteral("North"));
    InNext<frmDatabaseNodeProp>([](frmDatabaseNodeProp& form) {
        QCOMPARE(Child<QLineEdit>(form, "txtNodeName").text(), QStringLiteral("New Node"));
        TypeName(form, "txtNodeName", QStringLiteral("Norden"));
        QTest::mouseClick(&Child<QPushButton>(form, "cmdSave"), Qt::LeftButton);
    });
    f.Press("cmdDatabaseAdd");
    QCOMPARE(f.Operator.Texts(), QStringList());
    QCOMPARE(f.Selected("tvwNodesTree"), QStringLiteral("Norden"));
    QCOMPARE(f.HostTarget(), QStringLiteral("WP=BUST4,ID=254,WP=NET4,ADDR=17"));
    QString id;
    f.Database.OpenComponent()->GetNodeID(QStringLiteral("Norden"), id);
    QVERIFY(!id.isEmpty());
}

void TestCommandsOnDatabase::AddNode_New_HasTheDefaultType()
{
    CommandsFixture f;
    QString type;
    InNext<frmDatabaseNodeProp>(
        [&](frmDatabaseNodeProp& form) { type = Child<QComboBox>(form, "cboNodeType").currentText(); });
    f.Press("cmdDatabaseAdd");
    QString expected;
    f.Database.OpenComponent()->GetNodeTypeLongName(QStringLiteral("NET4"), expected);
    QCOMPARE(type, expected);
    QCOMPARE(f.Operator.Texts(), QStringList());
}

void TestCommandsOnDatabase::ConnectionProperties_Renamed_StaysSelectedAndItsNodesFollow()
{
    CommandsFixture f;
    f.Open(QStringLiteral("Alpha"), true);
    InNext<frmDatabaseConProp>([](frmDatabaseConProp& form) {
        TypeName(form, "txtConName", QStringLiteral("Zulu"));
        QTest::mouseClick(&Child<QPushButton>(form, "cmdSave"), Qt::LeftButton);
    });
    f.Press("cmdDatabaseProp");
    QCOMPARE(f.Operator.Texts(), QStringList());
    QCOMPARE(f.Selected("tvwConTree"), QStringLiteral("Zulu"));
    const TreeEntries& entries = f.Entries("tvwConTree");
    const TreeEntries::Index zulu = entries.FindByText(QStringLiteral("Zulu"), false);
    QCOMPARE(entries.ChildCount(zulu), 2);
    QVERIFY(entries.Expanded(zulu));
    QCOMPARE(entries.FindByText(QStringLiteral("Alpha"), false), 0);
    // Clicks on what the save has patched are current.
    f.Click("tvwConTree", QStringLiteral("North"), true);
    QCOMPARE(f.HostTarget(), QStringLiteral("WP=BUST4,ID=254,WP=NET4,ADDR=17"));
    QCOMPARE(f.Operator.Texts(), QStringList());
}

void TestCommandsOnDatabase::NodeProperties_Renamed_StaysSelected_data()
{
    QTest::addColumn<bool>("connections");
    QTest::newRow("node view") << false;
    QTest::newRow("connection view") << true;
}
void TestCommandsOnDatabase::NodeProperties_Renamed_StaysSelected()
{
    QFETCH(const bool, connections);
    CommandsFixture f;
    const char* const tree = connections ? "tvwConTree" : "tvwNodesTree";
    if (connections)
        f.Open(QStringLiteral("Alpha"), true);
    f.Click(tree, QStringLiteral("South"), true);
    InNext<frmDatabaseNodeProp>([](frmDatabaseNodeProp& form) {
        TypeName(form, "txtNodeName", QStringLiteral("Sur"));
        QTest::mouseClick(&Child<QPushButton>(form, "cmdSave"), Qt::LeftButton);
    });
    f.Press("cmdDatabaseProp");
    QCOMPARE(f.Operator.Texts(), QStringList());
    QCOMPARE(f.Selected(tree), QStringLiteral("Sur"));
    QCOMPARE(f.Control->Sobriquet(), QStringLiteral("Sur"));
    QCOMPARE(f.HostTarget(), QStringLiteral("WP=BUST4,ID=254,WP=NET4,ADDR=18"));
    QCOMPARE(f.Entries("tvwNodesTree").FindByText(QStringLiteral("South"), true), 0);
    QString id;
    f.Database.OpenComponent()->GetNodeID(QStringLiteral("South"), id);
    QVERIFY(id.isEmpty());
}

void TestCommandsOnDatabase::Properties_WithoutEditRight_CannotSave()
{
    CommandsFixture f;
    ::Database().EditRight = false;
    f.ClickNode(QStringLiteral("North"));
    bool canSave = true;
    InNext<frmDatabaseNodeProp>(
        [&](frmDatabaseNodeProp& form) { canSave = Child<QPushButton>(form, "cmdSave").isEnabled(); });
    f.Press("cmdDatabaseProp");
    QVERIFY(!canSave);
    f.ShowConnections();
    f.ClickConnection(QStringLiteral("Alpha"));
    canSave = true;
    InNext<frmDatabaseConProp>(
        [&](frmDatabaseConProp& form) { canSave = Child<QPushButton>(form, "cmdSave").isEnabled(); });
    f.Press("cmdDatabaseProp");
    QVERIFY(!canSave);
}

void TestCommandsOnDatabase::Properties_RecordChangedUnderTheDialog_CannotBeSaved()
{
    CommandsFixture f;
    f.ShowConnections();
    f.ClickConnection(QStringLiteral("Alpha"));
    InNext<frmDatabaseConProp>([&](frmDatabaseConProp& form) {
        f.Database.OpenComponent()->ReplaceParentTarget(QStringLiteral("Alpha"),
                                                        QStringLiteral("WP=BUST4,ID=5"));
        QTest::mouseClick(&Child<QPushButton>(form, "cmdSave"), Qt::LeftButton);
    });
    f.Press("cmdDatabaseProp");
    QCOMPARE(f.Operator.Texts(),
             QStringList{QStringLiteral("Save is prevented, because another application has changed this "
                                        "connection. Close dialog and try again.")});
    // Behind the dialog the change of the other one is here.
    QCOMPARE(f.Selected("tvwConTree"), QStringLiteral("Alpha"));
    QCOMPARE(f.HostTarget(), QStringLiteral("WP=BUST4,ID=5"));
}

void TestCommandsOnDatabase::RemoveNode_InTheConnectionView_IsGoneEverywhere()
{
    CommandsFixture f;
    f.Open(QStringLiteral("Alpha"), true);
    f.Click("tvwConTree", QStringLiteral("North"), true);
    QTest::keyClick(&f.Find<TreeView>("tvwConTree"), Qt::Key_Delete);
    QCOMPARE(f.Operator.Texts(),
             QStringList{QStringLiteral("Do you want to remove Node North from database ?")});
    QCOMPARE(f.Selected("tvwConTree"), QStringLiteral("South"));
    QCOMPARE(f.HostTarget(), QStringLiteral("WP=BUST4,ID=254,WP=NET4,ADDR=18"));
    QCOMPARE(f.Entries("tvwNodesTree").FindByText(QStringLiteral("North"), true), 0);
    QString id;
    f.Database.OpenComponent()->GetNodeID(QStringLiteral("North"), id);
    QVERIFY(id.isEmpty());
}

void TestCommandsOnDatabase::RemoveConnection_WithNodes_IsGoneEverywhere()
{
    CommandsFixture f;
    f.ShowConnections();
    f.ClickConnection(QStringLiteral("Alpha"));
    f.Press("cmdDatabaseRemove");
    QCOMPARE(f.Operator.Texts(),
             QStringList{
                 QStringLiteral("Do you want to remove Connection Alpha and all its nodes from database ?")});
    QCOMPARE(f.Selected("tvwConTree"), QStringLiteral("Beta"));
    QCOMPARE(f.HostTarget(), QStringLiteral("WP=SOCKET,HOST=gateway-2,WP=BUST4,ID=7"));
    QCOMPARE(f.Entries("tvwNodesTree").ChildCount(1), 1);
    QString list;
    f.Database.OpenComponent()->QueryParentsWithID(QString(), list);
    QCOMPARE(list.split(QLatin1Char('\t')).size(), 4);
}

void TestCommandsOnDatabase::Remove_WhileAnotherWrites_IsDeniedAndKeepsTheTrees()
{
    CommandsFixture f;
    f.ClickNode(QStringLiteral("North"));
    const auto other = f.Database.OpenComponent();
    qint32 started = 0;
    other->BeginTransaction(started);
    other->ReplaceNodeTarget(QStringLiteral("South"), QStringLiteral("Beta"),
                             QStringLiteral("WP=NET4,ADDR=99"));
    f.Operator.Answers = {BoxAnswer::Ok, BoxAnswer::Cancel};
    f.Press("cmdDatabaseRemove");
    QCOMPARE(
        f.Operator.Texts(),
        QStringList({QStringLiteral("Do you want to remove Node North from database ?"),
                     QStringLiteral("Database is in use by another application, do you want to try again ?"),
                     QStringLiteral("Database access is denied, because another application is using it.")}));
    other->RollbackTransaction();
    QVERIFY(f.Entries("tvwNodesTree").FindByText(QStringLiteral("North"), true) != 0);
    f.Press("cmdDatabaseRemove");
    QCOMPARE(f.Entries("tvwNodesTree").FindByText(QStringLiteral("North"), true), 0);
}

void TestCommandsOnDatabase::Refresh_ChangeOfAnother_KeepsThePlaceInBothTrees()
{
    CommandsFixture f;
    f.ClickNode(QStringLiteral("South"));
    f.Open(QStringLiteral("Alpha"), true);
    f.Click("tvwConTree", QStringLiteral("North"), true);
    f.Database.OpenComponent()->SaveParent(QStringLiteral("Aaa"), QStringLiteral("WP=BUST4,ID=3"));
    QTest::mouseClick(&f.Find<QPushButton>("cmdRefresh"), Qt::LeftButton);
    const TreeEntries& entries = f.Entries("tvwConTree");
    QVERIFY(entries.FindByText(QStringLiteral("Aaa"), false) != 0);
    QCOMPARE(f.Selected("tvwConTree"), QStringLiteral("North"));
    QCOMPARE(f.Selected("tvwNodesTree"), QStringLiteral("South"));
    QVERIFY(entries.Expanded(entries.FindByText(QStringLiteral("Alpha"), false)));
    QVERIFY(!entries.Expanded(entries.FindByText(QStringLiteral("Beta"), false)));
    QVERIFY(f.Find<QPushButton>("cmdDatabaseProp").isEnabled());
    QCOMPARE(f.Operator.Texts(), QStringList());
}

void TestCommandsOnDatabase::Manage_ManagedNode_StartsWithItsText()
{
    CommandsFixture f;
    QStringList started;
    Machine().StartProgram = [&](const QString& program, const QStringList& arguments) {
        started = QStringList{program} + arguments;
        return true;
    };
    f.Control->SetManageVisible(true);
    f.ClickNode(QStringLiteral("North"));
    f.Press("cmdDatabaseManage");
    QCOMPARE(started.join(QLatin1Char('|')),
             QStringLiteral("/opt/managers/net4|-sobriquet|North|-device|cdfq01|-view full"));
    QCOMPARE(f.Operator.Texts(), QStringList());
}

void TestCommandsOnDatabase::EnterThroughTheTree_OpensAndCancelsEachRecord()
{
    CommandsFixture f;
    f.ShowConnections();
    auto& view = f.Find<TreeView>("tvwConTree");
    f.ClickConnection(QStringLiteral("Alpha"));
    QStringList shown;
    for (int k = 0; k < 3; ++k) {
        InNext<frmDatabaseConProp>([&](frmDatabaseConProp& form) {
            shown << Child<QLineEdit>(form, "txtConName").text();
            QTest::keyClick(&form, Qt::Key_Escape);
        });
        QTest::keyClick(&view, Qt::Key_Return);
        QTest::keyClick(&view, Qt::Key_Down);
    }
    // The connection, then its waypoints.
    QCOMPARE(shown, QStringList({QStringLiteral("Alpha"), QStringLiteral("Alpha"), QStringLiteral("Alpha")}));
    QCOMPARE(f.Operator.Texts(), QStringList());
}

void TestCommandsOnDatabase::Dialog_ControlDestroyedUnderIt_GoesWithIt()
{
    CommandsFixture f;
    f.ClickNode(QStringLiteral("North"));
    QPointer<frmDatabaseNodeProp> open;
    InNext<frmDatabaseNodeProp>([&](frmDatabaseNodeProp& form) {
        open = &form;
        f.Control.reset();
    });
    f.Press("cmdDatabaseProp");
    QVERIFY(open.isNull());
    QCOMPARE(Browser().Busy, 0);
    QCOMPARE(f.Operator.Texts(), QStringList());
}

QTEST_MAIN(TestCommandsOnDatabase)
#include "TestCommandsOnDatabase.moc"
