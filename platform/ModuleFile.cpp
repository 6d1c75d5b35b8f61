#include "platform/ModuleFile.h"

#include <QFile>
#include <QFileInfo>

#include <dlfcn.h>

QString ModuleFile()
{
    Dl_info module = {};
    if (dladdr(reinterpret_cast<const void*>(&ModuleFile), &module) == 0 || !module.dli_fname)
        return QString();
    return QFileInfo(QFile::decodeName(module.dli_fname)).absoluteFilePath();
}
