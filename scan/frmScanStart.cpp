#include "database/ReportComponentError.h"
#include "model/ConData.h"
#include "model/TextHelpers.h"
#include "platform/ComponentError.h"
#include "platform/Components.h"
#include "platform/MachineSeams.h"
#include "platform/MsgBox.h"
#include "scan/ScanRun.h"
#include "scan/ScanTexts.h"
#include "scan/frmScan.h"
#include "scan/network/ScanState.h"
#include "scan/network/ScanTargets.h"
#include "scan/network/TimingLimits.h"
#include "scan/ui_frmScan.h"

#include <QPointer>
#include <QScopeGuard>

#include <algorithm>

namespace {

/// Range of a progress bar before a scan gives it its own.
constexpr int WideProgress = 32000;

bool IsBlank(const QLineEdit& box)
{
    return TrimBlanks(box.text()).isEmpty();
}

bool IsScanAddress(double address)
{
    return address >= LowestScanAddress && address <= HighestScanAddress;
}

} // namespace

// Address boxes -------------------------------------------------------------------------------------------

void frmScan::txtAddrBegin_Change()
{
    AcceptAddress(*m_ui->txtAddrBegin, m_lastBeginText);
}

void frmScan::txtAddrEnd_Change()
{
    AcceptAddress(*m_ui->txtAddrEnd, m_lastEndText);
}

void frmScan::AcceptAddress(DigitBox& box, QString& lastText)
{
    const double address = Val(box.text());
    if (IsBlank(box) || (address >= LowestScanAddress && address < HighestScanAddress + 1)) {
        lastText = box.text();
        return;
    }
    const int caret = box.cursorPosition();
    box.setText(lastText);
    box.setCursorPosition(std::max(caret - 1, 0));
    Machine().Beep();
}

// Checks --------------------------------------------------------------------------------------------------

bool frmScan::Refuse(const QString& message, DigitBox* box)
{
    const QPointer<DigitBox> alive(box);
    MsgBox(message);
    if (alive) {
        alive->setFocus();
        alive->selectAll();
    }
    return false;
}

bool frmScan::CheckStart()
{
    if (IsBlank(*m_ui->txtAddrBegin) || IsBlank(*m_ui->txtAddrEnd))
        return Refuse(ScanTexts::NoRange());
    const QPointer<frmScan> alive(this);
    const TimingLimits retries = RetryLimits();
    if (!alive || !CheckTiming(*m_ui->txtTimingRetries, retries, ScanTexts::RetriesRefused()))
        return false;
    const TimingLimits times = TimeLimits();
    if (!alive || !CheckTiming(*m_ui->txtTimingTimeout, times, ScanTexts::TimeOutRefused()))
        return false;
    return CheckAddresses();
}

bool frmScan::CheckTiming(DigitBox& box, const TimingLimits& limits, const QString& refusal)
{
    if (limits.Allow(box.text()))
        return true;
    return Refuse(refusal.arg(limits.lowest, Trim(limits.highest)), &box);
}

bool frmScan::CheckAddresses()
{
    const double begin = Val(m_ui->txtAddrBegin->text());
    const double end = Val(m_ui->txtAddrEnd->text());
    if (end < begin)
        return Refuse(ScanTexts::EndBelowBegin(), m_ui->txtAddrEnd);
    const QString accepted = ScanTexts::AcceptedRange().arg(HighestScanAddress);
    if (!IsScanAddress(begin))
        return Refuse(accepted, m_ui->txtAddrBegin);
    if (!IsScanAddress(end))
        return Refuse(accepted, m_ui->txtAddrEnd);
    return true;
}

// Start ---------------------------------------------------------------------------------------------------

void frmScan::cmdStartStop_Click()
{
    if (IsScanning()) {
        m_ui->cmdStartStop->setText(ScanTexts::StopRequested());
        return;
    }
    if (!IsIdle())
        return;
    const QPointer<frmScan> alive(this);
    try {
        if (!CheckStart())
            return;
        // Kept from here on: while the connection is opened the operator may edit the boxes.
        m_beginAddress = static_cast<qint16>(ValInt(m_ui->txtAddrBegin->text()));
        m_endAddress = static_cast<qint16>(ValInt(m_ui->txtAddrEnd->text()));
        PrepareProgress(m_beginAddress, m_endAddress);
        m_ui->cmdStartStop->setText(ScanTexts::Stop());
        SetCommandsEnabled(false);
        InitFoundNodesGrid();
        StartScan();
    } catch (const std::exception&) {
        if (alive && !IsIdle() && !m_run)
            ShowFailedStart();
        ErrorBox(ScanTexts::Defective());
    }
}

void frmScan::PrepareProgress(int begin, int end)
{
    m_ui->PrgBarScan->setRange(0, WideProgress);
    m_ui->PrgBarScan->setRange(begin, end == begin ? begin + 1 : end);
    ResetProgress();
}

void frmScan::StartScan()
{
    EndRun();
    const auto run = std::make_shared<ScanRun>();
    m_run = run;
    try {
        (void)m_direct.SetTargetString(false);
        if (!GoesOn(this, run) || !CreateComponents(run) || !OpenConnection(run))
            return;
        m_currentAddress = m_beginAddress;
        TakeStep(run);
    } catch (const std::exception& error) {
        if (!run->ended)
            FailStart(run, error);
    }
}

bool frmScan::CreateComponents(const std::shared_ptr<ScanRun>& run)
{
    QString failure = ScanTexts::NoConnection();
    try {
        run->connection = CreateSyncConnection(T4SyncConnId);
        Scan().SyncConnObj = run->connection;
        failure = ScanTexts::NoUtility();
        run->utility = CreateHvxUtility(HvxUtilityId);
        Scan().HVXUtilObject = run->utility;
        return true;
    } catch (const std::exception&) {
        ErrorBox(failure);
    }
    if (!run->ended)
        AbandonStart(run);
    return false;
}

bool frmScan::OpenConnection(const std::shared_ptr<ScanRun>& run)
{
    const std::shared_ptr<SyncConnection> connection = run->connection;
    bool opened = false;
    try {
        opened = connection->Open(ScanTarget(m_direct.TargetString)) == 0;
    } catch (const std::exception&) {
        opened = false;
    }
    if (!GoesOn(this, run))
        return false;
    if (opened)
        return true;
    ReportComponentError(ScanTexts::NotOpened(), *connection);
    if (!run->ended)
        AbandonStart(run);
    return false;
}

// Failures ------------------------------------------------------------------------------------------------

void frmScan::AbandonStart(const std::shared_ptr<ScanRun>& run)
{
    if (run->ended)
        return;
    run->CloseQuietly();
    if (!GoesOn(this, run))
        return;
    EndRun();
    ShowFailedStart();
}

void frmScan::ShowFailedStart()
{
    m_ui->cmdStartStop->setText(ScanTexts::Start());
    ResetProgress();
    SetCommandsEnabled(true);
    UpdateCommandButtons();
}

void frmScan::FailStart(const std::shared_ptr<ScanRun>& run, const std::exception& error)
{
    if (!GoesOn(this, run))
        return;
    EndRun();
    ShowFailedStart();
    const auto closing = qScopeGuard([&run] { run->CloseQuietly(); });
    // From here on the window may be gone, or used for another scan.
    if (const std::shared_ptr<SyncConnection> connection = run->connection)
        ReportComponentError(ScanTexts::NotOpened(), *connection);
    else
        ErrorBox(ScanTexts::NotOpened() + ScanTexts::LineBreak + DescriptionWithNumber(error));
}
