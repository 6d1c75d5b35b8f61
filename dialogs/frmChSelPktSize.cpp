#include "dialogs/frmChSelPktSize.h"

#include "dialogs/ui_frmChSelPktSize.h"
#include "platform/HelpHook.h"
#include "platform/HelpLinks.h"
#include "platform/controls/HelpKey.h"

frmChSelPktSize::frmChSelPktSize(QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmChSelPktSize>())
{
    m_ui->setupUi(this);
    connect(m_ui->CmdOk, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_ui->CmdHelp, &QPushButton::clicked, this, &frmChSelPktSize::CmdHelp_Click);
    UseHelpKey(*this, *m_ui->CmdHelp);
}

frmChSelPktSize::~frmChSelPktSize() = default;

void frmChSelPktSize::CmdHelp_Click()
{
    ShowHelpTopic(HelpLinks::ChSelPktSize);
}
