#include "platform/ComponentError.h"
#include "platform/MachineSeams.h"
#include "platform/MsgBox.h"
#include "platform/controls/IntervalTimer.h"
#include "scan/ScanRun.h"
#include "scan/ScanTexts.h"
#include "scan/frmScan.h"
#include "scan/network/NodeQuery.h"
#include "scan/network/ScanTargets.h"
#include "scan/ui_frmScan.h"

#include <QPointer>

#include <utility>

void frmScan::tmrScanNodes_Timer()
{
    // A tick that was under way when a step switched the timer off.
    if (!m_tmrScanNodes->Enabled())
        return;
    if (m_tickToggle == 0) {
        m_tickToggle = 1;
        return;
    }
    m_tickToggle = 0;
    ScanNextAddress();
}

void frmScan::ScanNextAddress()
{
    m_tmrScanNodes->SetEnabled(false);
    const std::shared_ptr<ScanRun> run = m_run;
    if (!run)
        return;
    try {
        TakeStep(run);
    } catch (const std::exception& error) {
        if (!run->ended)
            FailScan(run, error);
    }
}

void frmScan::TakeStep(const std::shared_ptr<ScanRun>& run)
{
    if (!GoesOn(this, run))
        return;
    if (m_currentAddress > m_endAddress) {
        if (!m_ui->chkRepeatScan->isChecked()) {
            FinishScan(run);
            return;
        }
        m_currentAddress = m_beginAddress;
    }
    if (IsStopRequested()) {
        StopScan(run);
        return;
    }
    QString type;
    QString identification;
    const bool answered = QueryNodeAtAddress(run, m_currentAddress, type, identification);
    if (!GoesOn(this, run))
        return;
    FoundNodesGrid& grid = *m_ui->grdFoundNodes;
    if (qint16 row = 0; answered)
        grid.StoreFoundNode(m_currentAddress, type, identification);
    else if (grid.FindNodeRow(m_currentAddress, row))
        grid.MarkNodeRow(row, true);
    m_ui->PrgBarScan->setValue(m_currentAddress);
    ++m_currentAddress;
    m_tmrScanNodes->SetEnabled(true);
}

bool frmScan::QueryNodeAtAddress(const std::shared_ptr<ScanRun>& run, qint16 address, QString& type,
                                 QString& identification)
{
    m_ui->lbCurrentAddr->setText(ScanTexts::Scanning().arg(address));
    Machine().PumpEvents();
    if (!GoesOn(this, run))
        return false;
    // Held here too: whoever ends the run lets go of them.
    const std::shared_ptr<SyncConnection> connection = run->connection;
    const std::shared_ptr<HvxUtility> utility = run->utility;
    return QueryNode(*connection, *utility,
                     AddressTarget(address, m_ui->txtTimingRetries->text(), m_ui->txtTimingTimeout->text()),
                     type, identification);
}

// Ends ----------------------------------------------------------------------------------------------------

void frmScan::FinishScan(const std::shared_ptr<ScanRun>& run)
{
    ShowIdle();
    run->Close();
    if (!GoesOn(this, run))
        return;
    EndRun();
    if (m_ui->grdFoundNodes->FoundCount() == 0) {
        const QPointer<frmScan> alive(this);
        MsgBox(ScanTexts::NoNodes(), BoxFlags::Plain, ScanTexts::NoNodesTitle());
        if (!alive || m_run)
            return;
    }
    SetCommandsEnabled(true);
    UpdateCommandButtons();
}

void frmScan::StopScan(const std::shared_ptr<ScanRun>& run)
{
    run->Close();
    if (!GoesOn(this, run))
        return;
    EndRun();
    SetCommandsEnabled(true);
    ShowIdle();
    // The other commands stand as they are until the next click in the grid.
}

void frmScan::FailScan(const std::shared_ptr<ScanRun>& run, const std::exception& error)
{
    if (!GoesOn(this, run))
        return;
    ErrorBox(ScanTexts::NotRunning() + ScanTexts::LineBreak + DescriptionWithNumber(error));
    if (!GoesOn(this, run))
        return;
    run->Release();
    EndRun();
    m_ui->cmdStartStop->setText(ScanTexts::Start());
    UpdateCommandButtons();
    SetCommandsEnabled(true);
    ResetProgress();
}

bool frmScan::GoesOn(frmScan* form, const std::shared_ptr<ScanRun>& run)
{
    if (run->ended)
        return false;
    if (!run->IsTakenAway())
        return true;
    run->Release();
    form->EndRun();
    form->ShowIdle();
    form->SetCommandsEnabled(true);
    form->UpdateCommandButtons();
    return false;
}

void frmScan::EndRun()
{
    if (const std::shared_ptr<ScanRun> run = std::exchange(m_run, nullptr))
        run->ended = true;
}

void frmScan::ShowIdle()
{
    m_ui->cmdStartStop->setText(ScanTexts::Start());
    m_ui->lbCurrentAddr->setText(ScanTexts::Progress());
    ResetProgress();
}

void frmScan::ResetProgress()
{
    m_ui->PrgBarScan->setValue(m_ui->PrgBarScan->minimum());
}
