#pragma once

#include <QSettings>

#include <ZelkaBrowser/Export.h>
#include <ZelkaBrowser/PropertyBag.h>

/// Keeps properties in a group of a settings store.
///
/// Stores that keep text are read back in the kind of the default; a text that is not of that kind counts as
/// not stored. The store writes at its own time; its owner calls sync() where that matters.
class ZELKA_EXPORT SettingsPropertyBag : public PropertyBag
{
public:
    /// `settings` is not owned and must live as long as the bag.
    SettingsPropertyBag(QSettings& settings, QString group);

    [[nodiscard]] QVariant ReadProperty(const QString& name, const QVariant& defaultValue) const override;
    void WriteProperty(const QString& name, const QVariant& value) override;
    void WriteProperty(const QString& name, const QVariant& value, const QVariant& defaultValue) override;

    /// A value is stored under that name.
    [[nodiscard]] bool Holds(const QString& name) const;

private:
    [[nodiscard]] QString Key(const QString& name) const;

    QSettings& m_settings;
    QString m_group;
};
