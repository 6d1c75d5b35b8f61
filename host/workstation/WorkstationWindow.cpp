#include "host/workstation/WorkstationWindow.h"

#include "browser/BrowserStatus.h"
#include "browser/T4ZelkaBrowser.h"
#include "database/DatabaseState.h"
#include "host/workstation/ConsolePanel.h"
#include "host/workstation/LanguageMenu.h"
#include "host/workstation/frmAbout.h"
#include "host/workstation/ui_WorkstationWindow.h"
#include "platform/HelpHook.h"
#include "platform/HelpLinks.h"
#include "platform/controls/AccessibleControls.h"
#include "platform/controls/SettingsPropertyBag.h"
#include "platform/controls/WindowPlaces.h"

#include <QActionGroup>
#include <QCloseEvent>
#include <QFileInfo>
#include <QScreen>
#include <QSettings>
#include <QUrl>

#include <utility>

namespace {

/// What a new operator's window has room for beside and below each other.
constexpr int Letters = 120;
constexpr int Lines = 40;

/// Of a new operator's window; later the operator's own.
constexpr int BrowserWidth = 640;
constexpr int PanelWidth = 320;

constexpr int DatabasePage = 0;
constexpr int DirectPage = 1;

QString PropertyGroup()
{
    return QStringLiteral("Browser");
}
QString ThemeKey()
{
    return QStringLiteral("View/Theme");
}
QString StatusLineKey()
{
    return QStringLiteral("View/StatusLine");
}
QString RefreshTimerProperty()
{
    return QStringLiteral("RefreshTimer");
}
QString ManageVisibleProperty()
{
    return QStringLiteral("ManageVisible");
}
QString BrowserTabIndexProperty()
{
    return QStringLiteral("BrowserTabIndex");
}

/// A source as everybody around the screen may read it: without the password that a URL may hold.
QString Displayed(const QString& source)
{
    return source.contains(QStringLiteral("://")) ? QUrl(source).toDisplayString() : source;
}

/// Always stored by the control, so its absence tells a first run.
QString RefreshIntervalProperty()
{
    return QStringLiteral("RefreshInterval");
}

} // namespace

WorkstationWindow::WorkstationWindow(QSettings& settings, QString source, Place place)
    : m_ui(std::make_unique<Ui::WorkstationWindow>()), m_settings(settings), m_source(std::move(source))
{
    OfferAccessibleControls();
    m_ui->setupUi(this);
    m_ui->splHost->setStretchFactor(0, 1);
    m_ui->splHost->setStretchFactor(1, 0);
    m_ui->splHost->setSizes({BrowserWidth, PanelWidth});
    // Large letters need more room than the usual.
    const QSize wanted(Letters * fontMetrics().averageCharWidth(), Lines * fontMetrics().lineSpacing());
    resize(size().expandedTo(wanted.boundedTo(screen()->availableSize())));
    if (place == Place::Kept)
        m_places = std::make_unique<WindowPlaces>(m_settings);
    new LanguageMenu(*m_ui->mnuLanguage, m_settings);
    m_ui->mnuSettings->setEnabled(false);
    ConnectHelp();
    ConnectViewMenu();
    connect(m_ui->pnlTarget, &TargetPanel::TargetRead, m_ui->pnlConsole, &ConsolePanel::SetTarget);
}

WorkstationWindow::~WorkstationWindow() = default;

void WorkstationWindow::Start()
{
    if (m_control)
        return;
    // Hidden until it has started: the first showing would start it with the defaults.
    m_control = new T4ZelkaBrowser(this);
    m_control->setObjectName(QStringLiteral("ctlBrowser"));
    ReadProperties();

    // A widget that comes new into the splitter would bring its own size.
    const QList<int> sizes = m_ui->splHost->sizes();
    delete m_ui->splHost->replaceWidget(0, m_control);
    m_control->show();
    m_ui->splHost->setSizes(sizes);

    m_ui->pnlTarget->SetReader([this](QString& target) { return m_control->GetTarget(target); });
    // A selection sets the name first and the target then, so the panel asks when both are there.
    connect(m_control, &T4ZelkaBrowser::SobriquetChanged, m_ui->pnlTarget, &TargetPanel::ReadTarget,
            Qt::QueuedConnection);
    ConnectMenus();
    m_status = std::make_unique<BrowserStatus>(*m_control);
    m_ui->staStatus->Follow(*m_status, [this] { return DatabaseText(); });
    setWindowTitle(tr("%1 - Zelka Workstation").arg(DatabaseText()));
}

TargetPanel& WorkstationWindow::Panel() const
{
    return *m_ui->pnlTarget;
}

ConsolePanel& WorkstationWindow::Console() const
{
    return *m_ui->pnlConsole;
}

QString WorkstationWindow::DatabaseText() const
{
    return Database().DatabaseOpen ? Displayed(m_source) : tr("No database, direct targets only");
}

