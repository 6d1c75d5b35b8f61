#include "browser/DirectTab.h"

#include "browser/BrowserState.h"
#include "browser/ConnectionNames.h"
#include "browser/ConnectionTypes.h"
#include "browser/StaleRecords.h"
#include "browser/ui_BrowserControl.h"
#include "database/DatabaseState.h"
#include "database/Gateway.h"
#include "database/UnitOfWork.h"
#include "model/LookupHelpers.h"
#include "model/ModelState.h"
#include "model/TextHelpers.h"
#include "platform/MachineSeams.h"
#include "platform/MsgBox.h"
#include "platform/Words.h"

#include <QPointer>

namespace {

QString NewConnectionName()
{
    return Model().NewDirectObject ? Model().NewDirectObject->ConName : QString();
}

} // namespace

DirectTab::DirectTab(Ui::BrowserControl& ui, TreeEntries& conTree, Control control)
    : m_ui(ui),
      m_conTree(conTree),
      m_control(std::move(control)),
      m_nodePages(*ui.tabNode, *ui.cmdScan,
                  [this] { m_control.guarded([this] { DirectNodeSetTargetText(); }); })
{
    ClearConNames(*m_ui.cboDirectConName);
    ShowDirectPicture(NoConType);
    connect(m_ui.cboDirectConName, &QComboBox::activated, this,
            [this] { m_control.guarded([this] { cboDirectConName_Click(false); }); });
}

void DirectTab::DirectNodeSetTargetText()
{
    const QString node = m_nodePages.NodeTarget();
    QString target;
    if (Model().DirectObject) {
        target = Model().DirectObject->TargetString;
        if (!target.isEmpty() && !node.isEmpty())
            target += QLatin1Char(',');
        target += node;
    }
    m_ui.txtTarget->setText(target);
    // A long target shows its beginning.
    m_ui.txtTarget->setCursorPosition(0);
}

// Connection ------------------------------------------------------------------------------------------------

bool DirectTab::IsNewConnection(const QString& name)
{
    return !name.isEmpty() && name == NewConnectionName();
}

bool DirectTab::IsHeld(const QString& name, const QString& databaseId)
{
    const ConData* const direct = Model().DirectObject.get();
    return direct && direct->ConName == name && direct->ConDbID > 0 && ValInt(databaseId) == direct->ConDbID;
}

bool DirectTab::cboDirectConName_Click(bool keepsHeld)
{
    const BusyScope busy;
    const QPointer<DirectTab> alive(this);
    const QString name = m_ui.cboDirectConName->currentText();
    const bool taken =
        IsNewConnection(name) ? TakeNewConnection(name) : TakeStoredConnection(name, keepsHeld);
    // The list must not name one connection while another is worked with.
    if (alive && !taken)
        ShowHeldName();
    return taken;
}

bool DirectTab::TakeNewConnection(const QString& name)
{
    const QPointer<DirectTab> alive(this);
    QString longName;
    if (!Gateway().GetConTypeLongNameDb(QString(Model().NewDirectObject->ConTypeName), longName))
        longName.clear();
    if (!alive || !Model().DirectObject || !IsNewConnection(name))
        return false;
    ConData& direct = *Model().DirectObject;
    direct.Copy(*Model().NewDirectObject);
    direct.ConDbID = 0;
    ShowTaken(longName, direct.ConTypeID);
    return true;
}

bool DirectTab::TakeStoredConnection(const QString& name, bool keepsHeld)
{
    const QPointer<DirectTab> alive(this);
    // Taken over when it is whole.
    ConData loaded;
    int type = ConData::UnknownTypeId;
    QString longName;
    bool isGone = false;
    bool isHeld = false;
    const bool done = UnitOfWork({&m_conTree}).Run([&](UnitOfWork& unit) {
        unit.Begin();
        QString id;
        isGone = !Gateway().GetParentIDDb(name, id);
        if (isGone)
            UnitOfWork::GiveUp();
        isHeld = keepsHeld && IsHeld(name, id);
        QString typeName;
        if (!isHeld) {
            type = GetConPicture(name, typeName);
            if (!Gateway().GetConTypeLongNameDb(typeName, longName))
                longName.clear();
            if (!loaded.SetParentConData(name, true)) {
                ErrorBox(Words::tr("Failure to set connection data."));
                UnitOfWork::GiveUp();
            }
        }
        unit.Commit();
    });
    if (alive && isGone && Control(m_control).tellStale({ConnectionChangedText(name), true}))
        LoadDirectConNames(false);
    if (!alive || !done || !Model().DirectObject)
        return false;
    if (isHeld)
        return true;
    Model().DirectObject->Clear();
    Model().DirectObject->Copy(loaded);
    ShowTaken(longName, type);
    return true;
}

void DirectTab::ShowTaken(const QString& typeLongName, int type)
{
    m_ui.txtDirectConType->setText(typeLongName);
    ShowDirectPicture(type);
    OfferScan();
    RenewTarget();
}

