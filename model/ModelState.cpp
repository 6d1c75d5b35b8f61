#include "model/ModelState.h"

namespace {

/// Stands in while no gateway is open: every operation fails.
class NoDatabase : public ModelDatabase
{
public:
    bool GetConTypeListDb(QString&) override { return false; }
    bool GetConTypeIdDb(const QString&, QString&) override { return false; }
    bool GetConTypeLongNameDb(const QString&, QString&) override { return false; }
    bool GetConTypeShortNameDb(const QString&, QString&) override { return false; }
    bool GetConTypeWpListDb(const QString&, int, QString&) override { return false; }
    bool AnalyzeConTypeDb(const QString&, QString&) override { return false; }
    bool GetNodeTypeIdDb(const QString&, QString&) override { return false; }
    bool GetNodeTypeLongNameDb(const QString&, QString&) override { return false; }
    bool GetNodeTypeShortNameDb(const QString&, QString&) override { return false; }
    bool GetNodeTypeWpListDb(const QString&, int, QString&) override { return false; }
    bool AnalyzeNodeTypeDb(const QString&, QString&) override { return false; }
    bool GetWpLongNameDb(const QString&, QString&) override { return false; }
    bool GetWpParametersDb(const QString&, int, QString&) override { return false; }
    bool GetWpParametersLongNamesDb(const QString&, int, QString&) override { return false; }
    bool GetTargetItemListDb(const QString&, QString&) override { return false; }
    bool GetTargetWpListDb(const QString&, PairTable&, int&) override { return false; }
    bool CheckTargetSyntaxDb(const QString&, int, QString&, bool&) override { return false; }
    bool GetParentIDDb(const QString&, QString&) override { return false; }
    bool GetParentDb(const QString&, QString&) override { return false; }
    bool GetParentWPListDb(const QString&, QString&) override { return false; }
    bool GetParentNodesDb(const QString&, QString&) override { return false; }
    bool GetNodeExDb(const QString&, QString&, QString&, QString&, QString&) override { return false; }
    bool GetNMANamesDb(QString&) override { return false; }
};

} // namespace

ModelState& Model()
{
    static ModelState state;
    return state;
}

ModelDatabase& LookupDatabase()
{
    static NoDatabase none;
    return Model().Database ? *Model().Database : none;
}
