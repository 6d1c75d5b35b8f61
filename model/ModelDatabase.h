#pragma once

#include "model/ItemList.h"

#include <QString>

/// The database operations that the model needs; the gateway implements them.
///
/// Each gives True when it worked. On False the output arguments are not to be used; the operator has been
/// told where the operation runs in a transaction of its own, and not otherwise.
class ModelDatabase
{
public:
    virtual ~ModelDatabase() = default;

    // Definitions
    virtual bool GetConTypeListDb(QString& list) = 0;
    virtual bool GetConTypeIdDb(const QString& shortName, QString& id) = 0;
    virtual bool GetConTypeLongNameDb(const QString& shortName, QString& longName) = 0;
    virtual bool GetConTypeShortNameDb(const QString& longName, QString& shortName) = 0;
    virtual bool GetConTypeWpListDb(const QString& shortName, int mode, QString& list) = 0;
    virtual bool AnalyzeConTypeDb(const QString& target, QString& result) = 0;
    virtual bool GetNodeTypeIdDb(const QString& shortName, QString& id) = 0;
    virtual bool GetNodeTypeLongNameDb(const QString& shortName, QString& longName) = 0;
    virtual bool GetNodeTypeShortNameDb(const QString& longName, QString& shortName) = 0;
    virtual bool GetNodeTypeWpListDb(const QString& shortName, int mode, QString& list) = 0;
    virtual bool AnalyzeNodeTypeDb(const QString& target, QString& result) = 0;
    virtual bool GetWpLongNameDb(const QString& waypoint, QString& longName) = 0;
    virtual bool GetWpParametersDb(const QString& waypoint, int mode, QString& list) = 0;
    virtual bool GetWpParametersLongNamesDb(const QString& waypoint, int mode, QString& list) = 0;

    // Targets
    virtual bool GetTargetItemListDb(const QString& target, QString& list) = 0;
    virtual bool GetTargetWpListDb(const QString& conName, PairTable& waypoints, int& count) = 0;
    virtual bool CheckTargetSyntaxDb(const QString& target, int flag, QString& reformatted, bool& valid) = 0;

    // Records
    virtual bool GetParentIDDb(const QString& conName, QString& id) = 0;
    virtual bool GetParentDb(const QString& conName, QString& target) = 0;
    virtual bool GetParentWPListDb(const QString& conName, QString& list) = 0;
    virtual bool GetParentNodesDb(const QString& conName, QString& list) = 0;
    virtual bool GetNodeExDb(const QString& nodeName, QString& conName, QString& target, QString& nodeType,
                             QString& commandLine) = 0;
    virtual bool GetNMANamesDb(QString& list) = 0;
};
