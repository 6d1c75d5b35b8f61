#include "model/ConData.h"
#include "model/TextHelpers.h"

namespace {

qint32 RecordId(const TreeEntries& tree, TreeEntries::Index entry)
{
    return ValInt(GetItem(tree.Key(entry), 2, u','));
}

} // namespace

bool ConData::SetConDataFromNode(const TreeEntries& tree, TreeEntries::Index entry)
{
    Clear();
    ConDbID = RecordId(tree, entry);
    return SetParentConData(tree.Text(entry), false);
}

bool ConData::SetNodeDataFromNode(const TreeEntries& tree, TreeEntries::Index entry)
{
    Clear();
    NodeName = tree.Text(entry);
    NodeDbID = RecordId(tree, entry);
    return LoadStoredNode();
}
