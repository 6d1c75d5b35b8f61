#pragma once

#include "tools/zelka/CommandContext.h"
#include "tools/zelka/ImportRun.h"

/// `zelka db import` and `zelka db export`: records as comma-separated values.
class TransferCommands
{
public:
    TransferCommands(CLI::App& db, CommandContext& context);
    TransferCommands(const TransferCommands&) = delete;
    TransferCommands& operator=(const TransferCommands&) = delete;

private:
    void AddImport(CLI::App& db);
    void AddExport(CLI::App& db);
    void Import() const;
    void Export() const;
    void PrintProblems(const ImportProblems& problems) const;
    void PrintReport(const ImportReport& report) const;

    CommandContext& m_context;
    std::string m_importFile;
    std::string m_exportFile;
    std::string m_under;
    std::string m_rule = "fail";
    bool m_dryRun = false;
};
