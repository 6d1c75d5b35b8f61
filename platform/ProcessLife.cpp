#include "platform/ProcessLife.h"

#include <cerrno>
#include <csignal>

bool ProcessRuns(qint64 id)
{
    if (id <= 0)
        return false;
    // Signal 0 only asks. A process that belongs to someone else refuses, which is an answer too.
    return kill(static_cast<pid_t>(id), 0) == 0 || errno == EPERM;
}
