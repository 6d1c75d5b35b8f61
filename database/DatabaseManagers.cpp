#include "database/DatabaseClass.h"
#include "database/DatabaseState.h"

bool DatabaseClass::GetNMAInfoDb(const QString& name, QString& path, QString& commandText, QString& index)
{
    return Database().DatabaseOpen &&
           RunInTransaction(
               [&](HvxDatabase& component) { component.GetNMAInfo(name, path, commandText, index); },
               tr("GetNMAInfoDb,failure to commit database operations."));
}

bool DatabaseClass::GetNMANamesDb(QString& list)
{
    return RunInSession([&](HvxDatabase& component) { component.GetNMANames(list); });
}

bool DatabaseClass::UpdateNodeNmaidxDb(const QString& name, const QString& index)
{
    return RunWriteInSession([&](HvxDatabase& component) { component.UpdateNodeNmaidx(name, index); });
}

bool DatabaseClass::SetUserSecurityDb()
{
    Database().ScanRight = false;
    Database().EditRight = false;
    return RunDirect([](HvxDatabase& component) {
        qint32 scan = 0;
        qint32 edit = 0;
        component.GetSecRights(scan, edit);
        Database().ScanRight = scan != 0;
        Database().EditRight = edit != 0;
    });
}
