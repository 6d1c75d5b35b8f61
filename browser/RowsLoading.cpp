#include "browser/RowsLoading.h"

#include "browser/LoadState.h"
#include "database/DatabaseState.h"

LoadStep RowsLoading::Step()
{
    // The host may have freed the control's objects between two steps.
    if (!Database().DatabaseOpen || !Load().LoadTree)
        return LoadStep::Done;
    switch (m_state) {
    case State::Start:
        return Prepare();
    case State::Reading:
        return ReadRows();
    case State::Adding:
        break;
    }
    return AddRows();
}
