#include "browser/BrowserControl.h"
#include "browser/BrowserState.h"
#include "browser/ConnectionPictures.h"
#include "browser/frmMngrInfo.h"
#include "browser/ui_BrowserControl.h"
#include "dialogs/DialogState.h"
#include "model/ModelState.h"
#include "platform/controls/ModalForm.h"
#include "platform/controls/TreeView.h"

#include <QPointer>

// What the control shares with the folders below through their module-level state.

namespace {

std::unique_ptr<ConData> NewConData()
{
    auto data = std::make_unique<ConData>();
    data->Initialize();
    data->Clear();
    return data;
}

} // namespace

void BrowserControl::CreateWorkingObjects()
{
    m_conTree->Clear();
    m_nodesTree->Clear();
    m_ui->tabMain->setTabEnabled(0, true);
    ModelState& model = Model();
    for (std::unique_ptr<ConData>* object :
         {&model.ConObject, &model.DirectObject, &model.NewDirectObject, &model.SavedDirectObject})
        Browser().Replaced.push_back(std::exchange(*object, NewConData()));
}

void BrowserControl::OfferHooks()
{
    Browser().HooksOwner = this;
    const QPointer<BrowserControl> control(this);
    Model().SelectTreeEntry = [control](TreeEntries& tree, TreeEntries::Index entry) {
        if (control && &tree == control->m_conTree)
            control->SelectTreeEntry(*control->m_ui->tvwConTree, entry);
        else if (control && &tree == control->m_nodesTree)
            control->SelectTreeEntry(*control->m_ui->tvwNodesTree, entry);
    };
    Dialogs().PictureOfType = ConnectionPicture;
    Dialogs().ShowManagerInfo = [](QWidget* parent) {
        if (Model().ConObject)
            ShowModalForm<frmMngrInfo>(*Model().ConObject, parent);
    };
}

void BrowserControl::WithdrawHooks()
{
    if (Browser().HooksOwner != this)
        return;
    Browser().HooksOwner = nullptr;
    Model().SelectTreeEntry = nullptr;
    Dialogs().PictureOfType = nullptr;
    Dialogs().ShowManagerInfo = nullptr;
}
