#pragma once

#include "components/syncconn/SyncConnectionComponent.h"
#include "components/syncconn/SyncFailure.h"
#include "platform/ComponentError.h"

#include <functional>

/// What a call of the connection component raises, as "major/minor text" by GetLastError; empty when it
/// raises nothing. Tells when the error and the record of it differ.
inline QString FailureOf(SyncConnection& connection, const std::function<void()>& call)
{
    try {
        call();
        return QString();
    } catch (const ComponentError& error) {
        qint32 major = 0;
        qint32 minor = 0;
        qint32 third = -1;
        QString text;
        connection.GetLastError(major, minor, third, text);
        if (error.Number() != SyncFailure::Raised || error.Source() != QStringLiteral("SyncConnection") ||
            error.Description() != text || third != 0)
            return QStringLiteral("The error differs from its record: ") + error.Description();
        return QStringLiteral("%1/%2 %3").arg(QString::number(major), QString::number(minor), text);
    }
}

inline QString FailureOfOpen(SyncConnection& connection, const QString& target)
{
    return FailureOf(connection, [&] {
        if (connection.Open(target) != 0)
            qFatal("a failure of Open is raised");
    });
}

/// `reply` stays as it was when it fails, or the test ends.
inline QString FailureOfSend(SyncConnection& connection, const QString& target, const QString& request,
                             QString* reply = nullptr)
{
    QString own = QStringLiteral("before");
    const QString failure = FailureOf(connection, [&] { connection.Send(target, request, own); });
    if (!failure.isEmpty() && own != QStringLiteral("before"))
        qFatal("the reply was touched");
    if (reply)
        *reply = own;
    return failure;
}
