#pragma once

#include "platform/MsgBox.h"

/// Shows boxes in windows over the active one.
///
/// Texts appear as they are: nothing in them is taken for markup. A box closed without a button answers
/// Cancel, No where there is no Cancel, OK where there is nothing to refuse; so does Escape. The first button
/// is the default one. While a box is open the pointer is the normal one.
class WindowBoxPresenter : public BoxPresenter
{
public:
    BoxAnswer ShowMsgBox(const QString& text, int flags, const QString& title) override;
    bool ShowInputBox(const QString& prompt, const QString& title, QString& value) override;
};

/// Lets the machine show the wait cursor and sound the bell; for programs with windows, once the application
/// object exists.
void InstallWindowSeams();
