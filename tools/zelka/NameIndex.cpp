#include "tools/zelka/NameIndex.h"

quint32 NameIndex::HashOf(const QString& folded)
{
    const auto hash = static_cast<quint64>(qHash(folded, 0));
    return static_cast<quint32>(hash ^ (hash >> 32));
}

std::optional<quint32> NameIndex::Find(const QString& folded, const IsNameOf& isNameOf) const
{
    if (m_slots.empty())
        return std::nullopt;
    const quint32 hash = HashOf(folded);
    const std::size_t mask = m_slots.size() - 1;
    for (std::size_t at = hash & mask; m_slots[at].row != 0; at = (at + 1) & mask) {
        if (m_slots[at].hash == hash && isNameOf(m_slots[at].row - 1))
            return m_slots[at].row - 1;
    }
    return std::nullopt;
}

void NameIndex::Add(const QString& folded, quint32 row)
{
    if ((m_used + 1) * 3 > m_slots.size() * 2)
        Grow();
    Place({HashOf(folded), row + 1});
    ++m_used;
}

void NameIndex::Place(Slot slot)
{
    const std::size_t mask = m_slots.size() - 1;
    std::size_t at = slot.hash & mask;
    while (m_slots[at].row != 0)
        at = (at + 1) & mask;
    m_slots[at] = slot;
}

void NameIndex::Grow()
{
    std::vector<Slot> old(m_slots.empty() ? 1024 : m_slots.size() * 2);
    old.swap(m_slots);
    for (const Slot& slot : old) {
        if (slot.row != 0)
            Place(slot);
    }
}
