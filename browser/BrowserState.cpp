#include "browser/BrowserState.h"

#include "browser/LoadState.h"

BrowserState& Browser()
{
    static BrowserState state;
    return state;
}

LoadState& Load()
{
    static LoadState state;
    return state;
}
