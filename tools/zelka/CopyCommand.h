#pragma once

#include "tools/zelka/CommandContext.h"

/// `zelka db copy`: moves a database to another place or to another engine.
class CopyCommand
{
public:
    CopyCommand(CLI::App& db, CommandContext& context);
    CopyCommand(const CopyCommand&) = delete;
    CopyCommand& operator=(const CopyCommand&) = delete;

private:
    void Copy() const;

    CommandContext& m_context;
    std::string m_from;
    std::string m_to;
    bool m_force = false;
};
