#include "browser/DirectTarget.h"

#include "model/TextHelpers.h"

#include <QLatin1String>

namespace {

const QLatin1String FeId("txtFeId");
const QLatin1String FeChannel("txtFeChannel");

bool IsBlank(const QString& text)
{
    return TrimBlanks(text).isEmpty();
}

} // namespace

const std::vector<DirectField>& DirectFields()
{
    static const std::vector<DirectField> fields{
        {0, "NET4", "txtAddress", "ADDR", true},
        {0, "NET4", "txtTimeOut", "TIME", true},
        {0, "NET4", "txtRetries", "RETRY", true},
        {0, "FE", "txtFeId", "ID", true},
        {0, "FE", "txtFeChannel", "CH", true},
        {1, "NEMML", "txtUserName", "USER", false},
        {1, "NEMML", "txtPassword", "PSW", false},
        {1, "NEMML", "txtPath", "PATH", false},
        {1, "NEMML", "txtTimeMML", "TIME", true},
        {1, "NEMML", "txtRetryMML", "RETRY", true},
        {2, "SNMPNODE", "txtHost", "HOST", false},
        {2, "SNMPNODE", "txtPort", "PORT", false},
        {2, "SNMPNODE", "txtCommunity", "COMMUNITY", false},
        {2, "SNMPNODE", "txtSection", "SECTION", false},
        {2, "SNMPNODE", "txtStation", "STATION", false},
    };
    return fields;
}

void AddWpToTarget(QString& text, const QString& wpName, bool& done)
{
    if (done)
        return;
    AddParamToTarget(text, QStringLiteral("WP"), wpName);
    done = true;
}

void AddParamToTarget(QString& text, const QString& name, const QString& value)
{
    if (!text.isEmpty())
        text += QLatin1Char(',');
    text += name + QLatin1Char('=') + value;
}

QString ComposeNodeTarget(int page, const std::function<QString(const char* field)>& textOf)
{
    QString target;
    QString waypoint;
    bool done = false;
    for (const DirectField& field : DirectFields()) {
        if (field.page != page)
            continue;
        if (waypoint != QLatin1String(field.waypoint)) {
            waypoint = QLatin1String(field.waypoint);
            done = false;
        }
        const QString value = textOf(field.name);
        if (IsBlank(value))
            continue;
        AddWpToTarget(target, waypoint, done);
        // A channel never stands without the front end that it belongs to.
        if (field.name == FeChannel && IsBlank(textOf(FeId.data())))
            AddParamToTarget(target, QStringLiteral("ID"), QStringLiteral("0"));
        AddParamToTarget(target, QLatin1String(field.parameter), value);
    }
    return target;
}
