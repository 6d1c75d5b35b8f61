#include "browser/DialogOpening.h"

DialogOpening::DialogOpening() = default;

DialogOpening& Opening()
{
    static DialogOpening opening;
    return opening;
}
