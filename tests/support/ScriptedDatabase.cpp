#include "tests/support/ScriptedDatabase.h"

#include "platform/ComponentError.h"
#include "platform/Components.h"
#include "tests/support/ScriptedComponent.h"

#include <algorithm>
#include <utility>

namespace {

[[noreturn]] void Raise(quint32 number, const QString& call)
{
    throw ComponentError(number, QStringLiteral("ScriptedDatabase"), QStringLiteral("%1 fails.").arg(call));
}

} // namespace

ScriptedDatabase::ScriptedDatabase()
{
    RegisterComponent(HvxDatabaseId, [this]() -> std::unique_ptr<HvxDatabase> {
        if (CreationFailure != 0)
            Raise(CreationFailure, QStringLiteral("Creation"));
        ++Created;
        return std::make_unique<ScriptedComponent>(*this);
    });
}

ScriptedDatabase::~ScriptedDatabase()
{
    RegisterComponent(HvxDatabaseId, nullptr);
}

void ScriptedDatabase::Answer(const QString& call, const QStringList& outputs)
{
    m_answers[call] = outputs;
}

void ScriptedDatabase::AnswerOnce(const QString& call, const QStringList& outputs)
{
    m_onceAnswers[call].push_back(outputs);
}

void ScriptedDatabase::Fail(const QString& call, quint32 number)
{
    m_failures[call] = {number, -1};
}

void ScriptedDatabase::FailTimes(const QString& call, int times, quint32 number)
{
    m_failures[call] = {number, times};
}

void ScriptedDatabase::FailCall(int k, quint32 number)
{
    m_failingCall = m_callNumber + k;
    m_failsOn = false;
    m_failingNumber = number;
}

void ScriptedDatabase::FailFrom(int k, quint32 number)
{
    FailCall(k, number);
    m_failsOn = true;
}

void ScriptedDatabase::Repair()
{
    m_failures.clear();
    m_failingCall = 0;
}

int ScriptedDatabase::Count(const QString& method) const
{
    return static_cast<int>(std::count_if(
        Calls.begin(), Calls.end(), [&](const QString& call) { return call.startsWith(method + u'('); }));
}

QStringList ScriptedDatabase::TakeCalls()
{
    return std::exchange(Calls, {});
}

void ScriptedDatabase::Perform(const QString& method, const QStringList& arguments,
                               const std::vector<Output>& outputs, const std::function<void()>& usual)
{
    const QString call = method + u'(' + arguments.join(u',') + u')';
    Calls << call;
    ++m_callNumber;
    if (BeforeCall)
        BeforeCall(call);
    RaiseIfScripted(call, method);
    const std::optional<QStringList> answer = ScriptedAnswer(call, method);
    if (!answer) {
        usual();
        return;
    }
    for (size_t output = 0; output < outputs.size(); ++output)
        outputs[output].Set(answer->value(static_cast<qsizetype>(output)));
}

void ScriptedDatabase::RaiseIfScripted(const QString& call, const QString& method)
{
    if (m_failingCall > 0 && (m_callNumber == m_failingCall || (m_failsOn && m_callNumber > m_failingCall)))
        Raise(m_failingNumber, call);
    for (const QString& key : {call, method}) {
        const auto failure = m_failures.find(key);
        if (failure == m_failures.end() || failure->times == 0)
            continue;
        if (failure->times > 0)
            --failure->times;
        Raise(failure->number, call);
    }
}

std::optional<QStringList> ScriptedDatabase::ScriptedAnswer(const QString& call, const QString& method)
{
    for (const QString& key : {call, method}) {
        const auto once = m_onceAnswers.find(key);
        if (once != m_onceAnswers.end() && !once->empty()) {
            const QStringList answer = once->front();
            once->pop_front();
            return answer;
        }
    }
    for (const QString& key : {call, method}) {
        const auto answer = m_answers.constFind(key);
        if (answer != m_answers.constEnd())
            return *answer;
    }
    return std::nullopt;
}

void ScriptedDatabase::Output::Set(const QString& value) const
{
    if (m_text)
        *m_text = value;
    else
        *m_number = value.toInt();
}
