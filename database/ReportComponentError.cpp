#include "database/ReportComponentError.h"

#include "platform/ComponentError.h"
#include "platform/MsgBox.h"

namespace {

const QString LineEnd = QStringLiteral("\r\n");

QString UnknownCause(const QString& description, quint32 number)
{
    return QStringLiteral("Error with HVX component") + LineEnd + description + u'(' +
           QString::number(number, 16).toUpper() + u')';
}

QString CauseOf(ComponentWithLastError& component)
{
    qint32 major = 0;
    qint32 minor = 0;
    qint32 third = 0;
    QString text;
    try {
        component.GetLastError(major, minor, third, text);
    } catch (const ComponentError& error) {
        return UnknownCause(error.Description(), error.Number());
    } catch (const std::exception& error) {
        return UnknownCause(QString::fromUtf8(error.what()), 0);
    }
    return text + LineEnd + QStringLiteral("(Major code = ") + QString::number(major) +
           QStringLiteral(", Minor code = ") + QString::number(minor) + u')';
}

} // namespace

void ReportComponentError(const QString& text, ComponentWithLastError& component)
{
    ErrorBox(text + LineEnd + LineEnd + CauseOf(component));
}
