#include "tests/database/SaveExpectations.h"
#include "tests/dialogs/SaveDirectNodeFixture.h"

#include <QLineEdit>
#include <QTest>

using namespace SaveTexts;

/// What the Save button does in the dialog that saves a node of the Direct tab.
class TestFrmSaveDirectNodeSave : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ReservedName_AnyCase_IsRefused_data();
    void ReservedName_AnyCase_IsRefused();
    void OutOfRange_OpenEditor_SavesNothing();
    void OpenEditor_InRange_IsSaved();
    void Mandatory_WithoutValue_IsRefused();
    void Name_Blanks_AreRemovedInTheBox();
    void Name_Empty_IsRefused();
    void Connection_ChangedElsewhere_IsRefused();
    void Begin_Denied_KeepsTheDialog();
    void Commit_Failed_KeepsTheDialog();
    void Saved_EndsTheDialog();
    void Saved_ByEnterInTheName_EndsTheDialog();
    void Saved_NewConnection_IsThere();
    void ConnectionQuestion_Cancel_KeepsTheDialog();
    void NodeQuestion_Ok_Replaces();
    void Refused_ThenMended_IsSaved();
    void PacketSize_DoesNotMatch_IsSaved();
    void GroupOfTheNode_TwoValues_IsSaved();
};

static const QString Target =
    QStringLiteral("WP=NET4,ADDR=99,SUB=0,PRIO=NORMAL,CRC=ON,TIME=3000,RETRY=5,WP=OPT");

void TestFrmSaveDirectNodeSave::ReservedName_AnyCase_IsRefused_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name : {"New Node", "new node", " nEW nODE "})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestFrmSaveDirectNodeSave::ReservedName_AnyCase_IsRefused()
{
    QFETCH(QString, name);
    SaveDirectNodeFixture f;
    f.ShowOn("Alpha");
    f.TypeName(name);
    f.Forget();
    f.Click("cmdSave");

    QCOMPARE(f.Operator.Boxes,
             std::vector{RecordedBox::Plain("'New Node' cannot be used as a node name, give a new name.")});
    QCOMPARE(f.Component.Calls, QStringList());
    QVERIFY(f.Form->isVisible());
}

void TestFrmSaveDirectNodeSave::OutOfRange_OpenEditor_SavesNothing()
{
    SaveDirectNodeFixture f;
    f.ShowOn("Alpha");
    f.TypeName("West");
    f.OpenEditor(1);
    f.Find<QLineEdit>("txtGridEdit").setText("5000");
    f.Forget();
    f.Click("cmdSave");

    QCOMPARE(f.Operator.Texts(), QStringList{"Value 5000 out of range [ 0, 4094]. Give a new value."});
    QCOMPARE(f.Component.Count("BeginTransaction"), 0);
    QVERIFY(f.Form->isVisible());
}

void TestFrmSaveDirectNodeSave::OpenEditor_InRange_IsSaved()
{
    SaveDirectNodeFixture f;
    f.ShowOn("Alpha");
    f.TypeName("West");
    f.TypeValue(1, "100");
    f.Click("cmdSave");

    QVERIFY2(f.Direct().TargetString.startsWith("WP=NET4,ADDR=100,"), qPrintable(f.Direct().TargetString));
    QCOMPARE(f.Form->result(), int(QDialog::Accepted));
}

void TestFrmSaveDirectNodeSave::Mandatory_WithoutValue_IsRefused()
{
    SaveDirectNodeFixture f;
    f.ShowOn("Alpha");
    f.TypeName("West");
    f.EnterValue(1, "");
    const QStringList before = f.Records();
    f.Click("cmdSave");

    QCOMPARE(f.Operator.Boxes,
             std::vector{RecordedBox::Plain("T4 Node mandatory parameter without value (check parameter "
                                            "names with bold font).")});
    QCOMPARE(f.Records(), before);
    QVERIFY(f.Form->isVisible());
}

void TestFrmSaveDirectNodeSave::Name_Blanks_AreRemovedInTheBox()
{
    SaveDirectNodeFixture f;
    f.ShowOn("Alpha");
    f.TypeName("  Beta ");
    f.Click("cmdSave");

    QCOMPARE(f.Name(), "Beta");
    QVERIFY(f.Form->isVisible());
}

void TestFrmSaveDirectNodeSave::Name_Empty_IsRefused()
{
    SaveDirectNodeFixture f;
    f.ShowOn("Alpha");
    f.Click("cmdSave");

    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Plain("Give node name.")});
    QVERIFY(f.Form->isVisible());
}

void TestFrmSaveDirectNodeSave::Connection_ChangedElsewhere_IsRefused()
{
    SaveDirectNodeFixture f;
    f.ShowOn("Alpha");
    f.TypeName("West");
    f.ChangeElsewhere("Alpha");
    f.Click("cmdSave");

    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Plain(ConnectionLost("Alpha", "changed"))});
    QCOMPARE(f.IdOfNode("West"), 0);
    QVERIFY(f.Form->isVisible());
}

void TestFrmSaveDirectNodeSave::Begin_Denied_KeepsTheDialog()
{
    SaveDirectNodeFixture f;
    f.ShowOn("Alpha");
    f.TypeName("West");
    f.Component.Fail("BeginTransaction", 1);
    f.Click("cmdSave");

    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Error(Denied)});
    QVERIFY(f.Form->isVisible());
}

