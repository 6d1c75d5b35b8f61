#include "platform/ComponentFailure.h"

#include "platform/ComponentWithLastError.h"
#include "platform/Words.h"

#include <exception>

QString ComponentFailure::Codes() const
{
    return Words::tr("(Major code = %1, Minor code = %2)")
        .arg(QString::number(major), QString::number(minor));
}

QString ComponentFailure::Told(const QString& otherwise) const
{
    return text.isEmpty() ? otherwise : text + u' ' + Codes();
}

ComponentFailure LastFailureOf(ComponentWithLastError& component)
{
    ComponentFailure failure;
    qint32 third = 0;
    try {
        component.GetLastError(failure.major, failure.minor, third, failure.text);
    } catch (const std::exception&) {
        return {};
    }
    return failure;
}
