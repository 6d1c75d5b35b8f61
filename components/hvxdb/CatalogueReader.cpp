#include "components/hvxdb/CatalogueReader.h"

#include "platform/JsonText.h"

#include <QJsonDocument>
#include <QJsonParseError>

#include <algorithm>
#include <limits>

namespace {

/// "waypoint NET4", or "waypoint no. 3" for a row without a usable name.
QString RowName(const QString& what, const QJsonValue& row, const QString& nameKey, qsizetype position)
{
    const QString name = row.toObject().value(nameKey).toString();
    if (name.isEmpty())
        return QStringLiteral("%1 no. %2").arg(what).arg(position + 1);
    return what + u' ' + name;
}

} // namespace

void CatalogueReader::Read(const QByteArray& text)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    if (error.error != QJsonParseError::NoError) {
        Problem(LineAndColumn(text, error.offset), error.errorString());
        return;
    }
    const QString where = QStringLiteral("catalogue");
    if (!document.isObject()) {
        Problem(where, QStringLiteral("must be an object"));
        return;
    }
    const QJsonObject root = document.object();
    RefuseOtherKeys(root, where, {u"connectionTypes", u"nodeTypes", u"groups", u"waypoints"});
    ReadTypes(root, QStringLiteral("connectionTypes"), QStringLiteral("connection type"),
              m_catalogue.conTypes);
    ReadTypes(root, QStringLiteral("nodeTypes"), QStringLiteral("node type"), m_catalogue.nodeTypes);
    ReadGroups(root);
    ReadWaypoints(root);
}

void CatalogueReader::ReadTypes(const QJsonObject& root, const QString& key, const QString& what,
                                std::vector<TypeDefinition>& types)
{
    const QJsonArray rows = Array(root, QStringLiteral("catalogue"), key);
    for (qsizetype i = 0; i < rows.size(); ++i) {
        const QString where = RowName(what, rows.at(i), QStringLiteral("shortName"), i);
        if (!rows.at(i).isObject()) {
            Problem(where, QStringLiteral("must be an object"));
            continue;
        }
        const QJsonObject row = rows.at(i).toObject();
        RefuseOtherKeys(row, where, {u"shortName", u"longName", u"hops"});
        TypeDefinition type;
        type.shortName = Text(row, where, QStringLiteral("shortName"));
        type.longName = Text(row, where, QStringLiteral("longName"));
        ReadHops(Array(row, where, QStringLiteral("hops")), where, type.hops);
        types.push_back(type);
    }
}

void CatalogueReader::ReadHops(const QJsonArray& rows, const QString& where, std::vector<HopDefinition>& hops)
{
    for (qsizetype i = 0; i < rows.size(); ++i) {
        const QString hopWhere = QStringLiteral("%1, hop no. %2").arg(where).arg(i + 1);
        const QJsonArray row = rows.at(i).toArray();
        if (row.size() != 2 || !row.at(0).isString()) {
            Problem(hopWhere, QStringLiteral("must be a waypoint and a flag"));
            continue;
        }
        const QJsonValue flag = row.at(1);
        if (!flag.isDouble() || (flag.toDouble() != 0 && flag.toDouble() != 1)) {
            Problem(hopWhere, QStringLiteral("the flag must be 0 or 1"));
            continue;
        }
        hops.push_back({row.at(0).toString(), flag.toDouble() == 1});
    }
}

void CatalogueReader::ReadGroups(const QJsonObject& root)
{
    const QJsonValue groups = root.value(QStringLiteral("groups"));
    if (groups.isUndefined())
        return;
    if (!groups.isObject()) {
        Problem(QStringLiteral("groups"), QStringLiteral("must be an object"));
        return;
    }
    const QJsonObject rows = groups.toObject();
    for (auto group = rows.begin(); group != rows.end(); ++group) {
        const QString where = QStringLiteral("group ") + group.key();
        Parameters& parameters = m_groups[group.key()];
        if (group.value().isArray())
            ReadParameters(group.value().toArray(), where, false, parameters);
        else
            Problem(where, QStringLiteral("must be an array"));
    }
}

void CatalogueReader::ReadWaypoints(const QJsonObject& root)
{
    const QJsonArray rows = Array(root, QStringLiteral("catalogue"), QStringLiteral("waypoints"));
    for (qsizetype i = 0; i < rows.size(); ++i) {
        const QString where = RowName(QStringLiteral("waypoint"), rows.at(i), QStringLiteral("name"), i);
        if (!rows.at(i).isObject()) {
            Problem(where, QStringLiteral("must be an object"));
            continue;
        }
        const QJsonObject row = rows.at(i).toObject();
        RefuseOtherKeys(row, where, {u"name", u"longName", u"parameters"});
        WaypointDefinition waypoint;
        waypoint.name = Text(row, where, QStringLiteral("name"));
        waypoint.longName = Text(row, where, QStringLiteral("longName"));
        ReadParameters(Array(row, where, QStringLiteral("parameters")), where, true, waypoint.parameters);
        m_catalogue.waypoints.push_back(waypoint);
    }
}

