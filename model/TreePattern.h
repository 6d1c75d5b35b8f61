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

    [[nodiscard]] bool OccursIn(const TreeTextView& text) const
    {
        const uchar* const latin1 = text.Latin1();
        return latin1 && !Grows(latin1, text.Length()) ? OccursInLatin1(latin1, text.Length())
                                                       : m_upper.isEmpty() || OccursInUpper(text);
    }

private:
    /// Letters of Latin-1 whose upper case is none of Latin-1, or more than one.
    [[nodiscard]] static bool Grows(const uchar* text, qsizetype length);
    [[nodiscard]] bool OccursInLatin1(const uchar* text, qsizetype length) const;
    [[nodiscard]] bool OccursInUpper(const TreeTextView& text) const;

    QString m_upper;
    /// The same in Latin-1, where it can be.
    QByteArray m_latin1;
    bool m_isLatin1 = true;
    /// How far to go on where that letter, in either case, stands under the pattern's last one.
    std::array<uchar, 256> m_shift;
};
