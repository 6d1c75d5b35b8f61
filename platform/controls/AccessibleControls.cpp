#include "platform/controls/AccessibleControls.h"

#include "platform/controls/AccessibleComboBox.h"
#include "platform/controls/AccessibleToolButton.h"
#include "platform/controls/AccessibleTree.h"
#include "platform/controls/AccessibleUpDown.h"
#include "platform/controls/TreeRowsView.h"
#include "platform/controls/UpDown.h"

#include <QComboBox>
#include <QToolButton>

namespace {

/// Asked with the name of an object's class, then with those of the classes that it derives from.
QAccessibleInterface* MakeAccessible(const QString& className, QObject* object)
{
    if (className == QLatin1String(TreeRowsView::staticMetaObject.className()))
        return new AccessibleTree(qobject_cast<TreeRowsView*>(object));
    if (className == QLatin1String(UpDown::staticMetaObject.className()))
        return new AccessibleUpDown(qobject_cast<UpDown*>(object));
    if (className == QLatin1String("QComboBox"))
        return new AccessibleComboBox(qobject_cast<QComboBox*>(object));
    if (className == QLatin1String("QToolButton"))
        return new AccessibleToolButton(qobject_cast<QToolButton*>(object));
    return nullptr;
}

AssistiveListener otherListener;

} // namespace

void OfferAccessibleControls()
{
    static const bool offered = [] {
        QAccessible::installFactory(MakeAccessible);
        return true;
    }();
    Q_UNUSED(offered)
}

bool AssistiveProgramListens()
{
    return otherListener || QAccessible::isActive();
}

void TellAssistivePrograms(QAccessibleEvent& event)
{
    if (otherListener)
        otherListener(event);
    else
        QAccessible::updateAccessibility(&event);
}

void SetAssistiveListener(AssistiveListener listener)
{
    otherListener = std::move(listener);
}
