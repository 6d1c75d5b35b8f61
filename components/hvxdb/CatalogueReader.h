#pragma once

#include "components/hvxdb/Catalogue.h"

#include <QByteArray>
#include <QHash>
#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <initializer_list>
#include <vector>

/// Turns the JSON text of a catalogue into a catalogue, and names every row that it cannot take.
///
/// Takes the form of the rows only; what the rows say is checked by CheckCatalogue. Layout of the text:
///   connectionTypes, nodeTypes: shortName, longName, hops ([waypoint, 0 or 1] each)
///   waypoints: name, longName, parameters
///   parameters: keyword, longName, required, default (not needed), and at most one of text (characters),
///     bounds ([low, high]) and list (values); or group alone, which stands for the rows of that group
///   groups (not needed): rows that several waypoints share, by name
class CatalogueReader
{
public:
    CatalogueReader(Catalogue& catalogue, QStringList& problems)
        : m_catalogue(catalogue), m_problems(problems)
    {}

    void Read(const QByteArray& text);

private:
    using Parameters = std::vector<ParameterDefinition>;

    void ReadTypes(const QJsonObject& root, const QString& key, const QString& what,
                   std::vector<TypeDefinition>& types);
    void ReadHops(const QJsonArray& rows, const QString& where, std::vector<HopDefinition>& hops);
    void ReadGroups(const QJsonObject& root);
    void ReadWaypoints(const QJsonObject& root);
    void ReadParameters(const QJsonArray& rows, const QString& where, bool groupsAllowed,
                        Parameters& parameters);
    void ReadGroupRow(const QJsonObject& row, const QString& where, Parameters& parameters);
    ParameterDefinition ReadParameter(const QJsonObject& row, const QString& where);
    void ReadKind(const QJsonObject& row, const QString& where, ParameterDefinition& parameter);
    void ReadBounds(const QJsonValue& value, const QString& where, ParameterDefinition& parameter);

    void RefuseOtherKeys(const QJsonObject& row, const QString& where,
                         std::initializer_list<QStringView> keys);
    QJsonArray Array(const QJsonObject& row, const QString& where, const QString& key);
    QString Text(const QJsonObject& row, const QString& where, const QString& key);
    qint32 WholeNumber(const QJsonValue& value, const QString& where, const QString& key);
    void Problem(const QString& where, const QString& text);

    Catalogue& m_catalogue;
    QStringList& m_problems;
    QHash<QString, Parameters> m_groups;
};
