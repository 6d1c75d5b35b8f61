#include "platform/NamedValues.h"

NamedValues::NamedValues()
    : m_settings(std::make_unique<QSettings>(QSettings::IniFormat, QSettings::UserScope,
                                             QStringLiteral("Zelka"), QStringLiteral("NamedValues")))
{}

NamedValues::NamedValues(const QString& iniFile)
    : m_settings(std::make_unique<QSettings>(iniFile, QSettings::IniFormat))
{}

std::optional<QString> NamedValues::Read(const QString& name) const
{
    if (!m_settings->contains(name))
        return std::nullopt;
    return m_settings->value(name).toString();
}

void NamedValues::Write(const QString& name, const QString& value)
{
    m_settings->setValue(name, value);
    m_settings->sync();
}

void NamedValues::Remove(const QString& name)
{
    m_settings->remove(name);
    m_settings->sync();
}
