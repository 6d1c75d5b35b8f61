#include "tests/database/SaveExpectations.h"
#include "tests/dialogs/DialogOnDatabase.h"
#include "tests/dialogs/SaveDirectNodeFixture.h"

#include <QLineEdit>

using namespace SaveTexts;

namespace {

using SaveDirectOnDatabase = DialogOnDatabase<SaveDirectNodeFixture>;

/// As the dialog composes it with what it shows on its first page.
const QString Target = QStringLiteral("WP=NET4,ADDR=99,SUB=0,PRIO=NORMAL,CRC=ON,TIME=3000,RETRY=5,WP=OPT");

} // namespace

/// Whole saves of the dialog that saves a node of the Direct tab, on a database: records, trees, boxes.
class TestFrmSaveDirectNodeOnDatabase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { RegisterComponent(HvxDatabaseId, nullptr); }

    void Save_New_AddsTheNode();
    void Save_OntoAnother_ReplacesIt();
    void Save_OntoAnother_Cancelled_ChangesNothing();
    void Save_NewConnection_AddsBoth();
    void Save_TakenConnection_ReplacesIt();
    void Save_ConnectionDeletedElsewhere_IsPrevented();
    void Save_ConnectionChangedElsewhere_IsPrevented();
    void Save_HeldElsewhere_IsDenied();
};

void TestFrmSaveDirectNodeOnDatabase::Save_New_AddsTheNode()
{
    SaveDirectOnDatabase s;
    SaveDirectNodeFixture& f = s.Dialog;
    f.ShowOn("Alpha");
    f.TypeName("West");
    f.Click("cmdSave");

    QCOMPARE(f.Form->result(), int(QDialog::Accepted));
    QCOMPARE(s.Record("West"), "Alpha;;;" + Target);
    QVERIFY(f.Operator.Boxes.empty());
    s.CompareTrees(f.Direct(), "West");
}

void TestFrmSaveDirectNodeOnDatabase::Save_OntoAnother_ReplacesIt()
{
    SaveDirectOnDatabase s;
    SaveDirectNodeFixture& f = s.Dialog;
    f.ShowOn("Alpha");
    f.TypeName("East");
    f.Click("cmdSave");

    QCOMPARE(f.Operator.Texts(), QStringList{"Node East exists in database. Do you want to replace it ?"});
    QCOMPARE(s.Record("East"), "Alpha;;;" + Target);
    s.CompareTrees(f.Direct(), "East");
}

void TestFrmSaveDirectNodeOnDatabase::Save_OntoAnother_Cancelled_ChangesNothing()
{
    SaveDirectOnDatabase s;
    SaveDirectNodeFixture& f = s.Dialog;
    f.ShowOnNew("Delta");
    f.TypeName("South");
    f.Operator.Answers = {BoxAnswer::Cancel};
    const QStringList trees = f.Trees();
    const QString before = s.Record("South");
    f.Click("cmdSave");

    QVERIFY(f.Form->isVisible());
    QCOMPARE(f.Trees(), trees);
    QCOMPARE(s.Record("South"), before);
    QString id;
    s.File.OpenComponent()->GetParentID("Delta", id);
    QCOMPARE(id, QString());
}

void TestFrmSaveDirectNodeOnDatabase::Save_NewConnection_AddsBoth()
{
    SaveDirectOnDatabase s;
    SaveDirectNodeFixture& f = s.Dialog;
    f.ShowOnNew("Delta");
    f.TypeName("West");
    f.Click("cmdSave");

    QCOMPARE(f.Form->result(), int(QDialog::Accepted));
    QString target;
    s.File.OpenComponent()->GetParent("Delta", target);
    QCOMPARE(target, DirectNodes::NewConnectionTarget);
    QCOMPARE(s.Record("West"), "Delta;;;" + Target);
    s.CompareTrees(f.Direct(), "West");
}

void TestFrmSaveDirectNodeOnDatabase::Save_TakenConnection_ReplacesIt()
{
    SaveDirectOnDatabase s;
    SaveDirectNodeFixture& f = s.Dialog;
    f.ShowOnNew("Beta");
    f.TypeName("South");
    f.Click("cmdSave");

    QCOMPARE(f.Operator.Texts(),
             (QStringList{"Connection Beta exists in database. Do you want to replace it?",
                          "Node South exists in database. Do you want to replace it ?"}));
    QString target;
    s.File.OpenComponent()->GetParent("Beta", target);
    QCOMPARE(target, DirectNodes::NewConnectionTarget);
    QCOMPARE(s.Record("South"), "Beta;;;" + Target);
    QVERIFY(s.Record("East").startsWith("Beta;"));
    s.CompareTrees(f.Direct(), "South");
}

void TestFrmSaveDirectNodeOnDatabase::Save_ConnectionDeletedElsewhere_IsPrevented()
{
    SaveDirectOnDatabase s;
    SaveDirectNodeFixture& f = s.Dialog;
    f.ShowOn("Gamma");
    f.TypeName("West");
    s.File.OpenComponent()->DeleteParent("Gamma", true);
    f.Click("cmdSave");

    QCOMPARE(f.Operator.Boxes,
             std::vector{RecordedBox::Plain(ConnectionLost("Gamma", "deleted from database"))});
    QVERIFY(f.Form->isVisible());
    QCOMPARE(s.Record("West"), "none");
}

void TestFrmSaveDirectNodeOnDatabase::Save_ConnectionChangedElsewhere_IsPrevented()
{
    SaveDirectOnDatabase s;
    SaveDirectNodeFixture& f = s.Dialog;
    f.ShowOn("Alpha");
    f.TypeName("West");
    s.File.OpenComponent()->ReplaceParentTarget("Alpha", DatabaseFixture::BetaTarget);
    f.Click("cmdSave");

    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Plain(ConnectionLost("Alpha", "changed"))});
    QVERIFY(f.Form->isVisible());
    QCOMPARE(s.Record("West"), "none");
}

void TestFrmSaveDirectNodeOnDatabase::Save_HeldElsewhere_IsDenied()
{
    SaveDirectOnDatabase s;
    SaveDirectNodeFixture& f = s.Dialog;
    f.ShowOn("Alpha");
    f.TypeName("West");
    const auto other = s.File.OpenComponent();
    qint32 started = 0;
    other->BeginTransaction(started);
    other->DeleteNode("East");
    f.Operator.Answers = {BoxAnswer::Cancel};
    f.Click("cmdSave");

    QCOMPARE(f.Operator.Boxes.back(), RecordedBox::Error(Denied));
    QVERIFY(f.Form->isVisible());
    other->RollbackTransaction();
    f.Click("cmdSave");
    QCOMPARE(f.Form->result(), int(QDialog::Accepted));
    QCOMPARE(s.Record("West"), "Alpha;;;" + Target);
}

QTEST_MAIN(TestFrmSaveDirectNodeOnDatabase)
#include "TestFrmSaveDirectNodeOnDatabase.moc"
