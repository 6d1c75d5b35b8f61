#pragma once

#include <QDialog>

#include <memory>

class ConData;
class IntervalTimer;
struct ScanRun;

namespace Ui {
class frmBusSelection;
}

/// Asks the far end of a connection which buses it serves and lets the operator pick one for the scan.
///
/// Show it modally; afterwards Scan().SelectedBus holds the bus, -1 for none. The question goes out when the
/// form has had the time to appear. Closing it meanwhile ends the wait. Thread: the control's.
class frmBusSelection : public QDialog
{
    Q_OBJECT

public:
    /// `direct`: the connection to ask; it outlives the form.
    explicit frmBusSelection(ConData& direct, QWidget* parent = nullptr);
    ~frmBusSelection() override;

    void reject() override { cmdCancel_Click(); }
    void done(int result) override;

private:
    void Connect();
    void Form_Load();
    void Timer1_Timer();
    void CmdOk_Click();
    void cmdCancel_Click();
    void cmdHelp_Click();

    void ScanBus(const std::shared_ptr<ScanRun>& run);
    [[nodiscard]] bool CreateComponents(const std::shared_ptr<ScanRun>& run);
    [[nodiscard]] bool OpenConnection(const std::shared_ptr<ScanRun>& run, const QString& target);
    void ListBuses(const std::shared_ptr<ScanRun>& run);
    void ShowBuses(const QStringList& buses);
    /// What follows when the operator has been told: the form stays for cmdCancel, or closes.
    void Abandon(const std::shared_ptr<ScanRun>& run);
    void AbandonAndClose(const std::shared_ptr<ScanRun>& run);
    void EndRun();

    std::unique_ptr<Ui::frmBusSelection> m_ui;
    ConData& m_direct;
    IntervalTimer* m_timer1;
    /// The question that is under way, with BusSyncConn and BusUtil; null while there is none.
    std::shared_ptr<ScanRun> m_run;
    /// lstBusses holds buses, and one is selected.
    bool m_busListValid = false;
};
