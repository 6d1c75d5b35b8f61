#pragma once

#include <QString>

/// Where a load shows how far it is.
class LoadDisplay
{
public:
    virtual ~LoadDisplay() = default;
    virtual void ShowLabel(const QString& text) = 0;
    virtual void ShowRange(int low, int high) = 0;
    virtual void ShowValue(int value) = 0;
};

/// What is to be done after a step of a load.
enum class LoadStep
{
    /// Let events run, then the next step.
    More,
    /// The load has ended; its form unloads.
    Done,
    /// The load was given up; its form stays until the operator closes it.
    GivenUp,
};

/// A load in steps, between which events run. It opens no window but message boxes.
///
/// No transaction is open between two steps. Thread: the control's; a step blocks for at most one answer of
/// the database or for the rows that go in at once.
class LoadingProcedure
{
public:
    explicit LoadingProcedure(LoadDisplay& display) : m_display(display) {}
    virtual ~LoadingProcedure() = default;
    LoadingProcedure(const LoadingProcedure&) = delete;
    LoadingProcedure& operator=(const LoadingProcedure&) = delete;

    /// Runs one step. An error ends the load: what was begun is rolled back and the operator is told, as far
    /// as he has not been.
    LoadStep Next();
    /// Ends the load behind the rows that are in.
    void Stop() { m_stopped = true; }

protected:
    virtual LoadStep Step() = 0;

    [[nodiscard]] LoadDisplay& Display() { return m_display; }
    [[nodiscard]] bool Stopped() const { return m_stopped; }

    /// Tells the operator on a failure; then the load is to be given up.
    bool BeginTransaction();
    /// Tells the operator and raises DatabaseFailure.
    void CommitTransaction();
    /// Tells the operator and raises DatabaseFailure.
    [[noreturn]] void FailLoading();

private:
    LoadStep ReportFailure(quint32 errorNumber);

    LoadDisplay& m_display;
    bool m_stopped = false;
    bool m_transactionOpen = false;
};
