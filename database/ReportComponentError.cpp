#include "database/ReportComponentError.h"

#include "platform/ComponentError.h"
#include "platform/ComponentFailure.h"
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
    ComponentFailure failure;
    qint32 third = 0;
    try {
        component.GetLastError(failure.major, failure.minor, third, failure.text);
    } catch (const ComponentError& error) {
        return UnknownCause(error.Description(), error.Number());
    } catch (const std::exception& error) {
        return UnknownCause(QString::fromUtf8(error.what()), 0);
    }
    return failure.text + LineEnd + failure.Codes();
}

} // namespace

void ReportComponentError(const QString& text, ComponentWithLastError& component)
{
    ErrorBox(text + LineEnd + LineEnd + CauseOf(component));
}
