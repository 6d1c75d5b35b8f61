#pragma once

#include "model/ModelDatabase.h"
#include "model/ModelState.h"

#include <QHash>
#include <QString>
#include <QStringList>

/// A database of the test: records each call as "Operation(arguments)" and answers from a table of such
/// texts. A call without an answer fails. Serves as Model().Database as long as it lives.
class ScriptedModelDatabase : public ModelDatabase
{
public:
    ScriptedModelDatabase() { Model().Database = this; }
    ~ScriptedModelDatabase() override { Model().Database = nullptr; }

    QStringList Calls;
    /// Outputs by call.
    QHash<QString, QStringList> Answers;
    /// Number (from 0) of the call that fails whatever the table says; -1: none.
    int FailingCall = -1;
    /// What the syntax check answers; without a rewritten text it gives back what it got.
    bool SyntaxValid = true;
    QString Rewritten;

    /// Items joined by tabs; empty ones at the end are left out, since a list never ends in a tab.
    static QString List(QStringList items)
    {
        while (!items.isEmpty() && items.last().isEmpty())
            items.removeLast();
        return items.join(TabChar);
    }

    /// The item list of a target: number of hops, then for each its number of pairs and the pairs.
    static QString TargetItems(const QString& target)
    {
        QStringList items;
        QStringList hop;
        int hops = 0;
        const auto closeHop = [&] {
            if (!hop.isEmpty())
                items << QString::number(hop.size() / 2) << hop;
            hop.clear();
        };
        const QStringList parts = target.split(u',', Qt::SkipEmptyParts);
        for (const QString& part : parts) {
            const qsizetype equals = part.indexOf(u'=');
            if (part.startsWith(u"WP=")) {
                closeHop();
                ++hops;
            }
            hop << part.left(equals) << part.sliced(equals + 1);
        }
        closeHop();
        items.prepend(QString::number(hops));
        return List(items);
    }

    /// Defines a waypoint; each parameter is "keyword|long name|digit|default".
    void AddWaypoint(const QString& name, const QString& longName, const QStringList& parameters)
    {
        QStringList keywords;
        QStringList definitions;
        for (const QString& parameter : parameters) {
            keywords << parameter.section(u'|', 0, 0) << QString();
            definitions << parameter.section(u'|', 1, 1) << parameter.section(u'|', 2);
        }
        Answers[QStringLiteral("GetWpLongNameDb(%1)").arg(name)] = {longName};
        Answers[QStringLiteral("GetWpParametersDb(%1,0)").arg(name)] = {List(keywords)};
        Answers[QStringLiteral("GetWpParametersLongNamesDb(%1,0)").arg(name)] = {List(definitions)};
    }

    /// A bus type (id 0), a node type (id 0) and their waypoints.
    void AddDefinitions()
    {
        const QString timeOut = QStringLiteral("TIME|TIME OUT|0|2000");
        const QString retry = QStringLiteral("RETRY|RETRY COUNT|0|2");
        AddWaypoint(
            QStringLiteral("BUST4"), QStringLiteral("T4 Bus"),
            {QStringLiteral("ID|BUS NUMBER|1|"), QStringLiteral("SPEED|BUS SPEED|0|9600"), timeOut, retry});
        AddWaypoint(QStringLiteral("OPT"), QStringLiteral("Options"),
                    {QStringLiteral("PR|PROTOCOL|0|T4DT"), QStringLiteral("DT|DATA TYPE|0|TEXT"),
                     QStringLiteral("VERIFY|VERIFY|0|YES")});
        AddWaypoint(
            QStringLiteral("NET4"), QStringLiteral("T4 Network"),
            {QStringLiteral("ADDR|ADDRESS|1|"), QStringLiteral("SUB|SUBADDRESS|0|0"), timeOut, retry});
        Answers[QStringLiteral("GetConTypeShortNameDb(T4 Bus)")] = {QStringLiteral("T4BUS")};
        Answers[QStringLiteral("GetConTypeIdDb(T4BUS)")] = {QStringLiteral("0")};
        Answers[QStringLiteral("GetConTypeWpListDb(,0)")] = {QStringLiteral("BUST4\t1\tOPT\t0")};
        Answers[QStringLiteral("GetNodeTypeShortNameDb(T4 Node)")] = {QStringLiteral("NET4")};
        Answers[QStringLiteral("GetNodeTypeIdDb(NET4)")] = {QStringLiteral("0")};
        Answers[QStringLiteral("GetNodeTypeWpListDb(,0)")] = {QStringLiteral("NET4\t1\tOPT\t1")};
        Answers[QStringLiteral("AnalyzeConTypeDb()")] = {QStringLiteral("-1\tUnknown")};
    }

    void AddConnection(const QString& name, int id, const QString& target, const QString& analysis)
    {
        Answers[QStringLiteral("GetParentIDDb(%1)").arg(name)] = {QString::number(id)};
        Answers[QStringLiteral("GetParentDb(%1)").arg(name)] = {target};
        Answers[QStringLiteral("AnalyzeConTypeDb(%1)").arg(target)] = {analysis};
        Answers[QStringLiteral("GetParentWPListDb(%1)").arg(name)] = {TargetItems(target)};
    }

    void AddNode(const QString& name, const QStringList& conTargetTypeCommand, const QString& analysis)
    {
        Answers[QStringLiteral("GetNodeExDb(%1)").arg(name)] = conTargetTypeCommand;
        Answers[QStringLiteral("AnalyzeNodeTypeDb(%1)").arg(conTargetTypeCommand[1])] = {analysis};
    }

