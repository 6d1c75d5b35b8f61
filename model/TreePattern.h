#pragma once

#include "model/TreeText.h"

#include <QByteArray>
#include <QString>

#include <array>

/// A text that is looked for inside the texts of entries, both in upper case as QString::toUpper gives it: no
/// wildcards, and one letter may become two.
class TreePattern
{
public:
    explicit TreePattern(const QString& searched);

    [[nodiscard]] bool OccursIn(const TreeTextView& text) const;

private:
    /// Letters of Latin-1 whose upper case is none of Latin-1, or more than one.
    [[nodiscard]] static bool Grows(const uchar* text, qsizetype length);
    [[nodiscard]] bool OccursInLatin1(const uchar* text, qsizetype length) const;
    /// The last letter, in either case; quick.
    [[nodiscard]] bool HasLastLetter(const uchar* text, qsizetype length) const;
    [[nodiscard]] bool OccursInUpper(const TreeTextView& text) const;

    QString m_upper;
    /// The same in Latin-1, where it can be.
    QByteArray m_latin1;
    bool m_isLatin1 = true;
    /// Its last letter in upper and in lower case, eight times.
    quint64 m_lastUpper = 0;
    quint64 m_lastLower = 0;
    /// How far to go on where that letter, in either case, stands under the pattern's last one.
    std::array<uchar, 256> m_shift;
};
