#include "database/Gateway.h"

#include "database/DatabaseState.h"

DatabaseClass& Gateway()
{
    static DatabaseClass none;
    return Database().DbObject ? *Database().DbObject : none;
}
