#pragma once

#include <QString>

class ComponentWithLastError;

/// The record that a component keeps of its last failure.
struct ComponentFailure
{
    qint32 major = 0;
    qint32 minor = 0;
    /// Empty: the component has no words for it.
    QString text;

    /// "(Major code = 2, Minor code = 3)"
    [[nodiscard]] QString Codes() const;
    /// Words and codes in one line; without words `otherwise`.
    [[nodiscard]] QString Told(const QString& otherwise) const;
};

/// Without a record to give: no codes and no words.
[[nodiscard]] ComponentFailure LastFailureOf(ComponentWithLastError& component);
