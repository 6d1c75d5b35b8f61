#pragma once

#include "browser/LoadingProcedure.h"
#include "browser/NodeRows.h"

/// What the loads of nodes share: prepare, read an answer of the database, add its rows, read the next.
class RowsLoading : public LoadingProcedure
{
public:
    using LoadingProcedure::LoadingProcedure;

protected:
    enum class State
    {
        Start,
        Reading,
        Adding,
    };

    LoadStep Step() override;
    virtual LoadStep Prepare() = 0;
    virtual LoadStep ReadRows() = 0;
    virtual LoadStep AddRows() = 0;

    State m_state = State::Start;
    NodeRows m_rows;
    qint32 m_lastId = 0;
    int m_barMax = 0;
    int m_barValue = 0;
};
