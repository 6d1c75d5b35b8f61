#pragma once

#include "platform/controls/Theme.h"

#include <QMainWindow>

#include <memory>

class BrowserStatus;
class ConsolePanel;
class QSettings;
class T4ZelkaBrowser;
class TargetPanel;
class WindowPlaces;

namespace Ui {
class WorkstationWindow;
}

/// The operator's window: the control beside a panel that shows which target a host gets from it, and a
/// console that talks to that target.
///
/// The properties of the control, and the window's place, are kept in the settings from one run to the next.
class WorkstationWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// Whether the window's place and size are kept.
    enum class Place
    {
        Kept,
        /// For runs that nobody sees.
        Default,
    };

    /// `settings` is not owned. `source`: the database, for display.
    WorkstationWindow(QSettings& settings, QString source, Place place = Place::Kept);
    ~WorkstationWindow() override;

    /// Creates the control and starts it with the stored properties; blocks while it loads. Once.
    void Start();
    /// Starts as soon as the window has its place on the screen, so that the progress appears over it.
    void StartWhenPainted() { m_startsWhenPainted = true; }

    /// Null before the start.
    [[nodiscard]] T4ZelkaBrowser* Control() const { return m_control; }
    [[nodiscard]] TargetPanel& Panel() const;
    [[nodiscard]] ConsolePanel& Console() const;
    /// The database in use as the operator is told it.
    [[nodiscard]] QString DatabaseText() const;

    /// Shows all windows in a theme and ticks it in the menu; for this run.
    void ShowTheme(Theme theme);
    /// The one that the operator chose last.
    [[nodiscard]] static Theme StoredTheme(const QSettings& settings);

protected:
    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void ConnectMenus();
    /// Without a help file its pages are offered in grey.
    void ConnectHelp();
    void ConnectViewMenu();
    void mnuTheme_Click(Theme theme);
    void mnuAbout_Click();
    void ReadProperties();
    void WriteProperties();

    std::unique_ptr<Ui::WorkstationWindow> m_ui;
    QSettings& m_settings;
    QString m_source;
    /// Null where nothing is kept.
    std::unique_ptr<WindowPlaces> m_places;
    T4ZelkaBrowser* m_control = nullptr;
    std::unique_ptr<BrowserStatus> m_status;
    bool m_startsWhenPainted = false;
    /// What the control's automatic refresh was stored as; a run without a database switches it off.
    bool m_refreshTimerStored = false;
};
