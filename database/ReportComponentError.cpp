#include "database/ReportComponentError.h"

#include "platform/ComponentError.h"
#include "platform/ComponentFailure.h"
#include "platform/MsgBox.h"
#include "platform/Words.h"

namespace {

const QString LineEnd = QStringLiteral("\r\n");

QString CauseOf(ComponentWithLastError& component)
{
    ComponentFailure failure;
    qint32 third = 0;
    try {
        component.GetLastError(failure.major, failure.minor, third, failure.text);
    } catch (const std::exception& error) {
        return Words::tr("Error with HVX component") + LineEnd + DescriptionWithNumber(error);
    }
    return failure.text + LineEnd + failure.Codes();
}

} // namespace

void ReportComponentError(const QString& text, ComponentWithLastError& component)
{
    ErrorBox(text + LineEnd + LineEnd + CauseOf(component));
}
