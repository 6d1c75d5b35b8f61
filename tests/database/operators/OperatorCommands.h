#pragma once

#include <QString>

#include <functional>
#include <vector>

class OperatorSession;

/// What an operator does, from the choice of an entry to the end of the save.
struct OperatorCommand
{
    QString name;
    /// False: refused, and the operator was told why.
    std::function<bool(OperatorSession& session)> run;
    /// The operator means to replace the record that has the name.
    bool replaces = false;
};

/// Edits, renames, retypes, removals and additions of the records of the tests' database.
[[nodiscard]] std::vector<OperatorCommand> OperatorCommands();
