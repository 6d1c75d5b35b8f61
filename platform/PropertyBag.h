#pragma once

#include <QString>
#include <QVariant>

#include <ZelkaBrowser/Export.h>

/// Where a host keeps the persisted properties of a control, by name.
///
/// Thread: the control's. Reading and writing never fail; a bag that cannot keep a value loses it, and the
/// next read gives the default.
class ZELKA_EXPORT PropertyBag
{
public:
    virtual ~PropertyBag() = default;

    /// The stored value, or `defaultValue` when none is stored. The kind of the answer may differ from the
    /// kind that was written (a bag may keep text); readers convert.
    [[nodiscard]] virtual QVariant ReadProperty(const QString& name, const QVariant& defaultValue) const = 0;
    /// Stores the value, whatever it is.
    virtual void WriteProperty(const QString& name, const QVariant& value) = 0;
    /// Stores the value unless it equals the default; what was stored before is then removed.
    virtual void WriteProperty(const QString& name, const QVariant& value, const QVariant& defaultValue) = 0;
};
