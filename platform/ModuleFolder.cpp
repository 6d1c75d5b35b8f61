#include "platform/ModuleFolder.h"

#include "platform/ModuleFile.h"

#include <QCoreApplication>
#include <QFileInfo>

QString ModuleFolder()
{
    // A program names itself as it was started, which need not be a path.
    const QFileInfo file(ModuleFile());
    return file.exists() ? file.canonicalPath() : QCoreApplication::applicationDirPath();
}
