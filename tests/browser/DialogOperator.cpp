#include "tests/browser/DialogOperator.h"

#include "browser/ProgressForm.h"
#include "dialogs/frmDatabaseConProp.h"
#include "dialogs/frmDatabaseNodeProp.h"
#include "dialogs/frmDirectProp.h"
#include "dialogs/frmWpProp.h"
#include "platform/controls/FlexGrid.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

namespace {

/// Passes of the event loop until a dialog is ready, and until one that has been worked in must be gone.
constexpr int ReadyTicks = 3;
constexpr int LastTick = 200;
/// Passes after which a load has ended or waits to be closed.
constexpr int LoadTicks = 40;

template <typename Widget>
Widget* Find(const QDialog& dialog, const char* name)
{
    return dialog.findChild<Widget*>(QString::fromLatin1(name));
}

int NextTick(QDialog& dialog)
{
    const int tick = dialog.property("tick").toInt() + 1;
    dialog.setProperty("tick", tick);
    return tick;
}

QWidget* OpenEditor(const QDialog& dialog)
{
    for (const char* name : {"txtGridEdit", "cboGridEdit"}) {
        auto* editor = Find<QWidget>(dialog, name);
        if (editor && editor->isVisible())
            return editor;
    }
    return nullptr;
}

} // namespace

void DialogOperator::Start()
{
    Tick();
}

void DialogOperator::Tick()
{
    // The next one first: a dialog that this one opens has its own event loop.
    QTimer::singleShot(0, this, &DialogOperator::Tick);
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (!dialog)
        return;
    const int tick = NextTick(*dialog);
    if (qobject_cast<ProgressForm*>(dialog)) {
        if (tick > LoadTicks)
            dialog->reject();
    } else if (tick == ReadyTicks) {
        WorkIn(*dialog);
    } else if (tick == LastTick) {
        qFatal("%s stays open", dialog->metaObject()->className());
    }
}

void DialogOperator::WorkIn(QDialog& dialog)
{
    const QPointer<QDialog> open(&dialog);
    if (qobject_cast<frmWpProp*>(&dialog)) {
        WorkInWaypoint(dialog);
    } else if (qobject_cast<frmDatabaseConProp*>(&dialog) || qobject_cast<frmDirectProp*>(&dialog)) {
        ++Dialogs;
        WorkInConnection(dialog);
    } else if (qobject_cast<frmDatabaseNodeProp*>(&dialog)) {
        ++Dialogs;
        WorkInNode(dialog);
    }
    if (open && open->isVisible())
        dialog.reject();
}

// Dialogs ---------------------------------------------------------------------------------------------------

void DialogOperator::WorkInConnection(QDialog& dialog)
{
    auto& name = *Find<QLineEdit>(dialog, "txtConName");
    if (!TypeName(name) || (!Choice.isEmpty() && !Choose(dialog, "cboConType", Choice)))
        return;
    if (!Value.isEmpty()) {
        auto& list = *Find<QTreeWidget>(dialog, "lvWPlist");
        if (list.topLevelItemCount() == 0)
            return;
        list.setFocus();
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                          list.visualItemRect(list.topLevelItem(0)).center());
        const qsizetype before = Problems.size();
        dialog.setProperty("typed", false);
        Press(dialog, "cmdProperties");
        if (!dialog.property("typed").toBool() || Problems.size() > before)
            return;
    }
    Save(dialog);
}

void DialogOperator::WorkInWaypoint(QDialog& dialog)
{
    if (!TypeValue(dialog, "grdConParam"))
        return;
    dialog.parentWidget()->window()->setProperty("typed", true);
    Press(dialog, "CmdOk");
    if (!dialog.isVisible())
        return;
    // What the dialog does not take is still to be seen in it.
    dialog.parent()->setProperty("typed", false);
    if (!ValueIsShown(dialog, "grdConParam"))
        Problems << QStringLiteral("the waypoint dialog loses the value");
}

void DialogOperator::WorkInNode(QDialog& dialog)
{
    if (!TypeName(*Find<QLineEdit>(dialog, "txtNodeName")) ||
        (!Choice.isEmpty() && !Choose(dialog, "cboConName", Choice)) ||
        (!Value.isEmpty() && !TypeValue(dialog, "grdNodeParam")))
        return;
    Save(dialog);
}

// What is typed ---------------------------------------------------------------------------------------------

bool DialogOperator::TypeName(QLineEdit& box) const
{
    if (Name.isEmpty())
        return true;
    box.setFocus();
    box.selectAll();
    QTest::keyClick(&box, Qt::Key_Delete);
    QTest::keyClicks(&box, Name);
    return box.text() == Name;
}

bool DialogOperator::Choose(QDialog& dialog, const char* combo, const QString& text)
{
    auto& box = *Find<QComboBox>(dialog, combo);
    const int position = box.findText(text);
    if (position < 0)
        return false;
    box.setFocus();
    box.setCurrentIndex(position);
    return box.currentText() == text;
}

bool DialogOperator::TypeValue(QDialog& dialog, const char* grid) const
{
    auto& parameters = *Find<FlexGrid>(dialog, grid);
    if (parameters.GridRows() < 2)
        return false;
    const QPoint cell = parameters.CellRect(1, 1).center();
    parameters.setFocus();
    QTest::mouseClick(parameters.viewport(), Qt::LeftButton, {}, cell);
    QTest::mouseDClick(parameters.viewport(), Qt::LeftButton, {}, cell);
    auto* box = qobject_cast<QLineEdit*>(OpenEditor(dialog));
    if (!box)
        return false;
    box->selectAll();
    QTest::keyClicks(box, Value);
    return box->text() == Value;
}

bool DialogOperator::ValueIsShown(const QDialog& dialog, const char* grid) const
{
    if (const auto* box = qobject_cast<QLineEdit*>(OpenEditor(dialog)))
        return box->text() == Value;
    return Find<FlexGrid>(dialog, grid)->TextMatrix(1, 1) == Value;
}

// Buttons ---------------------------------------------------------------------------------------------------

void DialogOperator::Save(QDialog& dialog)
{
    for (int attempt = 0; attempt < (SavesAgain ? 2 : 1); ++attempt) {
        ++Saves;
        Press(dialog, "cmdSave");
        if (!dialog.isVisible())
            return;
        const QString lost = WhatIsLost(dialog);
        if (!lost.isEmpty())
            Problems << lost;
    }
}

QString DialogOperator::WhatIsLost(const QDialog& dialog) const
{
    const bool isNode = qobject_cast<const frmDatabaseNodeProp*>(&dialog);
    const QString name = Find<QLineEdit>(dialog, isNode ? "txtNodeName" : "txtConName")->text();
    if (!Name.isEmpty() && name != Name)
        return QStringLiteral("the name became ") + name;
    const QString choice = Find<QComboBox>(dialog, isNode ? "cboConName" : "cboConType")->currentText();
    if (!Choice.isEmpty() && choice != Choice)
        return QStringLiteral("the choice became ") + choice;
    if (isNode && !Value.isEmpty() && !ValueIsShown(dialog, "grdNodeParam"))
        return QStringLiteral("the value became ") + Find<FlexGrid>(dialog, "grdNodeParam")->TextMatrix(1, 1);
    return {};
}

void DialogOperator::Press(const QDialog& dialog, const char* button)
{
    QTest::mouseClick(Find<QPushButton>(dialog, button), Qt::LeftButton);
}
