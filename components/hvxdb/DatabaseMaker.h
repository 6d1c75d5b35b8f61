#pragma once

#include "components/hvxdb/SqlSession.h"

#include <functional>

/// Makes a SQLite database: whole or not at all.
///
/// The file is built under another name in the same folder and takes its place when it is complete. What
/// stood there is kept beside it under a name with the time. Failures: ComponentError.
class DatabaseMaker
{
public:
    /// Writes the contents into the new database, which has all objects and its first rows, within the
    /// transaction that makes it.
    using Filler = std::function<void(SqlSession& session)>;

    explicit DatabaseMaker(const QString& source);

    /// Gives the name under which the old file was kept; empty when there was none. Refuses an existing file
    /// unless `force`. What `fill` raises leaves nothing behind.
    QString Make(const Filler& fill, bool force);

private:
    void Build(const Filler& fill);
    [[nodiscard]] QString KeepOld() const;
    void TakePlace(const QString& kept) const;

    QString m_source;
    QString m_built;
};
