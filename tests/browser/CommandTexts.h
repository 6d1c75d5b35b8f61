#pragma once

#include <QString>
#include <QStringList>

/// What an operator may be told while a command runs and the database fails.
namespace CommandTexts {

inline QString InUse()
{
    return QStringLiteral("Database is in use by another application, do you want to try again ?");
}

inline QString Changed(const char* record)
{
    return QString::fromLatin1(record) +
           QStringLiteral(" cannot be accessed, because another application has changed it. Automatic update "
                          "follows, try again.");
}

/// That of the connection of the Direct page.
inline QString ChangedTwiceTold(const char* record)
{
    return Changed(record) + QStringLiteral(" Automatic update follows, try again.");
}

inline QString Prevented(const char* kind)
{
    return QStringLiteral("Save is prevented, because another application has changed this %1. Close dialog "
                          "and try again.")
        .arg(QString::fromLatin1(kind));
}

/// Those of the database session and of the loads.
inline QStringList OfTheDatabase()
{
    return {
        InUse(),
        QStringLiteral("Database access is denied, because another application is using it."),
        QStringLiteral("Failure to commit database operations."),
        QStringLiteral("GetNMAInfoDb,failure to commit database operations."),
        QStringLiteral("Unknown error in access to database."),
        QStringLiteral("Failure in database operation. All modifications rolled back successfully."),
        QStringLiteral("Failure in a database operation and database also failed to roll back its changes. "
                       "Warning, database may be corrupted."),
        QStringLiteral("Failure to roll back database changes. Warning, database may be corrupted."),
        QStringLiteral("Database loading failure."),
        QStringLiteral("Journal table access failure."),
    };
}

/// Those of the refresh behind a command.
inline QStringList OfTheRefresh()
{
    return {
        QStringLiteral("Error in access to Journal table."),
        QStringLiteral("Browser refresh error, incorrect value as reference to Journal table."),
        QStringLiteral("Error in Journal table cleaning, in database method JournalClearByRecordLimit."),
    };
}

/// Those of the commands and of the manager's start.
inline QStringList OfTheCommands()
{
    return {
        QStringLiteral("Do you want to remove Node North from database ?"),
        QStringLiteral("Do you want to remove Connection Alpha and all its nodes from database ?"),
        QStringLiteral("Failure in removing Node North."),
        QStringLiteral("Failure in removing Connection Alpha."),
        QStringLiteral("Failure to get connection data from database."),
        QStringLiteral("Failure to get node data from database."),
        QStringLiteral("Missing Device Name, manager cannot be launched."),
        QStringLiteral("Device Name DEV1 not found, manager cannot be launched."),
        Changed("Connection Alpha"),
        Changed("Node North"),
    };
}

/// Those of the dialogs and of the saves.
inline QStringList OfTheDialogs()
{
    return {
        QStringLiteral("Nodes count for connection Alphafailed. Close the dialog and try again. "),
        QStringLiteral("Database is empty. In addition, before a node can be defined there must be at least "
                       "one connection in the database."),
        QStringLiteral("No saving, because of an error in waypoint parameters or mandatory waypoint is "
                       "missing all its parameters."),
        QStringLiteral("Failure in database search."),
        QStringLiteral("Error in connection database saving."),
        QStringLiteral("Error: Database search error."),
        QStringLiteral("Database error, failure in SaveParent."),
        QStringLiteral("Database error, Connection ID missing."),
        QStringLiteral("Database error, Node ID missing."),
        QStringLiteral("Manager index doesn't exist."),
        QStringLiteral("Connection Delta already exists. Give a new name."),
        QStringLiteral("Node Nearby exists in database. Do you want to replace it ?"),
        QStringLiteral("Failure in removing Node West."),
        QStringLiteral("Node North not found from database."),
        QStringLiteral("Failure in saving node North into database."),
        QStringLiteral("Error: Unknown node type."),
        Prevented("connection"),
        Prevented("node"),
    };
}

inline const QStringList& Told()
{
    static const QStringList texts = OfTheDatabase() + OfTheRefresh() + OfTheCommands() + OfTheDialogs();
    return texts;
}

} // namespace CommandTexts
