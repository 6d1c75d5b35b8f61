#include "scan/frmScan.h"

#include "database/DatabaseState.h"
#include "model/ConData.h"
#include "model/LookupHelpers.h"
#include "model/ModelState.h"
#include "platform/ComponentError.h"
#include "platform/HelpHook.h"
#include "platform/HelpLinks.h"
#include "platform/MsgBox.h"
#include "platform/NamedValues.h"
#include "platform/controls/DisabledReason.h"
#include "platform/controls/HelpKey.h"
#include "platform/controls/IntervalTimer.h"
#include "scan/FoundNodesMenu.h"
#include "scan/ScanRun.h"
#include "scan/ScanTexts.h"
#include "scan/ui_frmScan.h"

#include <QKeyEvent>
#include <QPointer>
#include <QShowEvent>

namespace {

constexpr int DesignIntervalMs = 500;
constexpr int WorkstationIntervalMs = 100;
/// Many operators share the machine.
constexpr int TerminalServerIntervalMs = 500;

bool IsTerminalServer()
{
    const NamedValues values;
    QString name;
    for (const QString& key : {QStringLiteral("Terminal Server"), QStringLiteral("Citrix")}) {
        if (ReadRegistryValue(values, QStringLiteral("HKEY_LOCAL_MACHINE"),
                              QStringLiteral("SYSTEM\\CurrentControlSet\\Control\\") + key,
                              QStringLiteral("ProductName"), name))
            return true;
    }
    return false;
}

} // namespace

frmScan::frmScan(ConData& direct, QWidget* parent)
    : QDialog(parent),
      m_ui(std::make_unique<Ui::frmScan>()),
      m_direct(direct),
      m_tmrScanNodes(new IntervalTimer(this))
{
    m_ui->setupUi(this);
    m_tmrScanNodes->setObjectName(QStringLiteral("tmrScanNodes"));
    m_tmrScanNodes->SetInterval(DesignIntervalMs);
    Connect();
    Guarded([this] { Form_Load(); });
}

frmScan::~frmScan()
{
    Form_Unload();
    // What the children tell while they go must not reach handlers of a form that is half gone.
    for (QObject* child : findChildren<QObject*>())
        child->disconnect(this);
}

void frmScan::Connect()
{
    const auto guarded = [this](void (frmScan::*handler)()) {
        return [this, handler] { Guarded([this, handler] { (this->*handler)(); }); };
    };
    connect(m_ui->txtAddrBegin, &QLineEdit::textChanged, this, &frmScan::txtAddrBegin_Change);
    connect(m_ui->txtAddrEnd, &QLineEdit::textChanged, this, &frmScan::txtAddrEnd_Change);
    connect(m_ui->txtBus, &QLineEdit::textChanged, this, &frmScan::txtBus_Change);
    connect(m_ui->cmdScanBus, &QPushButton::clicked, this, guarded(&frmScan::cmdScanBus_Click));
    connect(m_ui->cmdStartStop, &QPushButton::clicked, this, &frmScan::cmdStartStop_Click);
    connect(m_ui->grdFoundNodes, &FoundNodesGrid::NodeClick, this, &frmScan::grdFoundNodes_Click);
    connect(m_ui->grdFoundNodes, &FoundNodesGrid::ContextMenu, this,
            [this](const QPoint& place) { Guarded([&] { OpenFoundNodesMenu(*m_ui, m_direct, place); }); });
    connect(m_ui->cmdSelect, &QPushButton::clicked, this, guarded(&frmScan::cmdSelect_Click));
    connect(m_ui->cmdSave, &QPushButton::clicked, this, guarded(&frmScan::cmdSave_Click));
    connect(m_ui->cmdSaveAll, &QPushButton::clicked, this, guarded(&frmScan::cmdSaveAll_Click));
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_ui->cmdHelp, &QPushButton::clicked, this, &frmScan::cmdHelp_Click);
    UseHelpKey(*this, *m_ui->cmdHelp);
    connect(m_tmrScanNodes, &IntervalTimer::Timer, this, &frmScan::tmrScanNodes_Timer);
}

void frmScan::Guarded(const std::function<void()>& handler)
{
    try {
        handler();
    } catch (const std::exception& error) {
        ErrorBox(DescriptionOf(error));
    }
}

// Load ----------------------------------------------------------------------------------------------------

void frmScan::Form_Load()
{
    m_ui->txtTimingTimeout->setText(m_direct.Time);
    m_ui->txtTimingRetries->setText(m_direct.Retry);
    InitFoundNodesGrid();
    Guarded([this] { (void)m_direct.SetTargetString(false); });
    ApplyEditRight();
    const ConData* const newDirect = Model().NewDirectObject.get();
    m_newDirectNamed = newDirect && !newDirect->ConName.isEmpty();
    ShowTitle();
    LoadBus();
}

