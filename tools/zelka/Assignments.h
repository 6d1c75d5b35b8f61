#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <string>
#include <vector>

/// A parameter's value, by "WAYPOINT.KEYWORD", "NUMBER.KEYWORD" or "KEYWORD".
struct ParameterAssignment
{
    QString key;
    QString value;

    [[nodiscard]] QString Text() const { return key + u'=' + value; }
};

/// What a record is to become, as it was typed: only what was named.
struct RecordChanges
{
    std::optional<QString> name;
    std::optional<QString> connection;
    std::optional<QString> type;
    std::optional<QString> target;
    std::optional<QString> manager;
    std::optional<QString> tail;
    std::vector<ParameterAssignment> parameters;

    [[nodiscard]] bool IsEmpty() const;
};

/// Adds "KEY=VALUE" texts: "name", "connection", "type", "target", "manager" and "tail" in any case are
/// fields, all others parameters. Raises CommandError (Usage) for a text without "=" or a key, and for one
/// that is given twice.
void AddAssignments(const std::vector<std::string>& texts, RecordChanges& changes);
