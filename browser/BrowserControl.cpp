#include "browser/BrowserControl.h"

#include "browser/BrowserState.h"
#include "browser/CommandReasons.h"
#include "browser/ConnectionPictures.h"
#include "browser/DirectTab.h"
#include "browser/LoadState.h"
#include "browser/TreeMenu.h"
#include "browser/ui_BrowserControl.h"
#include "database/DatabaseState.h"
#include "database/ReadBracket.h"
#include "dialogs/DialogState.h"
#include "model/LookupHelpers.h"
#include "model/ModelState.h"
#include "platform/ComponentError.h"
#include "platform/MachineSeams.h"
#include "platform/MsgBox.h"
#include "platform/controls/AccessibleControls.h"
#include "platform/controls/IntervalTimer.h"
#include "platform/controls/ProblemMark.h"
#include "scan/network/ScanState.h"

#include <QHideEvent>
#include <QPointer>
#include <QShortcut>
#include <QShowEvent>

#include <exception>

BrowserControl::BrowserControl(QWidget* parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::BrowserControl>())
{
    RegisterPictures();
    OfferAccessibleControls();
    m_ui->setupUi(this);
    // Made behind the views, which so go first.
    m_conTree = new TreeEntries(this);
    m_nodesTree = new TreeEntries(this);
    m_tmrRefreshTimer = new IntervalTimer(this);
    m_tmrRefreshTimer->setObjectName(QStringLiteral("tmrRefreshTimer"));
    m_tmrRefreshTimer->SetInterval(m_refreshInterval);
    auto* help = new QObject(this);
    help->setObjectName(QStringLiteral("cdlBrowserHelp"));

    m_ui->cmdRefresh->setVisible(m_refreshVisible);
    m_ui->cmdDatabaseManage->setVisible(m_manageVisible);
    m_ui->txtTarget->setMaxLength(std::numeric_limits<int>::max());
    m_ui->updPort->SetBuddy(m_ui->txtPort, 0, 65535);
    m_ui->UpDown1->SetBuddy(m_ui->txtSection, 0, 255);
    m_ui->UpDown2->SetBuddy(m_ui->txtStation, 0, 255);
    m_direct = std::make_unique<DirectTab>(
        *m_ui, *m_conTree,
        DirectTab::Control{[this](const std::function<void()>& handler) { Guarded(handler); },
                           [this](const StaleRecord& stale) { return TellStaleEntry(stale); }});
    m_targetMark = std::make_unique<ProblemMark>(*m_ui->txtTarget);
    m_menu = std::make_unique<TreeMenu>(*m_ui);
    ShowConPicture(NoConType);
    ConnectControls();
    ConnectTrees();
    m_reasons = std::make_unique<CommandReasons>(*m_ui);
}

BrowserControl::~BrowserControl()
{
    UserControl_Terminate();
    // What the children tell while they go must not reach handlers of a control that is half gone.
    for (QObject* child : findChildren<QObject*>())
        child->disconnect(this);
}

