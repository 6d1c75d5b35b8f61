#pragma once

#include <QString>

#include <CLI/CLI.hpp>
#include <optional>
#include <string>
#include <vector>

struct ScanSaveRow;

/// What `zelka scan` is asked to do with the nodes it finds: the options, and the names that follow from
/// them.
class ScanSaveOptions
{
public:
    /// What becomes of nodes whose names are not free.
    enum class Conflict
    {
        /// One of them, and nothing is saved.
        Fail,
        /// They stay out.
        Skip,
        /// They take the place of the nodes that have the names.
        Replace,
    };

    void Declare(CLI::App& scan);
    /// Raises CommandError (Usage) for options that would have no effect.
    void Check() const;

    /// The found nodes concern the database.
    [[nodiscard]] bool Wanted() const { return m_save || m_dryRun; }
    /// Only what would be done is told.
    [[nodiscard]] bool DryRun() const { return m_dryRun; }
    [[nodiscard]] Conflict OnConflict() const;
    /// The name of a node in the database; `row` is named by its identification.
    [[nodiscard]] QString NameOf(const ScanSaveRow& row) const;

private:
    [[nodiscard]] bool NamesBy(const char* part) const;

    bool m_save = false;
    bool m_dryRun = false;
    std::optional<std::string> m_prefix;
    std::vector<std::string> m_nameFrom;
    std::string m_onConflict;
};
