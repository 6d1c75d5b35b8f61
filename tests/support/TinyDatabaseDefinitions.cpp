#include "model/ItemList.h"
#include "tests/support/TinyDatabase.h"
#include "tests/support/TinyDefinitions.h"

using namespace TinyDefinitions;

void TinyDatabase::GetConTypeList(QString& list)
{
    Require();
    list = ShortNames(ConTypes());
}

void TinyDatabase::GetConTypeId(const QString& shortName, QString& id)
{
    Require();
    id = TypeNamed(ConTypes(), shortName).id;
}

void TinyDatabase::GetConTypeLongName(const QString& shortName, QString& longName)
{
    Require();
    longName = TypeNamed(ConTypes(), shortName).longName;
}

void TinyDatabase::GetConTypeShortName(const QString& longName, QString& shortName)
{
    Require();
    shortName = TypeWithLongName(ConTypes(), longName).shortName;
}

void TinyDatabase::GetConTypeWpList(const QString& shortName, qint32 mode, QString& list)
{
    Require();
    list = WaypointList(TypeNamed(ConTypes(), shortName, mode));
}

void TinyDatabase::AnalyzeConType(const QString& target, QString& result)
{
    Require();
    result = AnalyzeConnection(target);
}

void TinyDatabase::GetNodeTypeList(QString& list)
{
    Require();
    list = ShortNames(NodeTypes());
}

void TinyDatabase::GetNodeTypeId(const QString& shortName, QString& id)
{
    Require();
    id = TypeNamed(NodeTypes(), shortName).id;
}

void TinyDatabase::GetNodeTypeLongName(const QString& shortName, QString& longName)
{
    Require();
    for (const Type& type : NodeTypes()) {
        if (type.longName == shortName) {
            longName = shortName;
            return;
        }
    }
    longName = TypeNamed(NodeTypes(), shortName).longName;
}

void TinyDatabase::GetNodeTypeShortName(const QString& longName, QString& shortName)
{
    Require();
    shortName = TypeWithLongName(NodeTypes(), longName).shortName;
}

void TinyDatabase::GetNodeTypeWpList(const QString& shortName, qint32 mode, QString& list)
{
    Require();
    list = WaypointList(TypeNamed(NodeTypes(), shortName, mode));
}

void TinyDatabase::AnalyzeNodeType(const QString& target, QString& result)
{
    Require();
    result = AnalyzeNode(target);
}

void TinyDatabase::GetWpLongName(const QString& waypoint, QString& longName)
{
    Require();
    longName = WaypointNamed(waypoint).longName;
}

void TinyDatabase::GetWpParameters(const QString& waypoint, qint32, QString& list)
{
    Require();
    list = ParameterList(WaypointNamed(waypoint));
}

void TinyDatabase::GetWpParametersLongNames(const QString& waypoint, qint32, QString& list)
{
    Require();
    list = LongNameList(WaypointNamed(waypoint));
}

void TinyDatabase::GetTargetItemList(const QString& target, QString& list)
{
    list = TargetItemList(target);
}

void TinyDatabase::CheckTargetSyntax(const QString& target, qint32, QString& reformatted, QString& answer)
{
    const bool valid = IsTarget(target);
    reformatted = valid ? target : QString();
    answer = valid ? QStringLiteral("OK") : QStringLiteral("ERROR");
}

void TinyDatabase::TargetParamProperties(const QString& waypoint, const QString& keyword, qint32& required,
                                         qint32& flag2, qint32& kind, QString& text)
{
    Require();
    const Parameter& parameter = ParameterNamed(waypoint, keyword);
    required = parameter.digit.toInt();
    flag2 = 0;
    kind = parameter.kind;
    text = parameter.defaultValue;
}

void TinyDatabase::TargetParamTextLength(const QString& waypoint, const QString& keyword, qint32& length)
{
    Require();
    length = ParameterNamed(waypoint, keyword).low;
}

void TinyDatabase::TargetParamValueBoundsLong(const QString& waypoint, const QString& keyword, qint32& low,
                                              qint32& high)
{
    Require();
    low = ParameterNamed(waypoint, keyword).low;
    high = ParameterNamed(waypoint, keyword).high;
}

void TinyDatabase::TargetParamDiscreteValues(const QString& waypoint, const QString& keyword, qint32& count,
                                             QString& list)
{
    Require();
    const QStringList values = ParameterNamed(waypoint, keyword).values;
    count = static_cast<qint32>(values.size());
    list = values.join(TabChar);
}
