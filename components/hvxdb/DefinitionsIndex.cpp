#include "components/hvxdb/DefinitionsIndex.h"

size_t DefinitionsIndex::Hash::operator()(QStringView name) const noexcept
{
    // FNV-1a over folded characters. Surrogates count alike, because Equal folds them as pairs.
    constexpr quint64 offset = 0xcbf29ce484222325;
    constexpr quint64 prime = 0x100000001b3;
    quint64 hash = offset;
    for (const QChar character : name) {
        char16_t unit = character.unicode();
        if (unit < 0x80) {
            if (unit >= u'A' && unit <= u'Z')
                unit |= 0x20;
        } else {
            unit = character.isSurrogate() ? u'?' : character.toCaseFolded().unicode();
        }
        hash = (hash ^ unit) * prime;
    }
    return static_cast<size_t>(hash);
}

bool DefinitionsIndex::Equal::operator()(QStringView left, QStringView right) const noexcept
{
    return left == right || left.compare(right, Qt::CaseInsensitive) == 0;
}

void DefinitionsIndex::Add(const QString& name, int position)
{
    m_positions.emplace(name, position);
}

int DefinitionsIndex::Find(QStringView name) const
{
    const auto found = m_positions.find(name);
    return found == m_positions.end() ? -1 : found->second;
}
