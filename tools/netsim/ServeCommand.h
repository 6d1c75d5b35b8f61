#pragma once

#include "tools/netsim/NetsimContext.h"

struct HostAndPort;
class ControlChannel;
class GatewayServer;

/// `zelka-netsim serve`: runs a network until it is told to end.
class ServeCommand
{
public:
    ServeCommand(CLI::App& app, NetsimContext& context);
    ServeCommand(const ServeCommand&) = delete;
    ServeCommand& operator=(const ServeCommand&) = delete;

private:
    void Run() const;
    void Listen(GatewayServer& gateway, ControlChannel& control) const;
    void Note(const QString& text, bool detail) const;

    NetsimContext& m_context;
    std::string m_file;
    std::string m_listen;
    qint64 m_seed = -1;
    bool m_quiet = false;
    bool m_log = false;
};
