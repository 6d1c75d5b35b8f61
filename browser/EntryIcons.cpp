#include "browser/EntryIcons.h"

#include "model/TreeEntries.h"

QIcon EntryIcons::operator()(const QModelIndex& index) const
{
    switch (index.data(TreeEntries::KindRole).toChar().unicode()) {
    case u'C':
        return connection;
    case u'W':
        return waypoint;
    case u'N':
        return node;
    default:
        return root;
    }
}
