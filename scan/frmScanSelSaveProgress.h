#pragma once

#include "scan/network/SaveRun.h"

#include <QDialog>
#include <QTimer>

#include <memory>

namespace Ui {
class frmScanSelSaveProgress;
}

/// Saves the selected rows of the save list behind a progress bar, and unloads when the last is done.
///
/// Events run after every second node. Cancel asks, and the run waits for the answer; closing the window ends
/// it at once. What is saved by then stays saved. Without access to the database the run ends and the window
/// stays until the operator closes it. Show it modally; both working copies outlive it.
class frmScanSelSaveProgress : public QDialog
{
    Q_OBJECT

public:
    frmScanSelSaveProgress(ConData& direct, ConData& newDirect, QWidget* parent = nullptr);
    ~frmScanSelSaveProgress() override;

    void reject() override;

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Form_Activate();
    void cmdLoadStop_Click();
    /// Saves nodes until events are due.
    void SaveSomeNodes();
    /// False: the run has ended.
    [[nodiscard]] bool SaveOneNode();
    void EndRun();

    std::unique_ptr<Ui::frmScanSelSaveProgress> m_ui;
    QTimer m_betweenNodes;
    SaveRun m_run;
    bool m_saveRunStarted = false;
    bool m_saveInterrupted = false;
    bool m_saving = false;
    bool m_asking = false;
    /// The run is over.
    bool m_ended = false;
};
