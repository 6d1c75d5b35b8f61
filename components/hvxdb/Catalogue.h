#pragma once

#include <QString>
#include <QStringList>

#include <vector>

/// The definitions of a database: connection types, node types, waypoints with their parameters.

/// Kinds of parameter values.
enum class ParameterKind
{
    Free = 1,
    Text = 2,
    WholeNumber = 3,
    List = 4,
};

struct ParameterDefinition
{
    QString keyword;
    QString longName;
    /// 0 optional, 1 mandatory, 2 and above a group of which exactly one has a value.
    int requirement = 0;
    QString defaultValue;
    ParameterKind kind = ParameterKind::Free;
    /// Characters, for texts.
    int textLength = 0;
    /// Bounds, both included, for whole numbers.
    qint32 low = 0;
    qint32 high = 0;
    /// For lists.
    QStringList values;
};

struct WaypointDefinition
{
    QString name;
    QString longName;
    std::vector<ParameterDefinition> parameters;
};

struct HopDefinition
{
    QString waypoint;
    bool mandatory = false;
};

/// A connection type or a node type; its id is its position in the list.
struct TypeDefinition
{
    QString shortName;
    QString longName;
    std::vector<HopDefinition> hops;
};

struct Catalogue
{
    /// The type "Unknown" (id -1) is the last one and has no hops.
    std::vector<TypeDefinition> conTypes;
    std::vector<TypeDefinition> nodeTypes;
    std::vector<WaypointDefinition> waypoints;
};

/// Reads a catalogue file (JSON). On False `problems` names every offending row, at least one.
bool ReadCatalogue(const QString& file, Catalogue& catalogue, QStringList& problems);

/// The rules that a catalogue must keep; empty when it keeps them, else one text per offending row.
QStringList CheckCatalogue(const Catalogue& catalogue);

/// The catalogue that comes with the product.
QString BuiltInCatalogueFile();
