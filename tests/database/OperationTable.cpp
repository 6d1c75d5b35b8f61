#include "OperationTable.h"

namespace {

QString Word(bool value)
{
    return value ? QStringLiteral("True") : QStringLiteral("False");
}

std::vector<Operation> ConnectionOperations()
{
    return {
        {"QueryParentsDb",
         Kind::Session,
         [](DatabaseClass& db, QStringList& out) {
             QString a;
             const bool ok = db.QueryParentsDb(a);
             out = {a};
             return ok;
         },
         {"QueryParentsWithID()"},
         {QStringList{"some\ttext"}},
         {"some\ttext"}},
        {"GetParentWPListDb",
         Kind::Session,
         [](DatabaseClass& db, QStringList& out) {
             QString a;
             const bool ok = db.GetParentWPListDb(" A ", a);
             out = {a};
             return ok;
         },
         {"GetParent( A )", "GetTargetItemList(WP=X)"},
         {QStringList{"WP=X"}, QStringList{"1\t1\tWP\tX"}},
         {"1\t1\tWP\tX"}},
        {"GetParentNodesDb",
         Kind::Session,
         [](DatabaseClass& db, QStringList& out) {
             QString a;
             const bool ok = db.GetParentNodesDb(" A ", a);
             out = {a};
             return ok;
         },
         {"GetParentNodesWithID( A )"},
         {QStringList{"some\ttext"}},
         {"some\ttext"}},
        {"GetParentNodesExDb",
         Kind::Session,
         [](DatabaseClass& db, QStringList& out) {
             QString a;
             qint32 n = 17;
             const bool ok = db.GetParentNodesExDb(" A ", a, n);
             out = {a, QString::number(n)};
             return ok;
         },
         {"GetParentNodesWithIdEx( A ,17)"},
         {QStringList{"N\t20", "20"}},
         {"N\t20", "20"}},
        {"GetParentNodesCountDb",
         Kind::Session,
         [](DatabaseClass& db, QStringList& out) {
             qint32 n = 0;
             const bool ok = db.GetParentNodesCountDb(" A ", n);
             out = {QString::number(n)};
             return ok;
         },
         {"GetParentNodesCount( A )"},
         {QStringList{"70000"}},
         {"70000"}},
        {"GetParentDb",
         Kind::GatedDirect,
         [](DatabaseClass& db, QStringList& out) {
             QString a;
             const bool ok = db.GetParentDb(" A ", a);
             out = {a};
             return ok;
         },
         {"GetParent( A )"},
         {QStringList{"some\ttext"}},
         {"some\ttext"}},
        {"ReplaceParentNameDb",
         Kind::Session,
         [](DatabaseClass& db, QStringList& out) {
             Q_UNUSED(out)
             return db.ReplaceParentNameDb(" A ", " B ");
         },
         {"ReplaceParentName( A , B )"},
         {QStringList{}},
         {}},
        {"ReplaceParentTargetDb",
         Kind::Session,
         [](DatabaseClass& db, QStringList& out) {
             Q_UNUSED(out)
             return db.ReplaceParentTargetDb(" A ", "WP=X");
         },
         {"ReplaceParentTarget( A ,WP=X)"},
         {QStringList{}},
         {}},
        {"GetParentIDDb",
         Kind::Session,
         [](DatabaseClass& db, QStringList& out) {
             QString a;
             const bool ok = db.GetParentIDDb(" A ", a);
             out = {a};
             return ok;
         },
         {"GetParentID( A )"},
         {QStringList{"17"}},
         {"17"}},
        {"DeleteConnectionDb",
         Kind::Session,
         [](DatabaseClass& db, QStringList& out) {
             QString a = " A ";
             const bool ok = db.DeleteConnectionDb(a);
             out = {a};
             return ok;
         },
         {"DeleteParentNodes(A)", "DeleteParent(A,True)"},
         {QStringList{}, QStringList{}},
         {"A"}},
        {"ConNameExistDb",
         Kind::Session,
         [](DatabaseClass& db, QStringList& out) {
             bool b = false;
             const bool ok = db.ConNameExistDb(" A ", b);
             out = {Word(b)};
             return ok;
         },
         {"ParentNameExist(A)"},
         {QStringList{"TRUE"}},
         {"True"}},
    };
}

std::vector<Operation> NodeAndManagerOperations()
{
    return {
        {"GetNodeCountDb",
         Kind::Session,
         [](DatabaseClass& db, QStringList& out) {
             qint32 n = 0;
             const bool ok = db.GetNodeCountDb(n);
             out = {QString::number(n)};
             return ok;
         },
         {"GetNodeCount()"},
         {QStringList{"70000"}},
         {"70000"}},
        {"QueryNodesDb",
         Kind::Session,
         [](DatabaseClass& db, QStringList& out) {
             QString a;
             qint32 n = -5001;
             const bool ok = db.QueryNodesDb("con", "type", a, n);
             out = {a, QString::number(n)};
             return ok;
         },
         {"QueryNodesWithIdEx(con,type,-5001)"},
         {QStringList{"N\t20", "20"}},
         {"N\t20", "20"}},
        {"FindNodesDb",
         Kind::Session,
         [](DatabaseClass& db, QStringList& out) {
             QString a;
             qint32 n = 17;
             const bool ok = db.FindNodesDb(" x", a, n);
             out = {a, QString::number(n)};
             return ok;
         },
         {"FindNodesWithIdEx( x,17)"},
         {QStringList{"N\t20\tC\t3", "20"}},
         {"N\t20\tC\t3", "20"}},
        {"FindWaypointsDb",
         Kind::Session,
         [](DatabaseClass& db, QStringList& out) {
             QString a;
             qint32 n = 0;
             const bool ok = db.FindWaypointsDb("x ", a, n);
             out = {a, QString::number(n)};
             return ok;
         },
         {"FindWaypointsWithIdEx(x ,0)"},
         {QStringList{"Bus\t1\tC\t3", "3"}},
         {"Bus\t1\tC\t3", "3"}},
        {"DeleteNodeDb",
         Kind::Session,
         [](DatabaseClass& db, QStringList& out) {
             Q_UNUSED(out)
             return db.DeleteNodeDb(" N ");
         },
         {"DeleteNode(N)"},
         {QStringList{}},
         {}},
        {"DeleteNodeFromBrowserDb",
         Kind::Session,
         [](DatabaseClass& db, QStringList& out) {
             Q_UNUSED(out)
             return db.DeleteNodeFromBrowserDb(" N ");
         },
         {"DeleteNodeFromBrowser(N)"},
         {QStringList{}},
         {}},
        {"NodeNameExistDb",
         Kind::Session,
         [](DatabaseClass& db, QStringList& out) {
             bool b = false;
             const bool ok = db.NodeNameExistDb(" N ", b);
             out = {Word(b)};
             return ok;
         },
         {"NodeNameExist(N)"},
         {QStringList{"TRUE"}},
         {"True"}},
        {"GetNodeDb",
         Kind::Direct,
         [](DatabaseClass& db, QStringList& out) {
             QString a;
             QString b;
             const bool ok = db.GetNodeDb(" N ", a, b);
             out = {a, b};
             return ok;
         },
         {"GetNode( N )"},
         {QStringList{"A", "WP=X"}},
         {"A", "WP=X"}},
        {"ReplaceNodeNameDb",
         Kind::Session,
         [](DatabaseClass& db, QStringList& out) {
             Q_UNUSED(out)
             return db.ReplaceNodeNameDb(" N ", " M ");
         },
         {"ReplaceNodeName( N , M )"},
         {QStringList{}},
         {}},
        {"ReplaceNodeTargetDb",
         Kind::Session,
         [](DatabaseClass& db, QStringList& out) {
             Q_UNUSED(out)
             return db.ReplaceNodeTargetDb(" N ", " A ", "WP=X");
         },
         {"ReplaceNodeTarget( N , A ,WP=X)"},
         {QStringList{}},
         {}},
        {"GetNodeIDDb",
         Kind::Session,
         [](DatabaseClass& db, QStringList& out) {
             QString a;
             const bool ok = db.GetNodeIDDb(" N ", a);
             out = {a};
             return ok;
         },
         {"GetNodeID( N )"},
         {QStringList{"17"}},
         {"17"}},
        {"GetNodeNmaTagDb",
         Kind::Session,
         [](DatabaseClass& db, QStringList& out) {
             QString a;
             QString b;
             const bool ok = db.GetNodeNmaTagDb(" N ", a, b);
             out = {a, b};
             return ok;
         },
         {"GetNodeNmaTag( N )"},
         {QStringList{"type", "tail"}},
         {"type", "tail"}},
        {"GetNodeExDb",
         Kind::Session,
         [](DatabaseClass& db, QStringList& out) {
             QString a;
             QString b;
             QString c;
             QString d;
             const bool ok = db.GetNodeExDb(" N ", a, b, c, d);
             out = {a, b, c, d};
             return ok;
         },
         {"GetNodeEx( N )"},
         {QStringList{"A", "WP=X", "type", "1|tail"}},
         {"A", "WP=X", "type", "1|tail"}},
        {"SetUserSecurityDb",
         Kind::Direct,
         [](DatabaseClass& db, QStringList& out) {
             Q_UNUSED(out)
             return db.SetUserSecurityDb();
         },
         {"GetSecRights()"},
         {QStringList{}},
         {}},
        {"GetNMAInfoDb",
         Kind::Session,
         [](DatabaseClass& db, QStringList& out) {
             QString a;
             QString b;
             QString c;
             const bool ok = db.GetNMAInfoDb(" type ", a, b, c);
             out = {a, b, c};
             return ok;
         },
         {"GetNMAInfo( type )"},
         {QStringList{"path", "command", "4"}},
         {"path", "command", "4"}},
        {"GetNMANamesDb",
         Kind::Session,
         [](DatabaseClass& db, QStringList& out) {
             QString a;
             const bool ok = db.GetNMANamesDb(a);
             out = {a};
             return ok;
         },
         {"GetNMANames()"},
         {QStringList{"some\ttext"}},
         {"some\ttext"}},
        {"UpdateNodeNmaidxDb",
         Kind::Session,
         [](DatabaseClass& db, QStringList& out) {
             Q_UNUSED(out)
             return db.UpdateNodeNmaidxDb(" N ", "4");
         },
         {"UpdateNodeNmaidx( N ,4)"},
         {QStringList{}},
         {}},
    };
}

std::vector<Operation> DefinitionOperations()
{
    return {
        {"AnalyzeConTypeDb",
         Kind::Direct,
         [](DatabaseClass& db, QStringList& out) {
             QString a;
             const bool ok = db.AnalyzeConTypeDb("WP=X", a);
             out = {a};
             return ok;
         },
         {"AnalyzeConType(WP=X)"},
         {QStringList{"some\ttext"}},
         {"some\ttext"}},
        {"GetConTypeWpListDb",
         Kind::Direct,
         [](DatabaseClass& db, QStringList& out) {
             QString a;
             const bool ok = db.GetConTypeWpListDb("T", 3, a);
             out = {a};
             return ok;
         },
         {"GetConTypeWpList(T,3)"},
         {QStringList{"some\ttext"}},
         {"some\ttext"}},
        {"GetWpParametersDb",
         Kind::Direct,
         [](DatabaseClass& db, QStringList& out) {
             QString a;
             const bool ok = db.GetWpParametersDb("W", 3, a);
             out = {a};
             return ok;
         },
         {"GetWpParameters(W,3)"},
         {QStringList{"some\ttext"}},
         {"some\ttext"}},
        {"GetTargetItemListDb",
         Kind::Direct,
         [](DatabaseClass& db, QStringList& out) {
             QString a;
             const bool ok = db.GetTargetItemListDb("WP=X", a);
             out = {a};
             return ok;
         },
         {"GetTargetItemList(WP=X)"},
         {QStringList{"some\ttext"}},
         {"some\ttext"}},
        {"GetConTypeListDb",
         Kind::Direct,
         [](DatabaseClass& db, QStringList& out) {
             QString a;
             const bool ok = db.GetConTypeListDb(a);
             out = {a};
             return ok;
         },
         {"GetConTypeList()"},
         {QStringList{"some\ttext"}},
         {"some\ttext"}},
        {"GetConTypeIdDb",
         Kind::Direct,
         [](DatabaseClass& db, QStringList& out) {
             QString a;
             const bool ok = db.GetConTypeIdDb(" T ", a);
             out = {a};
             return ok;
         },
         {"GetConTypeId(T)"},
         {QStringList{"some\ttext"}},
         {"some\ttext"}},
        {"CheckTargetSyntaxDb",
         Kind::Direct,
         [](DatabaseClass& db, QStringList& out) {
             QString a;
             bool valid = false;
             const bool ok = db.CheckTargetSyntaxDb("wp=x", 1, a, valid);
             out = {a, Word(valid)};
             return ok;
         },
         {"CheckTargetSyntax(wp=x,1)"},
         {QStringList{"WP=x", "OK"}},
         {"WP=x", "True"}},
        {"GetNodeTypeIdDb",
         Kind::Direct,
         [](DatabaseClass& db, QStringList& out) {
             QString a;
             const bool ok = db.GetNodeTypeIdDb(" T ", a);
             out = {a};
             return ok;
         },
         {"GetNodeTypeId(T)"},
         {QStringList{"some\ttext"}},
         {"some\ttext"}},
        {"GetNodeTypeListDb",
         Kind::Direct,
         [](DatabaseClass& db, QStringList& out) {
             QString a;
             const bool ok = db.GetNodeTypeListDb(a);
             out = {a};
             return ok;
         },
         {"GetNodeTypeList()"},
         {QStringList{"some\ttext"}},
         {"some\ttext"}},
        {"GetNodeTypeWpListDb",
         Kind::Direct,
         [](DatabaseClass& db, QStringList& out) {
             QString a;
             const bool ok = db.GetNodeTypeWpListDb("T", 3, a);
             out = {a};
             return ok;
         },
         {"GetNodeTypeWpList(T,3)"},
         {QStringList{"some\ttext"}},
         {"some\ttext"}},
        {"AnalyzeNodeTypeDb",
         Kind::Direct,
         [](DatabaseClass& db, QStringList& out) {
             QString a;
             const bool ok = db.AnalyzeNodeTypeDb("WP=X", a);
             out = {a};
             return ok;
         },
         {"AnalyzeNodeType(WP=X)"},
         {QStringList{"some\ttext"}},
         {"some\ttext"}},
        {"GetWpLongNameDb",
         Kind::Direct,
         [](DatabaseClass& db, QStringList& out) {
             QString a;
             const bool ok = db.GetWpLongNameDb("W", a);
             out = {a};
             return ok;
         },
         {"GetWpLongName(W)"},
         {QStringList{"some\ttext"}},
         {"some\ttext"}},
        {"GetNodeTypeLongNameDb",
         Kind::Direct,
         [](DatabaseClass& db, QStringList& out) {
             QString a;
             const bool ok = db.GetNodeTypeLongNameDb(" T ", a);
             out = {a};
             return ok;
         },
         {"GetNodeTypeLongName( T )"},
         {QStringList{"some\ttext"}},
         {"some\ttext"}},
        {"GetConTypeLongNameDb",
         Kind::Direct,
         [](DatabaseClass& db, QStringList& out) {
             QString a;
             const bool ok = db.GetConTypeLongNameDb(" T ", a);
             out = {a};
             return ok;
         },
         {"GetConTypeLongName( T )"},
         {QStringList{"some\ttext"}},
         {"some\ttext"}},
        {"GetNodeTypeShortNameDb",
         Kind::Direct,
         [](DatabaseClass& db, QStringList& out) {
             QString a;
             const bool ok = db.GetNodeTypeShortNameDb(" T ", a);
             out = {a};
             return ok;
         },
         {"GetNodeTypeShortName( T )"},
         {QStringList{"some\ttext"}},
         {"some\ttext"}},
        {"GetConTypeShortNameDb",
         Kind::Direct,
         [](DatabaseClass& db, QStringList& out) {
             QString a;
             const bool ok = db.GetConTypeShortNameDb(" T ", a);
             out = {a};
             return ok;
         },
         {"GetConTypeShortName( T )"},
         {QStringList{"some\ttext"}},
         {"some\ttext"}},
        {"GetWpParametersLongNamesDb",
         Kind::Direct,
         [](DatabaseClass& db, QStringList& out) {
             QString a;
             const bool ok = db.GetWpParametersLongNamesDb("W", 3, a);
             out = {a};
             return ok;
         },
         {"GetWpParametersLongNames(W,3)"},
         {QStringList{"some\ttext"}},
         {"some\ttext"}},
    };
}

std::vector<Operation> JournalOperations()
{
    return {
        {"GetJournalLastIdDb",
         Kind::Journal,
         [](DatabaseClass& db, QStringList& out) {
             qint32 n = 0;
             const bool ok = db.GetJournalLastIdDb(n);
             out = {QString::number(n)};
             return ok;
         },
         {"GetJournalLastId()"},
         {QStringList{"90"}},
         {"90"}},
        {"GetJournalChangesAfterIdDb",
         Kind::Journal,
         [](DatabaseClass& db, QStringList& out) {
             QString a;
             const bool ok = db.GetJournalChangesAfterIdDb(88, a);
             out = {a};
             return ok;
         },
         {"GetJournalChangesAfterId(88)"},
         {QStringList{"89\t90"}},
         {"89\t90"}},
        {"GetJournalRecordByIdDb",
         Kind::Journal,
         [](DatabaseClass& db, QStringList& out) {
             qint32 type = 0;
             QString a;
             qint32 n = 0;
             QString b;
             const bool ok = db.GetJournalRecordByIdDb(88, type, a, n, b);
             out = {QString::number(type), a, QString::number(n), b};
             return ok;
         },
         {"GetJournalRecordById(88)"},
         {QStringList{"41", "A", "17", "extra"}},
         {"41", "A", "17", "extra"}},
        {"JournalClearByDayLimitDb",
         Kind::Journal,
         [](DatabaseClass& db, QStringList& out) {
             Q_UNUSED(out)
             return db.JournalClearByDayLimitDb(2, 1);
         },
         {"JournalClearByDayLimit(2,1)"},
         {QStringList{}},
         {}},
        {"JournalClearByRecordLimitDb",
         Kind::Journal,
         [](DatabaseClass& db, QStringList& out) {
             Q_UNUSED(out)
             return db.JournalClearByRecordLimitDb(12000, 2000);
         },
         {"JournalClearByRecordLimit(12000,2000)"},
         {QStringList{}},
         {}},
    };
}

} // namespace

const std::vector<Operation>& Operations()
{
    static const std::vector<Operation> operations = [] {
        std::vector<Operation> all;
        for (const std::vector<Operation>& part : {ConnectionOperations(), NodeAndManagerOperations(),
                                                   DefinitionOperations(), JournalOperations()})
            all.insert(all.end(), part.begin(), part.end());
        return all;
    }();
    return operations;
}

bool RunsInTransaction(const Operation& operation)
{
    return operation.kind == Kind::Session || operation.kind == Kind::Journal;
}
