#pragma once

#include <QString>
#include <QStringList>

#include <vector>

/// A table whose rows go over as they are when a database is copied. Every engine has it under the same
/// names.
struct CopiedTable
{
    QString name;
    /// The key comes first: rows are read in its order.
    QStringList columns;
    int keyColumns = 1;
    /// Condition for the rows that are copied; empty for all.
    QString filter;

    /// The statement that gives all rows to copy.
    [[nodiscard]] QString SelectText() const;
    /// The statement that stores so many rows at once.
    [[nodiscard]] QString InsertText(int rows) const;
    [[nodiscard]] QString CountText() const;
    [[nodiscard]] QString DeleteText() const;

private:
    [[nodiscard]] QString Where() const;
};

/// All of them; what another refers to comes before it.
///
/// Not among them: the maintenance lock, which is nothing of a copy, and what engines keep each in their own
/// way (see CopySide).
const std::vector<CopiedTable>& CopiedTables();
