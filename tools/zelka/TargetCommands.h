#pragma once

#include "tools/zelka/CommandContext.h"

class DatabaseSession;

/// `zelka target` and `zelka check`: the texts by which network elements are reached.
class TargetCommands
{
public:
    TargetCommands(CLI::App& app, CommandContext& context);
    TargetCommands(const TargetCommands&) = delete;
    TargetCommands& operator=(const TargetCommands&) = delete;

private:
    void PrintTarget() const;
    void CheckTarget() const;
    [[nodiscard]] QString ConnectionTarget(const DatabaseSession& session, const QString& name) const;
    [[nodiscard]] QString NodeTarget(const DatabaseSession& session, const QString& name) const;

    CommandContext& m_context;
    std::string m_name;
    std::string m_target;
    bool m_full = false;
};
