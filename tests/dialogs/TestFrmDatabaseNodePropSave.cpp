#include "dialogs/GridEdit.h"
#include "tests/dialogs/NodePropFixture.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTest>

/// What the Save button of the node dialog checks and tells.
class TestFrmDatabaseNodePropSave : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ReservedName_AnyCase_IsRefused_data();
    void ReservedName_AnyCase_IsRefused();
    void OutOfRange_OpenEditor_SavesNothing();
    void OutOfRange_ByKey_SavesNothing();
    void OpenEditor_InRange_IsSaved();
    void Mandatory_WithoutValue_IsRefused();
    void Password_Missing_IsRefused();
    void Password_Typed_IsSavedAsTyped();
    void Name_Blanks_AreRemovedInTheBox();
    void Name_Empty_IsRefused();
    void Name_OfAConnection_IsRefused_data();
    void Name_OfAConnection_IsRefused();
    void Begin_Denied_SavesNothing();
    void Commit_Failed_KeepsTheDialog();
    void Saved_EndsTheDialog();
    void Saved_ByEnterInTheName_EndsTheDialog();
    void Refused_ThenMended_IsSaved();
    void FeUnused_IsNotSaved();
    void FeUsed_IsSaved();
};

void TestFrmDatabaseNodePropSave::ReservedName_AnyCase_IsRefused_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name : {"New Node", "new node", "NEW NODE", " nEW nODE "})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestFrmDatabaseNodePropSave::ReservedName_AnyCase_IsRefused()
{
    QFETCH(QString, name);
    NodePropFixture f;
    f.ShowNewNode("North");
    f.TypeName(name);
    f.Forget();
    f.Click("cmdSave");

    QCOMPARE(f.Operator.Boxes,
             std::vector{RecordedBox::Plain("'New Node' cannot be used as a node name, give a new name.")});
    QCOMPARE(f.Component.Calls, QStringList());
    QVERIFY(f.Form->isVisible());
}

void TestFrmDatabaseNodePropSave::OutOfRange_OpenEditor_SavesNothing()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.OpenEditor(1);
    f.Find<QLineEdit>("txtGridEdit").setText("5000");
    f.Forget();
    f.Click("cmdSave");

    QCOMPARE(f.Operator.Boxes,
             std::vector{RecordedBox::Plain("Value 5000 out of range [ 0, 4094]. Give a new value.")});
    QCOMPARE(f.Component.Count("BeginTransaction"), 0);
    QCOMPARE(f.Cell(1), "17");
    QVERIFY(f.Form->isVisible());
}

void TestFrmDatabaseNodePropSave::OutOfRange_ByKey_SavesNothing()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.OpenEditor(1);
    f.Find<QLineEdit>("txtGridEdit").setText("5000");
    f.Forget();
    QTest::keyClick(f.Editor(), Qt::Key_S, Qt::AltModifier);

    QTRY_COMPARE(f.Operator.Texts(), QStringList{"Value 5000 out of range [ 0, 4094]. Give a new value."});
    QCOMPARE(f.Component.Count("BeginTransaction"), 0);
    QVERIFY(f.Form->isVisible());
}

void TestFrmDatabaseNodePropSave::OpenEditor_InRange_IsSaved()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.TypeValue(1, "99");
    f.Click("cmdSave");

    QVERIFY2(f.Target().startsWith("WP=NET4,ADDR=99,"), qPrintable(f.Target()));
    QCOMPARE(f.Form->result(), int(QDialog::Accepted));
}

void TestFrmDatabaseNodePropSave::Mandatory_WithoutValue_IsRefused()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.EnterValue(1, "");
    const QStringList before = f.Records();
    f.Click("cmdSave");

    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Plain("Mandatory parameter without value (check "
                                                              "parameter names with bold font).")});
    QCOMPARE(f.Records(), before);
    QCOMPARE(f.Component.Store.Levels(), 0);
    QVERIFY(f.Form->isVisible());
}

void TestFrmDatabaseNodePropSave::Password_Missing_IsRefused()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.Choose("cboNodeType", "MML Network Element");
    f.EnterValue(1, "admin");
    f.Click("cmdSave");

    QCOMPARE(f.Operator.Boxes,
             std::vector{RecordedBox::Plain("Mandatory and mutually exclusive parameters are set incorrectly "
                                            "(check parameters with bold and italic font).")});
    QVERIFY(f.Form->isVisible());
}

void TestFrmDatabaseNodePropSave::Password_Typed_IsSavedAsTyped()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.Choose("cboNodeType", "MML Network Element");
    f.EnterValue(1, "admin");
    f.EnterValue(2, "secret");
    f.Click("cmdSave");

    QCOMPARE(f.Target(), "WP=NEMML,USER=admin,PSW=secret,TIME=2000,RETRY=2");
    QCOMPARE(f.Form->result(), int(QDialog::Accepted));
}

void TestFrmDatabaseNodePropSave::Name_Blanks_AreRemovedInTheBox()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.TypeName("  Alpha ");
    f.Click("cmdSave");

    QCOMPARE(f.Name(), "Alpha");
    QVERIFY(f.Form->isVisible());
}

