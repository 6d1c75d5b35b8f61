#include "model/ConData.h"
#include "model/ModelState.h"
#include "model/TextHelpers.h"
#include "platform/ComponentError.h"
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
    ShowReasons();
}

void frmScan::txtBus_Change()
{
    if (!m_busEditArmed)
        return;
    QString text = Trim(m_ui->txtBus->text());
    if (ValInt(text) > HighestBus) {
        text = QString::number(HighestBus);
        {
            const QSignalBlocker once(m_ui->txtBus);
            m_ui->txtBus->setText(text);
        }
        m_ui->txtBus->setFocus();
        TellLater(ScanTexts::LargestBus().arg(text));
    }
    try {
        if (!SetBus(text))
            TellLater(ScanTexts::BusNotSet());
    } catch (const std::exception& error) {
        TellLater(DescriptionOf(error), ErrorBoxFlags(), ErrorBoxTitle());
    }
}

bool frmScan::SetBus(const QString& text)
{
    const qint32 bus = ValInt(text);
    if (!m_direct.SetWpParamByName(BusNumber, QString::number(bus)))
        return false;
    ConData* const newDirect = Model().NewDirectObject.get();
    if (!newDirect)
        return true;
    if (bus == m_busAtOpen) {
        if (!m_newDirectNamed)
            newDirect->ConName.clear();
        return true;
    }
    if (!newDirect->SetWpParamByName(BusNumber, text))
        return false;
    newDirect->ConName = m_direct.ConName;
    return true;
}

void frmScan::TellLater(const QString& text, int flags, const QString& title)
{
    QMetaObject::invokeMethod(
        this, [text, flags, title] { MsgBox(text, flags, title); }, Qt::QueuedConnection);
}

void frmScan::cmdScanBus_Click()
{
    if (!ShowModalForm<frmBusSelection>(m_direct, this))
        return;
    if (Scan().SelectedBus >= 0)
        m_ui->txtBus->setText(QString::number(Scan().SelectedBus));
}
