#pragma once

#include <QString>

#include <exception>

/// What a component raises when a call fails: the error number (an HRESULT), who raised it, and words.
class ComponentError : public std::exception
{
public:
    ComponentError(quint32 number, const QString& source, const QString& description);

    [[nodiscard]] quint32 Number() const { return m_number; }
    [[nodiscard]] const QString& Source() const { return m_source; }
    [[nodiscard]] const QString& Description() const { return m_description; }
    [[nodiscard]] const char* what() const noexcept override { return m_what.constData(); }

private:
    quint32 m_number;
    QString m_source;
    QString m_description;
    QByteArray m_what;
};

/// What any error tells: the description of a component's error, the words of another.
[[nodiscard]] QString DescriptionOf(const std::exception& error);
/// The same, followed by the error's number in hexadecimal in brackets; 0 where it has none.
[[nodiscard]] QString DescriptionWithNumber(const std::exception& error);
