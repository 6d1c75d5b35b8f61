#pragma once

#include "components/hvxdb/CopySide.h"

/// A SQLite database in a copy.
class SqliteCopySide : public CopySide
{
public:
    explicit SqliteCopySide(SqlSession& session) : m_session(&session) {}

    [[nodiscard]] bool IsAt(const QString& source) override;
    /// Takes the indexes away too: to build them behind the rows costs less.
    void BeginRows() override;
    void EndRows() override;
    [[nodiscard]] DatabaseCounters Counters() override;
    void SetCounters(const DatabaseCounters& counters) override;
    [[nodiscard]] std::vector<StoredRights> Rights() override;
    [[nodiscard]] QStringList SetRights(const std::vector<StoredRights>& rights) override;

private:
    SqlSession* m_session;
};
