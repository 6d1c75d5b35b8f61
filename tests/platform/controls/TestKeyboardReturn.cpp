#include "platform/controls/KeyboardReturn.h"

#include <QApplication>
#include <QDialog>
#include <QTest>

namespace {

/// Under a window manager that gives the keyboard to nobody by itself, unless it is told otherwise.
class Keyboard : public KeyboardReturn
{
public:
    bool IsOurs = false;
    QList<QWidget*> Activated;

    void Wait() { QTest::qWait(2 * PatienceMs); }

protected:
    bool HasKeyboard() const override { return IsOurs; }
    void Activate(QWidget& window) override { Activated << &window; }
};

void Tell(QWidget& window, QEvent::Type type)
{
    QEvent event(type);
    QApplication::sendEvent(&window, &event);
}

/// A window with a dialog that has the keyboard.
struct OpenDialog
{
    OpenDialog()
    {
        Window.show();
        Dialog.show();
        Tell(Dialog, QEvent::WindowActivate);
    }

    QWidget Window;
    QDialog Dialog{&Window};
};

} // namespace

/// Dialogs that close one upon the other.
class TestKeyboardReturn : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Closed_NobodyHasTheKeyboard_WindowBelowGetsIt()
    {
        Keyboard keyboard;
        QWidget window;
        window.show();
        QDialog first(&window);
        first.show();
        QDialog second(&first);
        second.show();
        Tell(second, QEvent::WindowActivate);

        second.hide();
        first.hide();

        QVERIFY(keyboard.Activated.isEmpty());
        QTRY_COMPARE(keyboard.Activated, QList<QWidget*>{&window});
    }
    void Closed_ModalWindowStands_ItGetsTheKeyboard()
    {
        Keyboard keyboard;
        QWidget window;
        window.show();
        QDialog modal(&window);
        modal.setModal(true);
        modal.show();
        QDialog upper(&modal);
        upper.setModal(true);
        upper.show();
        Tell(upper, QEvent::WindowActivate);

        upper.hide();

        QTRY_COMPARE(keyboard.Activated, QList<QWidget*>{&modal});
    }
    void Closed_BeforeItGotTheKeyboard_WindowBelowGetsIt()
    {
        Keyboard keyboard;
        QWidget window;
        window.show();
        QDialog progress(&window);
        keyboard.IsOurs = true;
        progress.show();
        Tell(progress, QEvent::WindowActivate);
        progress.hide();
        keyboard.Wait();
        QVERIFY(keyboard.Activated.isEmpty());

        progress.show();
        keyboard.IsOurs = false;
        progress.hide();

        QTRY_COMPARE(keyboard.Activated, QList<QWidget*>{&window});
    }
    void Closed_ManagerGivesTheKeyboard_NothingIsDone()
    {
        Keyboard keyboard;
        keyboard.IsOurs = true;
        OpenDialog open;

        open.Dialog.hide();

        keyboard.Wait();
        QVERIFY(keyboard.Activated.isEmpty());
    }
    void Closed_OperatorIsInAnotherProgram_NothingIsDone()
    {
        Keyboard keyboard;
        OpenDialog open;
        Tell(open.Dialog, QEvent::WindowDeactivate);

        open.Dialog.hide();

        keyboard.Wait();
        QVERIFY(keyboard.Activated.isEmpty());
    }
    void Closed_WindowBelowGone_DoesNoHarm()
    {
        Keyboard keyboard;
        {
            OpenDialog open;
            open.Dialog.hide();
        }
        keyboard.Wait();
        QVERIFY(keyboard.Activated.isEmpty());
    }
};

QTEST_MAIN(TestKeyboardReturn)
#include "TestKeyboardReturn.moc"
