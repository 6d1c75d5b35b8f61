#pragma once

#include "browser/LoadingProcedure.h"

#include <initializer_list>

/// Opens the database at a control's start and reads what the loading of the nodes needs: rights, connection
/// types, position in the Journal, number of nodes. Leaves Load() set for the first load of the node tree.
///
/// Without a database it comes to its end too; DatabaseOpen tells.
class SessionOpening : public LoadingProcedure
{
public:
    using LoadingProcedure::LoadingProcedure;

protected:
    LoadStep Step() override;

private:
    void ShowValues(std::initializer_list<int> values);
    void CreateGateway();
    void OpenSession();
    void ReadRights();
    void ReadConnectionTypes();
    void ReadJournalPosition();
    void CountNodes();
    void SetLoadState();

    int m_step = 0;
};
