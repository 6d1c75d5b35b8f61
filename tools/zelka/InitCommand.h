#pragma once

#include "tools/zelka/CommandContext.h"

class HvxAdministration;

/// `zelka db init`: makes a database, empty, with the demo network or with records made by rule.
class InitCommand
{
public:
    InitCommand(CLI::App& db, CommandContext& context);
    InitCommand(const InitCommand&) = delete;
    InitCommand& operator=(const InitCommand&) = delete;

private:
    void Init() const;
    [[nodiscard]] bool IsEmpty() const { return !m_demo && m_connections == 0 && m_nodes == 0; }
    void Fill(const QString& source) const;
    void Report(const QString& source, const QString& kept) const;

    CommandContext& m_context;
    std::string m_catalogue;
    bool m_demo = false;
    bool m_force = false;
    qint64 m_connections = 0;
    qint64 m_nodes = 0;
};
