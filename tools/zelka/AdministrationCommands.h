#pragma once

#include "tools/zelka/CommandContext.h"

/// `zelka db check`, `db rights` and `db managers`: what an administrator sees to.
class AdministrationCommands
{
public:
    AdministrationCommands(CLI::App& db, CommandContext& context);
    AdministrationCommands(const AdministrationCommands&) = delete;
    AdministrationCommands& operator=(const AdministrationCommands&) = delete;

private:
    void AddCheck(CLI::App& db);
    void AddRights(CLI::App& db);
    void AddManagers(CLI::App& db);
    void Check() const;
    void SetRights() const;
    void ListManagers() const;
    void AddManager() const;
    void RemoveManager() const;

    CommandContext& m_context;
    std::string m_user;
    std::string m_scan;
    std::string m_edit;
    std::string m_device;
    std::string m_path;
    std::string m_commandText;
};
