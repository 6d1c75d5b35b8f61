#pragma once

#include "tools/netsim/NetsimContext.h"

/// `zelka-netsim check` and `zelka-netsim demo`: network files without a network.
class FileCommands
{
public:
    FileCommands(CLI::App& app, NetsimContext& context);
    FileCommands(const FileCommands&) = delete;
    FileCommands& operator=(const FileCommands&) = delete;

private:
    void Check() const;
    void Demo() const;

    NetsimContext& m_context;
    std::string m_file;
    std::string m_output;
};
