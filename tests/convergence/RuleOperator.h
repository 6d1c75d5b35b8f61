#pragma once

#include "platform/MsgBox.h"

#include <QRandomGenerator>
#include <QStringList>

/// An operator who answers each box by its text and remembers what it said. A box that no rule knows is kept
/// as unexpected.
class RuleOperator : public BoxPresenter
{
public:
    explicit RuleOperator(QRandomGenerator& random);
    ~RuleOperator() override;
    RuleOperator(const RuleOperator&) = delete;
    RuleOperator& operator=(const RuleOperator&) = delete;

    /// Forgets the last change.
    void BeginChange();
    /// Why the change did not come about: words of the last box that told so; empty: there was none.
    [[nodiscard]] const QString& Refusal() const { return m_refusal; }
    /// The operator has agreed to something in this change.
    [[nodiscard]] bool Agreed() const { return m_agreed; }
    /// Boxes since the start that announced a reload.
    [[nodiscard]] int Reloads() const { return m_reloads; }
    /// The boxes that no rule knows, which are then forgotten.
    QStringList TakeUnexpected() { return std::exchange(m_unexpected, {}); }

    BoxAnswer ShowMsgBox(const QString& text, int flags, const QString& title) override;
    bool ShowInputBox(const QString& prompt, const QString& title, QString& value) override;

private:
    BoxAnswer Decide(bool agree);

    BoxPresenter* m_before;
    QRandomGenerator& m_random;
    QString m_refusal;
    bool m_agreed = false;
    int m_tries = 0;
    int m_reloads = 0;
    QStringList m_unexpected;
};
