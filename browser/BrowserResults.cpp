#include "browser/BrowserControl.h"
#include "browser/ui_BrowserControl.h"
#include "database/Gateway.h"
#include "database/ReadBracket.h"
#include "model/ConData.h"
#include "model/TextHelpers.h"

#include <exception>

// The public methods that give the host its results.

bool BrowserControl::GetTarget(QString& target)
{
    QString reformatted;
    bool valid = false;
    if (!Gateway().CheckTargetSyntaxDb(m_targetText, 0, reformatted, valid))
        return false;
    target = valid ? reformatted : QString();
    return valid;
}

bool BrowserControl::SetTarget(const QString& target)
{
    QString reformatted;
    bool valid = false;
    if (!Gateway().CheckTargetSyntaxDb(target, 0, reformatted, valid) || !valid)
        return false;
    m_targetText = reformatted;
    return true;
}

bool BrowserControl::GetSobriquetTarget(const QString& sobriquet, QString& target)
{
    QString parentName;
    QString nodeTarget;
    QString nodeType;
    QString commandLine;
    try {
        if (!Gateway().GetNodeExDb(sobriquet, parentName, nodeTarget, nodeType, commandLine))
            return false;
        // A working object of its own: the host may call while a command uses the shared one.
        ConData connection;
        QString parentTarget;
        if (!connection.GetParentWithoutDefaults(parentName, parentTarget))
            return false;
        target = parentTarget + QLatin1Char(',') + nodeTarget;
        return true;
    } catch (const std::exception&) {
        // Damaged data; the host is told by the result alone.
        return false;
    }
}

bool BrowserControl::NodeManagerExists()
{
    QString path;
    QString commandText;
    QString index;
    if (!Gateway().GetNMAInfoDb(m_nodeType, path, commandText, index))
        return false;
    return !TrimBlanks(m_nodeType).isEmpty() && !TrimBlanks(path).isEmpty();
}
