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
    const QVariant value = m_settings->value(name);
    // Without quotes around it, a value with commas, which an administrator may well write, reads as a list.
    if (value.userType() == QMetaType::QStringList)
        return value.toStringList().join(u',');
    return value.toString();
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
