#pragma once

#include "platform/MsgBox.h"
#include "tools/zelka/CommandContext.h"

class ConData;
class DatabaseClass;

/// The gateway and the model as the control uses them, open for the time that the object lives.
///
/// Boxes go to standard error as they come. Questions are declined and not shown, since nobody can answer;
/// the gateway tells what follows from the refusal.
class DatabaseSession : private BoxPresenter
{
public:
    /// Raises CommandError (DatabaseUnavailable) when the database cannot be opened; it has been told why.
    explicit DatabaseSession(CommandContext& context);
    ~DatabaseSession() override;
    DatabaseSession(const DatabaseSession&) = delete;
    DatabaseSession& operator=(const DatabaseSession&) = delete;

    [[nodiscard]] DatabaseClass& Gateway() const;
    [[nodiscard]] ConData& Connection() const;

    /// Raises CommandError (DatabaseUnavailable) unless an operation worked.
    void Require(bool worked) const;
    /// Raises CommandError for work that ended with a box: DatabaseUnavailable when no transaction could be
    /// begun or ended, else Refused.
    [[noreturn]] void Refused() const;
    /// Raises CommandError (Refused) when an error box was shown.
    void RequireNoErrorBox() const;

    /// The text of the last box, for work whose outcome is told in other ways too; empty when there was none
    /// since it was forgotten.
    [[nodiscard]] const QString& LastText() const { return m_lastText; }
    void ForgetLastText() { m_lastText.clear(); }

private:
    BoxAnswer ShowMsgBox(const QString& text, int flags, const QString& title) override;
    bool ShowInputBox(const QString& prompt, const QString& title, QString& value) override;
    void Close();

    CommandContext& m_context;
    BoxPresenter* m_before = nullptr;
    QString m_lastText;
    bool m_lastTold = true;
    bool m_errorShown = false;
};
