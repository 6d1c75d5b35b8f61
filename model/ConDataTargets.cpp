#include "model/ConData.h"
#include "model/ModelState.h"
#include "model/TextHelpers.h"

namespace {

constexpr int KeywordColumn = 1;
constexpr int ValueColumn = 2;
constexpr int DefaultColumn = 6;

/// What the syntax check of the database knows as True and False.
constexpr int ConnectionTargetFlag = 0;
constexpr int NodeTargetFlag = -1;

/// An empty flag counts as mandatory: a hop too many is refused by the check, one too few reaches elsewhere.
bool IsMandatory(const QString& flag)
{
    return flag.isEmpty() || flag == u"1";
}

void AppendHop(QString& target, const QString& name)
{
    target.append(u"WP=").append(name);
}

void AppendParameter(QString& target, const WpData& table, int row)
{
    target.append(table.GetWpParam(row, KeywordColumn))
        .append(u'=')
        .append(table.GetWpParam(row, ValueColumn));
}

/// At least as many characters as any target of those waypoints needs, so that composing allocates once.
qsizetype TargetCapacity(const ConData& con, int waypoints)
{
    constexpr qsizetype HopOverhead = 4;
    constexpr qsizetype ParameterOverhead = 2;
    qsizetype size = 0;
    for (int i = 1; i <= waypoints; ++i) {
        const WpData& table = con.GetWpData(i);
        size += HopOverhead + con.GetConWpName(i).size();
        for (int row = 1; row <= table.WpParamCount(); ++row)
            size += ParameterOverhead + table.GetWpParam(row, KeywordColumn).size() +
                    table.GetWpParam(row, ValueColumn).size();
    }
    return size;
}

bool IsFarFromDefault(const WpData& table, int row)
{
    const QString& value = table.GetWpParam(row, ValueColumn);
    return !value.isEmpty() && value.compare(table.GetWpParam(row, DefaultColumn), Qt::CaseInsensitive) != 0;
}

bool HasValue(const WpData& table, int row)
{
    return !table.GetWpParam(row, ValueColumn).isEmpty();
}

/// Appends a hop with the rows that `isWritten` picks, a comma in front unless it is the first. False: it
/// picks none, nothing was appended.
template <typename IsWritten>
bool AppendHopWithRows(QString& target, const ConData& con, int waypoint, bool firstHop, IsWritten isWritten)
{
    const WpData& table = con.GetWpData(waypoint);
    bool written = false;
    for (int row = 1; row <= table.WpParamCount(); ++row) {
        if (!isWritten(table, row))
            continue;
        if (!written) {
            if (!firstHop)
                target.append(u',');
            AppendHop(target, con.GetConWpName(waypoint));
            written = true;
        }
        target.append(u',');
        AppendParameter(target, table, row);
    }
    return written;
}

/// The values that differ from their defaults.
bool AppendReducedHop(QString& target, const ConData& con, int waypoint)
{
    return AppendHopWithRows(target, con, waypoint, waypoint == 1, IsFarFromDefault);
}

/// All values.
bool AppendFullHop(QString& target, const ConData& con, int waypoint, bool firstHop)
{
    return AppendHopWithRows(target, con, waypoint, firstHop, HasValue);
}

/// Parameters of a hop for bus discovery. A VERIFY row is left out but its comma stays: behind "PR=T4DT," the
/// own VERIFY of the discovery can follow.
void BusScanningParameters(const WpData& table, QString& hop)
{
    hop.resize(0);
    bool firstParameter = true;
    for (int row = 1; row <= table.WpParamCount(); ++row) {
        if (table.GetWpParam(row, ValueColumn).isEmpty())
            continue;
        if (!firstParameter)
            hop.append(u',');
        firstParameter = false;
        if (!TextContains(table.GetWpParam(row, KeywordColumn), u"VERIFY"))
            AppendParameter(hop, table, row);
    }
}

/// The target for bus discovery: no BUST4 hop, and VERIFY=NO in the option hop, which is added when missing.
QString BusScanningTarget(const ConData& con)
{
    QString target;
    QString hop;
    bool firstHop = true;
    bool hasOptionHop = false;
    for (int i = 1; i <= con.ConWpCount; ++i) {
        const QString& name = con.GetConWpName(i);
        BusScanningParameters(con.GetWpData(i), hop);
        if (TrimBlanks(name) == u"BUST4" || (hop.isEmpty() && !IsMandatory(con.GetConWpMandatory(i))))
            continue;
        if (!firstHop)
            target.append(u',');
        firstHop = false;
        AppendHop(target, name);
        if (hop.isEmpty())
            continue;
        target.append(u',').append(hop);
        if (name == u"OPT") {
            target.append(u"VERIFY=NO");
            hasOptionHop = true;
        }
    }
    if (!hasOptionHop)
        target.append(u",WP=OPT,VERIFY=NO");
    return target;
}

} // namespace

bool ConData::CheckTarget(const QString& target, int flag)
{
    QString reformatted;
    bool valid = false;
    if (!LookupDatabase().CheckTargetSyntaxDb(target, flag, reformatted, valid) || !valid)
        return false;
    TargetString = reformatted;
    return true;
}

bool ConData::SetTargetString(bool nodeTarget)
{
    TargetString.clear();
    QString target;
    target.reserve(TargetCapacity(*this, ConWpCount));
    bool firstHop = true;
    for (int i = 1; i <= ConWpCount; ++i) {
        bool written = AppendFullHop(target, *this, i, firstHop);
        if (!written && IsMandatory(GetConWpMandatory(i))) {
            if (!firstHop)
                target.append(u',');
            AppendHop(target, GetConWpName(i));
            written = true;
        }
        firstHop = firstHop && !written;
    }
    return CheckTarget(target, nodeTarget ? NodeTargetFlag : ConnectionTargetFlag);
}

bool ConData::SetTargetStringForBusScanning()
{
    TargetString.clear();
    return CheckTarget(BusScanningTarget(*this), ConnectionTargetFlag);
}

void ConData::SetTargetWithoutDefaults(QString& target) const
{
    target.resize(0);
    target.reserve(TargetCapacity(*this, ConWpCount));
    for (int i = 1; i <= ConWpCount; ++i) {
        const bool droppable = i == ConWpCount && ConWpCount > 1;
        if (AppendReducedHop(target, *this, i) || droppable)
            continue;
        if (i > 1)
            target.append(u',');
        AppendHop(target, GetConWpName(i));
    }
}

void ConData::SetNodeTargetWithoutDefaults(QString& target) const
{
    target.resize(0);
    target.reserve(TargetCapacity(*this, NodeWpCount));
    for (int i = 1; i <= NodeWpCount; ++i)
        AppendReducedHop(target, *this, i);
}
