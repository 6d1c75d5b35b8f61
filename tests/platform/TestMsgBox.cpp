#include "platform/MsgBox.h"
#include "tests/support/RecordingPresenter.h"

#include <QTest>

/// The gate for boxes.
class TestMsgBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void MsgBox_WithoutTitle_HasTheApplications();
    void MsgBox_Arguments_ReachThePresenter();
    void MsgBox_Answer_ComesBack_data();
    void MsgBox_Answer_ComesBack();
    void ErrorBox_HasIconAndTitleOfErrors();
    void Titles_AreThese();
    void InputBox_Answer_ComesBack();
    void InputBox_Cancel_KeepsTheValue();
    void BuiltInPresenter_Declines_data();
    void BuiltInPresenter_Declines();
    void BuiltInPresenter_InputBox_IsCancelled();
    void SetBoxPresenter_GivesTheOneBefore();
    void Observer_RunsBeforeAnyBox();
    void Observer_MayRemoveItself();
    void SetBoxObserver_GivesTheOneBefore();
    void HeldBoxes_ThatTell_AreShownAtTheEndInOrder();
    void HeldBoxes_FlagsOfABoxThatTells_data();
    void HeldBoxes_FlagsOfABoxThatTells();
    void HeldBoxes_Nested_OnlyTheOutermostShows();
    void HeldBoxes_Show_GoesOnHolding();
    void HeldBoxes_ShowOfAnInnerScope_ShowsNothing();
    void HeldBoxes_BeforeABoxThatAsks_AreShown();
    void HeldBoxes_BeforeAnInputBox_AreShown();
    void HeldBoxes_Nothing_ShowsNothing();
    void HeldBoxes_BoxMadeWhileTheyAreShown_HasItsPlace_data();
    void HeldBoxes_BoxMadeWhileTheyAreShown_HasItsPlace();
    void HeldBoxes_AfterAnException_AreShown();
    void HeldBoxes_Observer_RunsBeforeEachWhenItIsShown();
};

void TestMsgBox::MsgBox_WithoutTitle_HasTheApplications()
{
    RecordingPresenter presenter;

    MsgBox("text");

    QCOMPARE(presenter.Boxes, (std::vector{RecordedBox{"text", 0, "Zelka Connection Browser"}}));
}

void TestMsgBox::MsgBox_Arguments_ReachThePresenter()
{
    RecordingPresenter presenter;

    MsgBox("text", BoxFlags::YesNo | BoxFlags::Question, "title");

    QCOMPARE(presenter.Boxes, (std::vector{RecordedBox{"text", 36, "title"}}));
}

void TestMsgBox::MsgBox_Answer_ComesBack_data()
{
    QTest::addColumn<BoxAnswer>("answer");
    QTest::newRow("OK") << BoxAnswer::Ok;
    QTest::newRow("Cancel") << BoxAnswer::Cancel;
    QTest::newRow("Yes") << BoxAnswer::Yes;
    QTest::newRow("No") << BoxAnswer::No;
}

void TestMsgBox::MsgBox_Answer_ComesBack()
{
    QFETCH(BoxAnswer, answer);
    RecordingPresenter presenter;
    presenter.Answers = {answer};

    QCOMPARE(MsgBox("text", BoxFlags::YesNoCancel), answer);
}

void TestMsgBox::ErrorBox_HasIconAndTitleOfErrors()
{
    RecordingPresenter presenter;

    ErrorBox("text");

    QCOMPARE(presenter.Boxes, (std::vector{RecordedBox{"text", 16, "Zelka Connection Browser - Error"}}));
}

void TestMsgBox::Titles_AreThese()
{
    QCOMPARE(ApplicationTitle(), "Zelka Connection Browser");
    QCOMPARE(ErrorBoxTitle(), "Zelka Connection Browser - Error");
    QCOMPARE(ErrorBoxFlags(), 16);
}

void TestMsgBox::InputBox_Answer_ComesBack()
{
    RecordingPresenter presenter;
    presenter.Inputs = {QStringLiteral("after")};
    QString value = "before";

    QVERIFY(InputBox("prompt", "", value));

    QCOMPARE(value, "after");
    QCOMPARE(presenter.Boxes[0].title, ApplicationTitle());
}

void TestMsgBox::InputBox_Cancel_KeepsTheValue()
{
    RecordingPresenter presenter;
    QString value = "before";

    QVERIFY(!InputBox("prompt", "title", value));

    QCOMPARE(value, "before");
    QCOMPARE(presenter.Boxes[0].text, "prompt");
}

