#pragma once

#include "model/ConData.h"
#include "tests/convergence/ChangeLog.h"

#include <QRandomGenerator>

/// New contents for records, chosen at random from few names, and their saves.
namespace RandomRecords {

[[nodiscard]] QString AnyConnectionName(QRandomGenerator& random);
[[nodiscard]] QString AnyNodeName(QRandomGenerator& random);

/// Saves what a working copy holds, a connection or a node, with another name or other values, and writes
/// what became of it. `conName`: the connection that a node moves to; empty: it stays.
void SaveConnectionOf(ConData& con, QRandomGenerator& random, LoggedChange& change);
void SaveNodeOf(ConData& con, const QString& conName, QRandomGenerator& random, LoggedChange& change);

/// The same, and removals, on trees of its own, as the command line program works.
void ChangeConnectionBeside(QRandomGenerator& random, LoggedChange& change);
void ChangeNodeBeside(QRandomGenerator& random, LoggedChange& change);

} // namespace RandomRecords
