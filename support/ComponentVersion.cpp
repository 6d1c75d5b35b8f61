#include "support/ComponentVersion.h"

#include "platform/NamedValues.h"
#include "platform/Words.h"

#include <QFileInfo>
#include <QJsonObject>
#include <QPluginLoader>
#include <QVersionNumber>

namespace {

QString ClassIdName(const QString& progId)
{
    return QStringLiteral("HKEY_CLASSES_ROOT/%1/Clsid").arg(progId);
}

QString ServerName(const QString& classId, const QString& kind)
{
    return QStringLiteral("HKEY_CLASSES_ROOT/CLSID/%1/%2").arg(classId, kind);
}

QString InprocServer()
{
    return QStringLiteral("InprocServer32");
}

QString LocalServer()
{
    return QStringLiteral("LocalServer32");
}

/// Null when the file carries none.
QVersionNumber FileVersion(const QJsonObject& record)
{
    const QJsonObject own = record.value(QStringLiteral("MetaData")).toObject();
    return QVersionNumber::fromString(own.value(QStringLiteral("Version")).toString());
}

QJsonObject VersionRecordOf(const QString& path)
{
    // Without a name of its own the loader would look for one.
    return path.isEmpty() ? QJsonObject() : QPluginLoader(path).metaData();
}

} // namespace

QString GetComponentPath(const QString& progId)
{
    const NamedValues values;
    const QString classId = values.Read(ClassIdName(progId)).value_or(QString());
    if (progId.isEmpty() || classId.isEmpty())
        return QString();
    const QString inproc = values.Read(ServerName(classId, InprocServer())).value_or(QString());
    if (!inproc.isEmpty())
        return inproc;
    return values.Read(ServerName(classId, LocalServer())).value_or(QString());
}

QString GetComponentFileVersion(const QString& path)
{
    const QVersionNumber version = FileVersion(VersionRecordOf(path));
    return version.isNull() ? Words::tr("No Version Info available!") : FormattedVersion(version);
}

QString GetComponentFileDetails(const QString& path)
{
    const QJsonObject record = VersionRecordOf(path);
    if (FileVersion(record).isNull())
        return QString();
    // Major, minor and patch number, each in a byte.
    const int qt = record.value(QStringLiteral("version")).toInt();
    const QString details = QStringLiteral("Qt %1.%2").arg(qt >> 16).arg((qt >> 8) & 0xff);
    return record.value(QStringLiteral("debug")).toBool() ? Words::tr("%1 debug").arg(details) : details;
}

QString FormattedVersion(const QVersionNumber& version)
{
    return QStringLiteral("%1.%2.%3")
        .arg(version.majorVersion())
        .arg(version.minorVersion(), 2, 10, QLatin1Char('0'))
        .arg(version.microVersion(), 4, 10, QLatin1Char('0'));
}

void RegisterControl(const QString& path)
{
    NamedValues values;
    values.Write(ClassIdName(ControlProgId), ControlClassId);
    values.Write(ServerName(ControlClassId, InprocServer()), path);
}

void RegisterControlOnce(const QString& path)
{
    if (!QFileInfo::exists(GetComponentPath(ControlProgId)))
        RegisterControl(path);
}
