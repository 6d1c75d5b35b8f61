#pragma once

#include "tests/components/PlainSql.h"

#include <algorithm>

/// What both trees of a control must show, read from the tables with plain SQL.
class StoredTrees
{
public:
    explicit StoredTrees(const QString& source) : m_sql(source) {}

    /// The lines of ShownTrees; what `shown` has closed is closed.
    [[nodiscard]] QStringList Lines(const QStringList& shown) const
    {
        const QString all = QStringLiteral("SELECT id || '|' || name FROM ");
        const bool showsWaypoints = std::any_of(shown.begin(), shown.end(),
                                                [](const QString& line) { return line.startsWith(u"W "); });
        QStringList lines{QStringLiteral("R 0 Connections")};
        const QStringList connections = SortedLines(u'C', m_sql.Rows(all + QStringLiteral("connection")));
        for (const QString& connection : connections) {
            const QString closed = connection + QStringLiteral(" (closed)");
            const bool isClosed = shown.contains(closed);
            lines << (isClosed ? closed : connection);
            if (!isClosed)
                lines << Below(connection.section(u' ', 1, 1), showsWaypoints);
        }
        return lines << QStringLiteral("R 0 Nodes")
                     << SortedLines(u'N', m_sql.Rows(all + QStringLiteral("node")));
    }

    /// What one of them has and the other has not; empty when they are equal.
    [[nodiscard]] QString Difference(const QStringList& shown) const
    {
        const QStringList expected = Lines(shown);
        if (shown == expected)
            return {};
        QStringList lines;
        for (const QString& line : expected) {
            if (!shown.contains(line))
                lines << QStringLiteral("Not shown: ") + line;
        }
        for (const QString& line : shown) {
            if (!expected.contains(line))
                lines << QStringLiteral("Shown, but not there: ") + line;
        }
        return lines.isEmpty() ? QStringLiteral("Another order or number:\n") + shown.join(u'\n')
                               : lines.join(u'\n');
    }

private:
    static bool StandsBefore(const QString& one, const QString& other)
    {
        const int order = QString::compare(one, other, Qt::CaseInsensitive);
        return order != 0 ? order < 0 : one < other;
    }

    /// Rows "id|name" as lines "<kind> id name" in the order of names.
    static QStringList SortedLines(QChar kind, QStringList rows)
    {
        std::sort(rows.begin(), rows.end(), [](const QString& one, const QString& other) {
            return StandsBefore(one.section(u'|', 1), other.section(u'|', 1));
        });
        for (QString& row : rows)
            row = kind + QStringLiteral(" ") + row.section(u'|', 0, 0) + u' ' + row.section(u'|', 1);
        return rows;
    }

    [[nodiscard]] QStringList Below(const QString& conId, bool showsWaypoints) const
    {
        if (!showsWaypoints) {
            return SortedLines(u'N', m_sql.Rows(QStringLiteral("SELECT id || '|' || name FROM node WHERE"
                                                               " connection_key = (SELECT row_key FROM"
                                                               " connection WHERE id = %1)")
                                                    .arg(conId)));
        }
        QStringList lines;
        const QString target =
            m_sql.Run(QStringLiteral("SELECT target FROM connection WHERE id = %1").arg(conId)).toString();
        const QStringList items = target.split(u',');
        for (const QString& item : items) {
            if (item.startsWith(u"WP=")) {
                lines << QStringLiteral("W ") +
                             m_sql
                                 .Run(QStringLiteral("SELECT long_name FROM waypoint WHERE name = '%1'")
                                          .arg(item.mid(3)))
                                 .toString();
            }
        }
        return lines;
    }

    PlainSql m_sql;
};
