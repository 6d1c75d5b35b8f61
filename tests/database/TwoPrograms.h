#pragma once

#include "components/hvxdb/HvxDatabaseComponent.h"
#include "platform/Components.h"
#include "tests/components/DatabaseFixture.h"
#include "tests/database/SaveFixture.h"

#include <memory>

/// A database, opened by the gateway of a fixture and by another program.
template <typename Fixture>
class TwoProgramsOn
{
public:
    explicit TwoProgramsOn(bool mayEdit = true)
        : Source(mayEdit ? File.Source() : File.SourceWithoutEditRight()),
          Save([this] { Register(); }),
          Other(File.OpenComponent())
    {}

    void Register() const
    {
        RegisterComponent(HvxDatabaseId, [source = Source] {
            auto component = std::make_unique<HvxDatabaseComponent>(source);
            component->SetBusyTimeout(0);
            return component;
        });
    }

    /// All records, one a line, and the Journal's last id.
    [[nodiscard]] QString Contents() const
    {
        QStringList lines = File.Rows("SELECT name || '|' || target FROM connection ORDER BY id");
        lines += File.Rows("SELECT name || '|' || connection_key || '|' || target || '|' || command_tail ||"
                           " '|' || coalesce(manager_index, 0) FROM node ORDER BY id");
        lines += File.Rows("SELECT max(id) FROM journal");
        return lines.join(u'\n');
    }

    /// What the other program finds: connection, device, command line, target; "none" without a record.
    [[nodiscard]] QString Record(const QString& node) const
    {
        QString id;
        QString conName;
        QString target;
        QString device;
        QString commandLine;
        Other->GetNodeID(node, id);
        if (id.isEmpty())
            return QStringLiteral("none");
        Other->GetNodeEx(node, conName, target, device, commandLine);
        return QStringList{conName, device, commandLine, target}.join(u';');
    }

    [[nodiscard]] QString IndexOf(const QString& node) const
    {
        return File.RunSql(QStringLiteral("SELECT manager_index FROM node WHERE name = '%1'").arg(node))
            .toString();
    }

    DatabaseFixture File;
    QString Source;
    Fixture Save;
    std::unique_ptr<HvxDatabaseComponent> Other;
};

using TwoPrograms = TwoProgramsOn<SaveFixture>;
