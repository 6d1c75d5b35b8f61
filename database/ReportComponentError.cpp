#include "database/ReportComponentError.h"

#include "platform/ComponentError.h"
#include "platform/MsgBox.h"

namespace {

const QString LineEnd = QStringLiteral("\r\n");

QString CauseOf(ComponentWithLastError& component)
{
    qint32 major = 0;
    qint32 minor = 0;
    qint32 third = 0;
    QString text;
    try {
        component.GetLastError(major, minor, third, text);
    } catch (const std::exception& error) {
        return QStringLiteral("Error with HVX component") + LineEnd + DescriptionWithNumber(error);
    }
    return text + LineEnd + QStringLiteral("(Major code = ") + QString::number(major) +
           QStringLiteral(", Minor code = ") + QString::number(minor) + u')';
}

} // namespace

void ReportComponentError(const QString& text, ComponentWithLastError& component)
{
    ErrorBox(text + LineEnd + LineEnd + CauseOf(component));
}
