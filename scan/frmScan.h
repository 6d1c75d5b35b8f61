#pragma once

#include <QDialog>
#include <QString>

#include <exception>
#include <functional>
#include <memory>

class ConData;
class DigitBox;
class IntervalTimer;
struct FoundNode;
struct ScanRun;
struct TimingLimits;

namespace Ui {
class frmScan;
}

/// Walks an address range behind one connection, asks each address who is there, and lists the nodes that
/// answer; one of them can be taken to the Direct tab.
///
/// The caption of cmdStartStop tells the state: "S&tart" idle, "Stop" scanning, "Stop ..." a stop is asked
/// for. While it is "Stop" the window cannot be closed. Show it modally; thread: the control's. The
/// components of a scan are in Scan(); a host that lets go of them ends the scan without a word.
class frmScan : public QDialog
{
    Q_OBJECT

public:
    /// `direct`: the connection to scan through; it outlives the form. A change of the bus goes to it and to
    /// the module's NewDirectObject.
    explicit frmScan(ConData& direct, QWidget* parent = nullptr);
    ~frmScan() override;

    void reject() override;
    void done(int result) override;

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    // Load, enabling, ends (frmScan.cpp) --------------------------------------------------------------------

    void Connect();
    void Form_Load();
    void Form_Activate();
    void ShowTitle();
    void Form_KeyPress();
    [[nodiscard]] bool Form_QueryUnload() const { return !IsScanning(); }
    void Form_Unload();
    void cmdHelp_Click();
    void grdFoundNodes_Click();
    void SetScanTimerInterval();
    void InitFoundNodesGrid();
    void UpdateCommandButtons();
    void SetCommandsEnabled(bool on);
    void ApplyEditRight();
    /// Why commands are disabled, if any are.
    void ShowReasons();
    void Guarded(const std::function<void()>& handler);

    [[nodiscard]] bool HasCaption(const QString& caption) const;
    [[nodiscard]] bool IsIdle() const;
    [[nodiscard]] bool IsScanning() const;
    [[nodiscard]] bool IsStopRequested() const;

    // Bus (frmScanBus.cpp) ----------------------------------------------------------------------------------

    void LoadBus();
    void SetBusControlsEnabled(bool on);
    /// False also where the connection's data are damaged.
    [[nodiscard]] bool GetBusNumber(QString& value) const;
    void txtBus_Change();
    /// False: one of the connections takes no bus.
    [[nodiscard]] bool SetBus(const QString& text);
    /// A box under which the host may destroy the form must not stand inside a signal of the text box, which
    /// goes on afterwards.
    void TellLater(const QString& text, int flags = 0, const QString& title = QString());
    void cmdScanBus_Click();

    // Start (frmScanStart.cpp) ------------------------------------------------------------------------------

    void txtAddrBegin_Change();
    void txtAddrEnd_Change();
    void AcceptAddress(DigitBox& box, QString& lastText);
    void cmdStartStop_Click();
    /// The operator has been told what is wrong, and the form may be gone, when it gives False.
    [[nodiscard]] bool CheckStart();
    [[nodiscard]] bool CheckTiming(DigitBox& box, const TimingLimits& limits, const QString& refusal);
    [[nodiscard]] bool CheckAddresses();
    [[nodiscard]] bool Refuse(const QString& message, DigitBox* box = nullptr);
    void PrepareProgress(int begin, int end);
    void StartScan();
    [[nodiscard]] bool CreateComponents(const std::shared_ptr<ScanRun>& run);
    [[nodiscard]] bool OpenConnection(const std::shared_ptr<ScanRun>& run);
    /// What follows when the operator has been told why the scan cannot start.
    void AbandonStart(const std::shared_ptr<ScanRun>& run);
    void FailStart(const std::shared_ptr<ScanRun>& run, const std::exception& error);
    void ShowFailedStart();

    // Walk (frmScanWalk.cpp) --------------------------------------------------------------------------------

    void tmrScanNodes_Timer();
    void ScanNextAddress();
    void TakeStep(const std::shared_ptr<ScanRun>& run);
    [[nodiscard]] bool QueryNodeAtAddress(const std::shared_ptr<ScanRun>& run, qint16 address, QString& type,
                                          QString& identification);
    void FinishScan(const std::shared_ptr<ScanRun>& run);
    void StopScan(const std::shared_ptr<ScanRun>& run);
    void FailScan(const std::shared_ptr<ScanRun>& run, const std::exception& error);

    /// False: the run is over and nothing is to be done. Where the host has let go of its components, this is
    /// what ends it. `form` may be gone when the run has ended: asked behind a wait, no method of it may be.
    [[nodiscard]] static bool GoesOn(frmScan* form, const std::shared_ptr<ScanRun>& run);
    /// The run that is under way is no longer; its components stay as they are.
    void EndRun();
    void ShowIdle();
    void ResetProgress();

    // Select (frmScanSelect.cpp) ----------------------------------------------------------------------------

    void cmdSelect_Click();

    // Save (frmScanSave.cpp) --------------------------------------------------------------------------------

    void cmdSave_Click();
    void cmdSaveAll_Click();
    /// The connection of the scan is in the database as it was, if need be after its dialog. False: it is
    /// not, a scan runs, or the form is gone.
    [[nodiscard]] bool SaveConnectionFirst();
    [[nodiscard]] FoundNode NodeAtRow(int row) const;

    std::unique_ptr<Ui::frmScan> m_ui;
    ConData& m_direct;
    IntervalTimer* m_tmrScanNodes;
    /// The scan that is under way; null while there is none.
    std::shared_ptr<ScanRun> m_run;
    /// Address that the next step asks, and the range.
    qint16 m_currentAddress = 0;
    qint16 m_beginAddress = 0;
    qint16 m_endAddress = 0;
    /// Bus of the connection when the form opened; 0: it has none.
    qint32 m_busAtOpen = 0;
    /// NewDirectObject had a name when the form opened.
    bool m_newDirectNamed = false;
    /// The bus box is the operator's.
    bool m_busEditArmed = false;
    /// Every second tick takes a step.
    qint16 m_tickToggle = 0;
    /// Last accepted texts of the address boxes.
    QString m_lastBeginText;
    QString m_lastEndText;
    bool m_unloaded = false;
};
