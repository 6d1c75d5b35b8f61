#include "model/TreePatches.h"

class TreePatches::Recording
{
};

TreePatches::TreePatches(std::initializer_list<TreeEntries*>) {}

TreePatches::~TreePatches() = default;

void TreePatches::Keep() {}

void TreePatches::Undo() {}
