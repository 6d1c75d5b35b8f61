#pragma once

#include "tools/zelka/AddressWalk.h"
#include "tools/zelka/CommandContext.h"
#include "tools/zelka/ScanSaveOptions.h"

#include <functional>
#include <optional>

class ConData;

/// `zelka scan` and `zelka buses`: which nodes answer behind a connection, and which buses it serves.
class ScanCommands
{
public:
    ScanCommands(CLI::App& app, CommandContext& context);
    ScanCommands(const ScanCommands&) = delete;
    ScanCommands& operator=(const ScanCommands&) = delete;

private:
    void AddScan(CLI::App& app);
    void Scan() const;
    /// Scans and hands over each node that answers. False: the reader of the output has gone before the end.
    [[nodiscard]] bool Walk(const QString& target,
                            const std::function<void(const AnsweringNode& node)>& found) const;
    /// Scans and does what the options of saving ask for.
    void WalkAndSave(const QString& target, ConData& direct) const;
    void PrintBuses() const;
    /// The target of the scan; `direct` becomes the connection. The database is closed again when it is
    /// given.
    [[nodiscard]] QString ReadScanTarget(ConData& direct) const;
    [[nodiscard]] QString ReadBusesTarget() const;
    [[nodiscard]] AddressRange Range() const;
    void Print(const AnsweringNode& node) const;
    [[nodiscard]] QStringList AskBuses(const QString& target) const;
    /// Runs work that can be ended by Ctrl+C, which the caller has noted, and by a reader that goes away.
    void RunOnNetwork(const std::function<void()>& work) const;
    [[nodiscard]] bool IsOver() const;

    CommandContext& m_context;
    std::string m_name;
    int m_from = 0;
    int m_to = 0;
    std::optional<int> m_bus;
    std::optional<int> m_retries;
    std::optional<int> m_timeOut;
    int m_interval = 200;
    ScanSaveOptions m_saving;
};
