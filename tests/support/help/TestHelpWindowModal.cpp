#include "tests/support/help/OpenHelp.h"

#include <QAction>
#include <QDialog>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

#include <functional>
#include <memory>

/// A modal dialog with a button that asks for help.
class AskingDialog : public QDialog
{
public:
    explicit AskingDialog(QWidget* parent = nullptr) : QDialog(parent), m_help(new QPushButton(this))
    {
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(m_help);
        connect(m_help, &QPushButton::clicked, this, [this] {
            ++Clicks;
            modHTMLHelp::ShowHelpTopic(QStringLiteral("Finding.htm"));
        });
    }

    int Clicks = 0;

    /// Shows the dialog modally; `work` runs while it stands open, then it is closed.
    void Run(const std::function<void()>& work)
    {
        QTimer::singleShot(0, this, [this, work] {
            QVERIFY(QTest::qWaitForWindowExposed(this));
            work();
            reject();
        });
        exec();
    }
    /// As the window system tells it.
    void PressHelp() const
    {
        QTest::mouseClick(windowHandle(), Qt::LeftButton, {}, m_help->geometry().center());
    }

private:
    QPushButton* m_help;
};

/// The help window takes input beside modal windows. All clicks and keys come from the window system, which
/// asks whether a modal window is in the way.
class TestHelpWindowModal : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<OpenHelp> m_help;

    /// Whether clicks reach the help window: its button Home works.
    [[nodiscard]] static bool TakesClicks()
    {
        HelpWindow& window = *HelpWindow::Current();
        OpenHelp::Page().setSource(window.File().UrlOf(QStringLiteral("Keyboard.htm")));
        for (const QToolButton* button : window.findChildren<QToolButton*>()) {
            if (button->defaultAction() == &OpenHelp::Find<QAction>("mnuHome"))
                QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {},
                                  button->mapTo(&window, button->rect().center()));
        }
        return OpenHelp::Shown() == QStringLiteral("index.htm");
    }
    /// Whether keys reach it: Alt+Home works.
    [[nodiscard]] static bool TakesKeys()
    {
        // A click on a window brings it to the front, where there is somebody who manages windows.
        HelpWindow::Current()->activateWindow();
        if (!QTest::qWaitForWindowActive(HelpWindow::Current()))
            return false;
        OpenHelp::Page().setSource(HelpWindow::Current()->File().UrlOf(QStringLiteral("Keyboard.htm")));
        OpenHelp::Key(Qt::Key_Home, Qt::AltModifier);
        return OpenHelp::Shown() == QStringLiteral("index.htm");
    }

private Q_SLOTS:
    void init() { m_help = std::make_unique<OpenHelp>(); }
    void cleanup() { m_help.reset(); }

    void HelpPressed_InAModalDialog_WindowTakesInput()
    {
        AskingDialog dialog;
        dialog.Run([&] {
            dialog.PressHelp();
            QVERIFY(HelpWindow::Current());
            QVERIFY(QTest::qWaitForWindowActive(HelpWindow::Current()));
            QCOMPARE(OpenHelp::Shown(), "Finding.htm");
            QVERIFY(TakesClicks());
            QVERIFY(TakesKeys());
            // The dialog goes on too.
            QVERIFY(dialog.isVisible());
            dialog.PressHelp();
            QCOMPARE(dialog.Clicks, 2);
            QCOMPARE(OpenHelp::Shown(), "Finding.htm");
        });

        QVERIFY(HelpWindow::Current()->isVisible());
        QVERIFY(TakesClicks());
    }

    void ModalDialog_OpenedBesideTheWindow_DoesNotBlockIt()
    {
        OpenHelp::Show();
        AskingDialog dialog;
        dialog.Run([&] {
            QTRY_VERIFY(TakesClicks());
            QVERIFY(TakesKeys());
        });
        QVERIFY(TakesClicks());
    }

    void ModalDialogs_OneOverTheOther_DoNotBlockIt()
    {
        QWidget main;
        main.show();
        AskingDialog outer(&main);
        outer.Run([&] {
            outer.PressHelp();
            QVERIFY(TakesClicks());
            {
                AskingDialog inner(&outer);
                inner.Run([&] {
                    QTRY_VERIFY(TakesClicks());
                    inner.PressHelp();
                    QCOMPARE(inner.Clicks, 1);
                    QVERIFY(TakesClicks());
                });
            }
            // The window that it went with is gone, the one below is still modal.
            QTRY_VERIFY(TakesClicks());
            QVERIFY(HelpWindow::Current()->isVisible());
        });
        QVERIFY(TakesClicks());
    }

    void MainWindow_BehindAModalDialog_StaysBlocked()
    {
        AskingDialog other;
        other.show();
        QVERIFY(QTest::qWaitForWindowExposed(&other));
        AskingDialog dialog;
        dialog.Run([&] {
            dialog.PressHelp();
            other.PressHelp();
            QCOMPARE(other.Clicks, 0);
        });
    }
};

QTEST_MAIN(TestHelpWindowModal)
#include "TestHelpWindowModal.moc"
