#pragma once

#include <QString>

/// The grid in which the parameters of one waypoint are shown and edited, as the rules need it.
///
/// Row 0 holds the headers, parameters follow from row 1; column 0 is the long name, column 1 the value. A
/// real grid and a plain table stand behind it. The value of the password parameter is held beside the cells,
/// which only ever show six asterisks.
class ParameterGrid
{
public:
    static constexpr int NameColumn = 0;
    static constexpr int ValueColumn = 1;
    /// Shown for a password, whatever its length.
    static QString MaskedPassword() { return QStringLiteral("******"); }

    virtual ~ParameterGrid() = default;

    /// Makes a cell the current one.
    virtual void MoveTo(int row, int column) = 0;
    /// Text of the current cell.
    [[nodiscard]] virtual QString Text() const = 0;
    virtual void SetText(const QString& text) = 0;
    /// Fonts of the current cell: bold a required parameter, italic as well a member of an exclusive group.
    virtual void SetFont(bool bold, bool italic) = 0;

    /// Row of the password parameter, 0 when there is none, and its true value.
    virtual void SetPassword(int row, const QString& value) = 0;
    [[nodiscard]] virtual int PasswordRow() const = 0;
    [[nodiscard]] virtual QString PasswordValue() const = 0;
};
