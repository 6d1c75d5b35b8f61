#include "database/DatabaseState.h"

#include "database/DatabaseClass.h"

DatabaseState::DatabaseState() = default;
DatabaseState::~DatabaseState() = default;

DatabaseState& Database()
{
    static DatabaseState state;
    return state;
}
