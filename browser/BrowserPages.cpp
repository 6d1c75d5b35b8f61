#include "browser/BrowserControl.h"
#include "browser/BrowserState.h"
#include "browser/ConnectionTypes.h"
#include "browser/DirectLabels.h"
#include "browser/DirectTab.h"
#include "browser/TabStops.h"
#include "browser/TargetSyntax.h"
#include "browser/ui_BrowserControl.h"
#include "database/DatabaseState.h"
#include "database/ReadBracket.h"
#include "platform/HelpHook.h"
#include "platform/HelpLinks.h"
#include "platform/MsgBox.h"
#include "platform/controls/ProblemMark.h"

#include <QKeyEvent>
#include <QPointer>

// The two pages of the control and what keys do on them.

namespace {

constexpr int DatabasePage = 0;
constexpr int DirectPage = 1;

// Key codes and shift state as the handlers take them.
constexpr int KeyTab = 9;
constexpr int KeyF1 = 112;
constexpr int KeyCtrlF = 6;
constexpr int ShiftDown = 1;

} // namespace

void BrowserControl::tabMain_Click(int)
{
    // While the start runs there is nothing yet that a page could show.
    if (!m_pagesAnswer)
        return;
    QTabWidget& tabMain = *m_ui->tabMain;
    if (Browser().BrowserTabIndex == 0 && !Database().DatabaseOpen) {
        tabMain.setCurrentIndex(DirectPage);
        tabMain.setTabEnabled(DatabasePage, false);
        return;
    }
    if (tabMain.currentIndex() != DatabasePage) {
        const QPointer<BrowserControl> alive(this);
        m_direct->LoadDirectConNames(true);
        if (!alive)
            return;
        SetTabStops(DatabasePage, false);
        SetTabStops(DirectPage, true);
        m_direct->ShowPage();
        if (alive)
            update();
    } else if (Database().DatabaseOpen) {
        RestoreViewSelection();
        update();
        SetTabStops(DirectPage, false);
        SetTabStops(DatabasePage, true);
    } else {
        MsgBox(tr("No database, access to database tab is denied."));
        tabMain.setCurrentIndex(DirectPage);
    }
}

void BrowserControl::SetTabStops(int page, bool flag)
{
    const Ui::BrowserControl& ui = *m_ui;
    const std::initializer_list<QWidget*> database = {
        ui.tvwNodesTree,      ui.optCon,          ui.optNodes,  ui.chkViewNodes,    ui.cmdDatabaseAdd,
        ui.cmdDatabaseRemove, ui.cmdDatabaseProp, ui.cmdDbScan, ui.cmdDatabaseHelp, ui.cmdDatabaseManage,
        ui.cmdLoadMore};
    const std::initializer_list<QWidget*> direct = {
        ui.cboDirectConName, ui.txtDirectConType, ui.cmdDirectConProp, ui.cmdDirectHelp,
        ui.txtAddress,       ui.txtFeId,          ui.txtRetries,       ui.txtFeChannel,
        ui.txtTimeOut,       ui.cmdScan,          ui.txtUserName,      ui.txtPassword,
        ui.txtPath,          ui.txtTimeMML,       ui.txtRetryMML,      ui.tabNode->tabBar()};
    for (QWidget* widget : page == DatabasePage ? database : direct)
        SetTabStop(*widget, flag);
}

// Keys ------------------------------------------------------------------------------------------------------

