#include "platform/controls/SettingsPropertyBag.h"

#include <utility>

namespace {

/// What a stored text means in another kind; invalid when it is not of that kind. QVariant alone would take
/// any word for true and cut numbers that are too large.
QVariant FromText(const QString& text, const QMetaType& kind)
{
    if (kind.id() == QMetaType::Bool) {
        if (text == QStringLiteral("true") || text == QStringLiteral("1"))
            return true;
        if (text == QStringLiteral("false") || text == QStringLiteral("0"))
            return false;
        return QVariant();
    }
    if (kind.id() == QMetaType::Int) {
        bool isNumber = false;
        const int number = text.toInt(&isNumber);
        return isNumber ? QVariant(number) : QVariant();
    }
    QVariant value = text;
    return value.convert(kind) ? value : QVariant();
}

} // namespace

SettingsPropertyBag::SettingsPropertyBag(QSettings& settings, QString group)
    : m_settings(settings), m_group(std::move(group))
{}

QVariant SettingsPropertyBag::ReadProperty(const QString& name, const QVariant& defaultValue) const
{
    if (!Holds(name))
        return defaultValue;
    QVariant stored = m_settings.value(Key(name));
    if (!defaultValue.isValid() || stored.metaType() == defaultValue.metaType())
        return stored;
    const QVariant value = FromText(stored.toString(), defaultValue.metaType());
    return value.isValid() ? value : defaultValue;
}

void SettingsPropertyBag::WriteProperty(const QString& name, const QVariant& value)
{
    m_settings.setValue(Key(name), value);
}

void SettingsPropertyBag::WriteProperty(const QString& name, const QVariant& value,
                                        const QVariant& defaultValue)
{
    if (value == defaultValue)
        m_settings.remove(Key(name));
    else
        WriteProperty(name, value);
}

bool SettingsPropertyBag::Holds(const QString& name) const
{
    return m_settings.contains(Key(name));
}

QString SettingsPropertyBag::Key(const QString& name) const
{
    return m_group + QLatin1Char('/') + name;
}
