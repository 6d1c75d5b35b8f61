#pragma once

#include "model/TreeText.h"

#include <QHashFunctions>
#include <QString>

/// A name that is looked up in trees more than once: its hash is made once. Compares as trees compare texts,
/// without case.
class TreeName
{
public:
    explicit TreeName(const QString& text) : m_text(text), m_hash(View().FoldedHash()) {}

    [[nodiscard]] const QString& Text() const { return m_text; }
    [[nodiscard]] TreeTextView View() const { return QStringView(m_text); }
    /// As TreeTextView::FoldedHash.
    [[nodiscard]] quint32 Hash() const { return m_hash; }

    bool operator==(const TreeName& other) const
    {
        return m_hash == other.m_hash && TreeTextView::CompareFolded(View(), other.View()) == 0;
    }

private:
    QString m_text;
    quint32 m_hash;
};

inline size_t qHash(const TreeName& name, size_t seed)
{
    return qHash(name.Hash(), seed);
}
