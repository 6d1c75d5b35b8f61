#pragma once

#include <QString>
#include <QStringView>

#include <optional>

/// The Key of a tree entry, taken apart.
///
/// `kind` is 'R', 'C', 'W' or 'N'; `id` is field 2 (negative: the continuation mark of a node); `second` is
/// field 3, the position of a waypoint or the connection of a node, 0 when there is none.
struct TreeKey
{
    char kind = '\0';
    qint32 id = 0;
    qint32 second = 0;

    /// No value for a text that is not exactly as Format writes it.
    [[nodiscard]] static std::optional<TreeKey> Parse(QStringView text);
    [[nodiscard]] bool IsValid() const;
    [[nodiscard]] QString Format() const;

    bool operator==(const TreeKey&) const = default;
    /// Two keys name the same entry when they differ in the continuation mark only.
    [[nodiscard]] bool SameEntry(const TreeKey& other) const
    {
        return kind == other.kind && qAbs(id) == qAbs(other.id) && second == other.second;
    }
    /// Equal for keys of the same entry.
    [[nodiscard]] quint32 Hash() const;
};
