#include "model/TreePatches.h"

#include "model/TreeChanges.h"

TreePatches::TreePatches(std::initializer_list<TreeEntries*> trees)
{
    for (TreeEntries* tree : trees) {
        if (tree)
            m_changes.push_back(std::make_unique<TreeChanges>(*tree));
    }
}

TreePatches::~TreePatches()
{
    Undo();
}

void TreePatches::Keep()
{
    for (const std::unique_ptr<TreeChanges>& changes : m_changes)
        changes->Keep();
}

void TreePatches::Undo()
{
    for (const std::unique_ptr<TreeChanges>& changes : m_changes)
        changes->Undo();
}
