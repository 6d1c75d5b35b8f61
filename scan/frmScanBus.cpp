#include "model/ConData.h"
#include "model/ModelState.h"
#include "model/TextHelpers.h"
#include "platform/IndexError.h"
#include "platform/MsgBox.h"
#include "platform/controls/ModalForm.h"
#include "scan/ScanTexts.h"
#include "scan/frmBusSelection.h"
#include "scan/frmScan.h"
#include "scan/network/ScanState.h"
#include "scan/network/ScanTargets.h"
#include "scan/ui_frmScan.h"

#include <QSignalBlocker>

namespace {
const QString BusNumber = QStringLiteral("BUS NUMBER");
}

void frmScan::LoadBus()
{
    QString bus;
    const bool found = GetBusNumber(bus);
    if (!found)
        bus.clear();
    m_ui->txtBus->setText(bus);
    SetBusControlsEnabled(true);
    m_busAtOpen = ValInt(bus);
    ConData* const newDirect = Model().NewDirectObject.get();
    if (!found || m_newDirectNamed || !newDirect)
        return;
    newDirect->Copy(m_direct);
    newDirect->ConName.clear();
}

bool frmScan::GetBusNumber(QString& value) const
{
    try {
        return m_direct.GetWpParamByName(BusNumber, value);
    } catch (const IndexError&) {
        // The operator was told when the form was loaded.
        return false;
    }
}

void frmScan::SetBusControlsEnabled(bool on)
{
    QString bus;
    m_ui->fraBusSelection->setEnabled(on);
    const bool isEditable = on && GetBusNumber(bus) && (IsIdle() || IsStopRequested());
    for (QWidget* control : {static_cast<QWidget*>(m_ui->lblSelectedBus), static_cast<QWidget*>(m_ui->txtBus),
                             static_cast<QWidget*>(m_ui->cmdScanBus)})
        control->setEnabled(isEditable);
}

void frmScan::txtBus_Change()
{
    if (!m_busEditArmed)
        return;
    QString text = Trim(m_ui->txtBus->text());
    qint32 bus = ValInt(text);
    if (bus > HighestBus) {
        bus = HighestBus;
        text = QString::number(bus);
        {
            const QSignalBlocker once(m_ui->txtBus);
            m_ui->txtBus->setText(text);
        }
        m_ui->txtBus->setFocus();
        const QPointer<frmScan> alive(this);
        MsgBox(ScanTexts::LargestBus + text + u'.');
        if (!alive)
            return;
    }
    if (!m_direct.SetWpParamByName(BusNumber, QString::number(bus))) {
        MsgBox(ScanTexts::BusNotSet);
        return;
    }
    ConData* const newDirect = Model().NewDirectObject.get();
    if (!newDirect)
        return;
    if (bus == m_busAtOpen) {
        if (!m_newDirectNamed)
            newDirect->ConName.clear();
        return;
    }
    if (newDirect->SetWpParamByName(BusNumber, text))
        newDirect->ConName = m_direct.ConName;
    else
        MsgBox(ScanTexts::BusNotSet);
}

void frmScan::cmdScanBus_Click()
{
    if (!ShowModalForm<frmBusSelection>(m_direct, this))
        return;
    if (Scan().SelectedBus >= 0)
        m_ui->txtBus->setText(QString::number(Scan().SelectedBus));
}
