#pragma once

#include "browser/RowsLoading.h"

/// Loads nodes into the tree that Load() names, up to its limit, from the position that it holds.
///
/// Leaves the position and the limit of the next load in Load().
class NodesLoading : public RowsLoading
{
public:
    using RowsLoading::RowsLoading;

protected:
    LoadStep Prepare() override;
    LoadStep ReadRows() override;
    LoadStep AddRows() override;

private:
    /// Clears the tree and adds its root when a load wants that.
    void BeginEntries();
    LoadStep EndOfAnswer();
    LoadStep EndBehindLastRow();
    LoadStep End();

    /// The entries before the load still stand.
    bool m_replaces = false;
};
