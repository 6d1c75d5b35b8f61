#include "browser/TreeMenu.h"

#include "browser/TargetSyntax.h"
#include "browser/ui_BrowserControl.h"
#include "model/TreeEntries.h"
#include "platform/Words.h"
#include "platform/controls/CommandMenu.h"

#include <QKeySequence>

namespace {

QString KeyText(const QKeySequence& keys)
{
    return keys.toString(QKeySequence::NativeText);
}

/// Name of an entry that has one of its own: a connection or a node.
QString NameOf(const QModelIndex& entry)
{
    const QChar kind = entry.data(TreeEntries::KindRole).toChar();
    return kind == QLatin1Char('C') || kind == QLatin1Char('N') ? entry.data().toString() : QString();
}

} // namespace

TreeMenu::TreeMenu(Ui::BrowserControl& ui) : m_ui(ui)
{
    for (TreeView* tree : {ui.tvwConTree, ui.tvwNodesTree})
        connect(tree, &TreeView::ContextMenu, this,
                [this, tree](const QPoint& place) { Open(*tree, place); });
}

void TreeMenu::Open(TreeView& tree, const QPoint& place) const
{
    CommandMenu menu(tree);
    menu.AddCommand(*m_ui.cmdDatabaseAdd);
    menu.AddCommand(*m_ui.cmdDatabaseProp, QString(), KeyText(Qt::Key_Return));
    menu.AddCommand(*m_ui.cmdDatabaseRemove, QString(), KeyText(Qt::Key_Delete));
    menu.AddLine();
    menu.AddCommand(*m_ui.cmdDbScan);
    menu.AddCommand(*m_ui.cmdDatabaseManage);
    menu.AddLine();
    const QString target = m_ui.txtTarget->text();
    menu.AddCopy(Words::tr("Copy &Name"), NameOf(tree.SelectedIndex()),
                 Words::tr("Select a connection or a node first."), KeyText(QKeySequence::Copy));
    menu.AddCopy(Words::tr("Copy &Target"), target, Words::tr("There is no target."));
    menu.AddCopy(Words::tr("&Copy Address"), TargetAddress(target), Words::tr("The target has no address."));
    menu.AddLine();
    menu.AddCommand(*m_ui.FindElement, Words::tr("&Find..."), KeyText(Qt::CTRL | Qt::Key_F));
    menu.AddCommand(*m_ui.cmdLoadMore);
    menu.AddCommand(*m_ui.cmdRefresh);
    menu.AddLine();
    menu.AddCommand(*m_ui.cmdDatabaseHelp, QString(), KeyText(Qt::Key_F1));
    menu.Open(place);
}
