#include "browser/T4ZelkaBrowser.h"
#include "browser/ui_T4ZelkaBrowser.h"
#include "database/Gateway.h"
#include "database/ReadBracket.h"
#include "model/ConData.h"
#include "model/TextHelpers.h"
#include "platform/MsgBox.h"

#include <exception>

// The public methods that give the host its results.

bool T4ZelkaBrowser::GetTarget(QString& target)
{
    QString reformatted;
    bool valid = false;
    if (!Gateway().CheckTargetSyntaxDb(m_targetText, 0, reformatted, valid))
        return false;
    target = valid ? reformatted : QString();
    return valid;
}

bool T4ZelkaBrowser::SetTarget(const QString& target)
{
    QString reformatted;
    bool valid = false;
    if (!Gateway().CheckTargetSyntaxDb(target, 0, reformatted, valid) || !valid)
        return false;
    m_targetText = reformatted;
    return true;
}

bool T4ZelkaBrowser::GetSobriquetTarget(const QString& sobriquet, QString& target)
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

bool T4ZelkaBrowser::NodeManagerExists()
{
    QString path;
    QString commandText;
    QString index;
    if (!Gateway().GetNMAInfoDb(m_nodeType, path, commandText, index))
        return false;
    return !TrimBlanks(m_nodeType).isEmpty() && !TrimBlanks(path).isEmpty();
}

QString T4ZelkaBrowser::DoubleAnyChar(QString& text, const QString& character)
{
    return ::DoubleAnyChar(text, character);
}

QString T4ZelkaBrowser::ConvertWordsBeginningUpperCase(const QString& text, const QString& separators)
{
    return ::ConvertWordsBeginningUpperCase(text, separators);
}

bool T4ZelkaBrowser::testi()
{
    MsgBox(QStringLiteral("heippa"));
    return false;
}

void T4ZelkaBrowser::Refresh()
{
    update();
}
