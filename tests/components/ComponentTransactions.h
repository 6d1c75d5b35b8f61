#pragma once

#include "platform/HvxDatabase.h"

#include <QtTest>

/// Begin and commit of a component as tests need them.

inline void Begin(HvxDatabase& component)
{
    qint32 started = 0;
    component.BeginTransaction(started);
    QCOMPARE(started, 1);
}

inline void Commit(HvxDatabase& component)
{
    qint32 started = 1;
    component.CommitTransaction(started);
}
