#include "browser/DirectNodePages.h"

#include "browser/DirectTarget.h"
#include "browser/TabStops.h"
#include "model/TextHelpers.h"
#include "platform/controls/KeyFilter.h"

#include <QEvent>
#include <QLineEdit>
#include <QTabBar>
#include <QTabWidget>

#include <algorithm>

DirectNodePages::DirectNodePages(QTabWidget& tabNode, QWidget& cmdScan, std::function<void()> changed)
    : m_tabNode(tabNode), m_cmdScan(cmdScan), m_changed(std::move(changed))
{
    auto* const digits = new KeyFilter(FilterDigitKey, this);
    for (const DirectField& field : DirectFields()) {
        auto* const edit = m_tabNode.findChild<QLineEdit*>(QLatin1String(field.name));
        m_boxes.push_back({field, edit});
        connect(edit, &QLineEdit::textChanged, this, [this] { m_changed(); });
        if (field.digitsOnly)
            edit->installEventFilter(digits);
    }
    connect(&m_tabNode, &QTabWidget::currentChanged, this, [this] { tabNode_Click(); });
    m_tabNode.tabBar()->installEventFilter(this);
}

bool DirectNodePages::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn)
        tabNode_GotFocus();
    return QObject::eventFilter(watched, event);
}

void DirectNodePages::tabNode_Click()
{
    SetNodeParamTabStops();
    m_changed();
}

void DirectNodePages::tabNode_GotFocus()
{
    SetNodeParamTabStops();
}

void DirectNodePages::SetNodeParamTabStops()
{
    const int shown = m_tabNode.currentIndex();
    for (const Box& box : m_boxes)
        SetTabStop(*box.edit, box.field.page == shown);
    SetTabStop(m_cmdScan, shown == Net4Page);
}

void DirectNodePages::SetNodeTabs(bool enabled)
{
    // The page that will be shown comes first: disabling the shown one would lead to a neighbour meanwhile.
    if (enabled) {
        m_tabNode.setTabEnabled(Net4Page, true);
        m_tabNode.setTabEnabled(NemmlPage, true);
        m_tabNode.setCurrentIndex(Net4Page);
        m_tabNode.setTabEnabled(SnmpPage, false);
    } else {
        m_tabNode.setTabEnabled(SnmpPage, true);
        m_tabNode.setCurrentIndex(SnmpPage);
        m_tabNode.setTabEnabled(Net4Page, false);
        m_tabNode.setTabEnabled(NemmlPage, false);
    }
}

QString DirectNodePages::NodeTarget() const
{
    return ComposeNodeTarget(m_tabNode.currentIndex(), [this](const char* field) { return TextOf(field); });
}

void DirectNodePages::ClearNet4()
{
    for (const Box& box : m_boxes) {
        if (box.field.page == Net4Page)
            box.edit->clear();
    }
}

QString DirectNodePages::TextOf(const char* field) const
{
    const auto box = std::find_if(m_boxes.begin(), m_boxes.end(), [&](const Box& candidate) {
        return qstrcmp(candidate.field.name, field) == 0;
    });
    return box->edit->text();
}