void BrowserControl::ConnectControls()
{
    const auto onClick = [this](QAbstractButton* button, void (BrowserControl::*handler)()) {
        connect(button, &QAbstractButton::clicked, this,
                [this, handler] { Guarded([this, handler] { (this->*handler)(); }); });
    };
    onClick(m_ui->cmdDatabaseAdd, &BrowserControl::cmdDatabaseAdd_Click);
    onClick(m_ui->cmdDatabaseProp, &BrowserControl::cmdDatabaseProp_Click);
    onClick(m_ui->cmdDatabaseRemove, &BrowserControl::cmdDatabaseRemove_Click);
    onClick(m_ui->cmdDatabaseManage, &BrowserControl::cmdDatabaseManage_Click);
    onClick(m_ui->cmdDbScan, &BrowserControl::cmdDbScan_Click);
    onClick(m_ui->cmdScan, &BrowserControl::cmdScan_Click);
    onClick(m_ui->cmdLoadMore, &BrowserControl::cmdLoadMore_Click);
    onClick(m_ui->cmdRefresh, &BrowserControl::cmdRefresh_Click);
    onClick(m_ui->cmdDirectConProp, &BrowserControl::cmdDirectConProp_Click);
    onClick(m_ui->FindElement, &BrowserControl::FindElement_Click);
    onClick(m_ui->cmdDatabaseHelp, &BrowserControl::cmdDatabaseHelp_Click);
    onClick(m_ui->cmdDirectHelp, &BrowserControl::cmdDirectHelp_Click);

    const auto onToggle = [this](QAbstractButton* button, void (BrowserControl::*handler)()) {
        connect(button, &QAbstractButton::toggled, this,
                [this, handler] { Guarded([this, handler] { (this->*handler)(); }); });
    };
    onToggle(m_ui->optCon, &BrowserControl::optCon_Click);
    onToggle(m_ui->optNodes, &BrowserControl::optNodes_Click);
    onToggle(m_ui->chkViewNodes, &BrowserControl::chkViewNodes_Click);

    connect(m_ui->tabMain, &QTabWidget::currentChanged, this, [this] {
        const int previousTab = std::exchange(m_shownTab, m_ui->tabMain->currentIndex());
        Guarded([this, previousTab] { tabMain_Click(previousTab); });
    });
    connect(m_ui->txtTarget, &QLineEdit::textChanged, this, &BrowserControl::txtTarget_Change);
    connect(m_tmrRefreshTimer, &IntervalTimer::Timer, this,
            [this] { Guarded([this] { tmrRefreshTimer_Timer(); }); });

    auto* find = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_F), this);
    find->setContext(Qt::WidgetWithChildrenShortcut);
    constexpr int ctrlF = 6;
    connect(find, &QShortcut::activated, this, [this] { Guarded([this] { UserControl_KeyPress(ctrlF); }); });
    m_ui->tabMain->tabBar()->installEventFilter(this);
    m_ui->tabNode->tabBar()->installEventFilter(this);
    m_ui->cmdScan->installEventFilter(this);
}

void BrowserControl::Guarded(const std::function<void()>& handler)
{
    const QPointer<BrowserControl> alive(this);
    const auto letGo = [&] {
        if (alive)
            m_clickReads.reset();
    };
    try {
        handler();
    } catch (const ComponentError& error) {
        letGo();
        ErrorBox(error.Description());
    } catch (const std::exception& error) {
        letGo();
        ErrorBox(QString::fromUtf8(error.what()));
    }
}

// Container -------------------------------------------------------------------------------------------------

void BrowserControl::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (event->spontaneous())
        return;
    Guarded([this, alive = QPointer<BrowserControl>(this)] {
        if (!m_startRan)
            StartControl();
        if (alive)
            UserControl_Show();
    });
}

void BrowserControl::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    if (!event->spontaneous())
        UserControl_Hide();
}

void BrowserControl::UserControl_Show()
{
    // A form editor shows the control as it is.
    if (!m_userMode)
        return;
    m_ui->optNodes->setChecked(true);
    optNodes_Click();
    RestoreViewSelection();
    const int tab = Browser().BrowserTabIndex == 1 ? 1 : 0;
    {
        const QSignalBlocker once(m_ui->tabMain);
        m_ui->tabMain->setCurrentIndex(tab);
        m_shownTab = tab;
    }
    tabMain_Click(tab);
}

void BrowserControl::UserControl_Hide()
{
    for (int index = 0; index < ConnectionPictureCount; ++index)
        Dialogs().ConPictures[static_cast<std::size_t>(index)] = QIcon();
}

void BrowserControl::UserControl_Terminate()
{
    m_clickReads.reset();
    std::erase(Browser().Loaded, this);
    WithdrawHooks();
    if (Model().ConObject) {
        Model().ConObject->ConTree = nullptr;
        Model().ConObject->NodesTree = nullptr;
    }
    if (Database().DatabaseOpen)
        FreeObjects();
    if (Load().LoadTree == m_conTree || Load().LoadTree == m_nodesTree)
        Load().LoadTree = nullptr;
}

void BrowserControl::FreeObjects()
{
    const bool inUse = Browser().Busy > 0 || m_clickReads;
    m_clickReads.reset();
    DatabaseState& database = Database();
    if (database.DbObject)
        database.DbObject->CloseDb();
    database.DatabaseOpen = false;
    Load().LoadTree = nullptr;
    Load().LoadParentNode = 0;
    Model().Database = nullptr;
    CloseScan();
    // A host may call while one of the gateway's operations stands further down the stack.
    if (inUse && database.DbObject)
        database.DbObject.release()->deleteLater();
    database.DbObject.reset();
    Q_EMIT StatusChanged();
}

// Events ----------------------------------------------------------------------------------------------------

void BrowserControl::mCursor_SetMousePointer(int pointer)
{
    Machine().ShowBusyPointer(pointer == DatabaseClass::BusyPointer);
}
