#pragma once

class QAbstractButton;
class QWidget;

/// Lets F1, pressed anywhere in a form, press the form's Help button.
void UseHelpKey(QWidget& form, QAbstractButton& help);
