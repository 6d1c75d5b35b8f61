#pragma once

#include "components/hvxdb/HvxStore.h"

#include <QObject>
#include <QThread>

#include <memory>

/// Holds the maintenance lock of a store's source while it lives. A thread of its own gives the sign of life,
/// so that long work of the holder does not look like its death.
///
/// Raises ComponentError (InUse) when another holds the lock.
class MaintenanceLock : public QObject
{
    Q_OBJECT

public:
    /// Milliseconds from one sign of life to the next.
    static constexpr int BeatMs = 10 * 1000;

    explicit MaintenanceLock(std::shared_ptr<HvxStore> store, int beatMs = BeatMs);
    ~MaintenanceLock() override;

private:
    std::shared_ptr<HvxStore> m_store;
    QString m_token;
    QThread m_thread;
};
