#include "database/DatabaseError.h"

#include "platform/ComponentError.h"

quint32 CurrentErrorNumber()
{
    try {
        throw;
    } catch (const DatabaseFailure& failure) {
        return failure.Number();
    } catch (const ComponentError& error) {
        return error.Number();
    } catch (...) {
        return 0;
    }
}
