#pragma once

#include "model/ConData.h"
#include "model/ConOrderClass.h"
#include "model/ModelDatabase.h"

#include <array>
#include <functional>
#include <memory>

/// The module-level state of the connection model: one instance in the process, shared by all controls.
struct ModelState
{
    /// Working copy of the Database tab and of the current selection.
    std::unique_ptr<ConData> ConObject;
    /// The connection chosen on the Direct tab, the one defined only there, and its copy during a scan.
    std::unique_ptr<ConData> DirectObject;
    std::unique_ptr<ConData> NewDirectObject;
    std::unique_ptr<ConData> SavedDirectObject;
    std::unique_ptr<ConData> ScanDirectObject;
    std::unique_ptr<ConOrderClass> ConOrderObject;
    /// The open gateway; not owned. Null: every look-up fails.
    ModelDatabase* Database = nullptr;
    /// Selects an entry in the view that shows the tree, as the control offers it; empty without one.
    std::function<void(TreeEntries& tree, TreeEntries::Index entry)> SelectTreeEntry;
    /// Long names of the parameters TIME and RETRY, which hold for a whole connection.
    std::array<QString, 2> TimeRetryNames;
};

/// The one instance.
ModelState& Model();

/// Model().Database, or a stand-in whose every operation fails while there is none. Ask anew for each call: a
/// box that an operation shows lets the host close the database.
ModelDatabase& LookupDatabase();
