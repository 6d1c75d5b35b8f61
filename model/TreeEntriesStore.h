#pragma once

#include "model/TreeEntries.h"
#include "model/TreeSiblings.h"
#include "model/TreeStore.h"

/// What Clear begins anew.
class TreeEntries::Store
{
public:
    Store() : siblings(entries) {}

    TreeStore entries;
    TreeSiblings siblings;
};
