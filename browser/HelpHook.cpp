#include "browser/HelpHook.h"

HelpHook& Help()
{
    static HelpHook hook;
    return hook;
}
