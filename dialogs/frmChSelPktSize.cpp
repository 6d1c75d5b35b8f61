#include "dialogs/frmChSelPktSize.h"

#include "dialogs/ui_frmChSelPktSize.h"
#include "platform/HelpHook.h"

#include <QShortcut>

frmChSelPktSize::frmChSelPktSize(QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmChSelPktSize>())
{
    m_ui->setupUi(this);
    connect(m_ui->CmdOk, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_ui->CmdHelp, &QPushButton::clicked, this, &frmChSelPktSize::CmdHelp_Click);
    connect(new QShortcut(QKeySequence(Qt::Key_F1), this), &QShortcut::activated, this,
            &frmChSelPktSize::CmdHelp_Click);
}

frmChSelPktSize::~frmChSelPktSize() = default;

void frmChSelPktSize::CmdHelp_Click()
{
    ShowHelpTopic(QStringLiteral("Browser4FE_Parameters.htm"));
}
