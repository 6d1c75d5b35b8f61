#include "tests/database/SaveExpectations.h"
#include "tests/scan/NotSavedFixture.h"

using namespace SaveTexts;

/// New names for nodes that are not saved.
class TestNotSavedListRename : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Rename_NewName_IsTakenAndChecked();
    void Rename_DoubleClick_AsksForTheLine();
    void Rename_Answer_IsTrimmed();
    void Rename_NoAnswer_KeepsTheName_data();
    void Rename_NoAnswer_KeepsTheName();
    void Rename_RefusedAnswer_IsToldAndAskedAgain_data();
    void Rename_RefusedAnswer_IsToldAndAskedAgain();
    void Rename_SeveralLines_AreAskedInTurn();
    void Rename_RowsBehindSavedOnes_StaySelected();
    void Rename_NameOfAnotherRow_IsFoundAtTheSave();
    void Rename_AcceptedAnswers_AreTaken_data();
    void Rename_AcceptedAnswers_AreTaken();
    void Rename_SearchFails_IsToldAndAskedAgain();
    void Rename_CheckFails_IsTold();
    void Rename_HostDestroysTheForm_AsksNoMore_data();
    void Rename_HostDestroysTheForm_AsksNoMore();
    void Rename_ListEmptiedUnderABox_EndsQuietly();
};

static RecordedBox Question(const QString& name, const QString& address)
{
    return {QStringLiteral("Rename Node %1 (at address %2).").arg(name, address),
            RecordingPresenter::InputBoxFlags, "Rename Node"};
}

void TestNotSavedListRename::Rename_NewName_IsTakenAndChecked()
{
    NotSavedFixture f;
    f.Open({"North", QString(33, 'x')});
    f.Click("cmdSelectAll");
    f.Type({"West", "South"});

    f.Click("cmdRename");

    QCOMPARE(f.Operator.Boxes, (std::vector{Question("North", "101"), Question(QString(33, 'x'), "102")}));
    QCOMPARE(f.Shown(), (QStringList{"West", "South!"}));
    QCOMPARE(f.Selected(), (QList<int>{0, 1}));
    QCOMPARE(f.EnabledButtons(), (QStringList{"rename", "replace", "manager", "all"}));
}

void TestNotSavedListRename::Rename_DoubleClick_AsksForTheLine()
{
    NotSavedFixture f;
    f.Open({"North", "East"});
    f.Type({"West"});
    const QPoint line = f.List().visualItemRect(f.List().item(1)).center();

    QTest::mouseClick(f.List().viewport(), Qt::LeftButton, {}, line);
    QTest::mouseDClick(f.List().viewport(), Qt::LeftButton, {}, line);

    QCOMPARE(f.Operator.Boxes, std::vector{Question("East", "102")});
    QCOMPARE(f.Shown(), (QStringList{"North!", "West"}));
    QCOMPARE(f.Selected(), QList<int>{1});
}

void TestNotSavedListRename::Rename_Answer_IsTrimmed()
{
    NotSavedFixture f;
    f.Open({"North"});
    f.Type({"  My West "});

    f.Click("cmdRename");

    QCOMPARE(f.Names(), QStringList{"My West"});
}

void TestNotSavedListRename::Rename_NoAnswer_KeepsTheName_data()
{
    QTest::addColumn<bool>("cancel");
    QTest::addColumn<QString>("answer");
    QTest::newRow("cancel") << true << "";
    QTest::newRow("blank") << false << "";
    QTest::newRow("blanks") << false << "   ";
}

void TestNotSavedListRename::Rename_NoAnswer_KeepsTheName()
{
    QFETCH(bool, cancel);
    QFETCH(QString, answer);
    NotSavedFixture f;
    f.Open({"North", "East"});
    f.Click("cmdSelectAll");
    f.Type({cancel ? std::nullopt : std::optional(answer), "West"});

    f.Click("cmdRename");

    QCOMPARE(f.Operator.Boxes, (std::vector{Question("North", "101"), Question("East", "102")}));
    QCOMPARE(f.Names(), (QStringList{"North", "West"}));
}

void TestNotSavedListRename::Rename_RefusedAnswer_IsToldAndAskedAgain_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QString>("told");
    QTest::newRow("too long") << QString(33, 'y')
                              << QStringLiteral(
                                     "Node name \"%1\" length is 33 characters, 32 is allowed maximum "
                                     "length.")
                                     .arg(QString(33, 'y'));
    QTest::newRow("single quote") << "O'Hara"
                                  << "Invalid characters in node name.";
    QTest::newRow("too long, with a quote")
        << QString(40, '\'')
        << QStringLiteral("Node name \"%1\" length is 40 characters, 32 is allowed maximum length.")
               .arg(QString(40, '\''));
    QTest::newRow("reserved") << "nEW nODE"
                              << "Node name 'New Node' cannot be used as a node name.";
    QTest::newRow("connection") << "gamma"
                                << "Connection name gamma already exists in the database. Give a new name, "
                                   "because nodes and connections cannot share the same name.";
}

void TestNotSavedListRename::Rename_RefusedAnswer_IsToldAndAskedAgain()
{
    QFETCH(QString, answer);
    QFETCH(QString, told);
    NotSavedFixture f;
    f.Open({"North"});
    f.Type({answer, answer, "West"});

    f.Click("cmdRename");

    const RecordedBox question = Question("North", "101");
    const RecordedBox refusal = RecordedBox::Plain(told);
    QCOMPARE(f.Operator.Boxes, (std::vector{question, refusal, question, refusal, question}));
    QCOMPARE(f.Names(), QStringList{"West"});
}