void frmScan::ShowTitle()
{
    setWindowTitle(ScanTexts::Title().arg(m_direct.ConName));
}

void frmScan::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (!event->spontaneous())
        Form_Activate();
}

void frmScan::Form_Activate()
{
    m_busEditArmed = true;
    UpdateCommandButtons();
    SetScanTimerInterval();
}

void frmScan::SetScanTimerInterval()
{
    m_tmrScanNodes->SetInterval(IsTerminalServer() ? TerminalServerIntervalMs : WorkstationIntervalMs);
}

void frmScan::InitFoundNodesGrid()
{
    m_ui->grdFoundNodes->InitFoundNodesGrid();
    UpdateCommandButtons();
}

// State ---------------------------------------------------------------------------------------------------

bool frmScan::HasCaption(const QString& caption) const
{
    return m_ui->cmdStartStop->text().compare(caption, Qt::CaseInsensitive) == 0;
}

bool frmScan::IsIdle() const
{
    return HasCaption(ScanTexts::Start());
}

bool frmScan::IsScanning() const
{
    return HasCaption(ScanTexts::Stop());
}

bool frmScan::IsStopRequested() const
{
    return HasCaption(ScanTexts::StopRequested());
}

// Enabling ------------------------------------------------------------------------------------------------

void frmScan::UpdateCommandButtons()
{
    const int found = m_ui->grdFoundNodes->FoundCount();
    // Only who may edit has a selection.
    const int selected = Database().EditRight ? m_ui->grdFoundNodes->Row() : 0;
    const bool isFound = selected >= 1 && selected <= found;
    m_ui->cmdSave->setEnabled(isFound);
    m_ui->cmdSaveAll->setEnabled(Database().EditRight && found >= 1);
    m_ui->cmdSelect->setEnabled(isFound);
    ShowReasons();
}

void frmScan::SetCommandsEnabled(bool on)
{
    for (QWidget* command : {m_ui->cmdSave, m_ui->cmdSaveAll, m_ui->cmdSelect, m_ui->cmdCancel})
        command->setEnabled(on);
    SetBusControlsEnabled(on);
    ApplyEditRight();
}

void frmScan::ApplyEditRight()
{
    if (!Database().EditRight) {
        m_ui->cmdSave->setEnabled(false);
        m_ui->cmdSaveAll->setEnabled(false);
    }
    ShowReasons();
}

void frmScan::ShowReasons()
{
    const auto tell = [this](QWidget& command, DisabledReason reason) {
        const bool waits = !IsIdle() && reason != DisabledReason::NoEditRight;
        ShowReason(command, command.isEnabled() ? DisabledReason::None
                            : waits             ? DisabledReason::ScanRuns
                                                : reason);
    };
    const DisabledReason none = !Database().EditRight                    ? DisabledReason::NoEditRight
                                : m_ui->grdFoundNodes->FoundCount() == 0 ? DisabledReason::NothingFound
                                                                         : DisabledReason::NoFoundSelected;
    for (QWidget* command : {m_ui->cmdSelect, m_ui->cmdSave, m_ui->cmdSaveAll})
        tell(*command, none);
    tell(*m_ui->cmdCancel, DisabledReason::ScanRuns);
    tell(*m_ui->txtBus, DisabledReason::NoBus);
    tell(*m_ui->cmdScanBus, DisabledReason::NoBus);
}

void frmScan::grdFoundNodes_Click()
{
    UpdateCommandButtons();
}

// Keys and ends -------------------------------------------------------------------------------------------

void frmScan::keyPressEvent(QKeyEvent* event)
{
    const bool isEscape = event->key() == Qt::Key_Escape;
    // A key that is held down must not run through the states.
    if (event->isAutoRepeat() &&
        (isEscape || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) {
        event->accept();
        return;
    }
    if (isEscape && !IsIdle()) {
        event->accept();
        Form_KeyPress();
        return;
    }
    QDialog::keyPressEvent(event);
}

void frmScan::Form_KeyPress()
{
    if (IsScanning())
        cmdStartStop_Click();
}

void frmScan::reject()
{
    if (Form_QueryUnload())
        QDialog::reject();
}

void frmScan::done(int result)
{
    const QPointer<frmScan> alive(this);
    Form_Unload();
    if (alive)
        QDialog::done(result);
}

void frmScan::Form_Unload()
{
    m_tmrScanNodes->SetEnabled(false);
    const std::shared_ptr<ScanRun> run = m_run;
    EndRun();
    if (!std::exchange(m_unloaded, true)) {
        ConData* const newDirect = Model().NewDirectObject.get();
        if (newDirect && !m_newDirectNamed)
            newDirect->ConName.clear();
    }
    // Last, since closing lets events run.
    if (run)
        run->CloseQuietly();
}

void frmScan::cmdHelp_Click()
{
    ShowHelpTopic(HelpLinks::Scan);
}
