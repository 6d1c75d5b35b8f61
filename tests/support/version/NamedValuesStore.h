#pragma once

#include "platform/NamedValues.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QString>
#include <QTemporaryDir>

/// Makes a file with these contents, its folders too, and gives its path.
inline QString MadeFile(const QString& path, const QByteArray& contents)
{
    QFile file(path);
    if (!QDir().mkpath(QFileInfo(path).path()) || !file.open(QIODevice::WriteOnly) ||
        file.write(contents) != contents.size())
        qFatal("%s", qUtf8Printable(file.errorString()));
    return path;
}

/// The stores of named values of a machine and its user in a folder of their own, as long as it lives.
class NamedValuesStore
{
public:
    NamedValuesStore()
    {
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, Path(QStringLiteral("user")));
        QSettings::setPath(QSettings::IniFormat, QSettings::SystemScope, Path(QStringLiteral("machine")));
    }

    [[nodiscard]] QString Path(const QString& name) const { return m_folder.filePath(name); }
    [[nodiscard]] QString UsersFile() const { return Path(QStringLiteral("user/Zelka/NamedValues.ini")); }
    [[nodiscard]] QString MachinesFile() const
    {
        return Path(QStringLiteral("machine/Zelka/NamedValues.ini"));
    }

private:
    QTemporaryDir m_folder;
};
