#pragma once

#include "platform/MachineSeams.h"

/// Shows the wait cursor for as long as it lives.
class BusyPointer
{
public:
    BusyPointer() { Machine().ShowBusyPointer(true); }
    ~BusyPointer() { Machine().ShowBusyPointer(false); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;
};
