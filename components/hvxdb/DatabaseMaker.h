#pragma once

#include "components/hvxdb/DatabaseFiller.h"

#include <QString>

/// Makes a SQLite database: whole or not at all.
///
/// The file is built under another name in the same folder and takes its place when it is complete. What
/// stood there is kept beside it under a name with the time. Failures: ComponentError.
class DatabaseMaker
{
public:
    explicit DatabaseMaker(const QString& source);

    /// Gives the name under which the old file was kept; empty when there was none. Refuses an existing file
    /// unless `force`. What `fill` raises leaves nothing behind.
    QString Make(const DatabaseFiller& fill, bool force);

private:
    void Build(const DatabaseFiller& fill);
    [[nodiscard]] QString KeepOld() const;
    void TakePlace(const QString& kept) const;

    QString m_source;
    QString m_built;
};

/// Makes a database of the engine that the source is of, as its maker does. Raises ComponentError.
QString MakeDatabase(const QString& source, const DatabaseFiller& fill, bool force);
