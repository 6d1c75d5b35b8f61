#pragma once

#include "browser/ProgressForm.h"

namespace Ui {
class frmLoadProgress;
}

/// Loads the node tree behind a progress bar; at a control's start it opens the database first.
///
/// Set Load() and show it modally; the tree and Load() hold the outcome.
class frmLoadProgress : public ProgressForm
{
    Q_OBJECT

public:
    explicit frmLoadProgress(QWidget* parent = nullptr);
    ~frmLoadProgress() override;

    /// True: the next showing opens the database before it loads.
    void UpdateDataStatus(bool flag) { m_dataStatus = flag; }

protected:
    std::unique_ptr<LoadingProcedure> NextProcedure() override;

private:
    enum class Phase
    {
        Opening,
        Loading,
        Done,
    };

    std::unique_ptr<Ui::frmLoadProgress> m_ui;
    bool m_dataStatus = false;
    Phase m_next = Phase::Opening;
};
