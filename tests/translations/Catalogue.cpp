#include "tests/translations/Catalogue.h"

#include <QFile>
#include <QKeySequence>
#include <QStringList>
#include <QXmlStreamReader>

namespace {

CatalogueEntry ReadEntry(QXmlStreamReader& xml, const QString& context)
{
    CatalogueEntry entry;
    entry.context = context;
    while (xml.readNextStartElement()) {
        if (xml.name() == u"source") {
            entry.source = xml.readElementText();
        } else if (xml.name() == u"translation") {
            entry.isUnfinished = xml.attributes().hasAttribute(QStringLiteral("type"));
            entry.translation = xml.readElementText();
        } else {
            xml.skipCurrentElement();
        }
    }
    return entry;
}

} // namespace

QList<CatalogueEntry> ReadCatalogue(const QString& file)
{
    QFile catalogue(file);
    if (!catalogue.open(QIODevice::ReadOnly))
        return {};
    QXmlStreamReader xml(&catalogue);
    QList<CatalogueEntry> entries;
    QString context;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == u"name")
            context = xml.readElementText();
        else if (xml.name() == u"message")
            entries << ReadEntry(xml, context);
    }
    return xml.hasError() ? QList<CatalogueEntry>() : entries;
}

bool MaySayTheSame(const QString& language, const QString& text)
{
    static const QStringList everywhere{"Zelka Connection Browser",
                                        "Zelka Node Manager",
                                        "Zelka Workstation",
                                        "%1 - Zelka Workstation",
                                        "heippa",
                                        "M/D",
                                        "OK",
                                        "&OK",
                                        "Ctrl+Q",
                                        "Information",
                                        "Inde&x",
                                        "F1",
                                        "Port",
                                        "&Version ...",
                                        "Version %1"};
    static const QStringList german{
        "Name:",       "Port:",   "Qt:",       "Version:",   "Station:",  "Station", "Scan",
        "Definition:", "Scan %1", "Parameter", "Community:", "Community", "S&tart"};
    static const QStringList french{"Console", "&Messages", "Messages",       "Direct",
                                    "Type",    "type",      "Identification", "identification",
                                    "Section", "Station",   "Arguments"};
    return everywhere.contains(text) || (language == u"de" ? german : french).contains(text);
}

QString CataloguePath(const QString& language)
{
    return QStringLiteral(ZELKA_TRANSLATIONS "/zelka_%1.ts").arg(language);
}

QChar AccessKey(const QString& caption)
{
    const QKeySequence key = QKeySequence::mnemonic(caption);
    return key.isEmpty() ? QChar() : QChar(key[0].key()).toUpper();
}
