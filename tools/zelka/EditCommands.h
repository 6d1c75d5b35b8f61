#pragma once

#include "tools/zelka/CommandContext.h"
#include "tools/zelka/EditSession.h"

#include <optional>
#include <string>
#include <vector>

/// `zelka add connection|node`, `zelka set` and `zelka remove`: single records, by the rules of the dialogs.
class EditCommands
{
public:
    EditCommands(CLI::App& app, CommandContext& context);
    EditCommands(const EditCommands&) = delete;
    EditCommands& operator=(const EditCommands&) = delete;

private:
    CLI::App& Declare(CLI::App& parent, const std::string& name, const std::string& description,
                      void (EditCommands::*run)() const);
    void DeclareAdd(CLI::App& app);
    void DeclareAddOptions(CLI::App& command, const std::string& kind);
    void DeclareSet(CLI::App& app);
    void DeclareRemove(CLI::App& app);

    void AddConnection() const;
    void AddNode() const;
    void Set() const;
    void Remove() const;
    /// What the options of `add` and the KEY=VALUE texts ask for.
    [[nodiscard]] RecordChanges Changes() const;
    void Report(const QString& done, const EditedRecord& record) const;

    CommandContext& m_context;
    std::string m_name;
    std::optional<std::string> m_target;
    std::optional<std::string> m_type;
    std::optional<std::string> m_like;
    std::optional<std::string> m_connection;
    std::optional<std::string> m_manager;
    std::optional<std::string> m_tail;
    std::optional<qint32> m_ifId;
    std::vector<std::string> m_values;
    bool m_force = false;
};
