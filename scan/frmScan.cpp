#include "scan/frmScan.h"

#include "scan/ui_frmScan.h"

frmScan::frmScan(ConData& direct, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmScan>()), m_direct(direct)
{
    m_ui->setupUi(this);
}

frmScan::~frmScan() = default;
