#pragma once

#include "tools/zelka/FoundNodePlan.h"

#include <QString>

#include <vector>

class ConData;
class DatabaseSession;
class ScanSaveOptions;
struct AnsweringNode;
struct CommandContext;

/// Brings what a scan has found into the database, or tells what that would come to, and prints what became
/// of each node.
///
/// Each node is saved in a transaction of its own; what is saved stays so, however the run ends.
class FoundNodesRun
{
public:
    /// `direct`: the connection of the scan as it was when the scan began, its id included.
    FoundNodesRun(CommandContext& context, const ScanSaveOptions& options, ConData& direct)
        : m_context(context), m_options(options), m_direct(direct)
    {}

    void Take(const AnsweringNode& node, const QString& retries, const QString& timeOut);

    /// Opens the database and does it. Raises CommandError and ComponentError where it cannot go on,
    /// Interrupted among them, behind the node under way.
    void Run();
    /// Tells of a command that ends early how far it has come. Runs in the place of Run or behind it.
    void TellEnd();
    /// Raises CommandError (Refused) when nodes were refused.
    void RequireNoneRefused() const;

private:
    void RequireUnchanged(const DatabaseSession& session) const;
    [[nodiscard]] bool IsRefused(const PlannedNode& node) const;
    [[nodiscard]] bool MayReplace(const PlannedNode& node) const;

    void PrintPlan();
    void PrintRefusals();
    void SaveAll(DatabaseSession& session);
    void SaveNext(DatabaseSession& session);
    void TakeManager(const DatabaseSession& session, const PlannedNode& node);

    void PrintNext(const QString& state, const QString& reason = QString());
    [[nodiscard]] QString SavedWords() const;

    CommandContext& m_context;
    const ScanSaveOptions& m_options;
    ConData& m_direct;
    std::vector<PlannedNode> m_nodes;
    /// The names have been looked up.
    bool m_planned = false;
    /// Nodes that have been told of, from the first.
    std::size_t m_printed = 0;
    int m_saved = 0;
    int m_refused = 0;
};
