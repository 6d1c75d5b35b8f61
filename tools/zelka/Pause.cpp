#include "tools/zelka/Pause.h"

#include "platform/MachineSeams.h"

#include <algorithm>

void PauseUntil(qint64 end, const std::function<bool()>& isOver)
{
    while (!isOver()) {
        const qint64 left = end - Machine().MonotonicMs();
        if (left <= 0)
            return;
        Machine().Sleep(static_cast<int>(std::min<qint64>(left, LongestDeafness)));
    }
}
