#pragma once

#include <memory>

class DatabaseClass;

/// The module-level state of database access: one instance in the process, shared by all controls.
struct DatabaseState
{
    std::unique_ptr<DatabaseClass> DbObject;
    /// True while a session is considered open; it gates the operations on records.
    bool DatabaseOpen = false;
    bool ScanRight = false;
    bool EditRight = false;

    DatabaseState();
    ~DatabaseState();
};

/// The one instance.
DatabaseState& Database();
