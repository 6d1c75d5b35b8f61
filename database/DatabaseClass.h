#pragma once

#include "model/ModelDatabase.h"
#include "platform/HvxDatabase.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

/// The one gateway between the program and the database component.
///
/// Every operation gives True when it worked; no exception leaves the class. An operation in a transaction of
/// its own (kind T) tells the operator of failures at begin, commit and rollback and leaves no transaction
/// open; a direct read (kind D) fails silently. Operations on records fail silently while no session is open.
/// Thread: the one that made it. Each call blocks for its round trips to the database.
class DatabaseClass : public QObject, public ModelDatabase
{
    Q_OBJECT

public:
    /// Pointer values of SetMousePointer.
    static constexpr int BusyPointer = 11;
    static constexpr int NormalPointer = 1;

    explicit DatabaseClass(QObject* parent = nullptr);
    ~DatabaseClass() override;

    // Session ---------------------------------------------------------------------------------------------

    bool DbOpen = false;
    bool DbLoaded = false;

    /// Opens the session, trying for 30 s while the cause may pass. Tells the operator why it failed.
    bool OpenDb();
    /// Closes the component's database; DatabaseOpen stays as it was. False without a message on an error.
    bool CloseDb();

    // Transactions ----------------------------------------------------------------------------------------

    /// What a transaction is going to do.
    enum class TransactionUse
    {
        Reading,
        /// Who writes at the same time is met at the begin, not at the first write.
        Writing,
    };

    /// Asks the operator on a sharing conflict. False: no transaction, the caller tells.
    bool BeginTransactionDb(bool& transactionOpen, TransactionUse use = TransactionUse::Reading);
    /// The silent forms.
    bool BeginTransactionWithoutResumeDb(bool& transactionOpen);
    bool BeginTransactionDbRefresh(bool& transactionOpen);
    bool RollbackTransactionDb();
    /// Whoever began the innermost transaction gives it up although it could not be rolled back. It is,
    /// before anything else begins, commits or rolls back: nothing may be stored inside it.
    void LeaveTransaction() { ++m_leftTransactions; }
    /// False: `transactionOpen` keeps its value, so that the reporter can roll back.
    bool CommitTransactionDb(bool& transactionOpen);
    /// Rolls back and tells, by the error's number.
    void ReportDatabaseFailure(quint32 errorNumber, bool& transactionOpen);

    // Connections -----------------------------------------------------------------------------------------

    bool QueryParentsDb(QString& list);
    bool GetParentWPListDb(const QString& name, QString& list) override;
    bool GetParentNodesDb(const QString& name, QString& list) override;
    bool GetParentNodesExDb(const QString& name, QString& list, qint32& position);
    bool GetParentNodesCountDb(const QString& name, qint32& count);
    /// Where and how: HvxDatabase::FindWaypointsWithIdEx.
    bool FindWaypointsDb(const QString& searched, QString& list, qint32& position);
    bool GetParentDb(const QString& name, QString& target) override;
    bool GetParentIDDb(const QString& name, QString& id) override;
    bool ConNameExistDb(const QString& name, bool& exists);
    bool SaveParentDb(const QString& name, const QString& target);
    bool ReplaceParentNameDb(const QString& oldName, const QString& newName);
    bool ReplaceParentTargetDb(const QString& name, const QString& target);
    /// `name` is trimmed in place. The nodes go first.
    bool DeleteConnectionDb(QString& name);

    // Nodes -----------------------------------------------------------------------------------------------

    bool GetNodeCountDb(qint32& count);
    bool QueryNodesDb(const QString& filter1, const QString& filter2, QString& list, qint32& position);
    /// Where and how: HvxDatabase::FindNodesWithIdEx.
    bool FindNodesDb(const QString& searched, QString& list, qint32& position);
    bool GetNodeDb(const QString& nodeName, QString& conName, QString& target);
    bool GetNodeExDb(const QString& nodeName, QString& conName, QString& target, QString& nodeType,
                     QString& commandLine) override;
    bool GetNodeIDDb(const QString& name, QString& id);
    bool GetNodeNmaTagDb(const QString& name, QString& nodeType, QString& tail);
    bool NodeNameExistDb(const QString& name, bool& exists);
    bool SaveNodeDb(const QString& name, const QString& nodeType, const QString& target,
                    const QString& conName, const QString& commandTail);
    bool ReplaceNodeNameDb(const QString& oldName, const QString& newName);
    bool ReplaceNodeTargetDb(const QString& name, const QString& conName, const QString& target);
    bool DeleteNodeDb(const QString& name);
    bool DeleteNodeFromBrowserDb(const QString& name);

    // Definitions and targets -----------------------------------------------------------------------------

