#include "platform/ComponentError.h"

ComponentError::ComponentError(quint32 number, const QString& source, const QString& description)
    : m_number(number), m_source(source), m_description(description), m_what(description.toUtf8())
{}
