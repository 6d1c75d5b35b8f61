#pragma once

#include "platform/TreeRows.h"

#include <QString>
#include <QStringView>

#include <functional>
#include <memory>
#include <span>
#include <vector>

class TreeChanges;
class TreeName;
class TreePattern;
struct TreeKey;

/// One new entry of a batch: id of the record and its name.
struct NewTreeEntry
{
    qint32 id = 0;
    QStringView text;
};

/// The entries of one tree of the Database tab: the truth that a view shows.
///
/// An entry has a Key ("R,0" root, "C,<id>" connection, "W,<con id>,<position>" waypoint, "N,<id>" or
/// "N,<id>,<con id>" node; a negative node id is the continuation mark), a Text and, for connections, a Tag.
/// Its Index is a 32-bit handle given at Add and never reused until Clear; the first entry, the root, is 1;
/// 0 is no entry. Look-ups by Index, Key and Text, insertion and removal take logarithmic time or less;
/// memory is at most 160 bytes an entry with a name of 12 characters, everything included.
///
/// A parent whose `Sorted` is set keeps its children in the order of their texts, compared without case and
/// then exactly; otherwise new children stand last. Setting `Sorted` sorts what is there.
///
/// Thread: the one that made it. Views follow through the signals of QAbstractItemModel; nothing is reset
/// but by Clear.
class TreeEntries : public TreeRows
{
    Q_OBJECT

public:
    /// A 32-bit handle of an entry; 0: none.
    using Index = qint32;

    enum Roles
    {
        KeyRole = Qt::UserRole,
        /// The Key's first character as a QChar.
        KindRole,
        IndexRole,
    };

    explicit TreeEntries(QObject* parent = nullptr);
    ~TreeEntries() override;

    // Building ------------------------------------------------------------------------------------------

    /// Adds an entry under `parent` (0: a top entry) and gives its Index; 0 when the key is taken, the key
    /// is malformed or the parent does not exist.
    Index Add(Index parent, const QString& key, const QString& text);
    Index Add(Index parent, const TreeKey& key, const QString& text);
    /// Adds node entries "N,<id>" (with `conId` not 0: "N,<id>,<conId>") in one step; entries whose key the
    /// tree already has under any parent are skipped. Gives the number added.
    int AddNodes(Index parent, std::span<const NewTreeEntry> entries, qint32 conId = 0);
    /// The same for connection entries "C,<id>".
    int AddConnections(Index parent, std::span<const NewTreeEntry> entries);
    /// Removes an entry with all below it. False when there is no such entry.
    bool Remove(Index entry);
    void RemoveChildren(Index entry);
    void Clear();

    // One entry -----------------------------------------------------------------------------------------

    [[nodiscard]] bool Exists(Index entry) const;
    [[nodiscard]] QString Key(Index entry) const;
    /// 'R', 'C', 'W', 'N'; a null character when there is no such entry.
    [[nodiscard]] QChar Kind(Index entry) const;
    /// Field 2 of the Key as a number (negative with a continuation mark).
    [[nodiscard]] qint32 Id(Index entry) const;
    [[nodiscard]] QString Text(Index entry) const;
    [[nodiscard]] QString Tag(Index entry) const;
    [[nodiscard]] Index Parent(Index entry) const;
    [[nodiscard]] int ChildCount(Index entry) const;
    /// Child at a position from 0 in display order; 0 when there is none.
    [[nodiscard]] Index Child(Index entry, int position) const;
    /// The next entry under the same parent in display order; 0 after the last.
    [[nodiscard]] Index NextSibling(Index entry) const;
    [[nodiscard]] bool Expanded(Index entry) const;
    [[nodiscard]] bool Sorted(Index entry) const;

    /// False when the new key is taken by another entry or malformed.
    bool SetKey(Index entry, const QString& key);
    bool SetKey(Index entry, const TreeKey& key);
    /// A sorted parent moves the entry to its place.
    void SetText(Index entry, const QString& text);
    void SetTag(Index entry, const QString& tag);
    void SetExpanded(Index entry, bool expanded);
    void SetSorted(Index entry, bool sorted);