void TestNotSavedListRename::Rename_SeveralLines_AreAskedInTurn()
{
    NotSavedFixture f;
    f.Open({"One", "Two", "Three", "Four"});
    f.ClickLine(3);
    f.ClickLine(1, Qt::ControlModifier);
    f.Type({"Alpha", std::nullopt, "Vier"});

    f.Click("cmdRename");

    QCOMPARE(f.Operator.Texts().filter("Rename Node"),
             (QStringList{"Rename Node Two (at address 102).", "Rename Node Two (at address 102).",
                          "Rename Node Four (at address 104)."}));
    QCOMPARE(f.Names(), (QStringList{"One", "Two", "Three", "Vier"}));
    QCOMPARE(f.Selected(), (QList<int>{1, 3}));
}

void TestNotSavedListRename::Rename_RowsBehindSavedOnes_StaySelected()
{
    NotSavedFixture f;
    f.Open({"One", "Two", "Three", "Four"});
    f.ClickLine(0);
    f.ClickLine(2, Qt::ControlModifier);
    f.Click("cmdSave");
    QCOMPARE(f.Shown(), (QStringList{"Two", "Four"}));
    f.ClickLine(1);
    f.Type({"Vier"});

    f.Click("cmdRename");

    QCOMPARE(f.Shown(), (QStringList{"Two", "Vier"}));
    QCOMPARE(f.Selected(), QList<int>{1});
    QCOMPARE(f.Names(), (QStringList{"One", "Two", "Three", "Vier"}));
}

void TestNotSavedListRename::Rename_NameOfAnotherRow_IsFoundAtTheSave()
{
    NotSavedFixture f;
    f.Open({"One", "Two"});
    f.ClickLine(1);
    f.Type({"One"});

    f.Click("cmdRename");

    QCOMPARE(f.Shown(), (QStringList{"One", "One"}));
    f.Click("cmdSelectAll");
    f.Click("cmdSave");
    QCOMPARE(f.States(), (QStringList{"saved", "exists"}));
}

void TestNotSavedListRename::Rename_AcceptedAnswers_AreTaken_data()
{
    QTest::addColumn<QString>("answer");
    QTest::newRow("32 characters") << QString(32, 'y');
    QTest::newRow("existing node") << "South";
    QTest::newRow("double quote, comma") << "\"West\", 2";
    QTest::newRow("part of the reserved name") << "New Node 2";
}

void TestNotSavedListRename::Rename_AcceptedAnswers_AreTaken()
{
    QFETCH(QString, answer);
    NotSavedFixture f;
    f.Open({"North"});
    f.Type({answer});

    f.Click("cmdRename");

    QCOMPARE(f.Names(), QStringList{answer});
    QCOMPARE(f.Operator.Boxes.size(), std::size_t(1));
}

void TestNotSavedListRename::Rename_SearchFails_IsToldAndAskedAgain()
{
    NotSavedFixture f;
    f.Open({"North"});
    f.Component.FailTimes("ParentNameExist", 1);
    f.Type({"West", "West"});

    f.Click("cmdRename");

    QCOMPARE(f.Operator.Boxes, (std::vector{Question("North", "101"), RecordedBox::Error(UnknownError),
                                            RecordedBox::Plain(SearchFailure), Question("North", "101")}));
    QCOMPARE(f.Names(), QStringList{"West"});
}

void TestNotSavedListRename::Rename_CheckFails_IsTold()
{
    NotSavedFixture f;
    f.Open({"North", "East"});
    f.ClickLine(1);
    f.Component.Fail("NodeNameExist");
    f.Type({"West"});

    f.Click("cmdRename");

    QCOMPARE(f.Operator.Boxes.back(), RecordedBox::Plain("Database error, connection to database broken."));
    QCOMPARE(f.Names(), (QStringList{"North", "West"}));
    QCOMPARE(f.Selected(), QList<int>{1});
    f.Component.Repair();
    f.Click("cmdRename");
    QCOMPARE(f.Shown(), (QStringList{"North!", "West"}));
}

void TestNotSavedListRename::Rename_HostDestroysTheForm_AsksNoMore_data()
{
    QTest::addColumn<bool>("underRefusal");
    QTest::newRow("question") << false;
    QTest::newRow("refusal") << true;
}

void TestNotSavedListRename::Rename_HostDestroysTheForm_AsksNoMore()
{
    QFETCH(const bool, underRefusal);
    NotSavedFixture f;
    f.Open({"North", "East"});
    f.Click("cmdSelectAll");
    f.Type({underRefusal ? "Alpha" : "West", "Sigma"});
    f.Operator.WhileOpen = [&](const RecordedBox&) { f.Form.reset(); };
    if (!underRefusal)
        f.Operator.WhileInput = [&] { f.Form.reset(); };

    f.Click("cmdRename");

    QVERIFY(!f.Form);
    QCOMPARE(f.Operator.Boxes.size(), std::size_t(underRefusal ? 2 : 1));
    QCOMPARE(f.Names(), (QStringList{"North", "East"}));
}

void TestNotSavedListRename::Rename_ListEmptiedUnderABox_EndsQuietly()
{
    NotSavedFixture f;
    f.Open({"North", "East"});
    f.Click("cmdSelectAll");
    f.Type({"Alpha", "West"});
    f.Operator.WhileOpen = [](const RecordedBox&) { Scan().ScanSaveList.clear(); };

    f.Click("cmdRename");

    QCOMPARE(f.Operator.Texts().filter("Rename Node").size(), 1);
    QVERIFY(f.Lines().isEmpty());
}

QTEST_MAIN(TestNotSavedListRename)
#include "TestNotSavedListRename.moc"
