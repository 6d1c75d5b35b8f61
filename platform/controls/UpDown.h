#pragma once

#include <QLineEdit>
#include <QPointer>
#include <QWidget>

/// A pair of small arrow buttons. With a buddy they step the number in its text box; the signals tell each
/// press whether there is one or not.
class UpDown : public QWidget
{
    Q_OBJECT

public:
    explicit UpDown(QWidget* parent = nullptr);

    /// The field to step, from `low` to `high`; a field without a number steps from `low`.
    void SetBuddy(QLineEdit* field, int low, int high);

    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    void UpClick();
    void DownClick();

private:
    void Step(int by);

    QPointer<QLineEdit> m_field;
    int m_low = 0;
    int m_high = 0;
};
