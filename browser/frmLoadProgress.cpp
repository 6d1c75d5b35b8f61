#include "browser/frmLoadProgress.h"

#include "browser/NodesLoading.h"
#include "browser/SessionOpening.h"
#include "browser/ui_frmLoadProgress.h"
#include "database/DatabaseState.h"

frmLoadProgress::frmLoadProgress(QWidget* parent)
    : ProgressForm(parent), m_ui(std::make_unique<Ui::frmLoadProgress>())
{
    m_ui->setupUi(this);
    Form_Load(m_ui->lblLoadLabel1, m_ui->LoadPrgBar, m_ui->cmdLoadStop);
}

frmLoadProgress::~frmLoadProgress() = default;

std::unique_ptr<LoadingProcedure> frmLoadProgress::NextProcedure()
{
    if (m_next == Phase::Opening && m_dataStatus) {
        m_next = Phase::Loading;
        return std::make_unique<SessionOpening>(Display());
    }
    const bool load = m_next != Phase::Done && Database().DatabaseOpen;
    m_next = Phase::Done;
    if (!load)
        return nullptr;
    return std::make_unique<NodesLoading>(Display());
}
