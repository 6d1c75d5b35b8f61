#include "tests/convergence/RuleOperator.h"

namespace {

/// How often the operator tries again, of one change, what another workstation keeps from going on.
constexpr int MostTries = 4;

enum class Rule
{
    TryAgain,
    AgreeMostly,
    AgreeHalf,
    Agree,
    Refusal,
    Reload,
};

struct BoxRule
{
    QString words;
    Rule rule;
};

const BoxRule* RuleOf(const QString& text)
{
    static const BoxRule rules[] = {
        {QStringLiteral("do you want to try again ?"), Rule::TryAgain},
        {QStringLiteral("Do you want to remove "), Rule::AgreeMostly},
        {QStringLiteral("Do you want to replace it ?"), Rule::AgreeHalf},
        {QStringLiteral("Do you want to interrupt database loading ?"), Rule::Agree},
        {QStringLiteral("must be reloaded, because of changes made by another application."), Rule::Reload},
        {QStringLiteral("cannot be accessed, because another application has changed it."), Rule::Refusal},
        {QStringLiteral("Save is prevented, because another application has changed this"), Rule::Refusal},
        {QStringLiteral("already exists. Give a new name."), Rule::Refusal},
        {QStringLiteral("already exists in the database. No saving"), Rule::Refusal},
        {QStringLiteral("Failure in saving node "), Rule::Refusal},
        // What another workstation has just committed cannot be written over.
        {QStringLiteral("Database error, failure in SaveParent."), Rule::Refusal},
        {QStringLiteral("Error in connection database saving."), Rule::Refusal},
        {QStringLiteral("not found from database."), Rule::Refusal},
        {QStringLiteral("Failure in removing "), Rule::Refusal},
        // A connection that has gone meanwhile cannot get a node.
        {QStringLiteral("Unknown error in access to database."), Rule::Refusal},
        {QStringLiteral("All modifications rolled back successfully."), Rule::Refusal},
    };
    for (const BoxRule& rule : rules) {
        if (text.contains(rule.words))
            return &rule;
    }
    return nullptr;
}

} // namespace

RuleOperator::RuleOperator(QRandomGenerator& random) : m_before(SetBoxPresenter(this)), m_random(random) {}

RuleOperator::~RuleOperator()
{
    SetBoxPresenter(m_before);
}

void RuleOperator::BeginChange()
{
    m_refusal.clear();
    m_agreed = false;
    m_tries = 0;
}

BoxAnswer RuleOperator::Decide(bool agree)
{
    if (agree)
        m_agreed = true;
    else
        m_refusal = QStringLiteral("declined by the operator");
    return agree ? BoxAnswer::Ok : BoxAnswer::Cancel;
}

BoxAnswer RuleOperator::ShowMsgBox(const QString& text, int /*flags*/, const QString& /*title*/)
{
    const BoxRule* const rule = RuleOf(text);
    if (!rule) {
        m_unexpected << text;
        return BoxAnswer::Cancel;
    }
    switch (rule->rule) {
    case Rule::TryAgain:
        return ++m_tries <= MostTries ? BoxAnswer::Ok : BoxAnswer::Cancel;
    case Rule::AgreeMostly:
        return Decide(m_random.bounded(8) != 0);
    case Rule::AgreeHalf:
        return Decide(m_random.bounded(2) == 0);
    case Rule::Agree:
        return BoxAnswer::Ok;
    case Rule::Reload:
        ++m_reloads;
        return BoxAnswer::Ok;
    case Rule::Refusal:
        m_refusal = rule->words;
        break;
    }
    return BoxAnswer::Ok;
}

bool RuleOperator::ShowInputBox(const QString& prompt, const QString& /*title*/, QString& /*value*/)
{
    m_unexpected << prompt;
    return false;
}