void CatalogueReader::ReadParameters(const QJsonArray& rows, const QString& where, bool groupsAllowed,
                                     Parameters& parameters)
{
    for (qsizetype i = 0; i < rows.size(); ++i) {
        const QString rowWhere =
            where + QStringLiteral(", ") +
            RowName(QStringLiteral("parameter"), rows.at(i), QStringLiteral("keyword"), i);
        const QJsonObject row = rows.at(i).toObject();
        if (!rows.at(i).isObject())
            Problem(rowWhere, QStringLiteral("must be an object"));
        else if (row.contains(QStringLiteral("group")) && !groupsAllowed)
            Problem(rowWhere, QStringLiteral("a group must not hold a group"));
        else if (row.contains(QStringLiteral("group")))
            ReadGroupRow(row, rowWhere, parameters);
        else
            parameters.push_back(ReadParameter(row, rowWhere));
    }
}

void CatalogueReader::ReadGroupRow(const QJsonObject& row, const QString& where, Parameters& parameters)
{
    RefuseOtherKeys(row, where, {u"group"});
    const QString name = Text(row, where, QStringLiteral("group"));
    const auto group = m_groups.constFind(name);
    if (group == m_groups.constEnd())
        Problem(where, QStringLiteral("there is no group \"%1\"").arg(name));
    else
        parameters.insert(parameters.end(), group->begin(), group->end());
}

ParameterDefinition CatalogueReader::ReadParameter(const QJsonObject& row, const QString& where)
{
    RefuseOtherKeys(row, where,
                    {u"keyword", u"longName", u"required", u"default", u"text", u"bounds", u"list"});
    ParameterDefinition parameter;
    parameter.keyword = Text(row, where, QStringLiteral("keyword"));
    parameter.longName = Text(row, where, QStringLiteral("longName"));
    parameter.requirement =
        WholeNumber(row.value(QStringLiteral("required")), where, QStringLiteral("required"));
    if (row.contains(QStringLiteral("default")))
        parameter.defaultValue = Text(row, where, QStringLiteral("default"));
    ReadKind(row, where, parameter);
    return parameter;
}

void CatalogueReader::ReadKind(const QJsonObject& row, const QString& where, ParameterDefinition& parameter)
{
    const QJsonValue text = row.value(QStringLiteral("text"));
    const QJsonValue bounds = row.value(QStringLiteral("bounds"));
    const QJsonValue list = row.value(QStringLiteral("list"));
    const auto kinds = {text, bounds, list};
    if (std::count_if(kinds.begin(), kinds.end(),
                      [](const QJsonValue& kind) { return !kind.isUndefined(); }) > 1)
        Problem(where, QStringLiteral("has more than one of \"text\", \"bounds\" and \"list\""));
    if (!text.isUndefined()) {
        parameter.kind = ParameterKind::Text;
        parameter.textLength = WholeNumber(text, where, QStringLiteral("text"));
    } else if (!bounds.isUndefined()) {
        parameter.kind = ParameterKind::WholeNumber;
        ReadBounds(bounds, where, parameter);
    } else if (!list.isUndefined()) {
        parameter.kind = ParameterKind::List;
        const QJsonArray values = Array(row, where, QStringLiteral("list"));
        for (const auto& value : values) {
            if (!value.isString())
                Problem(where, QStringLiteral("each value of \"list\" must be a text"));
            parameter.values << value.toString();
        }
    }
}

void CatalogueReader::ReadBounds(const QJsonValue& value, const QString& where,
                                 ParameterDefinition& parameter)
{
    const QJsonArray bounds = value.toArray();
    if (bounds.size() != 2) {
        Problem(where, QStringLiteral("\"bounds\" must be the lowest and the highest value"));
        return;
    }
    parameter.low = WholeNumber(bounds.at(0), where, QStringLiteral("bounds"));
    parameter.high = WholeNumber(bounds.at(1), where, QStringLiteral("bounds"));
}

void CatalogueReader::RefuseOtherKeys(const QJsonObject& row, const QString& where,
                                      std::initializer_list<QStringView> keys)
{
    const QStringList rowKeys = row.keys();
    for (const QString& key : rowKeys) {
        if (std::find(keys.begin(), keys.end(), key) == keys.end())
            Problem(where, QStringLiteral("unknown key \"%1\"").arg(key));
    }
}

QJsonArray CatalogueReader::Array(const QJsonObject& row, const QString& where, const QString& key)
{
    const QJsonValue value = row.value(key);
    if (value.isUndefined())
        Problem(where, QStringLiteral("\"%1\" is missing").arg(key));
    else if (!value.isArray())
        Problem(where, QStringLiteral("\"%1\" must be an array").arg(key));
    return value.toArray();
}

QString CatalogueReader::Text(const QJsonObject& row, const QString& where, const QString& key)
{
    const QJsonValue value = row.value(key);
    if (value.isUndefined())
        Problem(where, QStringLiteral("\"%1\" is missing").arg(key));
    else if (!value.isString())
        Problem(where, QStringLiteral("\"%1\" must be a text").arg(key));
    return value.toString();
}

qint32 CatalogueReader::WholeNumber(const QJsonValue& value, const QString& where, const QString& key)
{
    const double number = value.toDouble();
    if (value.isUndefined()) {
        Problem(where, QStringLiteral("\"%1\" is missing").arg(key));
    } else if (!value.isDouble() || number < std::numeric_limits<qint32>::min() ||
               number > std::numeric_limits<qint32>::max() || number != static_cast<qint32>(number)) {
        Problem(where, QStringLiteral("\"%1\" must be a whole number").arg(key));
        return 0;
    }
    return static_cast<qint32>(number);
}

void CatalogueReader::Problem(const QString& where, const QString& text)
{
    m_problems << where + QStringLiteral(": ") + text;
}
