#pragma once

#include "scan/network/FoundNodeSave.h"

#include <functional>
#include <vector>

class QWidget;

/// What the scan dialog hands over when all found nodes are to be saved.
struct SaveAllRequest
{
    /// The connection of the scan, which is in the database, and the one composed on the Direct tab.
    ConData& direct;
    ConData& newDirect;
    /// Rows of the results, in their order.
    std::vector<FoundNode> nodes;
    QString retries;
    QString timeOut;
    /// The row that is selected, and the way to select one, 0 for none.
    int selected = 0;
    std::function<void(int row)> SelectGridRow;
    QWidget* window = nullptr;
};

/// Takes the nodes into the save list and lets the operator name and save them. `direct` is afterwards as it
/// was, its manager included. False: the host has destroyed the window meanwhile.
bool SaveAllFound(const SaveAllRequest& request);
