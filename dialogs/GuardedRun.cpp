#include "dialogs/GuardedRun.h"

#include "platform/ComponentError.h"
#include "platform/MsgBox.h"

#include <exception>

void RunGuarded(const std::function<void()>& handler)
{
    try {
        handler();
    } catch (const ComponentError& error) {
        ErrorBox(error.Description());
    } catch (const std::exception& error) {
        ErrorBox(QString::fromUtf8(error.what()));
    }
}
