#pragma once

#include "browser/BrowserState.h"
#include "browser/LoadingProcedure.h"

#include <QDialog>
#include <QTimer>

#include <memory>

class QLabel;
class QProgressBar;
class QPushButton;

/// What the two progress forms have in common: they run loading procedures, one step between events, and
/// unload when the last has ended.
///
/// Cancel asks first; the load goes on while the question stands open. Closing the window is Cancel, and
/// after a load that was given up it closes.
class ProgressForm : public QDialog, private LoadDisplay
{
    Q_OBJECT

public:
    ~ProgressForm() override;

    /// The operator interrupted the load.
    [[nodiscard]] bool LoadStopped() const { return m_loadStopped; }

    void reject() override;

protected:
    explicit ProgressForm(QWidget* parent);

    /// The form's controls, once they exist.
    void Form_Load(QLabel* label, QProgressBar* bar, QPushButton* stop);
    /// The procedure to run now; null: the form unloads.
    virtual std::unique_ptr<LoadingProcedure> NextProcedure() = 0;
    /// Where the procedures show how far they are.
    [[nodiscard]] LoadDisplay& Display() { return *this; }

    void showEvent(QShowEvent* event) override;

    void ShowLabel(const QString& text) override;
    void ShowRange(int low, int high) override;
    void ShowValue(int value) override;

private:
    void Form_Activate();
    void cmdLoadStop_Click();
    void RunStep();
    void Unload();

    QLabel* m_label = nullptr;
    QProgressBar* m_bar = nullptr;
    QTimer m_betweenSteps;
    /// Shared with the step that runs: a box of its own may see the form destroyed.
    std::shared_ptr<LoadingProcedure> m_procedure;
    BusyScope m_busy;
    bool m_formActivated = false;
    bool m_loadStopped = false;
    bool m_asking = false;
    bool m_ended = false;
};
