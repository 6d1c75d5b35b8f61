#pragma once

#include <QAccessible>
#include <QCoreApplication>
#include <QPersistentModelIndex>
#include <QPointer>

class TreeRowsView;

/// An entry of a TreeRowsView for those who cannot see it. Its children are the entries below it while it is
/// expanded; what a collapsed entry hides is hidden from everybody.
class AccessibleTreeItem : public QAccessibleInterface, public QAccessibleActionInterface
{
    Q_DECLARE_TR_FUNCTIONS(AccessibleTreeItem)

public:
    AccessibleTreeItem(TreeRowsView* view, const QModelIndex& entry);

    [[nodiscard]] QModelIndex Entry() const { return m_entry; }

    [[nodiscard]] bool isValid() const override;
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QWindow* window() const override;
    [[nodiscard]] QAccessibleInterface* parent() const override;
    [[nodiscard]] int childCount() const override;
    [[nodiscard]] QAccessibleInterface* child(int index) const override;
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text kind, const QString& text) override;
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::TreeItem; }
    [[nodiscard]] QAccessible::State state() const override;
    [[nodiscard]] void* interface_cast(QAccessible::InterfaceType type) override;

    /// Press: a click on the entry. Toggle: expands or collapses it, where there is something below it.
    /// SetFocus: goes to the entry as the arrow keys do. "Open": a double click.
    [[nodiscard]] QStringList actionNames() const override;
    [[nodiscard]] QString localizedActionName(const QString& name) const override;
    /// The action follows when the caller has its answer: a click may open a dialog.
    void doAction(const QString& name) override;
    [[nodiscard]] QStringList keyBindingsForAction(const QString& name) const override;

private:
    [[nodiscard]] bool IsExpandable() const;
    [[nodiscard]] bool IsExpanded() const;
    [[nodiscard]] QAccessibleInterface* ItemOf(const QModelIndex& index) const;
    [[nodiscard]] QString Position() const;

    QPointer<TreeRowsView> m_view;
    QPersistentModelIndex m_entry;
};
