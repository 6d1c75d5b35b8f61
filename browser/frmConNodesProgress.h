#pragma once

#include "browser/ProgressForm.h"

namespace Ui {
class frmConNodesProgress;
}

/// Loads the nodes of one connection behind a progress bar.
///
/// Set Load() and show it modally; the tree holds the outcome.
class frmConNodesProgress : public ProgressForm
{
    Q_OBJECT

public:
    explicit frmConNodesProgress(QWidget* parent = nullptr);
    ~frmConNodesProgress() override;

protected:
    std::unique_ptr<LoadingProcedure> NextProcedure() override;

private:
    std::unique_ptr<Ui::frmConNodesProgress> m_ui;
    bool m_started = false;
};
