#include "NaiveTree.h"

#include <algorithm>

int NaiveTree::Add(int parent, const QString& key, const QString& text)
{
    if (FindByKey(key) != 0)
        return 0;
    const int entry = ++m_last;
    m_entries[entry] = {parent, key, text, false, false, {}};
    At(parent).children.push_back(entry);
    if (At(parent).sorted)
        Sort(parent);
    return entry;
}

void NaiveTree::Remove(int entry)
{
    RemoveChildren(entry);
    std::erase(At(At(entry).parent).children, entry);
    m_entries.erase(entry);
}

void NaiveTree::RemoveChildren(int entry)
{
    const std::vector<int> children = At(entry).children;
    for (const int child : children)
        Remove(child);
}

void NaiveTree::SetText(int entry, const QString& text)
{
    At(entry).text = text;
    if (At(At(entry).parent).sorted)
        Sort(At(entry).parent);
}

bool NaiveTree::SetKey(int entry, const QString& key)
{
    const int holder = FindByKey(key);
    if (holder != 0 && holder != entry)
        return false;
    At(entry).key = key;
    return true;
}

void NaiveTree::SetSorted(int entry, bool sorted)
{
    At(entry).sorted = sorted;
    if (sorted)
        Sort(entry);
}

int NaiveTree::FindByKey(const QString& key) const
{
    for (const auto& [entry, found] : m_entries) {
        if (entry != 0 && Unmarked(found.key) == Unmarked(key))
            return entry;
    }
    return 0;
}

int NaiveTree::FindByText(const QString& text, bool isNode) const
{
    const auto matches = [&](const Entry& entry) {
        return entry.text.compare(text, Qt::CaseInsensitive) == 0 && entry.key.startsWith(u'N') == isNode;
    };
    for (const auto& [entry, found] : m_entries) {
        if (entry == 0)
            continue;
        if (matches(found))
            return entry;
        if (!found.key.startsWith(u'C'))
            continue;
        for (const int child : found.children) {
            if (matches(m_entries.at(child)))
                return child;
        }
    }
    return 0;
}

int NaiveTree::FindContinued(int parent) const
{
    for (const int child : m_entries.at(parent).children) {
        if (m_entries.at(child).key.section(u',', 1, 1).startsWith(u'-'))
            return child;
    }
    return 0;
}

std::vector<int> NaiveTree::ParentsWithChildren() const
{
    std::vector<int> found;
    for (const auto& [entry, parent] : m_entries) {
        if (entry != 0 && parent.parent != 0 && !parent.children.empty())
            found.push_back(entry);
    }
    return found;
}

std::vector<int> NaiveTree::Visible() const
{
    std::vector<int> visible;
    CollectVisible(0, visible);
    return visible;
}

int NaiveTree::FindVisibleByPrefix(int from, const QString& prefix) const
{
    std::vector<int> visible = Visible();
    const auto place = std::find(visible.begin(), visible.end(), from);
    if (place != visible.end())
        std::rotate(visible.begin(), place + 1, visible.end());
    const auto found = std::find_if(visible.begin(), visible.end(), [&](int entry) {
        return m_entries.at(entry).text.startsWith(prefix, Qt::CaseInsensitive);
    });
    return found != visible.end() ? *found : 0;
}

QString NaiveTree::Unmarked(const QString& key)
{
    QString unmarked = key;
    return unmarked.replace(QLatin1String(",-"), QLatin1String(","));
}

bool NaiveTree::Before(int left, int right) const
{
    const QString& leftText = m_entries.at(left).text;
    const QString& rightText = m_entries.at(right).text;
    if (const int folded = leftText.compare(rightText, Qt::CaseInsensitive))
        return folded < 0;
    if (const int exact = leftText.compare(rightText))
        return exact < 0;
    return left < right;
}

void NaiveTree::Sort(int entry)
{
    std::vector<int>& children = At(entry).children;
    std::sort(children.begin(), children.end(), [this](int left, int right) { return Before(left, right); });
}

void NaiveTree::CollectVisible(int entry, std::vector<int>& visible) const
{
    for (const int child : m_entries.at(entry).children) {
        visible.push_back(child);
        if (m_entries.at(child).expanded)
            CollectVisible(child, visible);
    }
}