void TestFrmSaveDirectNodeSave::Commit_Failed_KeepsTheDialog()
{
    SaveDirectNodeFixture f;
    f.ShowOn("Alpha");
    f.TypeName("West");
    f.EnterValue(1, "100");
    f.Component.BeforeCall = [&](const QString& call) {
        if (call.startsWith(u"CommitTransaction") && f.Component.Store.Levels() == 1)
            f.Component.FailTimes("CommitTransaction", 1);
    };
    f.Click("cmdSave");

    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Error(CommitFailure)});
    QVERIFY(f.Form->isVisible());
    QCOMPARE(f.Cell(1), "100");
    QCOMPARE(f.IdOfNode("West"), 0);
}

void TestFrmSaveDirectNodeSave::Saved_EndsTheDialog()
{
    SaveDirectNodeFixture f;
    f.ShowOn("Alpha");
    f.TypeName("  West ");
    f.Click("cmdSave");

    QVERIFY(f.Operator.Boxes.empty());
    QVERIFY(!f.Form->isVisible());
    QCOMPARE(f.Form->result(), int(QDialog::Accepted));
    QVERIFY(f.Records().contains(QStringList{"West", "Alpha", "", Target, "", ""}.join('|')));
    QCOMPARE(f.Direct().NodeName, "West");
    QCOMPARE(f.ConTree.Text(f.Direct().SelectedTreeNodeIndex), "West");
    QCOMPARE(f.TreeContents(), SaveFixture::FreshTreeContents());
}

void TestFrmSaveDirectNodeSave::Saved_ByEnterInTheName_EndsTheDialog()
{
    SaveDirectNodeFixture f;
    f.ShowOn("Alpha");
    f.TypeName("West");
    QTest::keyClick(&f.Find<QLineEdit>("txtNodeName"), Qt::Key_Return);

    QCOMPARE(f.Form->result(), int(QDialog::Accepted));
    QVERIFY(f.IdOfNode("West") > 0);
}

void TestFrmSaveDirectNodeSave::Saved_NewConnection_IsThere()
{
    SaveDirectNodeFixture f;
    f.ShowOnNew("Delta");
    f.TypeName("West");
    f.Click("cmdSave");

    QVERIFY(f.Operator.Boxes.empty());
    QVERIFY(f.Records().contains("Delta|" + DirectNodes::NewConnectionTarget));
    QVERIFY(f.Records().contains(QStringList{"West", "Delta", "", Target, "", ""}.join('|')));
    QCOMPARE(f.TreeContents(), SaveFixture::FreshTreeContents());
}

void TestFrmSaveDirectNodeSave::ConnectionQuestion_Cancel_KeepsTheDialog()
{
    SaveDirectNodeFixture f;
    f.ShowOnNew("Beta");
    f.TypeName("West");
    const QStringList before = f.Records();
    f.Operator.Answers = {BoxAnswer::Cancel};
    f.Click("cmdSave");

    QCOMPARE(f.Operator.Texts(),
             (QStringList{"Connection Beta exists in database. Do you want to replace it?",
                          "Connection and node saving canceled."}));
    QCOMPARE(f.Records(), before);
    QVERIFY(f.Form->isVisible());
}

void TestFrmSaveDirectNodeSave::NodeQuestion_Ok_Replaces()
{
    SaveDirectNodeFixture f;
    f.ShowOn("Alpha");
    f.TypeName("South");
    f.Click("cmdSave");

    QCOMPARE(f.Operator.Texts(), QStringList{"Node South exists in database. Do you want to replace it ?"});
    QCOMPARE(f.Form->result(), int(QDialog::Accepted));
    QVERIFY(f.Records().contains(QStringList{"South", "Alpha", "", Target, "", ""}.join('|')));
}

void TestFrmSaveDirectNodeSave::Refused_ThenMended_IsSaved()
{
    SaveDirectNodeFixture f;
    f.ShowOnNew("Delta");
    f.TypeName("Delta");
    f.Click("cmdSave");
    QCOMPARE(f.Operator.Boxes.size(), size_t{1});
    QCOMPARE(f.IdOfConnection("Delta"), 0);
    f.TypeName("West");
    f.Click("cmdSave");

    QCOMPARE(f.Operator.Boxes.size(), size_t{1});
    QCOMPARE(f.Form->result(), int(QDialog::Accepted));
    QVERIFY(f.IdOfConnection("Delta") > 0);
    QVERIFY(f.IdOfNode("West") > 0);
}

void TestFrmSaveDirectNodeSave::PacketSize_DoesNotMatch_IsSaved()
{
    SaveDirectNodeFixture f;
    f.ShowOn("Alpha");
    f.TypeName("West");
    f.ClickPage(2);
    f.EnterValue(1, "7");
    f.EnterValue(2, "15");
    f.EnterValue(6, "1020");
    f.Click("cmdSave");

    QCOMPARE(f.Form->result(), int(QDialog::Accepted));
    QCOMPARE(f.Direct().TargetString, Target + ",WP=FE,ID=7,CH=15,MODE=AUTO,WIN=2,ACK=100,PKT=1020");
}

void TestFrmSaveDirectNodeSave::GroupOfTheNode_TwoValues_IsSaved()
{
    SaveDirectNodeFixture f;
    f.ShowOn("Alpha");
    for (const int row : {2, 3})
        f.Direct().SetWpDataItem(1, row, 5, "2");
    f.TypeName("West");
    f.Click("cmdSave");

    QVERIFY(f.Operator.Boxes.empty());
    QVERIFY(f.IdOfNode("West") > 0);
}

QTEST_MAIN(TestFrmSaveDirectNodeSave)
#include "TestFrmSaveDirectNodeSave.moc"
