#pragma once

#include "tests/database/SaveExpectations.h"

#include <memory>
#include <vector>

/// One kind of save, for the tests that let its calls fail.
struct SaveKind
{
    const char* name;
    void (*prepare)(SaveFixture& fixture);
    bool (*save)(SaveFixture& fixture);
    /// A save that fails keeps what it has written: a new record, without its manager.
    bool keepsFailedSave = false;

    static const std::vector<SaveKind>& All();
};

/// How a call fails, and what the operator answers when asked to try again.
struct FaultMode
{
    const char* name;
    quint32 number;
    bool goesOn;
    BoxAnswer retry;

    static const std::vector<FaultMode>& All();
};

/// One save whose k-th call fails, and what is wrong with its outcome.
class FaultRun
{
public:
    FaultRun(const SaveKind& kind, const FaultMode& mode);

    /// Calls of the save when nothing fails.
    [[nodiscard]] int CallCount() const { return m_callCount; }
    /// Empty: all is as it should be.
    QString ProblemWithCall(int k);

private:
    [[nodiscard]] std::unique_ptr<SaveFixture> Prepared() const;
    void TakeAnswers(SaveFixture& fixture);
    [[nodiscard]] QString Problem(SaveFixture& fixture, bool saved);
    [[nodiscard]] QString ProblemWithBoxes(const SaveFixture& fixture, bool saved) const;
    [[nodiscard]] QString ProblemWithLevels(SaveFixture& fixture) const;
    [[nodiscard]] QString ProblemAfterSuccess(const SaveFixture& fixture) const;
    [[nodiscard]] QString ProblemAfterFailure(const SaveFixture& fixture) const;
    [[nodiscard]] QString ProblemWithKeptFailure(const SaveFixture& fixture) const;

    const SaveKind& m_kind;
    const FaultMode& m_mode;
    int m_callCount = 0;
    QStringList m_recordsBefore;
    QStringList m_recordsAfter;
    QStringList m_recordsWithoutManager;
    QStringList m_flagsBefore;
    QStringList m_flagsAfter;
    QStringList m_treesBefore;
    QStringList m_contentsBefore;
    /// A box that only tells stood over an open transaction.
    bool m_toldTooEarly = false;
};
