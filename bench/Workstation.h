#pragma once

#include "components/hvxdb/HvxDatabaseComponent.h"

/// A workstation as a server sees it: a connection of its own and refreshes that ask what those of a control
/// ask, with the limits that a control has from the start.
///
/// Thread: the one that opened it. Failures: ComponentError.
class Workstation
{
public:
    explicit Workstation(const QString& source) : m_component(source) {}

    /// Connects, and goes on from the newest record of the Journal.
    void Open();
    /// Gives how many records it brought. Raises ComponentError; nothing is left open then.
    int Refresh();
    [[nodiscard]] qint64 StatementCount() const { return m_component.StatementCount(); }

private:
    int ReadRecords();
    void ReadRecord(qint32 id);

    HvxDatabaseComponent m_component;
    qint32 m_position = 0;
};
