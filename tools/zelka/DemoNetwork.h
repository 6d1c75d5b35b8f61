#pragma once

#include "components/hvxdb/HvxAdministration.h"

/// The demo network: what a country-wide operator could have, made from tables, always the same.
///
/// Each connection serves one site; its nodes are the site's equipment, numbered. Targets are in the form in
/// which the database stores them.
class DemoNetwork
{
public:
    static constexpr qint64 ConnectionCount = 40;
    static constexpr qint64 NodeCount = 600;

    /// `managerProgram`: path of the program that all managers start.
    explicit DemoNetwork(const QString& managerProgram);

    std::vector<ManagerRecord> managers;
    std::vector<ConnectionRecord> connections;
    std::vector<NodeRecord> nodes;

    /// Writes the index that the database gave a manager into all nodes of its device.
    void SetManagerIndex(const QString& device, const QString& index);
};
