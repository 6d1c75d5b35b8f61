#pragma once

#include "model/ParameterGrid.h"

/// The attached grid as the rules of the model see it.
class GridCells : public ParameterGrid
{
public:
    void MoveTo(int row, int column) override;
    [[nodiscard]] QString Text() const override;
    void SetText(const QString& text) override;
    void SetFont(bool bold, bool italic) override;
    void SetPassword(int row, const QString& value) override;
    [[nodiscard]] int PasswordRow() const override;
    [[nodiscard]] QString PasswordValue() const override;

private:
    int m_row = 0;
    int m_column = 0;
};
