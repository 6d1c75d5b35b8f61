#pragma once

#include <QString>
#include <QStringView>

#include <string_view>
#include <unordered_map>

/// Finds the position of a name in a list, ignoring case, without making a text of its own for the look-up.
class DefinitionsIndex
{
public:
    /// The position of the first name stays when a second one differs in case only.
    void Add(const QString& name, int position);

    /// -1 when there is no such name.
    [[nodiscard]] int Find(QStringView name) const;

private:
    struct Hash
    {
        using is_transparent = void;
        size_t operator()(QStringView name) const noexcept;
    };
    struct Equal
    {
        using is_transparent = void;
        bool operator()(QStringView left, QStringView right) const noexcept;
    };

    std::unordered_map<QString, int, Hash, Equal> m_positions;
};
