#include "scan/DigitBox.h"

#include "dialogs/GridDigits.h"
#include "model/TextHelpers.h"
#include "platform/MachineSeams.h"
#include "platform/controls/FlexGrid.h"

#include <QKeyEvent>

namespace {
constexpr int Enter = 13;
}

DigitBox::DigitBox(QWidget* parent) : QLineEdit(parent)
{
    setValidator(new GridDigits(QString(), this));
    connect(this, &QLineEdit::inputRejected, this, [] { Machine().Beep(); });
}

void DigitBox::keyPressEvent(QKeyEvent* event)
{
    const int key = KeyCharacter(*event);
    // Enter is the window's.
    if (key != 0 && key != Enter && FilterDigitKey(key) == 0)
        event->accept();
    else
        QLineEdit::keyPressEvent(event);
}
