#include "tools/zelka/NetworkSession.h"

#include "platform/ComponentError.h"
#include "platform/ComponentFailure.h"
#include "platform/Components.h"
#include "tools/zelka/CommandError.h"
#include "tools/zelka/Pause.h"

#include <utility>

namespace {

/// Gives what `create` makes.
template <typename Create>
auto Created(const QString& what, Create create)
{
    try {
        return create();
    } catch (const ComponentError& error) {
        throw CommandError(
            ExitCode::NetworkUnavailable,
            QStringLiteral("%1 component creation failure: %2").arg(what, error.Description()));
    }
}

} // namespace

NetworkSession::NetworkSession(const QString& connectionId, std::function<bool()> isOver)
    : m_isOver(std::move(isOver)),
      m_connection(
          Created(QStringLiteral("HVXSyncConn"), [&] { return CreateSyncConnection(connectionId); })),
      m_utility(Created(QStringLiteral("HVXUtility"), [] { return CreateHvxUtility(HvxUtilityId); }))
{
    QObject::connect(&m_look, &QTimer::timeout, &m_look, [this] { CloseWhenOver(); });
    m_look.start(LongestDeafness);
}

NetworkSession::~NetworkSession()
{
    m_connection->Close();
}

void NetworkSession::Open(const QString& target)
{
    const QString lead = QStringLiteral("Connection could not be opened.");
    qint32 result = 0;
    try {
        result = m_connection->Open(target);
    } catch (const ComponentError& error) {
        Fail(lead, error.Description());
    }
    if (result != 0)
        Fail(lead);
}

void NetworkSession::Fail(const QString& lead, const QString& otherwise) const
{
    const QString cause = LastFailureOf(*m_connection).Told(otherwise);
    throw CommandError(ExitCode::NetworkUnavailable, cause.isEmpty() ? lead : lead + u' ' + cause);
}

void NetworkSession::CloseWhenOver()
{
    if (!IsOver())
        return;
    m_look.stop();
    m_connection->Close();
}