void TestFrmDatabaseNodePropSave::Name_Empty_IsRefused()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.TypeName("   ");
    f.Click("cmdSave");

    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Plain("Give node name.")});
    QCOMPARE(f.Name(), QString());
    QCOMPARE(f.Con().NodeName, "North");
    QVERIFY(f.Form->isVisible());
}

void TestFrmDatabaseNodePropSave::Name_OfAConnection_IsRefused_data()
{
    QTest::addColumn<bool>("isNew");
    QTest::newRow("new") << true;
    QTest::newRow("rename") << false;
}

void TestFrmDatabaseNodePropSave::Name_OfAConnection_IsRefused()
{
    QFETCH(bool, isNew);
    NodePropFixture f;
    if (isNew)
        f.ShowNewNode("North");
    else
        f.ShowNode("North");
    f.TypeName("beta");
    f.Click("cmdSave");

    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Plain(
                                   "Node name beta already exists in the database. No saving, because "
                                   "nodes and connections cannot share the same name.")});
    QVERIFY(f.Form->isVisible());
}

void TestFrmDatabaseNodePropSave::Begin_Denied_SavesNothing()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.Component.Fail("BeginTransaction", 1);
    const QStringList before = f.Records();
    f.Click("cmdSave");

    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Error("Database access is denied, because another "
                                                              "application is using it.")});
    QCOMPARE(f.Records(), before);
    QVERIFY(f.Form->isVisible());
}

void TestFrmDatabaseNodePropSave::Commit_Failed_KeepsTheDialog()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.EnterValue(1, "99");
    const QStringList before = f.Records();
    // Those of the operations inside work; the one that ends the save does not.
    f.Component.BeforeCall = [&](const QString& call) {
        if (call.startsWith(u"CommitTransaction") && f.Component.Store.Levels() == 1)
            f.Component.FailTimes("CommitTransaction", 1);
    };
    f.Click("cmdSave");

    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Error("Failure to commit database operations.")});
    QCOMPARE(f.Records(), before);
    QVERIFY(f.Form->isVisible());
    QCOMPARE(f.Cell(1), "99");
}

void TestFrmDatabaseNodePropSave::Saved_EndsTheDialog()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.TypeName("  West ");
    f.EnterValue(1, "99");
    f.Click("cmdSave");

    QVERIFY(f.Operator.Boxes.empty());
    QVERIFY(!f.Form->isVisible());
    QCOMPARE(f.Form->result(), int(QDialog::Accepted));
    QCOMPARE(f.Con().NodeName, "West");
    QCOMPARE(f.Con().NodeDbID, f.IdOfNode("West"));
    QCOMPARE(f.ConTree.Text(f.Con().SelectedTreeNodeIndex), "West");
    QCOMPARE(f.TreeContents(), SaveFixture::FreshTreeContents());
}

void TestFrmDatabaseNodePropSave::Saved_ByEnterInTheName_EndsTheDialog()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.TypeName("West");
    QTest::keyClick(&f.Find<QLineEdit>("txtNodeName"), Qt::Key_Return);

    QCOMPARE(f.Form->result(), int(QDialog::Accepted));
    QCOMPARE(f.IdOfNode("North"), 0);
    QVERIFY(f.IdOfNode("West") > 0);
}

void TestFrmDatabaseNodePropSave::Refused_ThenMended_IsSaved()
{
    NodePropFixture f;
    f.ShowNewNode("North");
    f.TypeName("Alpha");
    f.EnterValue(1, "99");
    f.Click("cmdSave");
    QCOMPARE(f.Operator.Boxes.size(), size_t{1});
    f.TypeName("West");
    f.Click("cmdSave");

    QCOMPARE(f.Operator.Boxes.size(), size_t{1});
    QCOMPARE(f.Form->result(), int(QDialog::Accepted));
    QVERIFY(f.IdOfNode("North") > 0);
    QVERIFY(f.IdOfNode("West") > 0);
}

void TestFrmDatabaseNodePropSave::FeUnused_IsNotSaved()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.ClickPage(1);
    f.ClickPage(2);
    f.Click("cmdSave");

    QCOMPARE(f.Target(), SaveFixture::NorthTarget + ",WP=OPT,PR=T4DT,DT=TEXT,VERIFY=YES");
}

void TestFrmDatabaseNodePropSave::FeUsed_IsSaved()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.ClickPage(1);
    f.ClickPage(2);
    f.EnterValue(1, "7");
    f.Click("cmdSave");

    QCOMPARE(f.Target(),
             SaveFixture::NorthTarget +
                 ",WP=OPT,PR=T4DT,DT=TEXT,VERIFY=YES,WP=FE,ID=7,CH=0,MODE=AUTO,WIN=2,ACK=100,PKT=18");
}

QTEST_MAIN(TestFrmDatabaseNodePropSave)
#include "TestFrmDatabaseNodePropSave.moc"
