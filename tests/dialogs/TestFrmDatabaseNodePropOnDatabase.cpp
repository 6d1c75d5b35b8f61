#include "tests/dialogs/DialogOnDatabase.h"
#include "tests/dialogs/NodePropFixture.h"

#include <QElapsedTimer>
#include <QLineEdit>
#include <QTest>

namespace {

using NodePropOnDatabase = DialogOnDatabase<NodePropFixture>;

QString WithAddress(const char* target, const char* from, const char* to)
{
    return QString::fromLatin1(target).replace(QLatin1String(from), QLatin1String(to));
}

const QString Options = QStringLiteral(",WP=OPT,PR=T4DT,DT=TEXT,VERIFY=YES");
const QString Changed = QStringLiteral(
    "Save is prevented, because another application has changed this node. Close dialog and try again.");

RecordedBox ReplaceQuestion(const QString& name)
{
    return {QStringLiteral("Node %1 exists in database. Do you want to replace it ?").arg(name),
            BoxFlags::OkCancel, QStringLiteral("Replace Node")};
}

} // namespace

/// Whole saves of the node dialog on a database: records, trees, boxes.
class TestFrmDatabaseNodePropOnDatabase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { RegisterComponent(HvxDatabaseId, nullptr); }

    void Save_New_AddsTheNode();
    void Save_SameName_ChangesTheNode();
    void Save_OtherName_RenamesTheNode();
    void Save_OtherConnection_MovesTheNode();
    void Save_OtherClass_ReplacesTheTarget();
    void Save_FeParameters_AreInTheTarget();
    void Save_NewOntoAnother_ReplacesIt();
    void Save_RenameOntoAnother_ReplacesIt();
    void Save_RenameOntoAnother_Cancelled_ChangesNothing();
    void Save_ChangedElsewhere_IsPrevented();
    void Save_DeletedElsewhere_IsPrevented();
    void Save_NameOfAConnection_IsRefused();
    void Save_HeldElsewhere_IsDenied();
    void Open_ManyConnections_IsQuick();
};

void TestFrmDatabaseNodePropOnDatabase::Save_New_AddsTheNode()
{
    NodePropOnDatabase s;
    NodePropFixture& f = s.Dialog;
    f.ShowNewNode("South");
    f.TypeName("West");
    f.EnterValue(1, "99");
    f.Click("cmdSave");

    QCOMPARE(f.Form->result(), int(QDialog::Accepted));
    QCOMPARE(s.Record("West"),
             "Alpha;NET4;-port 2;" + WithAddress(DatabaseFixture::SouthTarget, "=18", "=99") + ",WP=OPT");
    QCOMPARE(f.Con().NodeDbID, s.IdOf("West"));
    QVERIFY(f.Operator.Boxes.empty());
    s.CompareTrees(f.Con(), "West");
}

void TestFrmDatabaseNodePropOnDatabase::Save_SameName_ChangesTheNode()
{
    NodePropOnDatabase s;
    NodePropFixture& f = s.Dialog;
    f.ShowNode("North");
    f.EnterValue(1, "99");
    f.ClickPage(1);
    f.Click("cmdSave");

    QCOMPARE(s.Record("North"),
             "Alpha;NET4;1|-port 1;" + WithAddress(DatabaseFixture::NorthTarget, "=17", "=99") + Options);
    s.CompareTrees(f.Con(), "North");
}

void TestFrmDatabaseNodePropOnDatabase::Save_OtherName_RenamesTheNode()
{
    NodePropOnDatabase s;
    NodePropFixture& f = s.Dialog;
    f.ShowNode("North");
    f.TypeName("West");
    f.Click("cmdSave");

    QCOMPARE(s.Record("North"), "none");
    QVERIFY2(s.Record("West").startsWith("Alpha;NET4;1|-port 1;"), qPrintable(s.Record("West")));
    QVERIFY(f.Operator.Boxes.empty());
    s.CompareTrees(f.Con(), "West");
}

