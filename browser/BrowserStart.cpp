#include "browser/BrowserControl.h"
#include "browser/BrowserState.h"
#include "browser/ConnectionPictures.h"
#include "browser/LoadState.h"
#include "browser/frmLoadProgress.h"
#include "browser/ui_BrowserControl.h"
#include "database/DatabaseClass.h"
#include "database/DatabaseState.h"
#include "dialogs/DialogState.h"
#include "model/LookupHelpers.h"
#include "model/ModelState.h"
#include "platform/HelpHook.h"
#include "platform/MachineSeams.h"
#include "platform/controls/IntervalTimer.h"

#include <QCoreApplication>
#include <QPointer>

// The start of a control, from its container's word to trees that answer.

namespace {

QString HelpFilePath()
{
    return Help().HelpFilePath ? Help().HelpFilePath() : QString();
}

} // namespace

void BrowserControl::StartControl()
{
    m_startRan = true;
    m_tmrRefreshTimer->SetEnabled(false);
    if (!m_userMode)
        return;

    const BusyScope busy;
    m_pagesAnswer = false;
    Browser().ControlInitialized = false;
    m_ui->txtTarget->clear();
    // An empty box that is cleared tells nothing, and a host may have set a target that it does not show.
    m_targetText.clear();
    CreateWorkingObjects();
    m_ui->optCon->setChecked(true);
    Model().ConObject->ConTree = m_conTree;
    Model().ConObject->NodesTree = m_nodesTree;
    EnableByRights();

    if (!LoadAtStart())
        return;
    if (!Database().DatabaseOpen) {
        Database().EditRight = false;
        SetRefreshTimer(false);
    }
    Load().LoadTree = nullptr;
    Model().ConObject->ConTree = nullptr;
    Model().ConObject->NodesTree = nullptr;

    ShowConPicture(NoConType);
    findChild<QObject*>(QStringLiteral("cdlBrowserHelp"))->setProperty("HelpFile", HelpFilePath());
    InitializeDirectTab();
    Browser().ControlInitialized = true;
    m_conTreeSkipClick = false;
    m_nodesTreeSkipClick = false;
    m_tmrRefreshTimer->SetEnabled(m_refreshTimer);
    QCoreApplication::instance()->setProperty("HelpFile", HelpFilePath());
    ReadTimeRetryNames();
    for (int index = 0; index < ConnectionPictureCount; ++index)
        Dialogs().ConPictures[static_cast<std::size_t>(index)] = ConnectionPicture(index);
    OfferHooks();

    m_pagesAnswer = true;
    if (!Database().DatabaseOpen)
        EnterDirectOnly();
    Q_EMIT StatusChanged();
}

bool BrowserControl::LoadAtStart()
{
    std::erase(Browser().Loaded, this);
    const QDateTime begin = Machine().WallClock();
    const QPointer<frmLoadProgress> form(new frmLoadProgress(this));
    form->UpdateDataStatus(true);
    form->exec();
    if (!form)
        return false;
    delete form;
    if (Database().DatabaseOpen) {
        const bool alone = Browser().Loaded.empty();
        Browser().Loaded.push_back(this);
        Load().ReloadDue = Load().LoadFailed || (!alone && Load().ReloadDue);
        if (alone && !Load().LoadFailed)
            TellCurrent(begin);
        EnableCmdLoadMore(RootEntry);
    }
    if (Database().DbObject) {
        disconnect(m_cursor);
        m_cursor = connect(Database().DbObject.get(), &DatabaseClass::SetMousePointer, this,
                           &BrowserControl::mCursor_SetMousePointer);
    }
    return true;
}

void BrowserControl::EnterDirectOnly()
{
    m_ui->tabMain->setCurrentIndex(1);
    m_ui->tabMain->setTabEnabled(0, false);
    m_ui->tabNode->setCurrentIndex(0);
}
