#pragma once

#include <QList>
#include <QString>

/// A text and its translation.
struct CatalogueEntry
{
    QString context;
    QString source;
    QString translation;
    /// Not yet translated, or not yet looked over.
    bool isUnfinished = false;

    [[nodiscard]] QString Place() const { return context + QStringLiteral(": ") + source; }
};

/// The entries of a .ts file, in their order; empty when it cannot be read.
[[nodiscard]] QList<CatalogueEntry> ReadCatalogue(const QString& file);

/// Whether a language says this as English does: proper names, international words, and letters that stand
/// for something.
[[nodiscard]] bool MaySayTheSame(const QString& language, const QString& text);

/// Path of the catalogue of a language in the source tree.
[[nodiscard]] QString CataloguePath(const QString& language);

/// The access key of a caption; null where it has none.
[[nodiscard]] QChar AccessKey(const QString& caption);
