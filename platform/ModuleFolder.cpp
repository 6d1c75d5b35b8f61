#include "platform/ModuleFolder.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_UNIX
#include <dlfcn.h>
#endif

QString ModuleFolder()
{
#ifdef Q_OS_UNIX
    // A program names itself as it was started, which need not be a path.
    Dl_info module = {};
    const auto* here = reinterpret_cast<const void*>(&ModuleFolder);
    if (dladdr(here, &module) != 0 && module.dli_fname) {
        const QFileInfo file(QFile::decodeName(module.dli_fname));
        if (file.isAbsolute() && file.exists())
            return file.canonicalPath();
    }
#endif
    return QCoreApplication::applicationDirPath();
}
