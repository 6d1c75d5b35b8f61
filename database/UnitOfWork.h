#pragma once

#include "database/DatabaseClass.h"
#include "model/TreePatches.h"
#include "platform/MsgBox.h"

#include <QPointer>
#include <QString>

#include <functional>
#include <initializer_list>
#include <memory>
#include <vector>

/// One transaction of a command or of a dialog's save, together with what it does to the trees.
///
/// Run performs `work` and is False when it did not come to its end: a failure has then been told and rolled
/// back, the trees are as they were. Boxes that only tell something wait until the transaction has ended, so
/// that the database is not held while the operator reads; one that asks may only be shown after Rollback.
/// Thread: the control's.
class UnitOfWork
{
public:
    /// Trees that the work may patch while its transaction is open; null ones are left out.
    explicit UnitOfWork(std::initializer_list<TreeEntries*> trees)
        : UnitOfWork(std::vector<TreeEntries*>(trees))
    {}
    explicit UnitOfWork(const std::vector<TreeEntries*>& trees);
    ~UnitOfWork();
    UnitOfWork(const UnitOfWork&) = delete;
    UnitOfWork& operator=(const UnitOfWork&) = delete;

    /// `work` uses the procedures below and returns when all is done, which includes its Commit.
    bool Run(const std::function<void(UnitOfWork& unit)>& work);

    /// Begins the transaction. Refused: the operator is told, and the work ends. It ends as well, without a
    /// word, when the host has destroyed one of the trees under a box.
    void Begin(DatabaseClass::TransactionUse use = DatabaseClass::TransactionUse::Writing);
    /// The same where nobody asked for the work: one that is refused ends without a word.
    void BeginQuietly();
    /// Commits and keeps the trees' patches. A failure is told, and the work ends.
    void Commit();
    /// Commits whatever was done, without a word of a failure, before the work is given up; the trees are as
    /// they were, so that the next refresh shows it whole.
    void CommitBeforeRefusal();
    /// Rolls back and undoes the trees' patches. False: the database could not, so the transaction is open
    /// still.
    bool Rollback();
    /// The same before a question: what ends the work under it, or behind it and before the next Begin, has
    /// nothing to roll back.
    bool RollbackForGood();

    /// Rolls back, shows the box and ends the work.
    [[noreturn]] void Refuse(const QString& text, int flags = BoxFlags::Plain,
                             const QString& title = QString());
    /// The same without a rollback of its own, for what has been rolled back or committed.
    [[noreturn]] static void RefuseEnded(const QString& text);
    /// Ends the work; the operator has been told.
    [[noreturn]] static void GiveUp();
    /// Ends the work with the report that a database operation failed.
    [[noreturn]] static void Fail();

private:
    void RequireTrees() const;
    void NotePatches();
    void KeepPatches();
    void UndoPatches();

    bool m_transactionOpen = false;
    std::vector<QPointer<TreeEntries>> m_trees;
    /// Of each tree, while the transaction is open.
    std::vector<std::unique_ptr<TreePatches>> m_patches;
};
