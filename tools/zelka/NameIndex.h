#pragma once

#include <QHash>
#include <QString>

#include <functional>
#include <optional>
#include <vector>

/// Finds rows by their folded names in eight bytes a slot; the names themselves stay with the rows.
class NameIndex
{
public:
    /// Tells whether the row of that number has the name that is looked for.
    using IsNameOf = std::function<bool(quint32 row)>;

    [[nodiscard]] std::optional<quint32> Find(const QString& folded, const IsNameOf& isNameOf) const;
    /// Adds a name that Find does not find.
    void Add(const QString& folded, quint32 row);

private:
    struct Slot
    {
        quint32 hash = 0;
        /// Row + 1; 0: free.
        quint32 row = 0;
    };
    static quint32 HashOf(const QString& folded);
    void Place(Slot slot);
    void Grow();

    std::vector<Slot> m_slots;
    std::size_t m_used = 0;
};
