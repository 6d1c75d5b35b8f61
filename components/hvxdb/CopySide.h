#pragma once

#include <QString>
#include <QStringList>

#include <vector>

class SqlSession;

/// The counters of a database, which are ahead of its rows when the last rows were removed.
struct DatabaseCounters
{
    /// The last id that a connection or a node was given.
    qint64 recordId = 0;
    /// The last index that a manager was given.
    qint64 managerIndex = 0;
};

/// The rights of one user as they are stored.
struct StoredRights
{
    /// Login name; "*" is everyone without rights of his own.
    QString user;
    bool mayScan = false;
    bool mayEdit = false;
};

/// One of the two databases of a copy: what engines do differently when rows go over as they are.
///
/// Works on an open transaction of a session that outlives it. Failures: ComponentError.
class CopySide
{
public:
    CopySide() = default;
    virtual ~CopySide() = default;
    CopySide(const CopySide&) = delete;
    CopySide& operator=(const CopySide&) = delete;

    /// True when the source is the database of this session, by whatever path or name.
    [[nodiscard]] virtual bool IsAt(const QString& source) = 0;

    /// Keeps the triggers of a new database still, so that ids, keys and Journal stay as they are written.
    virtual void BeginRows() = 0;
    /// Ends that: from here on the database lives.
    virtual void EndRows() = 0;

    [[nodiscard]] virtual DatabaseCounters Counters() = 0;
    /// Where rows are ahead of a counter, the next number comes behind the rows.
    virtual void SetCounters(const DatabaseCounters& counters) = 0;

    [[nodiscard]] virtual std::vector<StoredRights> Rights() = 0;
    /// Replaces all rights; gives one text for each that this database cannot keep.
    [[nodiscard]] virtual QStringList SetRights(const std::vector<StoredRights>& rights) = 0;
};
