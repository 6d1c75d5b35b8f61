#pragma once

#include <QString>
#include <QStringList>

#include <map>
#include <vector>

/// The same tree in the plainest way: everything is searched by walking. What TreeEntries answers must be
/// what this answers.
class NaiveTree
{
public:
    struct Entry
    {
        int parent = 0;
        QString key;
        QString text;
        bool expanded = false;
        bool sorted = false;
        std::vector<int> children;
    };

    NaiveTree() { m_entries[0].expanded = true; }

    int Add(int parent, const QString& key, const QString& text);
    void Remove(int entry);
    void RemoveChildren(int entry);
    void SetText(int entry, const QString& text);
    bool SetKey(int entry, const QString& key);
    void SetSorted(int entry, bool sorted);

    Entry& At(int entry) { return m_entries.at(entry); }
    bool Exists(int entry) const { return entry != 0 && m_entries.count(entry) != 0; }
    /// All entries, the invisible top as 0 included.
    const std::map<int, Entry>& Entries() const { return m_entries; }
    int FindByKey(const QString& key) const;
    int FindByText(const QString& text, bool isNode) const;
    int FindContinued(int parent) const;
    std::vector<int> ParentsWithChildren() const;
    /// The visible entries in display order.
    std::vector<int> Visible() const;
    int FindVisibleByPrefix(int from, const QString& prefix) const;

private:
    static QString Unmarked(const QString& key);
    bool Before(int left, int right) const;
    void Sort(int entry);
    void CollectVisible(int entry, std::vector<int>& visible) const;

    std::map<int, Entry> m_entries;
    int m_last = 0;
};
