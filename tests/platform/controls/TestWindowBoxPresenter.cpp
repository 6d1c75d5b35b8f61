#include "platform/controls/WindowBoxPresenter.h"

#include <QAbstractButton>
#include <QApplication>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <functional>

namespace {

/// Runs `act` on the box of that class as soon as it is open; counts how often it did.
template <typename Box>
class Operator
{
public:
    explicit Operator(std::function<void(Box&)> act)
    {
        m_timer.setInterval(1);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this, act = std::move(act)] {
            auto* box = qobject_cast<Box*>(QApplication::activeModalWidget());
            if (!box || !box->isVisible())
                return;
            m_timer.stop();
            ++m_boxes;
            act(*box);
        });
        m_timer.start();
    }

    [[nodiscard]] int Boxes() const { return m_boxes; }

private:
    QTimer m_timer;
    int m_boxes = 0;
};

using BoxOperator = Operator<QMessageBox>;
using InputOperator = Operator<QInputDialog>;

QString TextLabel(const QMessageBox& box)
{
    const auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    return label ? label->text() : QString();
}

void Press(QMessageBox& box, QMessageBox::StandardButton button)
{
    QTest::mouseClick(box.button(button), Qt::LeftButton);
}

} // namespace

Q_DECLARE_METATYPE(BoxAnswer)

/// The boxes that the operator sees, opened for real and answered with mouse and keyboard.
class TestWindowBoxPresenter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { SetBoxPresenter(&m_presenter); }
    void cleanup() { SetBoxPresenter(nullptr); }

    void Box_Shown_HasItsTextTitleIconAndButtons_data();
    void Box_Shown_HasItsTextTitleIconAndButtons();
    void Button_Clicked_GivesItsAnswer_data();
    void Button_Clicked_GivesItsAnswer();
    void Key_Pressed_GivesTheAnswerOfThatButton_data();
    void Key_Pressed_GivesTheAnswerOfThatButton();
    void Text_LooksLikeMarkup_IsShownAsItIs();
    void Text_LongWithoutBlanks_IsBrokenIntoLines();
    void Text_VeryLong_IsShortenedAndWholeInTheDetails();
    void Box_WindowActive_IsItsChild();
    void Box_ParentGoesWhileOpen_AnswersLikeEscape();
    void Box_PointerBusy_ShowsTheNormalOneMeanwhile();

    void Input_Accepted_GivesTheTypedText();
    void Input_NothingTyped_GivesTheDefault();
    void Input_Cancelled_KeepsTheValue_data();
    void Input_Cancelled_KeepsTheValue();
    void Input_PromptLooksLikeMarkup_IsShownAsItIs();
    void Input_ParentGoesWhileOpen_IsCancelled();

private:
    WindowBoxPresenter m_presenter;
};

void TestWindowBoxPresenter::Box_Shown_HasItsTextTitleIconAndButtons_data()
{
    QTest::addColumn<int>("flags");
    QTest::addColumn<QMessageBox::Icon>("icon");
    QTest::addColumn<QMessageBox::StandardButtons>("buttons");
    const QMessageBox::StandardButtons ok = QMessageBox::Ok;
    const QMessageBox::StandardButtons okCancel = QMessageBox::Ok | QMessageBox::Cancel;
    const QMessageBox::StandardButtons yesNo = QMessageBox::Yes | QMessageBox::No;
    const QMessageBox::StandardButtons yesNoCancel = yesNo | QMessageBox::Cancel;
    QTest::newRow("plain") << BoxFlags::Plain << QMessageBox::NoIcon << ok;
    QTest::newRow("error") << ErrorBoxFlags() << QMessageBox::Critical << ok;
    QTest::newRow("question") << (BoxFlags::Question | BoxFlags::YesNo) << QMessageBox::Question << yesNo;
    QTest::newRow("warning") << (BoxFlags::Exclamation | BoxFlags::OkCancel) << QMessageBox::Warning
                             << okCancel;
    QTest::newRow("information") << BoxFlags::Information << QMessageBox::Information << ok;
    QTest::newRow("three buttons") << (BoxFlags::Question | BoxFlags::YesNoCancel) << QMessageBox::Question
                                   << yesNoCancel;
}

void TestWindowBoxPresenter::Box_Shown_HasItsTextTitleIconAndButtons()
{
    QFETCH(int, flags);
    QFETCH(QMessageBox::Icon, icon);
    QFETCH(QMessageBox::StandardButtons, buttons);

    QString text;
    QString title;
    QMessageBox::Icon shownIcon = QMessageBox::NoIcon;
    QMessageBox::StandardButtons shownButtons;
    const BoxOperator op([&](QMessageBox& box) {
        text = TextLabel(box);
        title = box.windowTitle();
        shownIcon = box.icon();
        shownButtons = box.standardButtons();
        QTest::keyClick(&box, Qt::Key_Escape);
    });

    MsgBox(QStringLiteral("First line\nSecond line"), flags, QStringLiteral("A title"));

    QCOMPARE(op.Boxes(), 1);
    QCOMPARE(text, QStringLiteral("First line\nSecond line"));
    QCOMPARE(title, QStringLiteral("A title"));
    QCOMPARE(shownIcon, icon);
    QCOMPARE(shownButtons, buttons);
}

