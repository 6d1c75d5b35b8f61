#include "components/hvxdb/PostgresFailure.h"

#include "components/hvxdb/SqlFailure.h"

#include <QDeadlineTimer>
#include <QRegularExpression>

#include <libpq-fe.h>
#include <memory>
#include <poll.h>
#include <vector>

namespace {

/// A server that refuses does so at once; who is silent has been waited for already.
constexpr int MostMs = 3000;

using Connection = std::unique_ptr<PGconn, decltype(&PQfinish)>;

Connection Start(const PostgresSource& source)
{
    std::vector<QByteArray> texts;
    for (const auto& [name, value] : source.Parameters()) {
        texts.push_back(name.toUtf8());
        texts.push_back(value.toUtf8());
    }
    std::vector<const char*> names;
    std::vector<const char*> values;
    for (size_t i = 0; i < texts.size(); i += 2) {
        names.push_back(texts[i].constData());
        values.push_back(texts[i + 1].constData());
    }
    names.push_back(nullptr);
    values.push_back(nullptr);
    return Connection(PQconnectStartParams(names.data(), values.data(), 0), PQfinish);
}

/// Waits until the connection can go on. False when the time is up.
bool WaitFor(const PGconn* connection, PostgresPollingStatusType status, const QDeadlineTimer& deadline)
{
    pollfd socket{PQsocket(connection),
                  static_cast<short>(status == PGRES_POLLING_READING ? POLLIN : POLLOUT), 0};
    return poll(&socket, 1, static_cast<int>(deadline.remainingTime())) > 0;
}

/// The last state that the connection's words name: behind the severity, before the words themselves.
QString StateIn(const QString& words)
{
    static const QRegularExpression state(QStringLiteral(":\\s+(?=[A-Z]*[0-9])([0-9A-Z]{5}):\\s"));
    QString last;
    QRegularExpressionMatchIterator matches = state.globalMatch(words);
    while (matches.hasNext())
        last = matches.next().captured(1);
    return last;
}

} // namespace

quint32 PostgresErrorNumber(const QString& state)
{
    // Lock not available, serialization failure, deadlock.
    if (state == QLatin1String("55P03") || state == QLatin1String("40001") || state == QLatin1String("40P01"))
        return DatabaseErrorNumber::InUse;
    if (state == QLatin1String("42P01"))
        return DatabaseErrorNumber::TablesMissing;
    if (state == QLatin1String("3D000"))
        return DatabaseErrorNumber::SourceMissing;
    if (state == QLatin1String("25006"))
        return DatabaseErrorNumber::ReadOnly;
    // Authorization; data and index corrupted.
    if (state.startsWith(QLatin1String("28")) || state == QLatin1String("XX001") ||
        state == QLatin1String("XX002"))
        return DatabaseErrorNumber::UnusableFile;
    // Data that the columns do not take, a constraint, no privilege, no such role, a text too long for its
    // index, the sequence at its end.
    for (const char* const refusal : {"22", "23", "42501", "42704", "0L", "0P", "54000", "2200H"}) {
        if (state.startsWith(QLatin1String(refusal)))
            return DatabaseErrorNumber::Refused;
    }
    return EngineFailure;
}

QString PostgresRefusal(const PostgresSource& source)
{
    const Connection connection = Start(source);
    if (!connection || PQstatus(connection.get()) == CONNECTION_BAD)
        return {};
    PQsetErrorVerbosity(connection.get(), PQERRORS_VERBOSE);
    const QDeadlineTimer deadline(MostMs);
    PostgresPollingStatusType status = PGRES_POLLING_WRITING;
    while (status == PGRES_POLLING_READING || status == PGRES_POLLING_WRITING) {
        if (!WaitFor(connection.get(), status, deadline))
            return {};
        status = PQconnectPoll(connection.get());
    }
    // The server has only asked for a password that nobody has given.
    if (PQconnectionNeedsPassword(connection.get()) != 0)
        return QStringLiteral("28P01");
    return StateIn(QString::fromUtf8(PQerrorMessage(connection.get())));
}
