#pragma once

#include <QtGlobal>

/// True when a process of this id runs on this machine.
bool ProcessRuns(qint64 id);
