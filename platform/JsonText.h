#pragma once

#include <QByteArray>
#include <QString>

/// The second of two equal keys in one object of a JSON text, which the reader of documents would drop in
/// silence.
struct DoubledKey
{
    /// Empty: there is none.
    QString key;
    /// Offset of its opening quote in bytes.
    qsizetype offset = -1;

    [[nodiscard]] bool IsThere() const { return offset >= 0; }
};

/// Finds the first one. `json` has been read as a document without an error.
[[nodiscard]] DoubledKey FindDoubledKey(const QByteArray& json);

/// "line 3, column 7" for an offset in bytes; columns count characters.
[[nodiscard]] QString LineAndColumn(const QByteArray& text, qsizetype offset);
