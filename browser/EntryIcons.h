#pragma once

#include <QIcon>

class QModelIndex;

/// Icons of the entries of a tree, by kind (TreeEntries::KindRole).
struct EntryIcons
{
    QIcon root{QStringLiteral(":/zelka/pictures/root.svg")};
    QIcon connection{QStringLiteral(":/zelka/pictures/connection.svg")};
    QIcon waypoint{QStringLiteral(":/zelka/pictures/waypoint.svg")};
    QIcon node{QStringLiteral(":/zelka/pictures/node.svg")};

    QIcon operator()(const QModelIndex& index) const;
};
