#include "browser/T4ZelkaBrowser.h"
#include "components/hvxdb/HvxAdministration.h"
#include "host/workstation/WorkstationWindow.h"
#include "platform/HelpHook.h"
#include "tests/components/DatabaseFixture.h"
#include "tests/support/RecordingPresenter.h"

#include <QAction>
#include <QApplication>
#include <QSettings>
#include <QTabBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

/// The workstation's menu Help, and what F1 does where the control has a help of its own.
class TestWorkstationHelp : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    std::unique_ptr<DatabaseFixture> m_database;
    std::unique_ptr<QSettings> m_settings;
    std::unique_ptr<RecordingPresenter> m_boxes;
    std::unique_ptr<WorkstationWindow> m_window;
    QStringList m_topics;

    void Open()
    {
        m_window = std::make_unique<WorkstationWindow>(*m_settings, m_database->Source(),
                                                       WorkstationWindow::Place::Default);
        m_window->show();
        m_window->Start();
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    }
    [[nodiscard]] QAction& Menu(const char* name) const
    {
        return *m_window->findChild<QAction*>(QLatin1String(name));
    }
    void PressF1At(QWidget& widget) const
    {
        widget.setFocus();
        QVERIFY(widget.hasFocus());
        QTest::keyClick(m_window->windowHandle(), Qt::Key_F1);
    }

private Q_SLOTS:
    void init()
    {
        m_topics.clear();
        m_database = std::make_unique<DatabaseFixture>();
        m_settings =
            std::make_unique<QSettings>(m_folder.filePath(QStringLiteral("kept.ini")), QSettings::IniFormat);
        m_boxes = std::make_unique<RecordingPresenter>();
        RegisterHvxDatabase();
        SetDataSource(m_database->Source());
        Help().ShowHelpTopic = [this](const QString& topic) { m_topics << topic; };
        // Any file that is there.
        Help().HelpFilePath = [] { return QCoreApplication::applicationFilePath(); };
    }
    void cleanup()
    {
        m_window.reset();
        m_boxes.reset();
        m_settings.reset();
        Help() = HelpHook();
        SetDataSource(QString());
    }

    void Menu_EachEntry_AsksForItsTopic_data()
    {
        QTest::addColumn<QString>("topic");
        QTest::newRow("mnuContents") << "index.htm";
        QTest::newRow("mnuHelpWorkstation") << "Workstation.htm";
        QTest::newRow("mnuHelpDatabaseTab") << "Zelka_Connection_Tool_Overview.htm#DatabaseTab1";
        QTest::newRow("mnuHelpDirectTab") << "Zelka_Connection_Tool_Overview.htm#DirectTab1";
        QTest::newRow("mnuHelpFinding") << "Finding.htm";
        QTest::newRow("mnuHelpOthers") << "Other_Workstations.htm";
        QTest::newRow("mnuHelpKeyboard") << "Keyboard.htm";
        QTest::newRow("mnuHelpMessages") << "Messages.htm";
        QTest::newRow("mnuHelpCommandLine") << "Command_Line.htm";
    }
    void Menu_EachEntry_AsksForItsTopic()
    {
        QFETCH(const QString, topic);
        Open();

        Menu(QTest::currentDataTag()).trigger();

        QCOMPARE(m_topics, QStringList{topic});
    }

    void Menu_NoHelpFile_IsGrey()
    {
        Help().HelpFilePath = [this] { return m_folder.filePath(QStringLiteral("missing.qch")); };
        Open();
        QVERIFY(!Menu("mnuContents").isEnabled());
        QVERIFY(!Menu("mnuHelpMessages").isEnabled());
    }

    void F1_InTheTreeAndOnATab_AsksForTheTab()
    {
        Open();
        auto& tabs = *m_window->findChild<QTabWidget*>(QStringLiteral("tabMain"));

        PressF1At(*m_window->findChild<QWidget*>(QStringLiteral("tvwNodesTree")));
        PressF1At(*tabs.tabBar());
        tabs.setCurrentIndex(1);
        PressF1At(*tabs.tabBar());
        PressF1At(*m_window->findChild<QTabWidget*>(QStringLiteral("tabNode"))->tabBar());

        const QString database = QStringLiteral("Zelka_Connection_Tool_Overview.htm#DatabaseTab1");
        const QString direct = QStringLiteral("Zelka_Connection_Tool_Overview.htm#DirectTab1");
        QCOMPARE(m_topics, QStringList({database, database, direct, direct}));
    }

    void F1_Elsewhere_ShowsTheContents()
    {
        Open();

        PressF1At(*m_window->findChild<QWidget*>(QStringLiteral("cboRequest")));

        QCOMPARE(m_topics, QStringList{"index.htm"});
    }
};

QTEST_MAIN(TestWorkstationHelp)
#include "TestWorkstationHelp.moc"
