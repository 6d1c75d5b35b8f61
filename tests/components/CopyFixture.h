#pragma once

#include "tests/components/DatabaseFixture.h"
#include "tests/components/PlainSql.h"

/// What tests of copying share: a database in which every table holds something odd, and the contents of any
/// database as texts.
namespace CopyFixture {

/// A table and its columns, apart from those that engines keep each in their own way.
struct Table
{
    const char* name;
    const char* columns;
};

inline constexpr Table Tables[] = {
    {"setting", "name value"},
    {"connection", "id name name_key target"},
    {"manager", "manager_index device path command_text"},
    {"node", "id name name_key node_type target command_tail manager_index"},
    {"users_text", "kind name_key users"},
    {"journal", "id record_type text1 number text2 changed"},
    {"con_type", "id short_name long_name"},
    {"con_type_hop", "type_id position waypoint mandatory"},
    {"node_type", "id short_name long_name"},
    {"node_type_waypoint", "type_id position waypoint mandatory"},
    {"waypoint", "name position long_name"},
    {"parameter", "waypoint position keyword long_name requirement default_value kind text_length low high"},
    {"parameter_value", "waypoint keyword position value"},
};

/// The rows of a query as texts, sorted; `columns` are separated by blanks.
inline QStringList RowsOf(const QString& source, const QString& columns, const QString& from)
{
    QStringList texts;
    for (const QString& column : columns.split(u' '))
        texts << QStringLiteral("coalesce(CAST(%1 AS TEXT), '\x1e')").arg(column);
    QStringList rows = PlainSql(source).Rows(
        QStringLiteral("SELECT %1 FROM %2").arg(texts.join(QStringLiteral(" || '\x1f' || ")), from));
    rows.sort();
    return rows;
}

/// All that a copy takes over except counters and rights, one text a row.
inline QStringList ContentsOf(const QString& source)
{
    QStringList contents;
    for (const Table& table : Tables) {
        const QString name = QString::fromLatin1(table.name);
        for (const QString& row : RowsOf(source, QString::fromLatin1(table.columns), name))
            contents << name + u'\x1f' + row;
    }
    contents << RowsOf(source, QStringLiteral("node.name connection.name"),
                       QStringLiteral("node JOIN connection ON connection_key = row_key"));
    return contents;
}

/// Names and targets that a careless copy would spoil.
inline QStringList OddTexts()
{
    return {QStringLiteral("O'Brien \"quoted\" ''"),
            QStringLiteral("back\\slash \\n \\'"),
            QStringLiteral("tab\tline\nreturn\rbell\a unit\x1f end"),
            QStringLiteral("ΣΊΣΥΦΟΣ straße İstanbul"),
            QStringLiteral("星の駅 \U0001F689"),
            QStringLiteral("%1 $1 ? :name {} NULL"),
            QString(255, u'ž')};
}

/// Fills the fixture's database: odd records, texts of all kinds, a Journal that was cleaned, and counters
/// that are ahead of the rows because the last records are gone.
inline void AddOddRecords(const DatabaseFixture& fixture)
{
    const std::unique_ptr<HvxAdministration> administration = HvxAdministration::Open(fixture.Source());
    const QString manager = administration->AddManager(QStringLiteral("O'Device\\"), QStringLiteral("/opt/ž"),
                                                       QStringLiteral("-x \"'\\"));
    administration->AddManager(QStringLiteral("Gone"), QStringLiteral("/opt/gone"), QString());
    administration->RemoveManager(QStringLiteral("Gone"));

    const std::unique_ptr<HvxDatabaseComponent> component = fixture.OpenComponent();
    const QString longTarget = QStringLiteral("WP=NET4,NOTE=") + QString(2000, u'字');
    for (const QString& text : OddTexts()) {
        const QString name = QStringLiteral("Node ") + text.left(250);
        component->SaveParent(text, QStringLiteral("WP=LAN,NOTE=") + text);
        component->SaveNode(name, QStringLiteral("O'Device\\"), longTarget, text, text);
        component->UpdateUsersList(name, QStringLiteral("Parent"), text);
    }
    component->UpdateNodeNmaidx(QStringLiteral("Node 星の駅 \U0001F689"), manager);
    component->ReplaceNodeName(QStringLiteral("South"), QStringLiteral("Süd"));
    component->JournalClearByRecordLimit(5, 12);
    component->SaveParent(QStringLiteral("Last"), QString());
    component->DeleteParent(QStringLiteral("Last"), true);
    component->CloseDatabase();
}

inline bool AlwaysOn(qint64 /*done*/, qint64 /*total*/)
{
    return true;
}

} // namespace CopyFixture
