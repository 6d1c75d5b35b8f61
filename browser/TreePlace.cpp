#include "browser/TreePlace.h"

#include "model/TreeFilling.h"

namespace {

constexpr QChar NodeKind = u'N';
constexpr QChar ConnectionKind = u'C';
constexpr QChar WaypointKind = u'W';

} // namespace

TreePlace::TreePlace(const TreeEntries& tree) : m_tree(tree)
{
    int children = 0;
    for (const TreeEntries::Index entry : tree.ParentsWithChildren()) {
        if (tree.Kind(entry) != ConnectionKind || !tree.Expanded(entry) || tree.FindContinued(entry) != 0)
            continue;
        children += tree.ChildCount(entry);
        if (children > MaxChildren || m_expanded.size() == MaxOpened)
            return;
        m_expanded.push_back(tree.Text(entry));
    }
}

std::size_t TreePlace::Note(TreeEntries::Index entry)
{
    std::vector<Mark> marks;
    for (TreeEntries::Index at = m_tree.Exists(entry) ? entry : 0; at != 0; at = m_tree.Parent(at)) {
        marks.push_back(MarkOf(at));
        const TreeEntries::Index parent = m_tree.Parent(at);
        const int row = m_tree.ModelIndex(at).row();
        if (const TreeEntries::Index next = m_tree.NextSibling(at); next != 0 && parent != 0)
            marks.push_back(MarkOf(next));
        if (parent != 0 && row > 0)
            marks.push_back(MarkOf(m_tree.Child(parent, row - 1)));
    }
    m_noted.push_back(std::move(marks));
    return m_noted.size() - 1;
}

void TreePlace::OpenAgain(const Fill& fill) const
{
    for (const QString& name : m_expanded) {
        const TreeEntries::Index connection = FindConnection(name);
        if (connection != 0 && m_tree.ChildCount(connection) == 0)
            fill(connection);
    }
}

TreeEntries::Index TreePlace::Find(std::size_t noted) const
{
    for (const Mark& mark : m_noted.at(noted)) {
        if (const TreeEntries::Index found = FindMark(mark))
            return found;
    }
    return 0;
}

TreePlace::Mark TreePlace::MarkOf(TreeEntries::Index entry) const
{
    Mark mark{m_tree.Kind(entry), m_tree.Text(entry), QString(), m_tree.ModelIndex(entry).row()};
    if (mark.kind == WaypointKind)
        mark.connection = m_tree.Text(m_tree.Parent(entry));
    return mark;
}

TreeEntries::Index TreePlace::FindMark(const Mark& mark) const
{
    if (mark.kind == NodeKind)
        return m_tree.FindByText(mark.text, true);
    if (mark.kind == ConnectionKind)
        return FindConnection(mark.text);
    if (mark.kind == WaypointKind)
        return FindWaypoint(mark);
    return m_tree.FindByKey(RootKey);
}

TreeEntries::Index TreePlace::FindConnection(const QString& name) const
{
    TreeEntries::Index entry = 0;
    FindConnectionEntry(name, m_tree, entry);
    return entry;
}

TreeEntries::Index TreePlace::FindWaypoint(const Mark& mark) const
{
    const TreeEntries::Index connection = FindConnection(mark.connection);
    const TreeEntries::Index there = connection == 0 ? 0 : m_tree.Child(connection, mark.row);
    if (there != 0 && m_tree.Text(there) == mark.text)
        return there;
    for (auto entry = connection == 0 ? 0 : m_tree.Child(connection, 0); entry != 0;
         entry = m_tree.NextSibling(entry)) {
        if (m_tree.Kind(entry) == WaypointKind && m_tree.Text(entry) == mark.text)
            return entry;
    }
    return 0;
}
