#pragma once

#include "components/hvxdb/CopySide.h"

/// A PostgreSQL database in a copy. As the target it needs its owner.
class PostgresCopySide : public CopySide
{
public:
    explicit PostgresCopySide(SqlSession& session) : m_session(&session) {}

    [[nodiscard]] bool IsAt(const QString& source) override;
    void BeginRows() override;
    void EndRows() override;
    [[nodiscard]] DatabaseCounters Counters() override;
    void SetCounters(const DatabaseCounters& counters) override;
    /// Those of the roles that can log in, superusers aside, who have all rights anyway.
    [[nodiscard]] std::vector<StoredRights> Rights() override;
    /// Grants to the roles that the server has.
    [[nodiscard]] QStringList SetRights(const std::vector<StoredRights>& rights) override;

private:
    /// Switches the triggers of all tables.
    void Switch(const QString& verb);
    /// The next number of a sequence comes behind `last`.
    void SetSequence(const QString& sequence, const QString& last);

    SqlSession* m_session;
};
