#pragma once

#include "database/DatabaseClass.h"

#include <QStringList>

#include <functional>
#include <vector>

/// How an operation of the gateway runs.
enum class Kind
{
    /// In a transaction, while a session is open.
    Session,
    /// In a transaction, also while the session is being opened.
    Journal,
    /// Directly.
    Direct,
    /// Directly, while a session is open.
    GatedDirect,
};

/// One operation with arguments, what it asks the component, and what comes back. Names in the arguments
/// have blanks around them, so that trimming shows.
struct Operation
{
    const char* name;
    Kind kind;
    /// Runs it; the outputs as texts.
    std::function<bool(DatabaseClass& db, QStringList& out)> run;
    QStringList calls;
    /// What the component answers to each call.
    std::vector<QStringList> answers;
    QStringList outputs;
};

/// Every operation that makes one unit of work; the saves make three.
const std::vector<Operation>& Operations();

bool RunsInTransaction(const Operation& operation);
