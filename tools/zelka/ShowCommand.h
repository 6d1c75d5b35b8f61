#pragma once

#include "tools/zelka/CommandContext.h"
#include "tools/zelka/RecordLookup.h"

class DatabaseSession;

/// `zelka show`: one record with its id and all parameters, under the keys by which `zelka set` takes them.
class ShowCommand
{
public:
    ShowCommand(CLI::App& app, CommandContext& context);
    ShowCommand(const ShowCommand&) = delete;
    ShowCommand& operator=(const ShowCommand&) = delete;

private:
    void Show() const;
    [[nodiscard]] QJsonObject Describe(const DatabaseSession& session, const FoundRecord& record) const;
    void Print(const QJsonObject& record) const;

    CommandContext& m_context;
    std::string m_name;
};
