#include "platform/controls/CommandMenu.h"

#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

/// Menus whose commands are buttons.
class TestCommandMenu : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_window = std::make_unique<QWidget>();
        m_button = new QPushButton(QStringLiteral("&Remove"), m_window.get());
        m_button->setToolTip(QStringLiteral("Remove it"));
        m_window->show();
    }
    void cleanup() { m_window.reset(); }

    void Command_Chosen_PressesTheButtonBehindTheMenu()
    {
        const QSignalSpy clicks(m_button, &QPushButton::clicked);
        QMenu& menu = OpenWithCommand();
        menu.actions().first()->trigger();
        QCOMPARE(clicks.count(), 0);
        QCoreApplication::processEvents();
        QCOMPARE(clicks.count(), 1);
    }

    void Command_ReadsAsItsButton()
    {
        const QAction& action = *OpenWithCommand().actions().first();
        QCOMPARE(action.text(), QStringLiteral("&Remove"));
        QCOMPARE(action.toolTip(), QStringLiteral("Remove it"));
        QVERIFY(action.isEnabled());
    }

    void Command_ButtonDisabledWhileOpen_Follows()
    {
        QMenu& menu = OpenWithCommand();
        const QSignalSpy clicks(m_button, &QPushButton::clicked);
        m_button->setToolTip(QStringLiteral("No right"));
        m_button->setEnabled(false);
        QVERIFY(!menu.actions().first()->isEnabled());
        QCOMPARE(menu.actions().first()->toolTip(), QStringLiteral("No right"));
        m_button->setEnabled(true);
        QVERIFY(menu.actions().first()->isEnabled());
        QCOMPARE(clicks.count(), 0);
    }

    void Command_ButtonGoneBeforeItRuns_DoesNothing()
    {
        QMenu& menu = OpenWithCommand();
        menu.actions().first()->trigger();
        delete m_button;
        QCoreApplication::processEvents();
        QVERIFY(m_window);
    }

    void Command_HiddenButton_IsLeftOut()
    {
        m_button->hide();
        CommandMenu menu(*m_window);
        menu.AddCommand(*m_button);
        menu.AddCopy(QStringLiteral("Copy"), QStringLiteral("text"), QString());
        menu.Open({0, 0});
        QCOMPARE(Opened().actions().size(), 1);
    }

    void Open_NoCommand_ShowsNothing()
    {
        m_button->hide();
        CommandMenu menu(*m_window);
        menu.AddCommand(*m_button);
        menu.Open({0, 0});
        QVERIFY(!QApplication::activePopupWidget());
    }

    void Copy_Chosen_FillsTheClipboard()
    {
        CommandMenu menu(*m_window);
        menu.AddCopy(QStringLiteral("Copy Name"), QStringLiteral("North"), QString(),
                     QStringLiteral("Ctrl+C"));
        menu.Open({0, 0});
        QAction& action = *Opened().actions().first();
        QCOMPARE(action.text(), QStringLiteral("Copy Name\tCtrl+C"));
        action.trigger();
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("North"));
    }

    void Copy_NothingToCopy_TellsWhyNot()
    {
        CommandMenu menu(*m_window);
        menu.AddCopy(QStringLiteral("Copy Name"), QString(), QStringLiteral("Nothing is selected."));
        menu.Open({0, 0});
        const QAction& action = *Opened().actions().first();
        QVERIFY(!action.isEnabled());
        QCOMPARE(action.toolTip(), QStringLiteral("Nothing is selected."));
    }

    void Menu_Closed_IsDeleted()
    {
        const QPointer<QMenu> menu = &OpenWithCommand();
        menu->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!menu);
    }

private:
    static QMenu& Opened()
    {
        auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!menu)
            qFatal("no menu is open");
        return *menu;
    }
    QMenu& OpenWithCommand() const
    {
        CommandMenu menu(*m_window);
        menu.AddCommand(*m_button);
        menu.Open({0, 0});
        return Opened();
    }

    std::unique_ptr<QWidget> m_window;
    QPushButton* m_button = nullptr;
};

QTEST_MAIN(TestCommandMenu)
#include "TestCommandMenu.moc"