void TestMsgBox::BuiltInPresenter_Declines_data()
{
    QTest::addColumn<int>("flags");
    QTest::addColumn<BoxAnswer>("answer");
    QTest::newRow("information") << BoxFlags::Plain << BoxAnswer::Ok;
    QTest::newRow("error") << BoxFlags::Critical << BoxAnswer::Ok;
    QTest::newRow("OK or Cancel") << BoxFlags::OkCancel << BoxAnswer::Cancel;
    QTest::newRow("OK or Cancel, with an icon")
        << (BoxFlags::OkCancel | BoxFlags::Exclamation) << BoxAnswer::Cancel;
    QTest::newRow("Yes or No") << (BoxFlags::YesNo | BoxFlags::Question) << BoxAnswer::No;
    QTest::newRow("Yes, No or Cancel") << BoxFlags::YesNoCancel << BoxAnswer::Cancel;
}

void TestMsgBox::BuiltInPresenter_Declines()
{
    QFETCH(int, flags);
    QFETCH(BoxAnswer, answer);

    QCOMPARE(MsgBox("text", flags), answer);
}

void TestMsgBox::BuiltInPresenter_InputBox_IsCancelled()
{
    QString value = "before";

    QVERIFY(!InputBox("prompt", "title", value));

    QCOMPARE(value, "before");
}

void TestMsgBox::SetBoxPresenter_GivesTheOneBefore()
{
    RecordingPresenter outer;
    {
        RecordingPresenter inner;
        MsgBox("inner");
        QCOMPARE(inner.Boxes.size(), 1u);
        QVERIFY(SetBoxPresenter(&inner) == &inner);
    }
    MsgBox("outer");

    QCOMPARE(outer.Texts(), QStringList{"outer"});
    QVERIFY(SetBoxPresenter(nullptr) == &outer);
    QVERIFY(SetBoxPresenter(&outer) == nullptr);
}

void TestMsgBox::Observer_RunsBeforeAnyBox()
{
    RecordingPresenter presenter;
    QList<size_t> shownBefore;
    SetBoxObserver([&] { shownBefore << presenter.Boxes.size(); });
    QString value;

    MsgBox("one");
    ErrorBox("two");
    InputBox("three", "", value);
    SetBoxObserver(nullptr);
    MsgBox("four");

    QCOMPARE(shownBefore, (QList<size_t>{0, 1, 2}));
    QCOMPARE(presenter.Texts(), (QStringList{"one", "two", "three", "four"}));
}

void TestMsgBox::Observer_MayRemoveItself()
{
    RecordingPresenter presenter;
    int told = 0;
    SetBoxObserver([&] {
        SetBoxObserver(nullptr);
        ++told;
    });

    MsgBox("one");
    MsgBox("two");

    QCOMPARE(told, 1);
}

void TestMsgBox::SetBoxObserver_GivesTheOneBefore()
{
    RecordingPresenter presenter;
    int told = 0;
    SetBoxObserver([&] { ++told; });

    const std::function<void()> before = SetBoxObserver(nullptr);
    QVERIFY(before);
    before();

    QCOMPARE(told, 1);
    QVERIFY(!SetBoxObserver(nullptr));
}

void TestMsgBox::HeldBoxes_ThatTell_AreShownAtTheEndInOrder()
{
    RecordingPresenter presenter;
    {
        const HeldBoxes held;
        QCOMPARE(MsgBox("one"), BoxAnswer::Ok);
        ErrorBox("two");
        MsgBox("three", BoxFlags::Exclamation, "title");
        QCOMPARE(presenter.Boxes, std::vector<RecordedBox>{});
    }

    QCOMPARE(presenter.Boxes, (std::vector{RecordedBox::Plain("one"), RecordedBox::Error("two"),
                                           RecordedBox{"three", 48, "title"}}));
    MsgBox("four");
    QCOMPARE(presenter.Boxes.size(), 4u);
}

void TestMsgBox::HeldBoxes_FlagsOfABoxThatTells_data()
{
    QTest::addColumn<int>("flags");
    QTest::addColumn<bool>("held");
    QTest::newRow("plain") << BoxFlags::Plain << true;
    QTest::newRow("critical") << BoxFlags::Critical << true;
    QTest::newRow("question mark alone") << BoxFlags::Question << true;
    QTest::newRow("exclamation") << BoxFlags::Exclamation << true;
    QTest::newRow("information") << BoxFlags::Information << true;
    QTest::newRow("OK or Cancel") << BoxFlags::OkCancel << false;
    QTest::newRow("Yes, No or Cancel") << BoxFlags::YesNoCancel << false;
    QTest::newRow("Yes or No, with an icon") << (BoxFlags::YesNo | BoxFlags::Question) << false;
}

void TestMsgBox::HeldBoxes_FlagsOfABoxThatTells()
{
    QFETCH(int, flags);
    QFETCH(bool, held);
    RecordingPresenter presenter;
    const HeldBoxes holder;

    MsgBox("text", flags);

    QCOMPARE(presenter.Boxes.empty(), held);
}

