#pragma once

#include "browser/UnloadedSearch.h"
#include "platform/TreeRows.h"

#include <QPointer>

#include <array>
#include <optional>
#include <vector>

/// What the operator chose among the hits of a search: an entry of the searched tree, or one that is not
/// loaded yet.
struct FoundEntry
{
    TreeEntries::Index entry = 0;
    std::optional<UnloadedEntry> unloaded;

    explicit operator bool() const { return entry != 0 || unloaded; }
};

/// The hits of a search as a tree: those of the searched tree in its order, with their parents above them;
/// apart from them, in a group of their own, those that are not loaded, under their connections.
///
/// Keeps a few bytes for each hit; texts and kinds are those that the searched tree has, so what it has no
/// more is without a text. When the searched tree is reset, its hits go.
class FoundEntries : public TreeRows
{
    Q_OBJECT

public:
    explicit FoundEntries(QObject* parent = nullptr) : TreeRows(parent) {}

    /// Replaces all rows. `hits`: in the order of the tree, children behind their parent.
    void ShowLoaded(const TreeEntries& tree, const std::vector<TreeEntries::Found>& hits);
    /// Puts the group of what is not loaded behind the others, or another one in its place. `hits`: by
    /// connection. `more`: a last row tells that there are more.
    void ShowUnloaded(std::vector<UnloadedEntry> hits, bool more);
    [[nodiscard]] int HitCount() const { return m_loadedHits + static_cast<int>(m_unloaded.size()); }

    /// What can be chosen there; none for the root, a heading and the row that tells of more.
    [[nodiscard]] FoundEntry EntryAt(const QModelIndex& index) const;
    /// The first hit in the order of rows; invalid: there is none.
    [[nodiscard]] QModelIndex FirstHit() const;
    /// The row of an entry of the searched tree; invalid: it has none.
    [[nodiscard]] QModelIndex IndexOfEntry(TreeEntries::Index entry) const;

    [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& child) const override;
    using QObject::parent;
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] int VisibleRowCount() const override;
    [[nodiscard]] QModelIndex IndexAtVisibleRow(int row) const override;
    [[nodiscard]] int VisibleRowOf(const QModelIndex& index) const override;
    [[nodiscard]] int DepthOf(const QModelIndex& index) const override;
    [[nodiscard]] bool IsExpanded(const QModelIndex& index) const override;
    void SetExpanded(const QModelIndex& index, bool expanded) override;
    [[nodiscard]] QModelIndex FindVisibleByPrefix(const QModelIndex& from,
                                                  const QString& prefix) const override;

private:
    enum Group
    {
        LoadedGroup,
        UnloadedGroup,
        GroupCount,
    };
    /// A row right below a group. Its number is an entry of the tree, or the first hit of a connection in
    /// m_unloaded, or MoreRow.
    struct Branch
    {
        qint32 number = 0;
        int firstLeaf = 0;
        bool expanded = true;
        /// Not only the parent of hits.
        bool isHit = false;
    };
    static constexpr qint32 MoreRow = -1;
    struct Rows
    {
        std::vector<Branch> branches;
        /// Numbers as a branch's.
        std::vector<qint32> leaves;
        /// Rows shown before each branch, and by all.
        std::vector<int> before{0};
        bool expanded = true;

        [[nodiscard]] int LeafCount(int branch) const;
        /// Rows that the group shows, its own among them; 0 without branches.
        [[nodiscard]] int Shown() const;
        [[nodiscard]] int BranchOfLeaf(int leaf) const;
        void Count();
    };
    /// Which row an index means; level 0 is the group's own.
    struct Place
    {
        int group = 0;
        int level = 0;
        int at = 0;
    };

    [[nodiscard]] static Place PlaceOf(const QModelIndex& index);
    [[nodiscard]] QModelIndex IndexOf(const Place& place) const;
    [[nodiscard]] const Rows& RowsOf(const Place& place) const
    {
        return m_rows[static_cast<std::size_t>(place.group)];
    }
    [[nodiscard]] Rows& RowsOf(const Place& place) { return m_rows[static_cast<std::size_t>(place.group)]; }
    [[nodiscard]] qint32 NumberAt(const Place& place) const;
    [[nodiscard]] QString TextAt(const Place& place) const;
    [[nodiscard]] QChar KindAt(const Place& place) const;
    void Forget();

    QPointer<const TreeEntries> m_tree;
    TreeEntries::Index m_root = 0;
    int m_loadedHits = 0;
    std::vector<UnloadedEntry> m_unloaded;
    std::array<Rows, GroupCount> m_rows;
};