void TestWindowBoxPresenter::Button_Clicked_GivesItsAnswer_data()
{
    QTest::addColumn<int>("flags");
    QTest::addColumn<QMessageBox::StandardButton>("button");
    QTest::addColumn<BoxAnswer>("answer");
    QTest::newRow("ok") << BoxFlags::Plain << QMessageBox::Ok << BoxAnswer::Ok;
    QTest::newRow("ok of two") << BoxFlags::OkCancel << QMessageBox::Ok << BoxAnswer::Ok;
    QTest::newRow("cancel of two") << BoxFlags::OkCancel << QMessageBox::Cancel << BoxAnswer::Cancel;
    QTest::newRow("yes") << BoxFlags::YesNo << QMessageBox::Yes << BoxAnswer::Yes;
    QTest::newRow("no") << BoxFlags::YesNo << QMessageBox::No << BoxAnswer::No;
    QTest::newRow("yes of three") << BoxFlags::YesNoCancel << QMessageBox::Yes << BoxAnswer::Yes;
    QTest::newRow("no of three") << BoxFlags::YesNoCancel << QMessageBox::No << BoxAnswer::No;
    QTest::newRow("cancel of three") << BoxFlags::YesNoCancel << QMessageBox::Cancel << BoxAnswer::Cancel;
}

void TestWindowBoxPresenter::Button_Clicked_GivesItsAnswer()
{
    QFETCH(int, flags);
    QFETCH(QMessageBox::StandardButton, button);
    QFETCH(BoxAnswer, answer);

    const BoxOperator op([&](QMessageBox& box) { Press(box, button); });

    QCOMPARE(MsgBox(QStringLiteral("Text"), flags), answer);
    QCOMPARE(op.Boxes(), 1);
}

void TestWindowBoxPresenter::Key_Pressed_GivesTheAnswerOfThatButton_data()
{
    QTest::addColumn<int>("flags");
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<BoxAnswer>("answer");
    QTest::newRow("enter, ok") << BoxFlags::Plain << Qt::Key_Return << BoxAnswer::Ok;
    QTest::newRow("enter, ok of two") << BoxFlags::OkCancel << Qt::Key_Return << BoxAnswer::Ok;
    QTest::newRow("enter, yes") << BoxFlags::YesNo << Qt::Key_Return << BoxAnswer::Yes;
    QTest::newRow("enter, yes of three") << BoxFlags::YesNoCancel << Qt::Key_Return << BoxAnswer::Yes;
    QTest::newRow("escape, ok") << BoxFlags::Plain << Qt::Key_Escape << BoxAnswer::Ok;
    QTest::newRow("escape, two") << BoxFlags::OkCancel << Qt::Key_Escape << BoxAnswer::Cancel;
    QTest::newRow("escape, yes and no") << BoxFlags::YesNo << Qt::Key_Escape << BoxAnswer::No;
    QTest::newRow("escape, three") << BoxFlags::YesNoCancel << Qt::Key_Escape << BoxAnswer::Cancel;
}

void TestWindowBoxPresenter::Key_Pressed_GivesTheAnswerOfThatButton()
{
    QFETCH(int, flags);
    QFETCH(Qt::Key, key);
    QFETCH(BoxAnswer, answer);

    const BoxOperator op([&](QMessageBox& box) { QTest::keyClick(&box, key); });

    QCOMPARE(MsgBox(QStringLiteral("Text"), flags), answer);
    QCOMPARE(op.Boxes(), 1);
}

void TestWindowBoxPresenter::Text_LooksLikeMarkup_IsShownAsItIs()
{
    const QString text = QStringLiteral("Connection <b>North</b> &amp; \"South\" exists.");
    QString shown;
    Qt::TextFormat format = Qt::AutoText;
    const BoxOperator op([&](QMessageBox& box) {
        shown = TextLabel(box);
        format = box.textFormat();
        Press(box, QMessageBox::Ok);
    });

    MsgBox(text);

    QCOMPARE(shown, text);
    QCOMPARE(format, Qt::PlainText);
}

void TestWindowBoxPresenter::Text_LongWithoutBlanks_IsBrokenIntoLines()
{
    int width = 0;
    const BoxOperator op([&](QMessageBox& box) {
        width = box.width();
        Press(box, QMessageBox::Ok);
    });

    MsgBox(QString(1900, QLatin1Char('W')));

    QVERIFY2(width > 0 && width <= 1400, qPrintable(QString::number(width)));
}

void TestWindowBoxPresenter::Text_VeryLong_IsShortenedAndWholeInTheDetails()
{
    const QString text = QStringLiteral("The name ") + QString(10000, QLatin1Char('n'));
    QString shown;
    QString details;
    QSize size;
    const BoxOperator op([&](QMessageBox& box) {
        shown = TextLabel(box).remove(QChar(0x200B));
        details = box.detailedText();
        size = box.size();
        Press(box, QMessageBox::Ok);
    });

    MsgBox(text);

    QVERIFY(shown.endsWith(QChar(0x2026)));
    QVERIFY(text.startsWith(shown.chopped(1)));
    QVERIFY(shown.size() > 1000);
    QCOMPARE(details, text);
    QVERIFY(size.width() <= 1400 && size.height() <= 1000);
}