void TestMsgBox::HeldBoxes_Nested_OnlyTheOutermostShows()
{
    RecordingPresenter presenter;
    {
        const HeldBoxes outer;
        MsgBox("one");
        {
            const HeldBoxes inner;
            MsgBox("two");
        }
        QCOMPARE(presenter.Boxes, std::vector<RecordedBox>{});
        MsgBox("three");
    }

    QCOMPARE(presenter.Texts(), (QStringList{"one", "two", "three"}));
}

void TestMsgBox::HeldBoxes_Show_GoesOnHolding()
{
    RecordingPresenter presenter;
    {
        HeldBoxes held;
        MsgBox("one");
        held.Show();
        QCOMPARE(presenter.Texts(), QStringList{"one"});
        MsgBox("two");
        QCOMPARE(presenter.Texts(), QStringList{"one"});
    }

    QCOMPARE(presenter.Texts(), (QStringList{"one", "two"}));
}

void TestMsgBox::HeldBoxes_ShowOfAnInnerScope_ShowsNothing()
{
    RecordingPresenter presenter;
    {
        const HeldBoxes outer;
        HeldBoxes inner;
        MsgBox("one");
        inner.Show();
        QCOMPARE(presenter.Boxes, std::vector<RecordedBox>{});
    }

    QCOMPARE(presenter.Texts(), QStringList{"one"});
}

void TestMsgBox::HeldBoxes_BeforeABoxThatAsks_AreShown()
{
    RecordingPresenter presenter;
    presenter.Answers = {BoxAnswer::Ok, BoxAnswer::Ok, BoxAnswer::Cancel};
    {
        const HeldBoxes held;
        MsgBox("one");
        MsgBox("two");
        QCOMPARE(MsgBox("three ?", BoxFlags::OkCancel), BoxAnswer::Cancel);
        QCOMPARE(presenter.Texts(), (QStringList{"one", "two", "three ?"}));
        MsgBox("four");
        QCOMPARE(presenter.Boxes.size(), 3u);
    }

    QCOMPARE(presenter.Texts(), (QStringList{"one", "two", "three ?", "four"}));
}

void TestMsgBox::HeldBoxes_BeforeAnInputBox_AreShown()
{
    RecordingPresenter presenter;
    const HeldBoxes held;
    QString value;
    MsgBox("one");

    InputBox("two", "", value);

    QCOMPARE(presenter.Texts(), (QStringList{"one", "two"}));
}

void TestMsgBox::HeldBoxes_Nothing_ShowsNothing()
{
    RecordingPresenter presenter;
    {
        HeldBoxes held;
        held.Show();
    }

    QCOMPARE(presenter.Boxes, std::vector<RecordedBox>{});
}

void TestMsgBox::HeldBoxes_BoxMadeWhileTheyAreShown_HasItsPlace_data()
{
    QTest::addColumn<bool>("atTheEnd");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("shown at the end") << true << QStringList{"one", "nested", "two"};
    QTest::newRow("shown in between") << false << QStringList{"one", "two", "nested"};
}

void TestMsgBox::HeldBoxes_BoxMadeWhileTheyAreShown_HasItsPlace()
{
    QFETCH(bool, atTheEnd);
    QFETCH(QStringList, texts);
    RecordingPresenter presenter;
    // An event that arrives while the first box stands open.
    presenter.WhileOpen = [](const RecordedBox& box) {
        if (box.text == "one")
            MsgBox("nested");
    };
    {
        HeldBoxes held;
        MsgBox("one");
        MsgBox("two");
        if (!atTheEnd)
            held.Show();
    }

    QCOMPARE(presenter.Texts(), texts);
}

void TestMsgBox::HeldBoxes_AfterAnException_AreShown()
{
    RecordingPresenter presenter;
    const auto fail = [] {
        const HeldBoxes held;
        MsgBox("one");
        throw 1;
    };

    QVERIFY_EXCEPTION_THROWN(fail(), int);

    QCOMPARE(presenter.Texts(), QStringList{"one"});
}

void TestMsgBox::HeldBoxes_Observer_RunsBeforeEachWhenItIsShown()
{
    RecordingPresenter presenter;
    QList<size_t> shownBefore;
    SetBoxObserver([&] { shownBefore << presenter.Boxes.size(); });
    {
        const HeldBoxes held;
        MsgBox("one");
        MsgBox("two");
        QCOMPARE(shownBefore, QList<size_t>{});
    }
    SetBoxObserver(nullptr);

    QCOMPARE(shownBefore, (QList<size_t>{0, 1}));
}

QTEST_GUILESS_MAIN(TestMsgBox)
#include "TestMsgBox.moc"