bool BrowserControl::eventFilter(QObject* watched, QEvent* event)
{
    const bool isOverride = event->type() == QEvent::ShortcutOverride;
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease && !isOverride)
        return QWidget::eventFilter(watched, event);
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (isOverride) {
        // The tabs have a help of their own, which a window's help key must not take from them.
        event->setAccepted(key.key() == Qt::Key_F1 && watched != m_ui->cmdScan);
        return event->isAccepted();
    }
    const bool isTab = key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab;
    const int code = isTab ? KeyTab : key.key() == Qt::Key_F1 ? KeyF1 : 0;
    const int shift =
        key.key() == Qt::Key_Backtab || key.modifiers().testFlag(Qt::ShiftModifier) ? ShiftDown : 0;
    const bool pressed = event->type() == QEvent::KeyPress;

    bool handled = false;
    if (watched == m_ui->tabMain->tabBar() && pressed)
        handled = tabMain_KeyDown(code, shift);
    else if (watched == m_ui->tabMain->tabBar())
        tabMain_KeyUp(code);
    else if (watched == m_ui->tabNode->tabBar() && pressed)
        handled = tabNode_KeyDown(code, shift);
    else if (watched == m_ui->tabNode->tabBar())
        tabNode_KeyUp(code);
    else if (watched == m_ui->cmdScan && pressed)
        handled = cmdScan_KeyPress(code, shift);
    return handled || QWidget::eventFilter(watched, event);
}

void BrowserControl::UserControl_KeyPress(int keyAscii)
{
    if (keyAscii == KeyCtrlF && m_ui->tabMain->currentIndex() == DatabasePage)
        m_ui->FindElement->click();
}

bool BrowserControl::tabMain_KeyDown(int keyCode, int shift)
{
    // With Shift the focus leaves backwards, or the keyboard could not get out of the control that way.
    if (keyCode != KeyTab || shift == ShiftDown)
        return false;
    if (m_ui->tabMain->currentIndex() != DatabasePage)
        m_ui->cboDirectConName->setFocus(Qt::TabFocusReason);
    else if (m_ui->optCon->isChecked())
        m_ui->tvwConTree->setFocus(Qt::TabFocusReason);
    else
        m_ui->tvwNodesTree->setFocus(Qt::TabFocusReason);
    return true;
}

void BrowserControl::tabMain_KeyUp(int keyCode)
{
    if (keyCode == KeyF1)
        ShowHelpTopic(m_ui->tabMain->currentIndex() == DatabasePage ? HelpLinks::DatabaseTab
                                                                    : HelpLinks::DirectTab);
}

bool BrowserControl::tabNode_KeyDown(int keyCode, int shift)
{
    if (keyCode != KeyTab)
        return false;
    QWidget* const firstFields[] = {m_ui->txtAddress, m_ui->txtUserName, m_ui->txtHost};
    QWidget* next = firstFields[qBound(0, m_ui->tabNode->currentIndex(), 2)];
    if (m_ui->tabMain->currentIndex() != DirectPage)
        next = m_ui->cboDirectConName;
    else if (shift == ShiftDown)
        next = m_ui->cmdDirectHelp;
    next->setFocus(shift == ShiftDown ? Qt::BacktabFocusReason : Qt::TabFocusReason);
    return true;
}

void BrowserControl::tabNode_KeyUp(int keyCode)
{
    if (keyCode == KeyF1)
        ShowHelpTopic(HelpLinks::DirectTab);
}

bool BrowserControl::cmdScan_KeyPress(int keyCode, int shift)
{
    if (keyCode != KeyTab || shift == ShiftDown)
        return false;
    m_ui->tabMain->setFocus(Qt::TabFocusReason);
    return true;
}

void BrowserControl::cmdDatabaseHelp_Click()
{
    ShowHelpTopic(HelpLinks::DatabaseTab);
}

void BrowserControl::cmdDirectHelp_Click()
{
    ShowHelpTopic(HelpLinks::DirectTab);
}

void BrowserControl::ShowTreeHelp()
{
    ShowHelpTopic(HelpLinks::DatabaseTab);
}

// Contents --------------------------------------------------------------------------------------------------

void BrowserControl::txtTarget_Change()
{
    m_targetText = m_ui->txtTarget->text();
    m_targetMark->Show(TargetProblem(m_targetText));
}

void BrowserControl::ShowConPicture(int type)
{
    ShowTypePicture(*m_ui->imgConArray, type);
}

void BrowserControl::InitializeDirectTab()
{
    InitializeDirectLabels(*m_ui);
}
