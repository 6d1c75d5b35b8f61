#pragma once

#include "platform/MsgBox.h"

#include <QPointer>

#include <utility>

/// Makes a form and shows it modally; boxes of its start come before it. False: the host has destroyed its
/// parent meanwhile, and the form with it.
template <typename Form, typename... Arguments>
bool ShowModalForm(Arguments&&... arguments)
{
    QPointer<Form> form;
    {
        // No box while the form is being made: half a form cannot be destroyed.
        const HeldBoxes held;
        form = new Form(std::forward<Arguments>(arguments)...);
    }
    if (form)
        form->exec();
    if (!form)
        return false;
    delete form;
    return true;
}
