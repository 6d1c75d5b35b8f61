#pragma once

#include "model/ConData.h"

#include <memory>

/// Keeps a copy of a working copy for as long as it lives and puts it back, manager and target included.
class DirectObjectKeeper
{
public:
    /// `kept` holds the copy meanwhile and is empty afterwards; who empties it earlier keeps the changes.
    DirectObjectKeeper(ConData& direct, std::unique_ptr<ConData>& kept);
    ~DirectObjectKeeper();
    DirectObjectKeeper(const DirectObjectKeeper&) = delete;
    DirectObjectKeeper& operator=(const DirectObjectKeeper&) = delete;

private:
    ConData& m_direct;
    std::unique_ptr<ConData>& m_kept;
};