void DirectTab::RenewTarget()
{
    ConData& direct = *Model().DirectObject;
    direct.SetTargetWithoutDefaults(direct.TargetString);
    DirectNodeSetTargetText();
}

void DirectTab::ShowDirectPicture(int type)
{
    ShowTypePicture(*m_ui.imgDirArray, type);
}

// List ------------------------------------------------------------------------------------------------------

void DirectTab::LoadDirectConNames(bool fillTree)
{
    const BusyScope busy;
    const BusyPointer pointer;
    const QPointer<DirectTab> alive(this);
    QComboBox& list = *m_ui.cboDirectConName;
    ClearConNames(list);
    (void)LoadConNames(list, fillTree ? &m_conTree : nullptr);
    if (!alive)
        return;
    const QString newName = NewConnectionName();
    if (!newName.isEmpty() && FindConName(list, newName) < 0)
        AddConName(list, newName);
}

int DirectTab::FindDirectCon(const QString& name) const
{
    return FindConName(*m_ui.cboDirectConName, name);
}

void DirectTab::SelectListed(const QString& name, bool keepsHeld)
{
    QComboBox& list = *m_ui.cboDirectConName;
    list.setCurrentIndex(FindConName(list, name));
    if (list.currentIndex() >= 0)
        (void)cboDirectConName_Click(keepsHeld);
}

void DirectTab::ShowHeldName()
{
    QComboBox& list = *m_ui.cboDirectConName;
    list.setCurrentIndex(Model().DirectObject ? FindConName(list, Model().DirectObject->ConName) : -1);
}

void DirectTab::OfferScan()
{
    const ConData& direct = *Model().DirectObject;
    const bool canBeScanned = !IsSnmpConType(direct.ConTypeID, direct.ConTypeName);
    m_ui.cmdScan->setEnabled(canBeScanned && Database().ScanRight);
    m_nodePages.SetNodeTabs(canBeScanned);
}

void DirectTab::SelectDirectCon(const QString& name, bool keepsHeld)
{
    const QPointer<DirectTab> alive(this);
    if (m_ui.cboDirectConName->count() > 0 && Database().ScanRight)
        OfferScan();
    const QString newName = NewConnectionName();
    SelectListed(newName.isEmpty() ? name : newName, keepsHeld);
    if (!alive || !Model().DirectObject)
        return;
    // While none has been chosen there is no type either.
    const ConData& direct = *Model().DirectObject;
    ShowDirectPicture(direct.ConName.isEmpty() ? NoConType : direct.ConTypeID);
}

void DirectTab::ShowPage()
{
    const QPointer<DirectTab> alive(this);
    // There is none in a form editor.
    if (!Model().DirectObject)
        return;
    if (m_ui.cboDirectConName->count() == 0) {
        m_ui.cmdScan->setEnabled(false);
        DirectNodeSetTargetText();
        return;
    }
    m_ui.cmdDirectConProp->setEnabled(true);
    if (!Database().ScanRight)
        m_ui.cmdScan->setEnabled(false);
    SelectDirectCon(QString(Model().DirectObject->ConName), true);
    if (alive && Model().DirectObject)
        RenewTarget();
}

void DirectTab::TakeDefinition()
{
    ConData& direct = *Model().DirectObject;
    if (!direct.SelectPressed)
        return;
    direct.SelectPressed = false;
    // The save has left its full target, which stays where the list cannot be read.
    RenewTarget();
    const QPointer<DirectTab> alive(this);
    const QString name = direct.ConName;
    LoadDirectConNames(false);
    if (alive)
        SelectDirectCon(name, false);
}

// Scan ------------------------------------------------------------------------------------------------------

bool DirectTab::ChooseForScan(int position)
{
    m_ui.cboDirectConName->setCurrentIndex(position);
    if (!cboDirectConName_Click(false))
        return false;
    m_nodePages.ClearNet4();
    DirectNodeSetTargetText();
    return true;
}

void DirectTab::TakeTiming(ConData& direct) const
{
    const bool isTyped = m_ui.tabNode->currentIndex() == DirectNodePages::Net4Page;
    direct.Retry = isTyped ? m_ui.txtRetries->text() : QString();
    direct.Time = isTyped ? m_ui.txtTimeOut->text() : QString();
}

void DirectTab::TakeScanResult(const QString& nameBefore)
{
    ConData& direct = *Model().DirectObject;
    const bool addressTaken = direct.SelectPressed;
    if (addressTaken) {
        m_ui.txtAddress->setText(direct.NodeAddress);
        m_ui.txtRetries->setText(direct.Retry);
        m_ui.txtTimeOut->setText(direct.Time);
        direct.SelectPressed = false;
        RenewTarget();
    }
    const QPointer<DirectTab> alive(this);
    const QString name = direct.ConName;
    LoadDirectConNames(false);
    if (!alive)
        return;
    // An address belongs to the bus that it was found on, which may not be the stored one.
    if (name == nameBefore)
        SelectDirectCon(name, addressTaken);
    else
        SelectListed(name, false);
}