    bool GetConTypeListDb(QString& list) override;
    bool GetConTypeIdDb(const QString& shortName, QString& id) override;
    bool GetConTypeLongNameDb(const QString& shortName, QString& longName) override;
    bool GetConTypeShortNameDb(const QString& longName, QString& shortName) override;
    bool GetConTypeWpListDb(const QString& shortName, int mode, QString& list) override;
    bool AnalyzeConTypeDb(const QString& target, QString& result) override;
    bool GetNodeTypeListDb(QString& list);
    bool GetNodeTypeIdDb(const QString& shortName, QString& id) override;
    bool GetNodeTypeLongNameDb(const QString& shortName, QString& longName) override;
    bool GetNodeTypeShortNameDb(const QString& longName, QString& shortName) override;
    bool GetNodeTypeWpListDb(const QString& shortName, int mode, QString& list) override;
    bool AnalyzeNodeTypeDb(const QString& target, QString& result) override;
    bool GetWpLongNameDb(const QString& waypoint, QString& longName) override;
    bool GetWpParametersDb(const QString& waypoint, int mode, QString& list) override;
    bool GetWpParametersLongNamesDb(const QString& waypoint, int mode, QString& list) override;
    bool GetTargetItemListDb(const QString& target, QString& list) override;
    bool GetTargetWpListDb(const QString& conName, PairTable& waypoints, int& count) override;
    bool CheckTargetSyntaxDb(const QString& target, int flag, QString& reformatted, bool& valid) override;

    /// Properties of one parameter for the grid. `values`: two bounds, or the texts of a list.
    struct GridParameter
    {
        qint32 required = 1;
        qint32 flag2 = 0;
        QString text;
        qint32 kind = 1;
        qint32 textLength = 0;
        qint32 valueCount = 0;
        std::vector<QString> values;
    };
    bool GetGridParameterDataDb(const QString& waypoint, const QString& keyword, GridParameter& data);

    // Managers and rights ---------------------------------------------------------------------------------

    bool GetNMAInfoDb(const QString& name, QString& path, QString& commandText, QString& index);
    bool GetNMANamesDb(QString& list) override;
    bool UpdateNodeNmaidxDb(const QString& name, const QString& index);
    /// Sets ScanRight and EditRight; both False on an error.
    bool SetUserSecurityDb();

    // Journal ---------------------------------------------------------------------------------------------

    bool GetJournalLastIdDb(qint32& id);
    bool GetJournalChangesAfterIdDb(qint32 afterId, QString& list);
    bool GetJournalRecordByIdDb(qint32 id, qint32& recordType, QString& text1, qint32& number,
                                QString& text2);
    bool JournalClearByDayLimitDb(qint32 dayLimit, qint32 daysToKeep);
    bool JournalClearByRecordLimitDb(qint32 recordLimit, qint32 recordsToKeep);

Q_SIGNALS:
    /// BusyPointer while a transaction is open, NormalPointer when it ends.
    void SetMousePointer(int pointer);

private:
    /// What an operation does with the component.
    using Work = std::function<void(HvxDatabase& component)>;
    /// How the attempts to open the database stand.
    struct OpenAttempt
    {
        bool stopTrying = false;
        /// The source was opened, but another application holds the database.
        bool inUse = false;
    };

    /// Raises ComponentError while there is none.
    HvxDatabase& Component();

    bool TryOpenDatabase(OpenAttempt& attempt);
    bool TryUntilOpen(OpenAttempt& attempt);
    void CheckBusyDatabase();
    void RequireFormat();

    /// The error's number when the begin failed (0 for an error without one), else nothing.
    std::optional<quint32> BeginFailure(bool& transactionOpen, TransactionUse use);
    bool BeginSilently(bool& transactionOpen);
    /// Raises while one of them still cannot be.
    void RollBackLeftTransactions();

    /// In a transaction of its own.
    bool RunInTransaction(const Work& work, const QString& commitFailure,
                          TransactionUse use = TransactionUse::Reading);
    bool RunInTransaction(const Work& work, TransactionUse use = TransactionUse::Reading);
    /// The same, but only while a session is open.
    bool RunInSession(const Work& work, TransactionUse use = TransactionUse::Reading);
    bool RunWriteInSession(const Work& work) { return RunInSession(work, TransactionUse::Writing); }
    /// Without a transaction and without a word.
    bool RunDirect(const Work& work);

    /// Saves a record between two readings of its users text, in three transactions.
    bool SaveWithUsersList(const QString& name, const QString& kind, const Work& save);

    std::shared_ptr<HvxDatabase> m_component;
    int m_leftTransactions = 0;
    /// Users text of the record that is being saved.
    QString m_usersList;
};
