#pragma once

#include "browser/RowsLoading.h"

/// Loads the nodes of one connection, the entry that Load() names, until the end or until it is stopped.
///
/// A stop leaves the continuation mark on the last node added; a later load goes on behind it.
class ConNodesLoading : public RowsLoading
{
public:
    using RowsLoading::RowsLoading;

protected:
    LoadStep Prepare() override;
    LoadStep ReadRows() override;
    LoadStep AddRows() override;

private:
    LoadStep EndOfAnswer();
    LoadStep EndAtMark();
    LoadStep End();

    QString m_conName;
    qint32 m_position = 0;
};
