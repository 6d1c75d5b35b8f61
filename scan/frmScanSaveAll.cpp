#include "scan/frmScanSaveAll.h"

#include "model/ConData.h"
#include "platform/HelpHook.h"
#include "platform/HelpLinks.h"
#include "platform/controls/HelpKey.h"
#include "platform/controls/ModalForm.h"
#include "scan/frmScanNotSavedList.h"
#include "scan/network/ScanState.h"
#include "scan/ui_frmScanSaveAll.h"

frmScanSaveAll::frmScanSaveAll(ConData& direct, ConData& newDirect, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmScanSaveAll>()), m_direct(direct), m_newDirect(newDirect)
{
    m_ui->setupUi(this);
    // One of the two is always selected, so what is told of one is told of both.
    connect(m_ui->optPrefix, &QRadioButton::toggled, this, &frmScanSaveAll::optPrefix_Click);
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &frmScanSaveAll::CmdOk_Click);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &frmScanSaveAll::cmdCancel_Click);
    connect(m_ui->cmdHelp, &QPushButton::clicked, this, &frmScanSaveAll::cmdHelp_Click);
    UseHelpKey(*this, *m_ui->cmdHelp);
    Form_Load();
}

frmScanSaveAll::~frmScanSaveAll() = default;

void frmScanSaveAll::Form_Load()
{
    m_ui->optPrefix->setChecked(true);
    SetPrefixControlsEnabled(m_ui->optPrefix->isChecked());
    m_ui->txtPrefix->setText(m_direct.ConName);
    for (QCheckBox* item : {m_ui->chkNodeAddress, m_ui->chkNodeId, m_ui->chkNodeType})
        item->setChecked(true);
}

void frmScanSaveAll::SetPrefixControlsEnabled(bool on)
{
    for (QWidget* control :
         {static_cast<QWidget*>(m_ui->lblPrefix), static_cast<QWidget*>(m_ui->txtPrefix),
          static_cast<QWidget*>(m_ui->chkNodeId), static_cast<QWidget*>(m_ui->chkNodeAddress),
          static_cast<QWidget*>(m_ui->chkNodeType)})
        control->setEnabled(on);
}

void frmScanSaveAll::optPrefix_Click()
{
    SetPrefixControlsEnabled(m_ui->optPrefix->isChecked());
}

void frmScanSaveAll::GenerateNodeNames()
{
    ::GenerateNodeNames({m_ui->txtPrefix->text(), m_ui->chkNodeAddress->isChecked(),
                         m_ui->chkNodeId->isChecked(), m_ui->chkNodeType->isChecked()},
                        Scan().ScanSaveList);
}

void frmScanSaveAll::CmdOk_Click()
{
    if (m_ui->optPrefix->isChecked())
        GenerateNodeNames();
    // False: this form has gone with the other.
    if (ShowModalForm<frmScanNotSavedList>(m_direct, m_newDirect, this))
        accept();
}

void frmScanSaveAll::cmdCancel_Click()
{
    reject();
}

void frmScanSaveAll::reject()
{
    Scan().ScanSaveList.clear();
    QDialog::reject();
}

void frmScanSaveAll::cmdHelp_Click()
{
    ShowHelpTopic(HelpLinks::ScanSaveAll);
}
