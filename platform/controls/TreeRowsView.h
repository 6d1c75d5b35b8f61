#pragma once

#include "platform/TreeRows.h"
#include "platform/controls/TreeRowDelegate.h"

#include <QAbstractItemView>
#include <QPersistentModelIndex>
#include <QPointer>

class AccessibleTreeEvents;

/// Shows a TreeRows as a tree of one column and keeps nothing for each entry.
///
/// All rows have the same height; a row is mapped to its entry when it is painted or hit. The entry at the
/// top of the viewport stays where it is when rows come, go or move above it. The width is that of the rows
/// painted so far. Only a TreeRows can be its model.
class TreeRowsView : public QAbstractItemView
{
    Q_OBJECT

public:
    explicit TreeRowsView(QWidget* parent = nullptr);

    /// What gives an entry its icon where the model answers nothing for Qt::DecorationRole.
    void SetIconProvider(TreeRowDelegate::IconProvider provider);

    [[nodiscard]] TreeRows* Rows() const { return m_rows; }
    /// Height of a row in pixels.
    [[nodiscard]] int RowHeight() const { return m_rowHeight; }
    /// Where an entry's indicator is shown; empty for an entry without children or that cannot be seen.
    [[nodiscard]] QRect IndicatorRect(const QModelIndex& index) const;

    /// Goes to an entry that can be seen, as the arrow keys do.
    virtual void GoToEntry(const QModelIndex& index);
    /// What a click with the mouse on the entry does.
    virtual void ClickEntry(const QModelIndex& index);
    /// What a double click does.
    virtual void OpenEntry(const QModelIndex& index);

    void setModel(QAbstractItemModel* model) override;
    void reset() override;
    void doItemsLayout() override;
    [[nodiscard]] QRect visualRect(const QModelIndex& index) const override;
    /// The entry of the whole row at a place of the viewport.
    [[nodiscard]] QModelIndex indexAt(const QPoint& point) const override;
    /// Expands what is above the entry, then brings it into view.
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

protected:
    /// The entry itself, or the entry above it that can be seen; invalid when there is none.
    [[nodiscard]] QModelIndex NearestVisible(QModelIndex index) const;
    [[nodiscard]] bool HasChildren(const QModelIndex& index) const;

    void rowsInserted(const QModelIndex& parent, int start, int end) override;
    void rowsAboutToBeRemoved(const QModelIndex& parent, int start, int end) override;
    [[nodiscard]] QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    [[nodiscard]] int horizontalOffset() const override;
    [[nodiscard]] int verticalOffset() const override;
    [[nodiscard]] bool isIndexHidden(const QModelIndex& index) const override;
    void setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) override;
    [[nodiscard]] QRegion visualRegionForSelection(const QItemSelection& selection) const override;
    void updateGeometries() override;
    void scrollContentsBy(int dx, int dy) override;
    void paintEvent(QPaintEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    [[nodiscard]] int Indentation() const;
    [[nodiscard]] int RowWidth() const;
    /// From a rectangle that counts from the side where lines begin to one of the viewport.
    [[nodiscard]] QRect OnViewport(const QRect& logical) const;
    void MeasureRowHeight();
    void TakeAnchor();
    void RestoreAnchor();
    void MoveAnchorOutOf(const QModelIndex& parent, int start, int end);
    void MoveCurrentOutOf(const QModelIndex& parent, int start, int end);
    void DrawRow(QPainter& painter, const QStyleOptionViewItem& plain, const QModelIndex& index, int row);
    void DrawBranches(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index,
                      int row, int depth);
    void NoteWidth(int width);
    bool ShowFullText(const QPoint& place, const QPoint& globalPlace);

    QPointer<TreeRows> m_rows;
    TreeRowDelegate* m_delegate;
    AccessibleTreeEvents* m_accessibleEvents = nullptr;
    int m_rowHeight = 1;
    int m_widestRow = 0;
    /// The entry at the top of the viewport and how many pixels of it are above.
    QPersistentModelIndex m_anchor;
    int m_anchorOffset = 0;
    bool m_settingScrollBars = false;
    QPersistentModelIndex m_hovered;
};
