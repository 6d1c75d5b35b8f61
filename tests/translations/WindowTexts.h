#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

class QWidget;

/// What a window says and how it shows it, for comparing it in one language with it in another.

/// The texts of a window that are its own and not data: captions, labels, titles, tool tips, headings and
/// what is told to screen readers, by where they stand.
[[nodiscard]] QMap<QString, QString> TextsOf(const QWidget& window);

/// Captions that do not fit their places, page for page of every tab bar. The window need not be shown.
[[nodiscard]] QStringList ClippedTexts(QWidget& window);

/// Access keys that two captions of one page claim.
[[nodiscard]] QStringList SharedAccessKeys(const QWidget& window);
