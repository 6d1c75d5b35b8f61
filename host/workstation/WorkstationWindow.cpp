#include "host/workstation/WorkstationWindow.h"

#include "browser/T4ZelkaBrowser.h"
#include "database/DatabaseState.h"
#include "host/workstation/ConsolePanel.h"
#include "host/workstation/frmAbout.h"
#include "host/workstation/ui_WorkstationWindow.h"
#include "platform/controls/AccessibleControls.h"
#include "platform/controls/SettingsPropertyBag.h"

#include <QCloseEvent>
#include <QSettings>
#include <QUrl>

#include <utility>

namespace {

/// Of a new operator's window; later the operator's own.
constexpr int BrowserWidth = 640;
constexpr int PanelWidth = 320;

constexpr int DatabasePage = 0;
constexpr int DirectPage = 1;

QString PropertyGroup()
{
    return QStringLiteral("Browser");
}
QString GeometryKey()
{
    return QStringLiteral("Window/Geometry");
}
QString SplitterKey()
{
    return QStringLiteral("Window/Splitter");
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
    : m_ui(std::make_unique<Ui::WorkstationWindow>()),
      m_settings(settings),
      m_source(std::move(source)),
      m_place(place)
{
    OfferAccessibleControls();
    m_ui->setupUi(this);
    m_ui->splHost->setStretchFactor(0, 1);
    m_ui->splHost->setStretchFactor(1, 0);
    m_ui->splHost->setSizes({BrowserWidth, PanelWidth});
    if (m_place == Place::Kept)
        RestorePlace();
    m_ui->mnuSettings->setEnabled(false);
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

    delete m_ui->splHost->replaceWidget(0, m_control);
    m_control->show();

    m_ui->pnlTarget->SetReader([this](QString& target) { return m_control->GetTarget(target); });
    // A selection sets the name first and the target then, so the panel asks when both are there.
    connect(m_control, &T4ZelkaBrowser::SobriquetChanged, m_ui->pnlTarget, &TargetPanel::ReadTarget,
            Qt::QueuedConnection);
    ConnectMenus();
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

void WorkstationWindow::RestorePlace()
{
    restoreGeometry(m_settings.value(GeometryKey()).toByteArray());
    m_ui->splHost->restoreState(m_settings.value(SplitterKey()).toByteArray());
}

void WorkstationWindow::SavePlace()
{
    m_settings.setValue(GeometryKey(), saveGeometry());
    m_settings.setValue(SplitterKey(), m_ui->splHost->saveState());
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
        if (m_place == Place::Kept)
            SavePlace();
        m_settings.sync();
    }
    QMainWindow::closeEvent(event);
}
