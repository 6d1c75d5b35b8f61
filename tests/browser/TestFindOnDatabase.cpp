#include "tests/browser/ControlOnDatabase.h"
#include "tests/browser/FindOperator.h"

#include <QTest>

/// The Find command on a database of each engine.
class TestFindOnDatabase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void NodeBelowAClosedConnection_Chosen_GivesTheHostItsTarget();
    void WaypointOfAClosedConnection_Chosen_IsSelected();
    void NodeBehindTheFirstLoad_Chosen_IsSelected();
    void Connection_RenamedElsewhere_IsFoundByItsNewIdOrTold();
};

void TestFindOnDatabase::NodeBelowAClosedConnection_Chosen_GivesTheHostItsTarget()
{
    ControlOnDatabase f;
    f.Start();
    f.ShowConnections();
    f.Find<QCheckBox>("chkViewNodes").setChecked(true);
    QStringList rows;
    FindOperator::Search(*f.Control, QStringLiteral("eas"), [&](QDialog& result) {
        rows = FindOperator::RowsOf(result);
        FindOperator::ClickIn(result, "btnOK");
    });
    QCOMPARE(rows, QStringList({QStringLiteral("Not loaded yet"), QStringLiteral(" Beta"),
                                QStringLiteral("  East")}));
    QCOMPARE(f.HostTarget(), QStringLiteral("WP=SOCKET,HOST=gateway-2,WP=BUST4,ID=7,WP=NET4,ADDR=4094"));
    QCOMPARE(f.Operator.Texts(), QStringList());
}

void TestFindOnDatabase::WaypointOfAClosedConnection_Chosen_IsSelected()
{
    ControlOnDatabase f;
    f.Start();
    f.ShowConnections();
    QString name;
    f.Component->GetWpLongName(QStringLiteral("SOCKET"), name);
    FindOperator::Search(*f.Control, name, FindOperator::Choose(QStringLiteral("  ") + name));
    const QModelIndex selected = f.Find<TreeView>("tvwConTree").SelectedIndex();
    QCOMPARE(selected.data().toString(), name);
    QCOMPARE(selected.parent().data().toString(), QStringLiteral("Beta"));
    QCOMPARE(f.HostTarget(), QStringLiteral("WP=SOCKET,HOST=gateway-2,WP=BUST4,ID=7"));
}

void TestFindOnDatabase::NodeBehindTheFirstLoad_Chosen_IsSelected()
{
    ControlOnDatabase f;
    {
        const auto administration = HvxAdministration::Open(f.Database.Source());
        const auto writer = administration->BeginBulkWrite();
        for (int number = 1; number <= 5100; ++number) {
            NodeRecord node;
            node.name = QStringLiteral("Насос %_%1").arg(number);
            node.conName = QStringLiteral("Alpha");
            node.nodeType = QStringLiteral("NET4");
            node.target = QString::fromLatin1(DatabaseFixture::NorthTarget);
            writer->AddNode(node);
        }
        writer->Commit();
    }
    f.Start();
    QVERIFY(Load().LoadMoreId != 0);
    FindOperator::Search(*f.Control, QStringLiteral("НАСОС %_5077"),
                         FindOperator::Choose(QStringLiteral("  Насос %_5077")));
    QCOMPARE(f.Control->Sobriquet(), QStringLiteral("Насос %_5077"));
    QCOMPARE(f.Find<TreeView>("tvwNodesTree").SelectedIndex().data().toString(),
             QStringLiteral("Насос %_5077"));
    QCOMPARE(f.Operator.Texts(), QStringList());
}

void TestFindOnDatabase::Connection_RenamedElsewhere_IsFoundByItsNewIdOrTold()
{
    ControlOnDatabase f;
    f.Start();
    f.ShowConnections();
    f.Find<QCheckBox>("chkViewNodes").setChecked(true);
    FindOperator::Search(*f.Control, QStringLiteral("eas"), [&](QDialog& result) {
        f.Database.OpenComponent()->ReplaceParentName(QStringLiteral("Beta"), QStringLiteral("Delta"));
        FindOperator::ClickIn(result, "btnOK");
    });
    // The tree still calls it Beta, which the database has no more.
    QCOMPARE(f.Operator.Texts(), QStringList{QStringLiteral("East is not in the database any more.")});
    QVERIFY(!QApplication::activeModalWidget());
}

QTEST_MAIN(TestFindOnDatabase)
#include "TestFindOnDatabase.moc"
