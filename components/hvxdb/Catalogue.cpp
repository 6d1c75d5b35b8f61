#include "components/hvxdb/Catalogue.h"

#include "components/hvxdb/CatalogueReader.h"
#include "components/hvxdb/CatalogueRules.h"

#include <QFile>

namespace {

/// A catalogue within its limits has a fraction of this; a larger file is something else.
constexpr qint64 LargestFile = qint64(4) * 1024 * 1024;

} // namespace

// Outside any namespace, as Qt requires: the linker would drop the resources of a static library.
static void InitializeCatalogueResource()
{
    Q_INIT_RESOURCE(catalogue);
}

QString BuiltInCatalogueFile()
{
    InitializeCatalogueResource();
    return QStringLiteral(":/zelka/definitions/catalogue.json");
}

bool ReadCatalogue(const QString& file, Catalogue& catalogue, QStringList& problems)
{
    InitializeCatalogueResource();
    problems.clear();
    QFile source(file);
    if (!source.open(QIODevice::ReadOnly)) {
        problems << QStringLiteral("%1: %2").arg(file, source.errorString());
        return false;
    }
    const QByteArray text = source.read(LargestFile + 1);
    if (source.error() != QFileDevice::NoError) {
        problems << QStringLiteral("%1: %2").arg(file, source.errorString());
        return false;
    }
    if (text.size() > LargestFile) {
        problems << QStringLiteral("%1: larger than %2 bytes").arg(file).arg(LargestFile);
        return false;
    }

    Catalogue read;
    CatalogueReader(read, problems).Read(text);
    // Rules on rows that could not be read would only repeat the same mistakes in other words.
    if (problems.isEmpty())
        problems = CheckCatalogue(read);
    if (!problems.isEmpty())
        return false;
    catalogue = read;
    return true;
}

QStringList CheckCatalogue(const Catalogue& catalogue)
{
    return CatalogueRules(catalogue).Check();
}
