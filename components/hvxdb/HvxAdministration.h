#pragma once

#include "components/hvxdb/Catalogue.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

/// What administrators do with a database beyond the component's own methods: make, fill, check, rights,
/// managers. All procedures raise ComponentError with the component's numbers.

/// A connection as it is stored.
struct ConnectionRecord
{
    qint32 id = 0;
    QString name;
    QString target;
};

/// A node as it is stored.
struct NodeRecord
{
    qint32 id = 0;
    QString name;
    QString conName;
    /// Device name: the key of its manager; may be empty.
    QString nodeType;
    QString target;
    /// Index of its manager; empty when none was chosen.
    QString managerIndex;
    QString commandTail;
};

/// A node manager.
struct ManagerRecord
{
    QString index;
    QString device;
    QString path;
    QString commandText;
};

/// A record of the Journal as it is stored.
struct JournalEntry
{
    qint32 id = 0;
    /// 20 node deleted, 21 connection deleted, 30 node new, 31 connection new, 40 node changed, 41 connection
    /// changed.
    qint32 recordType = 0;
    /// Of the node or connection.
    QString name;
    qint32 recordId = 0;
    /// Seconds since 1970.
    qint64 changed = 0;
};

/// Records of the Journal, and where it begins and ends. Record 1, the version text, is no change and is
/// never among them.
struct JournalPart
{
    std::vector<JournalEntry> entries;
    /// 0 when there is no record.
    qint32 oldestId = 0;
    qint32 lastId = 0;
};

/// The database that this workstation uses: `chosen` if not empty, else the environment variable
/// ZELKA_DBS32, else the named value ODBC/DBS32, else the file Dbs.mdb in the user's data folder.
QString DataSource(const QString& chosen = QString());

/// True for the URL of a server's database, false for a file.
bool IsServerSource(const QString& source);

/// The source as it may be shown and kept: the password in a URL is masked.
QString ShownSource(const QString& source);

/// Chooses the source for the components that this process creates from now on.
void SetDataSource(const QString& source);

/// Adds the factory of the database component to the program.
void RegisterHvxDatabase();

/// Makes a database with these definitions and the creator's rights. Refuses (SourceMissing is never raised
/// here) an existing file unless `force`, which keeps the old one beside it. Gives the kept file's name,
/// empty when there was none.
QString CreateHvxDatabase(const QString& source, const Catalogue& catalogue, bool force);

/// Asked now and then how a copy stands: rows done, rows in all. False gives the copy up.
using CopyProgress = std::function<bool(qint64 done, qint64 total)>;

/// What a copy made.
struct DatabaseCopyReport
{
    qint64 connections = 0;
    qint64 nodes = 0;
    /// The name under which the old target was kept; empty when there was none.
    QString kept;
    /// One text for each thing that the target could not take over.
    QStringList remarks;
};

/// Copies a database as it is to a new one, of another engine too: records, ids, Journal, definitions,
/// managers, users texts, rights. Refuses an existing target unless `force`, which keeps the old one, and a
/// copy onto itself. What fails or is given up leaves nothing behind.
DatabaseCopyReport CopyHvxDatabase(const QString& from, const QString& to, bool force,
                                   const CopyProgress& goOn);

/// Writes many records in one transaction; nothing is there until Commit. Needs the edit right.
class HvxBulkWriter
{
public:
    virtual ~HvxBulkWriter() = default;
    virtual void AddConnection(const QString& name, const QString& target) = 0;
    virtual void AddNode(const NodeRecord& node) = 0;
    /// Gives the record of that name new contents (the name's case included).
    virtual void UpdateConnection(const QString& name, const QString& target) = 0;
    virtual void UpdateNode(const NodeRecord& node) = 0;
    virtual void Commit() = 0;
};

/// An opened database.
class HvxAdministration
{
public:
    static std::unique_ptr<HvxAdministration> Open(const QString& source);
    virtual ~HvxAdministration() = default;

    [[nodiscard]] virtual const Catalogue& CatalogueData() const = 0;
    /// In the order of ids. `under`: only nodes of that connection; empty: all.
    virtual void ForEachConnection(const std::function<void(const ConnectionRecord&)>& take) = 0;
    virtual void ForEachNode(const QString& under, const std::function<void(const NodeRecord&)>& take) = 0;
    [[nodiscard]] virtual std::unique_ptr<HvxBulkWriter> BeginBulkWrite() = 0;

    [[nodiscard]] virtual std::vector<ManagerRecord> Managers() = 0;
    /// Gives the new index. Refuses a device that has a manager.
    virtual QString AddManager(const QString& device, const QString& path, const QString& commandText) = 0;
    /// Refuses an unknown device.
    virtual void RemoveManager(const QString& device) = 0;

    /// At most `most` records behind `afterId`, in the order of ids.
    [[nodiscard]] virtual JournalPart JournalAfter(qint32 afterId, qint32 most) = 0;
    /// The id behind which the newest `count` records stand; 0 when there are no more than that.
    [[nodiscard]] virtual qint32 JournalIdBefore(qint32 count) = 0;

    /// Rights of a user ("*": everyone without rights of his own).
    virtual void SetRights(const QString& user, bool scan, bool edit) = 0;

    /// Schema, references, names, Journal; one text per problem, empty when all is well.
    [[nodiscard]] virtual QStringList Check() = 0;

    /// Takes the maintenance lock for the time that the object lives; raises InUse when another has it.
    [[nodiscard]] virtual std::unique_ptr<QObject> LockForMaintenance() = 0;
};

/// Compares names: trimmed, without case.
QString FoldedName(const QString& name);
