#include "platform/ComponentError.h"

ComponentError::ComponentError(quint32 number, const QString& source, const QString& description)
    : m_number(number), m_source(source), m_description(description), m_what(description.toUtf8())
{}

QString DescriptionOf(const std::exception& error)
{
    const auto* const raised = dynamic_cast<const ComponentError*>(&error);
    return raised ? raised->Description() : QString::fromUtf8(error.what());
}

QString DescriptionWithNumber(const std::exception& error)
{
    const auto* const raised = dynamic_cast<const ComponentError*>(&error);
    return DescriptionOf(error) + u'(' + QString::number(raised ? raised->Number() : 0, 16).toUpper() + u')';
}
