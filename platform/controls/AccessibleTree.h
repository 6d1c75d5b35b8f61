#pragma once

#include <QAccessibleWidget>
#include <QCache>
#include <QPersistentModelIndex>

class TreeRowsView;

/// A TreeRowsView for those who cannot see it: a tree whose top entries are its children, their entries
/// theirs.
///
/// An entry's object is made when somebody asks for it. At most `MostItems` are kept; the one longest unused
/// goes first, so that reading through a million entries holds no more memory than a screenful.
class AccessibleTree : public QAccessibleWidget
{
public:
    static constexpr int MostItems = 1000;

    explicit AccessibleTree(TreeRowsView* view);

    [[nodiscard]] TreeRowsView* View() const;
    /// The object of an entry; null for an invalid index.
    [[nodiscard]] QAccessibleInterface* ItemOf(const QModelIndex& index) const;
    /// The object of an entry that somebody has asked for, else null.
    [[nodiscard]] QAccessibleInterface* KnownItemOf(const QModelIndex& index) const;
    void ForgetItems() { m_items.clear(); }

    [[nodiscard]] int childCount() const override;
    [[nodiscard]] QAccessibleInterface* child(int index) const override;
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
    [[nodiscard]] QAccessibleInterface* focusChild() const override;

private:
    /// Owns the object of an entry, which is registered under this id.
    struct Registered
    {
        explicit Registered(QAccessible::Id item) : id(item) {}
        ~Registered() { QAccessible::deleteAccessibleInterface(id); }
        Q_DISABLE_COPY_MOVE(Registered)

        QAccessible::Id id;
    };

    mutable QCache<QPersistentModelIndex, Registered> m_items{MostItems};
};
