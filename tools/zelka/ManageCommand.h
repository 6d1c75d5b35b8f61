#pragma once

#include "tools/zelka/CommandContext.h"

/// `zelka manage`: starts the manager of a node.
class ManageCommand
{
public:
    ManageCommand(CLI::App& app, CommandContext& context);
    ManageCommand(const ManageCommand&) = delete;
    ManageCommand& operator=(const ManageCommand&) = delete;

private:
    void Manage() const;

    CommandContext& m_context;
    std::string m_name;
    bool m_print = false;
};
