#pragma once

#include "scan/network/FoundNodeSave.h"

#include <functional>

/// What the scan dialog hands over when one found node is to be saved.
struct SaveOneRequest
{
    /// The connection of the scan, which is in the database.
    ConData& direct;
    FoundNode node;
    QString retries;
    QString timeOut;
    /// Shows the dialog that saves the node of `direct`. False: the host has destroyed the window meanwhile.
    std::function<bool()> ShowDialog;
};

/// Hands a found node to the dialog that saves it. `direct` is afterwards as it was. False: the window is
/// gone.
bool SaveOneFound(const SaveOneRequest& request);
