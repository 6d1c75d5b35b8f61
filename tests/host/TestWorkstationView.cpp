#include "browser/T4ZelkaBrowser.h"
#include "components/hvxdb/HvxAdministration.h"
#include "host/workstation/WorkstationWindow.h"
#include "platform/controls/Theme.h"
#include "tests/components/DatabaseFixture.h"
#include "tests/support/ModalForms.h"
#include "tests/support/RecordingPresenter.h"

#include <QAbstractItemView>
#include <QAction>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QSplitter>
#include <QStatusBar>
#include <QTemporaryDir>

/// How the operator's window looks: its colours, its status line, its places.
class TestWorkstationView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_database = std::make_unique<DatabaseFixture>();
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(m_folder->isValid());
        m_boxes = std::make_unique<RecordingPresenter>();
        RegisterHvxDatabase();
        Open();
    }
    void cleanup()
    {
        m_window.reset();
        m_boxes.reset();
        SetDataSource(QString());
        ApplyTheme(Theme::System);
    }

    void Theme_Chosen_IsShownAndKept()
    {
        QCOMPARE(WorkstationWindow::StoredTheme(*m_settings), Theme::System);
        Menu("mnuThemeDark").trigger();
        QCOMPARE(QApplication::palette().color(QPalette::Base),
                 ThemePalette(Theme::Dark).color(QPalette::Base));
        QVERIFY(Menu("mnuThemeDark").isChecked());
        QVERIFY(!Menu("mnuThemeSystem").isChecked());
        CloseAndOpen();
        QCOMPARE(WorkstationWindow::StoredTheme(*m_settings), Theme::Dark);
    }

    void Theme_OfTheCommandLine_IsNotKept()
    {
        m_window->ShowTheme(Theme::Contrast);
        QVERIFY(Menu("mnuThemeContrast").isChecked());
        CloseAndOpen();
        QCOMPARE(WorkstationWindow::StoredTheme(*m_settings), Theme::System);
    }

    void StoredTheme_Damaged_IsTheSystems()
    {
        m_settings->setValue(QStringLiteral("View/Theme"), QStringLiteral("pink"));
        QCOMPARE(WorkstationWindow::StoredTheme(*m_settings), Theme::System);
    }

    void StatusLine_Started_TellsOfTheDatabase()
    {
        QCOMPARE(Child<QLabel>("lblStatusDatabase").accessibleName(), m_database->Source());
        QVERIFY(Child<QLabel>("lblStatusCounts").text().contains(QLatin1String("3 nodes")));
        QVERIFY(Child<QLabel>("lblStatusRights").isVisible());
    }

    void StatusLine_SwitchedOff_StaysOff()
    {
        Menu("mnuStatusLine").trigger();
        QVERIFY(!Child<QStatusBar>("staStatus").isVisible());
        CloseAndOpen();
        QVERIFY(!Child<QStatusBar>("staStatus").isVisible());
        QVERIFY(!Menu("mnuStatusLine").isChecked());
    }

    void Splitter_Moved_ComesBack()
    {
        // The screen of a run that nobody sees is small; a window that does not fit would be made narrower.
        m_window->resize(760, 600);
        QCoreApplication::processEvents();
        auto& splitter = Child<QSplitter>("splHost");
        splitter.setSizes({400, 350});
        // What the shares leave over goes to the control.
        splitter.setSizes(splitter.sizes());
        const int panel = splitter.sizes().last();
        const int handle = splitter.handleWidth();
        CloseAndOpen();
        QVERIFY(qAbs(Child<QSplitter>("splHost").sizes().last() - panel) <= handle);
    }

    void Dialog_Resized_ComesBackInTheNextRun()
    {
        QSize shown;
        InProperties([](QDialog& dialog) { dialog.resize(dialog.width() + 111, dialog.height() + 77); },
                     shown);
        const QSize wanted = shown;
        CloseAndOpen();
        InProperties([](QDialog&) {}, shown);
        QCOMPARE(shown, wanted);
    }

private:
    void Open()
    {
        m_settings =
            std::make_unique<QSettings>(m_folder->filePath(QStringLiteral("kept.ini")), QSettings::IniFormat);
        SetDataSource(m_database->Source());
        m_window = std::make_unique<WorkstationWindow>(*m_settings, m_database->Source());
        m_window->show();
        m_window->Start();
    }
    void CloseAndOpen()
    {
        QVERIFY(m_window->close());
        m_window.reset();
        Open();
    }
    /// Opens the properties of the first node, works there, notes the size and cancels.
    void InProperties(const std::function<void(QDialog&)>& work, QSize& size)
    {
        auto& view = Child<QAbstractItemView>("tvwNodesTree");
        const QModelIndex node = view.model()->index(0, 0, view.model()->index(0, 0));
        view.scrollTo(node);
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(node).center());
        ModalForms::InNextDialog([&](QDialog& dialog) {
            work(dialog);
            size = dialog.size();
            dialog.reject();
        });
        Child<QPushButton>("cmdDatabaseProp").click();
        QVERIFY(!size.isEmpty());
    }
    [[nodiscard]] QAction& Menu(const char* name) const
    {
        return *m_window->findChild<QAction*>(QLatin1String(name));
    }
    template <typename Widget>
    [[nodiscard]] Widget& Child(const char* name) const
    {
        return *m_window->findChild<Widget*>(QLatin1String(name));
    }

    std::unique_ptr<DatabaseFixture> m_database;
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<QSettings> m_settings;
    std::unique_ptr<WorkstationWindow> m_window;
    std::unique_ptr<RecordingPresenter> m_boxes;
};

QTEST_MAIN(TestWorkstationView)
#include "TestWorkstationView.moc"
