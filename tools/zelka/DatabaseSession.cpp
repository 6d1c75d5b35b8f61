#include "tools/zelka/DatabaseSession.h"

#include "components/hvxdb/HvxAdministration.h"
#include "database/DatabaseClass.h"
#include "database/DatabaseState.h"
#include "database/DatabaseTexts.h"
#include "model/ModelState.h"
#include "platform/ComponentError.h"
#include "platform/HvxDatabase.h"
#include "tools/zelka/CommandError.h"

namespace {

/// The gateway tries to reach a server for half a minute and then has one text for all causes. A command
/// tells the cause, at once.
void RequireServer(const CommandContext& context)
{
    if (!IsServerSource(context.Source()))
        return;
    try {
        (void)context.OpenAdministration();
    } catch (const ComponentError& error) {
        // What to do about a lock knows the gateway.
        if (error.Number() != DatabaseErrorNumber::InUse)
            throw;
    }
}

} // namespace

DatabaseSession::DatabaseSession(CommandContext& context)
    : m_context(context), m_before(SetBoxPresenter(this))
{
    SetDataSource(context.Source());
    Database().DbObject = std::make_unique<DatabaseClass>();
    Model().Database = Database().DbObject.get();
    Model().ConObject = std::make_unique<ConData>();
    try {
        RequireServer(context);
        Require(Gateway().OpenDb());
    } catch (...) {
        Close();
        throw;
    }
}

DatabaseSession::~DatabaseSession()
{
    Close();
}

void DatabaseSession::Close()
{
    if (Database().DatabaseOpen)
        Gateway().CloseDb();
    Database().DatabaseOpen = false;
    Model().ConObject.reset();
    Model().Database = nullptr;
    Database().DbObject.reset();
    SetBoxPresenter(m_before);
}

DatabaseClass& DatabaseSession::Gateway() const
{
    return *Database().DbObject;
}

ConData& DatabaseSession::Connection() const
{
    return *Model().ConObject;
}

void DatabaseSession::Require(bool worked) const
{
    if (worked)
        return;
    if (m_lastText.isEmpty())
        throw CommandError(ExitCode::DatabaseUnavailable, QStringLiteral("The database gave no answer."));
    throw CommandError(ExitCode::DatabaseUnavailable, m_lastText, m_lastTold);
}

void DatabaseSession::Refused() const
{
    const bool unavailable = m_lastText.isEmpty() || m_lastText == DatabaseText::AccessDenied() ||
                             m_lastText == DatabaseText::CommitFailure();
    if (unavailable)
        Require(false);
    throw CommandError(ExitCode::Refused, m_lastText, m_lastTold);
}

void DatabaseSession::RequireNoErrorBox() const
{
    if (m_errorShown)
        throw CommandError(ExitCode::Refused, m_lastText, true);
}

BoxAnswer DatabaseSession::ShowMsgBox(const QString& text, int flags, const QString& /*title*/)
{
    m_lastText = text;
    switch (flags & BoxFlags::ButtonMask) {
    case BoxFlags::OkCancel:
    case BoxFlags::YesNoCancel:
        m_lastTold = false;
        return BoxAnswer::Cancel;
    case BoxFlags::YesNo:
        m_lastTold = false;
        return BoxAnswer::No;
    default:
        m_context.output.Words(text);
        m_lastTold = true;
        m_errorShown = m_errorShown || (flags & ~BoxFlags::ButtonMask) == BoxFlags::Critical;
        return BoxAnswer::Ok;
    }
}

bool DatabaseSession::ShowInputBox(const QString& /*prompt*/, const QString& /*title*/, QString& /*value*/)
{
    return false;
}
