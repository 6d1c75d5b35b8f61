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
    /// Null when there is none.
    [[nodiscard]] QLineEdit* Buddy() const { return m_field; }
    [[nodiscard]] int Low() const { return m_low; }
    [[nodiscard]] int High() const { return m_high; }

    /// What a press of the upper (1) or the lower (-1) button does.
    void Press(int by);

    /// The arrow keys in the field press the buttons.
    bool eventFilter(QObject* watched, QEvent* event) override;

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
