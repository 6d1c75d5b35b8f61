#pragma once

#include "tools/netsim/NetsimContext.h"

#include <QJsonObject>

#include <limits>

/// `zelka-netsim ctl`: commands to a network that runs.
class ControlCommands
{
public:
    ControlCommands(CLI::App& app, NetsimContext& context);
    ControlCommands(const ControlCommands&) = delete;
    ControlCommands& operator=(const ControlCommands&) = delete;

private:
    /// Adds a command; when it is chosen, `fill` puts what it is about into the request.
    CLI::App& Add(CLI::App& ctl, const std::string& name, const std::string& description,
                  const std::function<void(QJsonObject&)>& fill);
    /// The same for one that is about a node.
    CLI::App& AddForNode(CLI::App& ctl, const std::string& name, const std::string& description,
                         const std::function<void(QJsonObject&)>& fill = {});
    void AddNodeCommands(CLI::App& ctl);
    void AddReports(CLI::App& ctl);
    void AddFaults(CLI::App& ctl);

    [[nodiscard]] QJsonObject Ask(const QJsonObject& request) const;
    void Print(const QJsonObject& answer) const;

    NetsimContext& m_context;
    std::string m_listen;
    std::string m_node;
    std::string m_newNode;
    std::string m_text;
    std::string m_type;
    int m_delayMs = 0;
    int m_jitterMs = 0;
    double m_loss = 0;
    int m_bus = 0;
    std::string m_fault;
    int m_from = 1;
    int m_count = std::numeric_limits<int>::max();
    bool m_json = false;
};
