#include "components/hvxdb/CopiedTable.h"

namespace {

CopiedTable Table(const char* name, int keyColumns, const char* columns, const char* filter = "")
{
    CopiedTable table;
    table.name = QString::fromLatin1(name);
    table.columns = QString::fromLatin1(columns).split(u' ');
    table.keyColumns = keyColumns;
    table.filter = QString::fromLatin1(filter);
    return table;
}

} // namespace

QString CopiedTable::SelectText() const
{
    return QStringLiteral("SELECT %1 FROM %2%3 ORDER BY %4")
        .arg(columns.join(QStringLiteral(", ")), name, Where(),
             columns.first(keyColumns).join(QStringLiteral(", ")));
}

QString CopiedTable::InsertText(int rows) const
{
    const QString row = u'(' + QStringList(columns.size(), QStringLiteral("?")).join(u',') + u')';
    return QStringLiteral("INSERT INTO %1 (%2) VALUES %3")
        .arg(name, columns.join(QStringLiteral(", ")), QStringList(rows, row).join(u','));
}

QString CopiedTable::CountText() const
{
    return QStringLiteral("SELECT count(*) FROM %1%2").arg(name, Where());
}

QString CopiedTable::DeleteText() const
{
    return QStringLiteral("DELETE FROM %1%2").arg(name, Where());
}

QString CopiedTable::Where() const
{
    return filter.isEmpty() ? QString() : QStringLiteral(" WHERE ") + filter;
}

const std::vector<CopiedTable>& CopiedTables()
{
    static const std::vector<CopiedTable> tables = {
        // A new database has the version of its engine's schema already.
        Table("setting", 1, "name value", "name <> 'schema_version'"),
        Table("con_type", 1, "id short_name long_name"),
        Table("con_type_hop", 2, "type_id position waypoint mandatory"),
        Table("node_type", 1, "id short_name long_name"),
        Table("node_type_waypoint", 2, "type_id position waypoint mandatory"),
        Table("waypoint", 1, "name position long_name"),
        Table("parameter", 2,
              "waypoint position keyword long_name requirement default_value kind text_length low high"),
        Table("parameter_value", 3, "waypoint keyword position value"),
        Table("manager", 1, "manager_index device path command_text"),
        Table("connection", 1, "row_key id name name_key target"),
        Table("node", 1, "id name name_key node_type target connection_key command_tail manager_index"),
        Table("users_text", 2, "kind name_key users"),
        Table("journal", 1, "id record_type text1 number text2 changed"),
    };
    return tables;
}
