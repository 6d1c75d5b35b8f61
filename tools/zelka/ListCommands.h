#pragma once

#include "tools/zelka/CommandContext.h"

/// `zelka list connections|nodes`: what the trees of the browser show.
class ListCommands
{
public:
    ListCommands(CLI::App& app, CommandContext& context);
    ListCommands(const ListCommands&) = delete;
    ListCommands& operator=(const ListCommands&) = delete;

private:
    void ListConnections() const;
    void ListNodes() const;
    void PrintMatching(const QString& pairList) const;
    [[nodiscard]] QString Match() const { return QString::fromStdString(m_match); }

    CommandContext& m_context;
    std::string m_under;
    std::string m_match;
    bool m_ids = false;
};
