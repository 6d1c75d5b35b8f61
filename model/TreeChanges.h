#pragma once

#include "model/TreeEntries.h"
#include "model/TreeStore.h"

#include <QPointer>
#include <QString>

#include <utility>
#include <variant>
#include <vector>

/// What is done to one tree, in order, with what it takes to undo it.
///
/// The tree tells of each change right when it makes it, before anyone else hears of it: a receiver of the
/// tree's signals may change the tree further. Undo walks back from the newest change, so each one meets the
/// tree as it left it; what receivers do to the tree while Undo runs is not noted.
class TreeChanges
{
public:
    using Handle = TreeStore::Handle;

    /// Records from now on; has nothing to keep or to undo when another one records the tree already.
    explicit TreeChanges(TreeEntries& tree);
    ~TreeChanges();
    TreeChanges(const TreeChanges&) = delete;
    TreeChanges& operator=(const TreeChanges&) = delete;

    /// Forgets what was noted; after Clear, records again.
    void Keep();
    /// Nothing when the tree is gone or was cleared.
    void Undo();

    // For the tree ----------------------------------------------------------------------------------------

    [[nodiscard]] bool IsRecording() const { return m_state == State::Recording; }
    /// Entries of handles that follow each other.
    void NoteAdded(Handle first, int count);
    /// Takes entries that stand nowhere any more out of the tree, with all below them; they were the children
    /// of `owner` from `position` on.
    void TakeBelow(Handle owner, int position, std::vector<Handle> entries);
    // Before the change:
    void NoteKey(Handle entry);
    void NoteText(Handle entry);
    void NoteTag(Handle entry);
    void NoteExpanded(Handle entry);
    /// With the children that are about to be sorted in.
    void NoteSorted(Handle owner, bool sorts);
    void NoteCleared();

private:
    enum class State
    {
        Recording,
        Undoing,
        /// Cleared since: what was noted speaks of entries that are no more.
        Cleared,
    };

    struct Added
    {
        Handle first;
        int count;
    };
    /// The tops first, then generation by generation, siblings together and in order.
    struct Removed
    {
        Handle owner;
        int position;
        size_t tops;
        std::vector<Handle> handles;
        std::vector<TreeEntry> entries;
        std::vector<std::pair<Handle, QString>> tags;
    };
    struct Key
    {
        Handle entry;
        TreeKey key;
    };
    struct Text
    {
        Handle entry;
        int position;
        QString text;
    };
    struct Tag
    {
        Handle entry;
        QString tag;
    };
    struct Expanded
    {
        Handle entry;
        bool expanded;
    };
    struct Sorted
    {
        Handle owner;
        bool sorted;
        std::vector<Handle> tail;
    };
    using Change = std::variant<Added, Removed, Key, Text, Tag, Expanded, Sorted>;

    [[nodiscard]] TreeEntries::Store& Store() const;
    void UndoChange(const Added& added);
    void UndoChange(Removed& removed);
    void UndoChange(const Key& key);
    void UndoChange(const Text& text);
    void UndoChange(const Tag& tag);
    void UndoChange(const Expanded& expanded);
    void UndoChange(const Sorted& sorted);
    [[nodiscard]] bool HasPlaceFor(const Removed& removed) const;
    void RestoreBelow(Removed& removed);

    QPointer<TreeEntries> m_tree;
    State m_state = State::Recording;
    std::vector<Change> m_log;
};
