#include "browser/BrowserControl.h"
#include "browser/DirectTab.h"
#include "browser/HandedTrees.h"
#include "browser/StaleRecords.h"
#include "browser/ui_BrowserControl.h"
#include "database/DatabaseState.h"
#include "database/ReadBracket.h"
#include "platform/MsgBox.h"
#include "platform/controls/TreeView.h"

#include <QPointer>

// The commands of the Direct page, and those that open the scan: on its connection, or on the selected one.

namespace {

constexpr int DirectPage = 1;

/// Keeps the new connection out of the way of a scan through another one, and brings it back at its end.
class NewConnectionAside
{
public:
    /// `scanned`: the connection that the list shows.
    explicit NewConnectionAside(const QString& scanned)
    {
        ModelState& model = Model();
        if (!model.NewDirectObject || !model.SavedDirectObject || model.NewDirectObject->ConName == scanned)
            return;
        m_aside = model.NewDirectObject.get();
        model.SavedDirectObject->Copy(*m_aside);
        m_aside->Clear();
    }
    ~NewConnectionAside()
    {
        // A control that was started anew under the scan has objects of its own.
        ModelState& model = Model();
        if (!m_aside || model.NewDirectObject.get() != m_aside)
            return;
        m_aside->Clear();
        m_aside->Copy(*model.SavedDirectObject);
        model.SavedDirectObject->Clear();
    }
    NewConnectionAside(const NewConnectionAside&) = delete;
    NewConnectionAside& operator=(const NewConnectionAside&) = delete;

private:
    ConData* m_aside = nullptr;
};

} // namespace

void BrowserControl::cmdScan_Click()
{
    RunCommand(&BrowserControl::ScanDirectConnection);
}

void BrowserControl::cmdDbScan_Click()
{
    RunCommand(&BrowserControl::ScanSelectedEntry);
}

void BrowserControl::cmdDirectConProp_Click()
{
    RunCommand(&BrowserControl::ShowDirectProperties);
}

void BrowserControl::ShowDirectProperties()
{
    const ConData* const shown = Model().DirectObject.get();
    if (!shown)
        return;
    const QPointer<BrowserControl> alive(this);
    StaleRecord stale;
    bool current = true;
    if (shown->ConDbID > 0) {
        const ClickReads reads(*this);
        current = CheckConName(shown->ConName, shown->ConDbID, stale);
    }
    if (!alive || Model().DirectObject.get() != shown)
        return;
    if (!current) {
        if (TellStaleEntry(stale))
            m_direct->LoadDirectConNames(false);
        return;
    }
    Model().DirectObject->SelectPressed = false;
    Model().ConObject->ViewNodesChecked = m_ui->chkViewNodes->isChecked();
    {
        const HandedTrees handed(m_conTree, m_nodesTree);
        Opening().DirectProperties(*Model().DirectObject, this);
    }
    if (alive && Model().DirectObject.get() == shown)
        m_direct->TakeDefinition();
}

void BrowserControl::ScanDirectConnection()
{
    if (!Database().ScanRight || !Model().DirectObject)
        return;
    const QPointer<BrowserControl> alive(this);
    const ConData* const scanned = Model().DirectObject.get();
    const QString nameBefore = scanned->ConName;
    m_direct->TakeTiming(*Model().DirectObject);
    {
        const NewConnectionAside aside(m_ui->cboDirectConName->currentText());
        ShowScanDialog();
    }
    if (alive && Model().DirectObject.get() == scanned)
        m_direct->TakeScanResult(nameBefore);
}

void BrowserControl::ShowScanDialog()
{
    ConData& direct = *Model().DirectObject;
    direct.NodeAddress.clear();
    direct.SelectPressed = false;
    Model().ConObject->ViewNodesChecked = m_ui->chkViewNodes->isChecked();
    const HandedTrees handed(m_conTree, m_nodesTree);
    Opening().Scan(direct, this);
}

void BrowserControl::ScanSelectedEntry()
{
    if (!Database().ScanRight)
        return;
    if (!m_ui->optCon->isChecked()) {
        MsgBox(tr("First select a connection in the connection tree."));
        return;
    }
    const Entry selected = SelectedEntry(*m_ui->tvwConTree);
    const QChar kind = m_conTree->Kind(selected);
    if (selected == 0 || kind == QLatin1Char('R')) {
        MsgBox(tr("First select a connection in the tree."));
        return;
    }
    if (!ReadConnection(kind == QLatin1Char('C') ? selected : m_conTree->Parent(selected)))
        return;
    const QPointer<BrowserControl> alive(this);
    ScanSelectedConnection();
    if (alive)
        RestoreViewSelection();
    // The selection has put its own target in the place of the one that is shown beside its fields.
    if (alive && m_ui->tabMain->currentIndex() == DirectPage)
        m_direct->DirectNodeSetTargetText();
}

void BrowserControl::ScanSelectedConnection()
{
    const QPointer<BrowserControl> alive(this);
    const QString name = Model().ConObject->ConName;
    m_ui->tabMain->setCurrentIndex(DirectPage);
    if (!alive)
        return;
    m_ui->tabNode->setCurrentIndex(DirectNodePages::Net4Page);
    const int position = m_direct->FindDirectCon(name);
    if (position < 0)
        MsgBox(tr("Connection name not found."));
    else if (m_direct->ChooseForScan(position))
        ScanDirectConnection();
}
