#include "browser/RowsLoading.h"

#include "browser/LoadState.h"
#include "database/DatabaseState.h"

#include <QScopeGuard>

LoadStep RowsLoading::Step()
{
    // The host may have freed the control's objects between two steps.
    if (!Database().DatabaseOpen || !Load().LoadTree)
        return LoadStep::Done;
    // A load that fails leaves the order to what the Journal adds later.
    auto sort = qScopeGuard([] {
        const LoadState& load = Load();
        if (load.LoadTree && load.LoadTree->Exists(load.LoadParentNode))
            load.LoadTree->SetSorted(load.LoadParentNode, true);
    });
    const LoadStep step = StepOfState();
    if (step != LoadStep::GivenUp)
        sort.dismiss();
    return step;
}

LoadStep RowsLoading::StepOfState()
{
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