void TestFrmDatabaseNodePropOnDatabase::Save_OtherConnection_MovesTheNode()
{
    NodePropOnDatabase s;
    NodePropFixture& f = s.Dialog;
    f.ShowNode("North");
    f.Choose("cboConName", "Beta");
    f.Click("cmdSave");

    QVERIFY2(s.Record("North").startsWith("Beta;NET4;1|-port 1;"), qPrintable(s.Record("North")));
    s.CompareTrees(f.Con(), "North");
    QCOMPARE(f.ConTree.Text(f.ConTree.Parent(f.Con().SelectedTreeNodeIndex)), "Beta");
}

void TestFrmDatabaseNodePropOnDatabase::Save_OtherClass_ReplacesTheTarget()
{
    NodePropOnDatabase s;
    NodePropFixture& f = s.Dialog;
    f.ShowNode("North");
    f.Choose("cboConName", "Gamma");
    f.EnterValue(1, "192.168.0.1");
    f.Click("cmdSave");

    QVERIFY(f.Operator.Boxes.empty());
    QCOMPARE(s.Record("North"),
             "Gamma;NET4;1|-port 1;WP=SNMPNODE,HOST=192.168.0.1,PORT=161,COMMUNITY=public");
    s.CompareTrees(f.Con(), "North");
}

void TestFrmDatabaseNodePropOnDatabase::Save_FeParameters_AreInTheTarget()
{
    NodePropOnDatabase s;
    NodePropFixture& f = s.Dialog;
    f.ShowNode("North");
    f.ClickPage(1);
    f.ClickPage(2);
    f.EnterValue(1, "7");
    f.EnterValue(2, "15");
    f.EnterValue(6, "1032");
    f.Click("cmdSave");

    QCOMPARE(s.Record("North"), "Alpha;NET4;1|-port 1;" + QString(DatabaseFixture::NorthTarget) + Options +
                                    ",WP=FE,ID=7,CH=15,MODE=AUTO,WIN=2,ACK=100,PKT=1032");
    f.Form.reset();
    f.ShowNode("North");
    f.ClickPage(2);
    QCOMPARE(f.Column(1), (QStringList{"7", "15", "AUTO", "2", "100", "1032"}));
}

void TestFrmDatabaseNodePropOnDatabase::Save_NewOntoAnother_ReplacesIt()
{
    NodePropOnDatabase s;
    NodePropFixture& f = s.Dialog;
    f.ShowNewNode("North");
    f.TypeName("East");
    f.Click("cmdSave");

    QCOMPARE(f.Operator.Boxes, std::vector{ReplaceQuestion("East")});
    QCOMPARE(f.Form->result(), int(QDialog::Accepted));
    QVERIFY2(s.Record("East").startsWith("Alpha;NET4;"), qPrintable(s.Record("East")));
    QVERIFY(s.Record("North") != "none");
    s.CompareTrees(f.Con(), "East");
}

void TestFrmDatabaseNodePropOnDatabase::Save_RenameOntoAnother_ReplacesIt()
{
    NodePropOnDatabase s;
    NodePropFixture& f = s.Dialog;
    f.ShowNode("North");
    f.TypeName("South");
    f.Click("cmdSave");

    QCOMPARE(f.Operator.Boxes, std::vector{ReplaceQuestion("South")});
    QCOMPARE(s.Record("North"), "none");
    QCOMPARE(s.Record("South"), "Alpha;NET4;1|-port 1;" + QString(DatabaseFixture::NorthTarget) + ",WP=OPT");
    s.CompareTrees(f.Con(), "South");
}

void TestFrmDatabaseNodePropOnDatabase::Save_RenameOntoAnother_Cancelled_ChangesNothing()
{
    NodePropOnDatabase s;
    NodePropFixture& f = s.Dialog;
    f.ShowNode("North");
    f.TypeName("South");
    f.Operator.Answers.push_back(BoxAnswer::Cancel);
    const QStringList trees = f.Trees();
    f.Click("cmdSave");

    QVERIFY(f.Form->isVisible());
    QCOMPARE(f.Trees(), trees);
    QCOMPARE(f.Con().NodeName, "North");
    QCOMPARE(s.Record("South"), "Alpha;NET4;-port 2;" + QString(DatabaseFixture::SouthTarget));
}