void WorkstationWindow::ConnectMenus()
{
    connect(m_ui->mnuQuit, &QAction::triggered, this, &QWidget::close);
    connect(m_ui->mnuAbout, &QAction::triggered, this, &WorkstationWindow::mnuAbout_Click);

    m_ui->mnuSettings->setEnabled(true);
    m_ui->mnuRefreshTimer->setEnabled(Database().DatabaseOpen);
    m_ui->mnuRefreshTimer->setChecked(m_control->RefreshTimer());
    m_ui->mnuRefreshVisible->setChecked(m_control->RefreshVisible());
    m_ui->mnuManageVisible->setChecked(m_control->ManageVisible());
    m_ui->mnuStartDirect->setChecked(m_control->BrowserTabIndex() == DirectPage);
    connect(m_ui->mnuRefreshTimer, &QAction::toggled, m_control, &T4ZelkaBrowser::SetRefreshTimer);
    connect(m_ui->mnuRefreshVisible, &QAction::toggled, m_control, &T4ZelkaBrowser::SetRefreshVisible);
    connect(m_ui->mnuManageVisible, &QAction::toggled, m_control, &T4ZelkaBrowser::SetManageVisible);
    connect(m_ui->mnuStartDirect, &QAction::toggled, m_control,
            [this](bool direct) { m_control->SetBrowserTabIndex(direct ? DirectPage : DatabasePage); });
    connect(m_control, &T4ZelkaBrowser::RefreshTimerChanged, m_ui->mnuRefreshTimer, &QAction::setChecked);
    connect(m_control, &T4ZelkaBrowser::RefreshVisibleChanged, m_ui->mnuRefreshVisible, &QAction::setChecked);
    connect(m_control, &T4ZelkaBrowser::ManageVisibleChanged, m_ui->mnuManageVisible, &QAction::setChecked);
    connect(m_control, &T4ZelkaBrowser::BrowserTabIndexChanged, m_ui->mnuStartDirect,
            [this](int page) { m_ui->mnuStartDirect->setChecked(page == DirectPage); });
}

void WorkstationWindow::ConnectHelp()
{
    const std::initializer_list<std::pair<QAction*, QString>> pages = {
        {m_ui->mnuContents, HelpLinks::Contents},
        {m_ui->mnuHelpWorkstation, HelpLinks::Workstation},
        {m_ui->mnuHelpDatabaseTab, HelpLinks::DatabaseTab},
        {m_ui->mnuHelpDirectTab, HelpLinks::DirectTab},
        {m_ui->mnuHelpFinding, HelpLinks::Finding},
        {m_ui->mnuHelpOthers, HelpLinks::OtherWorkstations},
        {m_ui->mnuHelpKeyboard, HelpLinks::Keyboard},
        {m_ui->mnuHelpMessages, HelpLinks::Messages},
        {m_ui->mnuHelpCommandLine, HelpLinks::CommandLine},
    };
    const bool isThere = Help().HelpFilePath && QFileInfo::exists(Help().HelpFilePath());
    for (const auto& [action, topic] : pages) {
        action->setEnabled(isThere);
        connect(action, &QAction::triggered, this, [topic = topic] { ShowHelpTopic(topic); });
    }
}

void WorkstationWindow::ConnectViewMenu()
{
    auto* const themes = new QActionGroup(this);
    const std::pair<QAction*, Theme> choices[] = {{m_ui->mnuThemeSystem, Theme::System},
                                                  {m_ui->mnuThemeLight, Theme::Light},
                                                  {m_ui->mnuThemeDark, Theme::Dark},
                                                  {m_ui->mnuThemeContrast, Theme::Contrast}};
    for (const auto& [action, theme] : choices) {
        themes->addAction(action);
        action->setData(ThemeName(theme));
        connect(action, &QAction::triggered, this, [this, theme = theme] { mnuTheme_Click(theme); });
    }
    m_ui->mnuThemeSystem->setChecked(true);

    const bool shown = m_settings.value(StatusLineKey(), true).toBool();
    m_ui->mnuStatusLine->setChecked(shown);
    m_ui->staStatus->setVisible(shown);
    connect(m_ui->mnuStatusLine, &QAction::toggled, this, [this](bool show) {
        m_ui->staStatus->setVisible(show);
        m_settings.setValue(StatusLineKey(), show);
    });
}

void WorkstationWindow::mnuTheme_Click(Theme theme)
{
    ShowTheme(theme);
    m_settings.setValue(ThemeKey(), ThemeName(theme));
}

void WorkstationWindow::ShowTheme(Theme theme)
{
    ApplyTheme(theme);
    for (QAction* action : m_ui->mnuView->actions()) {
        if (action->data().toString() == ThemeName(theme))
            action->setChecked(true);
    }
}

Theme WorkstationWindow::StoredTheme(const QSettings& settings)
{
    return ThemeOfName(settings.value(ThemeKey()).toString()).value_or(Theme::System);
}

void WorkstationWindow::mnuAbout_Click()
{
    frmAbout(DatabaseText(), this).exec();
}

void WorkstationWindow::ReadProperties()
{
    SettingsPropertyBag bag(m_settings, PropertyGroup());
    // An operator's workstation is about the database and starts managers; the control by itself would open
    // its direct page and offer none.
    if (!bag.Holds(RefreshIntervalProperty())) {
        if (!bag.Holds(BrowserTabIndexProperty()))
            bag.WriteProperty(BrowserTabIndexProperty(), DatabasePage);
        if (!bag.Holds(ManageVisibleProperty()))
            bag.WriteProperty(ManageVisibleProperty(), true);
    }
    m_refreshTimerStored = bag.ReadProperty(RefreshTimerProperty(), false).toBool();
    m_control->UserControl_ReadProperties(bag);
}

void WorkstationWindow::WriteProperties()
{
    const bool refreshed = Database().DatabaseOpen;
    SettingsPropertyBag bag(m_settings, PropertyGroup());
    m_control->UserControl_WriteProperties(bag);
    if (!refreshed)
        bag.WriteProperty(RefreshTimerProperty(), m_refreshTimerStored, false);
}

void WorkstationWindow::paintEvent(QPaintEvent* event)
{
    QMainWindow::paintEvent(event);
    if (std::exchange(m_startsWhenPainted, false))
        QMetaObject::invokeMethod(this, &WorkstationWindow::Start, Qt::QueuedConnection);
}

void WorkstationWindow::closeEvent(QCloseEvent* event)
{
    m_ui->pnlConsole->Disconnect();
    if (m_control) {
        WriteProperties();
        m_settings.sync();
    }
    QMainWindow::closeEvent(event);
}
