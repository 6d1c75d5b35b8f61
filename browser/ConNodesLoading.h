#pragma once

#include "browser/LoadingProcedure.h"
#include "browser/NodeRows.h"

/// Loads the nodes of one connection, the entry that Load() names, until the end or until it is stopped.
///
/// A stop leaves the continuation mark on the last node added; a later load goes on behind it.
class ConNodesLoading : public LoadingProcedure
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
    LoadStep EndAtMark();
    LoadStep End();

    enum class State
    {
        Start,
        Reading,
        Adding,
    };
    State m_state = State::Start;
    NodeRows m_rows;
    QString m_conName;
    qint32 m_position = 0;
    qint32 m_lastId = 0;
    int m_barMax = 0;
    int m_barValue = 0;
};
