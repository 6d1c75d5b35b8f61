#include "platform/controls/KeyboardReturn.h"

#include <QApplication>
#include <QDialog>
#include <QTest>

namespace {

/// Under a window manager that gives the keyboard to nobody by itself, unless it is told otherwise.
class Keyboard : public KeyboardReturn
{
public:
    bool ManagerGivesIt = false;
    /// Has it before anything closes.
    const QWidget* With = nullptr;
    QList<QWidget*> Activated;

    void Wait() { QTest::qWait(2 * PatienceMs); }

protected:
    bool HasKeyboard(const QWidget& dialog) const override { return &dialog == With; }
    bool HasKeyboard() const override { return ManagerGivesIt; }
    void Activate(QWidget& window) override { Activated << &window; }
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
        keyboard.With = &second;

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
        keyboard.With = &upper;

        upper.hide();

        QTRY_COMPARE(keyboard.Activated, QList<QWidget*>{&modal});
    }
    void Closed_ManagerGivesTheKeyboard_NothingIsDone()
    {
        Keyboard keyboard;
        keyboard.ManagerGivesIt = true;
        QWidget window;
        window.show();
        QDialog dialog(&window);
        dialog.show();
        keyboard.With = &dialog;

        dialog.hide();

        keyboard.Wait();
        QVERIFY(keyboard.Activated.isEmpty());
    }
    void Closed_WithoutTheKeyboard_NothingIsDone()
    {
        Keyboard keyboard;
        QWidget window;
        window.show();
        QDialog dialog(&window);
        dialog.show();

        dialog.hide();

        keyboard.Wait();
        QVERIFY(keyboard.Activated.isEmpty());
    }
    void Closed_WindowBelowGone_DoesNoHarm()
    {
        Keyboard keyboard;
        {
            QWidget window;
            window.show();
            QDialog dialog(&window);
            dialog.show();
            keyboard.With = &dialog;
            dialog.hide();
        }
        keyboard.Wait();
        QVERIFY(keyboard.Activated.isEmpty());
    }
};

QTEST_MAIN(TestKeyboardReturn)
#include "TestKeyboardReturn.moc"
