#pragma once

#include "components/hvxdb/SqlSession.h"

#include <QStringList>

#include <functional>

/// The scripts that make a schema and bring an older one up to date.
struct SchemaScripts
{
    /// The version that `create` makes.
    qint32 version = 0;
    /// Adds every object that is missing; see SplitSqlScript for its form.
    QString create;
    /// What brings a database of version n - 1 to version n; empty when there is no such script.
    std::function<QString(qint32 version)> upgrade;
};

/// Brings an opened database into the form that this component works with, or refuses it.
class HvxSchema
{
public:
    /// The version that this component works with.
    static constexpr qint32 CurrentVersion = 1;

    /// The scripts that come with the component for this engine.
    static SchemaScripts ScriptsOf(const HvxEngine& engine);

    HvxSchema(SqlSession& session, SchemaScripts scripts);

    /// Makes all objects in the open transaction; the definitions stay empty.
    void Create();

    /// Checks the database and upgrades it. Only reads when it is up to date. Raises ComponentError:
    /// UpgradeFailed (a newer version, or an upgrade that failed and was undone); TablesMissing (where the
    /// definitions are intact the missing tables have then been made, so that the next try succeeds).
    void Prepare();

    /// The version of the database; 0 when it does not tell.
    [[nodiscard]] qint32 StoredVersion();
    /// True when the database has any of the tables.
    [[nodiscard]] bool HasTables();
    /// Names of the objects that a database of this version lacks.
    [[nodiscard]] QStringList MissingObjects();

private:
    void Upgrade(qint32 from);
    void Repair();
    [[nodiscard]] QStringList ObjectNames();
    [[nodiscard]] bool HasDefinitions();
    [[nodiscard]] bool HasFirstRows();

    SqlSession* m_session;
    SchemaScripts m_scripts;
};
