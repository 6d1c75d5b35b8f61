#pragma once

#include "platform/HvxDatabase.h"
#include "tests/support/TinyDatabase.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

/// The database component of a test: records each call, answers as the test says, fails when the test says,
/// and answers everything else from a tiny working database.
///
/// Registered as the component as long as it lives; components that were created from it must not be called
/// afterwards. A call is written "Method(argument,argument)", with all arguments that go in; to name calls to
/// the procedures below, give such a text, or the method's name alone for all its calls.
class ScriptedDatabase
{
public:
    ScriptedDatabase();
    ~ScriptedDatabase();
    ScriptedDatabase(const ScriptedDatabase&) = delete;
    ScriptedDatabase& operator=(const ScriptedDatabase&) = delete;

    /// What was called, in order.
    QStringList Calls;
    /// Answers what no script answers.
    TinyDatabase Store;
    /// Answers instead of the store, when set; not owned.
    HvxDatabase* Backing = nullptr;
    [[nodiscard]] HvxDatabase& Behind() { return Backing ? *Backing : Store; }
    /// Components created so far.
    int Created = 0;
    /// Nonzero: the creation of a component raises this number.
    quint32 CreationFailure = 0;
    /// Runs before each call is answered.
    std::function<void(const QString& call)> BeforeCall;

    /// Outputs of matching calls, in the order of the method's output arguments; each time.
    void Answer(const QString& call, const QStringList& outputs);
    /// The same for the next matching call only; several queue up.
    void AnswerOnce(const QString& call, const QStringList& outputs);

    /// Matching calls raise `number`; each time, or the next `times` calls only.
    void Fail(const QString& call, quint32 number = DatabaseErrorNumber::Refused);
    void FailTimes(const QString& call, int times, quint32 number = DatabaseErrorNumber::Refused);
    /// The k-th call from now (from 1) raises; that one only, or it and all that follow.
    void FailCall(int k, quint32 number = DatabaseErrorNumber::Refused);
    void FailFrom(int k, quint32 number = DatabaseErrorNumber::Refused);
    /// Forgets all failures.
    void Repair();

    /// Calls of one method.
    [[nodiscard]] int Count(const QString& method) const;
    /// The calls so far, which are then forgotten.
    QStringList TakeCalls();

    /// How the component answers one call: `outputs` are the method's output arguments, `usual` asks the
    /// store.
    class Output;
    void Perform(const QString& method, const QStringList& arguments, const std::vector<Output>& outputs,
                 const std::function<void()>& usual);

private:
    struct Failure
    {
        quint32 number = 0;
        /// Calls that still fail; negative: all.
        int times = -1;
    };

    void RaiseIfScripted(const QString& call, const QString& method);
    std::optional<QStringList> ScriptedAnswer(const QString& call, const QString& method);

    QHash<QString, QStringList> m_answers;
    QHash<QString, std::deque<QStringList>> m_onceAnswers;
    QHash<QString, Failure> m_failures;
    int m_callNumber = 0;
    int m_failingCall = 0;
    bool m_failsOn = false;
    quint32 m_failingNumber = 0;
};

/// An output argument of a method.
class ScriptedDatabase::Output
{
public:
    Output(QString& text) : m_text(&text) {}      // NOLINT(google-explicit-constructor)
    Output(qint32& number) : m_number(&number) {} // NOLINT(google-explicit-constructor)

    void Set(const QString& value) const;

private:
    QString* m_text = nullptr;
    qint32* m_number = nullptr;
};
