#include "browser/BrowserState.h"
#include "browser/ConnectionPictures.h"
#include "browser/T4ZelkaBrowser.h"
#include "browser/ui_T4ZelkaBrowser.h"
#include "database/DatabaseState.h"
#include "database/Gateway.h"
#include "database/ReadBracket.h"
#include "model/ItemList.h"
#include "model/ModelState.h"
#include "model/TextHelpers.h"
#include "platform/HelpHook.h"
#include "platform/MsgBox.h"

#include <QKeyEvent>

// The two pages of the control, what keys do on them, and the labels of the direct one.

namespace {

constexpr int DatabasePage = 0;
constexpr int DirectPage = 1;

// Key codes and shift state as the handlers take them.
constexpr int KeyTab = 9;
constexpr int KeyF1 = 112;
constexpr int KeyCtrlF = 6;
constexpr int ShiftDown = 1;

const QString DatabaseTopic = QStringLiteral("Zelka_Connection_Tool_Overview.htm#DatabaseTab1");
const QString DirectTopic = QStringLiteral("Zelka_Connection_Tool_Overview.htm#DirectTab1");

void SetTabStop(QWidget* widget, bool flag)
{
    const int policy = widget->focusPolicy();
    widget->setFocusPolicy(
        static_cast<Qt::FocusPolicy>(flag ? policy | Qt::TabFocus : policy & ~Qt::TabFocus));
}

} // namespace

void T4ZelkaBrowser::tabMain_Click(int)
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
        SetTabStops(DatabasePage, false);
        SetTabStops(DirectPage, true);
        // No connection can be chosen, so there is none to scan.
        if (m_ui->cboDirectConName->count() == 0)
            m_ui->cmdScan->setEnabled(false);
        Refresh();
    } else if (Database().DatabaseOpen) {
        RestoreViewSelection();
        Refresh();
        SetTabStops(DirectPage, false);
        SetTabStops(DatabasePage, true);
    } else {
        MsgBox(QStringLiteral("No database, access to database tab is denied."));
        tabMain.setCurrentIndex(DirectPage);
    }
}

void T4ZelkaBrowser::SetTabStops(int page, bool flag)
{
    const Ui::T4ZelkaBrowser& ui = *m_ui;
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
        SetTabStop(widget, flag);
}

// Keys ------------------------------------------------------------------------------------------------------

bool T4ZelkaBrowser::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease)
        return QWidget::eventFilter(watched, event);
    const auto& key = static_cast<const QKeyEvent&>(*event);
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

void T4ZelkaBrowser::UserControl_KeyPress(int keyAscii)
{
    if (keyAscii == KeyCtrlF && m_ui->tabMain->currentIndex() == DatabasePage)
        m_ui->FindElement->click();
}

bool T4ZelkaBrowser::tabMain_KeyDown(int keyCode, int shift)
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

void T4ZelkaBrowser::tabMain_KeyUp(int keyCode)
{
    if (keyCode == KeyF1)
        ShowHelpTopic(m_ui->tabMain->currentIndex() == DatabasePage ? DatabaseTopic : DirectTopic);
}

bool T4ZelkaBrowser::tabNode_KeyDown(int keyCode, int shift)
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

void T4ZelkaBrowser::tabNode_KeyUp(int keyCode)
{
    if (keyCode == KeyF1)
        ShowHelpTopic(DirectTopic);
}

bool T4ZelkaBrowser::cmdScan_KeyPress(int keyCode, int shift)
{
    if (keyCode != KeyTab || shift == ShiftDown)
        return false;
    m_ui->tabMain->setFocus(Qt::TabFocusReason);
    return true;
}

void T4ZelkaBrowser::cmdDatabaseHelp_Click()
{
    ShowHelpTopic(DatabaseTopic);
}

void T4ZelkaBrowser::cmdDirectHelp_Click()
{
    ShowHelpTopic(DirectTopic);
}

void T4ZelkaBrowser::ShowTreeHelp()
{
    ShowHelpTopic(DatabaseTopic);
}

// Contents --------------------------------------------------------------------------------------------------

void T4ZelkaBrowser::txtTarget_Change()
{
    m_targetText = m_ui->txtTarget->text();
}

void T4ZelkaBrowser::ShowConPicture(int type)
{
    const int picture = Model().ConOrderObject ? Model().ConOrderObject->GetPicIndxByResourcePos(type)
                                               : ConOrderClass::UnknownPicture;
    QLabel& image = *m_ui->imgConArray;
    image.setProperty("picture", picture);
    image.setPixmap(ConnectionPicture(picture).pixmap(image.size(), devicePixelRatioF()));
}

void T4ZelkaBrowser::InitializeDirectTab()
{
    for (int page = 0; page < 2; ++page) {
        QString longName;
        if (Gateway().GetNodeTypeLongNameDb(m_ui->tabNode->tabText(page), longName))
            m_ui->tabNode->setTabText(page, ::DoubleAnyChar(longName, QStringLiteral("&")));
    }
    const QString net4 = QStringLiteral("NET4");
    LabelFromParameter(*m_ui->lblAddr, net4, QStringLiteral("ADDR"));
    LabelFromParameter(*m_ui->lblTime, net4, QStringLiteral("TIME"));
    LabelFromParameter(*m_ui->lblRetry, net4, QStringLiteral("RETRY"));
    const QString fe = QStringLiteral("FE");
    LabelFromParameter(*m_ui->lblFeId, fe, QStringLiteral("ID"));
    LabelFromParameter(*m_ui->lblFeCh, fe, QStringLiteral("CH"));
    const QString nemml = QStringLiteral("NEMML");
    LabelFromParameter(*m_ui->lblUser, nemml, QStringLiteral("USER"));
    LabelFromParameter(*m_ui->lblPsw, nemml, QStringLiteral("PSW"));
    LabelFromParameter(*m_ui->lblPath, nemml, QStringLiteral("PATH"));
    LabelFromParameter(*m_ui->lblTimeMML, nemml, QStringLiteral("TIME"));
    LabelFromParameter(*m_ui->lblRetryMML, nemml, QStringLiteral("RETRY"));
}

void T4ZelkaBrowser::LabelFromParameter(QLabel& label, const QString& waypoint, const QString& keyword)
{
    QString list;
    PairTable keywords;
    PairTable longNames;
    int count = 0;
    if (!Gateway().GetWpParametersDb(waypoint, 0, list) ||
        !ConvertItemListToArray(list, true, keywords, count))
        return;
    if (!Gateway().GetWpParametersLongNamesDb(waypoint, 0, list) ||
        !ConvertItemListToArray(list, true, longNames, count))
        return;
    for (std::size_t row = 0; row < qMin(keywords.size(), longNames.size()); ++row) {
        if (keywords[row].first != keyword)
            continue;
        // A single "&" in a label would become an access key.
        QString longName = longNames[row].first;
        ::DoubleAnyChar(longName, QStringLiteral("&"));
        label.setText(::ConvertWordsBeginningUpperCase(longName, QStringLiteral(" &")) + QLatin1Char(':'));
        return;
    }
}
