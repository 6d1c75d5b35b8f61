#include "TreeSnapshot.h"

#include <QTextStream>

namespace {

void AddEntry(const TreeEntries& entries, TreeEntries::Index entry, QStringList& lines)
{
    QString line;
    QTextStream stream(&line);
    stream << entry << '|' << entries.Key(entry) << '|' << entries.Text(entry) << '|' << entries.Tag(entry)
           << "|below " << entries.Parent(entry) << (entries.Expanded(entry) ? "|expanded" : "")
           << (entries.Sorted(entry) ? "|sorted" : "") << "|row " << entries.ModelIndex(entry).row() << '/'
           << entries.VisibleRowOf(entries.ModelIndex(entry)) << "|next " << entries.NextSibling(entry)
           << "|continued " << entries.FindContinued(entry) << "|by key "
           << entries.FindByKey(entries.Key(entry)) << "|by text "
           << entries.FindByText(entries.Text(entry), true) << ','
           << entries.FindByText(entries.Text(entry), false) << "|children";
    for (int row = 0; row < entries.ChildCount(entry); ++row)
        stream << ' ' << entries.Child(entry, row);
    if (entry != 0)
        lines << line;
    for (int row = 0; row < entries.ChildCount(entry); ++row)
        AddEntry(entries, entries.Child(entry, row), lines);
}

} // namespace

QStringList TreeSnapshot(const TreeEntries& entries)
{
    QStringList lines;
    AddEntry(entries, 0, lines);
    QString line =
        QStringLiteral("%1 entries, sorted %2, parents").arg(entries.Count()).arg(entries.Sorted(0));
    for (const TreeEntries::Index parent : entries.ParentsWithChildren())
        line += u' ' + QString::number(parent);
    lines << line;
    line = QStringLiteral("shown");
    for (int row = 0; row < entries.VisibleRowCount(); ++row)
        line += u' ' + QString::number(TreeEntries::EntryOf(entries.IndexAtVisibleRow(row)));
    return lines << line;
}
