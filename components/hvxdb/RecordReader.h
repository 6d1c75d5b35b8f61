#pragma once

#include "components/hvxdb/HvxStore.h"

/// Reads single records. Inside a transaction the first read of a node fetches all that belongs to it, its
/// connection and its manager included, and further reads cost nothing.
///
/// Names compare trimmed and without case. Failures of the engine: ComponentError.
class RecordReader
{
public:
    explicit RecordReader(HvxStore& store) : m_store(&store) {}

    /// The node of that name; `exists` is false when there is none.
    [[nodiscard]] NodeRow Node(const QString& name) const;
    /// Whether there is one, for who asks nothing else; reads no more than that.
    [[nodiscard]] bool NodeExists(const QString& name) const;
    [[nodiscard]] ConnectionRow Connection(const QString& name) const;
    /// The manager of a device; no index when there is none.
    [[nodiscard]] ManagerRow Manager(const QString& device) const;
    /// The same, but raise Refused when there is none.
    [[nodiscard]] NodeRow ExistingNode(const QString& name) const;
    [[nodiscard]] ConnectionRow ExistingConnection(const QString& name) const;
    /// "" when none is stored.
    [[nodiscard]] QString UsersText(const QString& kind, const QString& name) const;
    /// Pair list of device name and "index|path".
    [[nodiscard]] QString ManagerNames() const;

private:
    HvxStore* m_store;
};
