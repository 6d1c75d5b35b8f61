#pragma once

#include "browser/LoadingProcedure.h"
#include "browser/NodeRows.h"

/// Loads nodes into the tree that Load() names, up to its limit, from the position that it holds.
///
/// Leaves the position and the limit of the next load in Load().
class NodesLoading : public LoadingProcedure
{
public:
    using LoadingProcedure::LoadingProcedure;

protected:
    LoadStep Step() override;

private:
    LoadStep Prepare();
    LoadStep ReadRows();
    LoadStep AddRows();
    LoadStep EndOfAnswer();
    LoadStep EndBehindLastRow();
    LoadStep End();

    enum class State
    {
        Start,
        Reading,
        Adding,
    };
    State m_state = State::Start;
    NodeRows m_rows;
    qint32 m_lastId = 0;
    int m_barMax = 0;
    int m_barValue = 0;
};