void TestWindowBoxPresenter::Box_WindowActive_IsItsChild()
{
    QWidget window;
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QWidget* parent = nullptr;
    const BoxOperator op([&](QMessageBox& box) {
        parent = box.parentWidget();
        Press(box, QMessageBox::Ok);
    });

    MsgBox(QStringLiteral("Text"));

    QCOMPARE(parent, &window);
}

void TestWindowBoxPresenter::Box_ParentGoesWhileOpen_AnswersLikeEscape()
{
    auto* window = new QWidget;
    window->show();
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window));
    const BoxOperator op([&](QMessageBox&) { delete window; });

    QCOMPARE(MsgBox(QStringLiteral("Text"), BoxFlags::YesNoCancel), BoxAnswer::Cancel);
    QCOMPARE(op.Boxes(), 1);
}

void TestWindowBoxPresenter::Box_PointerBusy_ShowsTheNormalOneMeanwhile()
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    Qt::CursorShape during = Qt::WaitCursor;
    const BoxOperator op([&](QMessageBox& box) {
        during = QApplication::overrideCursor()->shape();
        Press(box, QMessageBox::Ok);
    });

    MsgBox(QStringLiteral("Text"));

    QCOMPARE(during, Qt::ArrowCursor);
    QCOMPARE(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    QApplication::restoreOverrideCursor();
    QVERIFY(!QApplication::overrideCursor());
}

void TestWindowBoxPresenter::Input_Accepted_GivesTheTypedText()
{
    QString title;
    const InputOperator op([&](QInputDialog& box) {
        title = box.windowTitle();
        auto* line = box.findChild<QLineEdit*>();
        line->selectAll();
        QTest::keyClicks(line, QStringLiteral("<i>17</i>"));
        QTest::keyClick(line, Qt::Key_Return);
    });

    QString value = QStringLiteral("default");
    QVERIFY(InputBox(QStringLiteral("Address:"), QStringLiteral("A title"), value));

    QCOMPARE(op.Boxes(), 1);
    QCOMPARE(title, QStringLiteral("A title"));
    QCOMPARE(value, QStringLiteral("<i>17</i>"));
}

void TestWindowBoxPresenter::Input_NothingTyped_GivesTheDefault()
{
    const InputOperator op([](QInputDialog& box) { QTest::keyClick(&box, Qt::Key_Return); });

    QString value = QStringLiteral("default");
    QVERIFY(InputBox(QStringLiteral("Address:"), QString(), value));

    QCOMPARE(value, QStringLiteral("default"));
}

void TestWindowBoxPresenter::Input_Cancelled_KeepsTheValue_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("escape") << true;
    QTest::newRow("button") << false;
}

void TestWindowBoxPresenter::Input_Cancelled_KeepsTheValue()
{
    QFETCH(bool, byKey);

    const InputOperator op([&](QInputDialog& box) {
        QTest::keyClicks(box.findChild<QLineEdit*>(), QStringLiteral("typed"));
        if (byKey) {
            QTest::keyClick(&box, Qt::Key_Escape);
            return;
        }
        const QList<QPushButton*> buttons = box.findChildren<QPushButton*>();
        for (QPushButton* button : buttons) {
            if (button->text().remove(QLatin1Char('&')) == QStringLiteral("Cancel"))
                QTest::mouseClick(button, Qt::LeftButton);
        }
    });

    QString value = QStringLiteral("default");
    QVERIFY(!InputBox(QStringLiteral("Address:"), QString(), value));

    QCOMPARE(op.Boxes(), 1);
    QCOMPARE(value, QStringLiteral("default"));
}

void TestWindowBoxPresenter::Input_PromptLooksLikeMarkup_IsShownAsItIs()
{
    const QString prompt = QStringLiteral("Name of <b>node</b>:");
    QString shown;
    Qt::TextFormat format = Qt::AutoText;
    const InputOperator op([&](QInputDialog& box) {
        const auto* label = box.findChild<QLabel*>();
        shown = label->text();
        format = label->textFormat();
        QTest::keyClick(&box, Qt::Key_Escape);
    });

    QString value;
    QVERIFY(!InputBox(prompt, QString(), value));

    QCOMPARE(shown, prompt);
    QCOMPARE(format, Qt::PlainText);
}

void TestWindowBoxPresenter::Input_ParentGoesWhileOpen_IsCancelled()
{
    auto* window = new QWidget;
    window->show();
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window));
    const InputOperator op([&](QInputDialog&) { delete window; });

    QString value = QStringLiteral("default");
    QVERIFY(!InputBox(QStringLiteral("Address:"), QString(), value));

    QCOMPARE(op.Boxes(), 1);
    QCOMPARE(value, QStringLiteral("default"));
}

QTEST_MAIN(TestWindowBoxPresenter)
#include "TestWindowBoxPresenter.moc"
