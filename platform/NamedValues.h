#pragma once

#include <QSettings>
#include <QString>

#include <memory>
#include <optional>

/// The store of named values: what a workstation's administrator sets, such as `ODBC/DBS32`.
///
/// Names are paths with "/". Values are text. Over QSettings: the user's file first, then the machine's. Who
/// writes such a file by hand puts a value with a semicolon, or with blanks behind a comma, in quotes.
class NamedValues
{
public:
    /// The workstation's own store.
    NamedValues();
    /// A store in one INI file; for tests and for a chosen place.
    explicit NamedValues(const QString& iniFile);

    /// The value, or nothing when none is set.
    [[nodiscard]] std::optional<QString> Read(const QString& name) const;
    void Write(const QString& name, const QString& value);
    void Remove(const QString& name);

private:
    std::unique_ptr<QSettings> m_settings;
};