    // Finding -------------------------------------------------------------------------------------------

    /// Number of entries, the root included.
    [[nodiscard]] int Count() const;
    /// The entry of a key; the sign of field 2 does not matter, so a continued node is found too.
    [[nodiscard]] Index FindByKey(const QString& key) const;
    [[nodiscard]] Index FindByKey(const TreeKey& key) const;
    /// The first entry in collection order whose text equals `text`, ignoring case, and whose being a node
    /// equals `isNode`; 0 when there is none. Children of a connection come right behind it.
    [[nodiscard]] Index FindByText(const QString& text, bool isNode) const;
    /// All entries of that text, ignoring case, in no order.
    [[nodiscard]] std::vector<Index> AllByText(const QString& text) const;
    [[nodiscard]] std::vector<Index> AllByText(const TreeName& name) const;
    /// Brings near the processor what AllByText is about to read for some names, given their hashes: in a
    /// large tree each look-up alone waits for the memory several times. A few hundred at once; they must not
    /// push each other out again.
    void Fetch(std::span<const quint32> nameHashes) const;
    /// Looks at the entries of `most` more handles, from `next` (1 at first) on, and puts those behind
    /// `found` in whose text the pattern occurs; a top entry does not count. In the order of handles, which
    /// is the quickest. False: it has come to the end.
    [[nodiscard]] bool FindContaining(const TreePattern& pattern, Index& next, int most,
                                      std::vector<Index>& found) const;
    /// An entry that was found, and the one above it.
    struct Found
    {
        Index entry = 0;
        Index parent = 0;
    };
    /// All at once, in display order.
    [[nodiscard]] std::vector<Found> FindContaining(const TreePattern& pattern) const;
    /// The first child (display order) that carries the continuation mark; 0 when there is none.
    [[nodiscard]] Index FindContinued(Index parent) const;
    /// All entries that have a parent and at least one child, in collection order.
    [[nodiscard]] std::vector<Index> ParentsWithChildren() const;

    [[nodiscard]] QModelIndex ModelIndex(Index entry) const;
    [[nodiscard]] static Index EntryOf(const QModelIndex& index);

    // QAbstractItemModel and TreeRows ---------------------------------------------------------------------

    [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& child) const override;
    using QObject::parent;
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    [[nodiscard]] int VisibleRowCount() const override;
    [[nodiscard]] QModelIndex IndexAtVisibleRow(int row) const override;
    [[nodiscard]] int VisibleRowOf(const QModelIndex& index) const override;
    [[nodiscard]] int DepthOf(const QModelIndex& index) const override;
    [[nodiscard]] bool IsExpanded(const QModelIndex& index) const override;
    void SetExpanded(const QModelIndex& index, bool expanded) override;
    [[nodiscard]] QModelIndex FindVisibleByPrefix(const QModelIndex& from,
                                                  const QString& prefix) const override;

    /// Bytes held for all entries, indexes included; for measurements.
    [[nodiscard]] qint64 MemoryBytes() const;

private:
    friend class TreeChanges;
    class Store;

    int AddBatch(Index parent, char kind, std::span<const NewTreeEntry> entries, qint32 conId);
    Index AddOne(Index parent, const TreeKey& key, QStringView text);
    void RemoveRange(quint32 owner, int first, int count);
    void DestroyBelow(std::vector<quint32> entries, quint32 owner, int position);
    void ChangeText(quint32 entry, const QString& text, int position);
    void Rearrange(quint32 owner, const std::function<void()>& change);
    [[nodiscard]] TreeChanges* Recorder() const;
    [[nodiscard]] QModelIndex IndexOf(quint32 entry) const;
    [[nodiscard]] bool StandsBefore(quint32 left, quint32 right) const;
    void TellChange(Index entry);

    std::unique_ptr<Store> m_store;
    /// Notes the changes, when there is one; not owned.
    TreeChanges* m_changes = nullptr;
};
