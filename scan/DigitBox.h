#pragma once

#include <QLineEdit>

/// A text box for digits: any other key is dropped, with the bell, and so is pasted text that holds more than
/// digits and blanks.
class DigitBox : public QLineEdit
{
    Q_OBJECT

public:
    explicit DigitBox(QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;
};
