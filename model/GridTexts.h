#pragma once

#include "model/ParameterGrid.h"

#include <vector>

/// A parameter grid without a screen: a table of texts. For work without windows, and for tests.
class GridTexts : public ParameterGrid
{
public:
    struct Cell
    {
        QString text;
        bool bold = false;
        bool italic = false;
    };

    void MoveTo(int row, int column) override;
    [[nodiscard]] QString Text() const override;
    void SetText(const QString& text) override;
    void SetFont(bool bold, bool italic) override;
    void SetPassword(int row, const QString& value) override;
    [[nodiscard]] int PasswordRow() const override { return m_passwordRow; }
    [[nodiscard]] QString PasswordValue() const override { return m_passwordValue; }

    /// A cell; an empty one behind the last that was written.
    [[nodiscard]] Cell At(int row, int column) const;

private:
    /// The current cell, made where there is none yet; null outside of any grid.
    [[nodiscard]] Cell* Current();

    int m_row = 0;
    int m_column = 0;
    std::vector<std::vector<Cell>> m_rows;
    int m_passwordRow = 0;
    QString m_passwordValue;
};
