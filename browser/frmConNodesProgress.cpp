#include "browser/frmConNodesProgress.h"

#include "browser/ConNodesLoading.h"
#include "browser/ui_frmConNodesProgress.h"

frmConNodesProgress::frmConNodesProgress(QWidget* parent)
    : ProgressForm(parent), m_ui(std::make_unique<Ui::frmConNodesProgress>())
{
    m_ui->setupUi(this);
    Form_Load(m_ui->lblLoadLabel1, m_ui->LoadPrgBar, m_ui->cmdLoadStop);
}

frmConNodesProgress::~frmConNodesProgress() = default;

std::unique_ptr<LoadingProcedure> frmConNodesProgress::NextProcedure()
{
    if (m_started)
        return nullptr;
    m_started = true;
    return std::make_unique<ConNodesLoading>(Display());
}