    bool GetConTypeListDb(QString& list) override
    {
        return Answer(QStringLiteral("GetConTypeListDb()"), {&list});
    }
    bool GetConTypeIdDb(const QString& shortName, QString& id) override
    {
        return Answer(QStringLiteral("GetConTypeIdDb(%1)").arg(shortName), {&id});
    }
    bool GetConTypeLongNameDb(const QString& shortName, QString& longName) override
    {
        return Answer(QStringLiteral("GetConTypeLongNameDb(%1)").arg(shortName), {&longName});
    }
    bool GetConTypeShortNameDb(const QString& longName, QString& shortName) override
    {
        return Answer(QStringLiteral("GetConTypeShortNameDb(%1)").arg(longName), {&shortName});
    }
    bool GetConTypeWpListDb(const QString& shortName, int mode, QString& list) override
    {
        return Answer(QStringLiteral("GetConTypeWpListDb(%1,%2)").arg(shortName).arg(mode), {&list});
    }
    bool AnalyzeConTypeDb(const QString& target, QString& result) override
    {
        return Answer(QStringLiteral("AnalyzeConTypeDb(%1)").arg(target), {&result});
    }
    bool GetNodeTypeIdDb(const QString& shortName, QString& id) override
    {
        return Answer(QStringLiteral("GetNodeTypeIdDb(%1)").arg(shortName), {&id});
    }
    bool GetNodeTypeLongNameDb(const QString& shortName, QString& longName) override
    {
        return Answer(QStringLiteral("GetNodeTypeLongNameDb(%1)").arg(shortName), {&longName});
    }
    bool GetNodeTypeShortNameDb(const QString& longName, QString& shortName) override
    {
        return Answer(QStringLiteral("GetNodeTypeShortNameDb(%1)").arg(longName), {&shortName});
    }
    bool GetNodeTypeWpListDb(const QString& shortName, int mode, QString& list) override
    {
        return Answer(QStringLiteral("GetNodeTypeWpListDb(%1,%2)").arg(shortName).arg(mode), {&list});
    }
    bool AnalyzeNodeTypeDb(const QString& target, QString& result) override
    {
        return Answer(QStringLiteral("AnalyzeNodeTypeDb(%1)").arg(target), {&result});
    }
    bool GetWpLongNameDb(const QString& waypoint, QString& longName) override
    {
        return Answer(QStringLiteral("GetWpLongNameDb(%1)").arg(waypoint), {&longName});
    }
    bool GetWpParametersDb(const QString& waypoint, int mode, QString& list) override
    {
        return Answer(QStringLiteral("GetWpParametersDb(%1,%2)").arg(waypoint).arg(mode), {&list});
    }
    bool GetWpParametersLongNamesDb(const QString& waypoint, int mode, QString& list) override
    {
        return Answer(QStringLiteral("GetWpParametersLongNamesDb(%1,%2)").arg(waypoint).arg(mode), {&list});
    }
    /// Without an answer in the table the list is made from the target.
    bool GetTargetItemListDb(const QString& target, QString& list) override
    {
        const QString call = QStringLiteral("GetTargetItemListDb(%1)").arg(target);
        if (!Answers.contains(call))
            Answers[call] = {TargetItems(target)};
        return Answer(call, {&list});
    }
    /// The answer is a pair list.
    bool GetTargetWpListDb(const QString& conName, PairTable& waypoints, int& count) override
    {
        QString list;
        return Answer(QStringLiteral("GetTargetWpListDb(%1)").arg(conName), {&list}) &&
               PairListToTable(list, waypoints, count);
    }
    bool CheckTargetSyntaxDb(const QString& target, int flag, QString& reformatted, bool& valid) override
    {
        const QString call = QStringLiteral("CheckTargetSyntaxDb(%1,%2)").arg(target).arg(flag);
        Answers[call] = {Rewritten.isNull() ? target : Rewritten};
        valid = SyntaxValid;
        return Answer(call, {&reformatted});
    }
    bool GetParentIDDb(const QString& conName, QString& id) override
    {
        return Answer(QStringLiteral("GetParentIDDb(%1)").arg(conName), {&id});
    }
    bool GetParentDb(const QString& conName, QString& target) override
    {
        return Answer(QStringLiteral("GetParentDb(%1)").arg(conName), {&target});
    }
    bool GetParentWPListDb(const QString& conName, QString& list) override
    {
        return Answer(QStringLiteral("GetParentWPListDb(%1)").arg(conName), {&list});
    }
    bool GetParentNodesDb(const QString& conName, QString& list) override
    {
        return Answer(QStringLiteral("GetParentNodesDb(%1)").arg(conName), {&list});
    }
    bool GetNodeExDb(const QString& nodeName, QString& conName, QString& target, QString& nodeType,
                     QString& commandLine) override
    {
        return Answer(QStringLiteral("GetNodeExDb(%1)").arg(nodeName),
                      {&conName, &target, &nodeType, &commandLine});
    }
    bool GetNMANamesDb(QString& list) override { return Answer(QStringLiteral("GetNMANamesDb()"), {&list}); }

private:
    bool Answer(const QString& call, std::initializer_list<QString*> outputs)
    {
        Calls << call;
        const auto answer = Answers.constFind(call);
        if (Calls.size() - 1 == FailingCall || answer == Answers.constEnd())
            return false;
        qsizetype next = 0;
        for (QString* output : outputs)
            *output = answer->value(next++);
        return true;
    }
};