void TestFrmDatabaseNodePropOnDatabase::Save_ChangedElsewhere_IsPrevented()
{
    NodePropOnDatabase s;
    NodePropFixture& f = s.Dialog;
    f.ShowNode("North");
    s.File.OpenComponent()->ReplaceNodeTarget("North", "Alpha", DatabaseFixture::SouthTarget);
    const QString theirs = s.Record("North");
    f.EnterValue(1, "99");
    f.Click("cmdSave");

    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Plain(Changed)});
    QVERIFY(f.Form->isVisible());
    QCOMPARE(s.Record("North"), theirs);
}

void TestFrmDatabaseNodePropOnDatabase::Save_DeletedElsewhere_IsPrevented()
{
    NodePropOnDatabase s;
    NodePropFixture& f = s.Dialog;
    f.ShowNode("North");
    s.File.OpenComponent()->DeleteNode("North");
    f.Click("cmdSave");

    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Plain(Changed)});
    QVERIFY(f.Form->isVisible());
    QCOMPARE(s.Record("North"), "none");
    QCOMPARE(f.Con().NodeName, "North");
}

void TestFrmDatabaseNodePropOnDatabase::Save_NameOfAConnection_IsRefused()
{
    NodePropOnDatabase s;
    NodePropFixture& f = s.Dialog;
    f.ShowNode("North");
    f.TypeName("Gamma");
    f.Click("cmdSave");

    QCOMPARE(f.Operator.Texts(),
             QStringList{"Node name Gamma already exists in the database. No saving, because nodes and "
                         "connections cannot share the same name."});
    QVERIFY(f.Form->isVisible());
    QVERIFY(s.Record("North") != "none");
}

void TestFrmDatabaseNodePropOnDatabase::Save_HeldElsewhere_IsDenied()
{
    NodePropOnDatabase s;
    NodePropFixture& f = s.Dialog;
    f.ShowNode("North");
    const auto other = s.File.OpenComponent();
    qint32 started = 0;
    other->BeginTransaction(started);
    other->DeleteNode("East");
    f.Operator.Answers.push_back(BoxAnswer::No);
    f.Click("cmdSave");

    QCOMPARE(f.Operator.Boxes.back(), RecordedBox::Error("Database access is denied, because another "
                                                         "application is using it."));
    QVERIFY(f.Form->isVisible());
    other->RollbackTransaction();
    f.Click("cmdSave");
    QCOMPARE(f.Form->result(), int(QDialog::Accepted));
}

void TestFrmDatabaseNodePropOnDatabase::Open_ManyConnections_IsQuick()
{
    NodePropOnDatabase s;
    {
        const auto administration = HvxAdministration::Open(s.File.Source());
        const auto writer = administration->BeginBulkWrite();
        for (int number = 0; number < 20'000; ++number)
            writer->AddConnection(QStringLiteral("Line %1").arg(number), DatabaseFixture::AlphaTarget);
        writer->Commit();
    }
    NodePropFixture& f = s.Dialog;
    f.EditNode("North");
    qint64 best = std::numeric_limits<qint64>::max();
    for (int attempt = 0; attempt < 5; ++attempt) {
        f.Form.reset();
        QElapsedTimer clock;
        clock.start();
        f.Show();
        best = std::min(best, clock.elapsed());
    }

    QCOMPARE(f.Entries("cboConName").size(), 20'003);
    QCOMPARE(f.Chosen("cboConName"), "Alpha");
    QVERIFY2(best < 100, qPrintable(QStringLiteral("%1 ms").arg(best)));
}

QTEST_MAIN(TestFrmDatabaseNodePropOnDatabase)
#include "TestFrmDatabaseNodePropOnDatabase.moc"
