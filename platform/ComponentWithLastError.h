#pragma once

#include <QString>

/// A component that keeps the record of its last failure.
class ComponentWithLastError
{
public:
    virtual ~ComponentWithLastError() = default;

    /// Gives codes and words of the last failure; nothing reads `third`. Raises ComponentError when there is
    /// no record to give.
    virtual void GetLastError(qint32& major, qint32& minor, qint32& third, QString& text) = 0;
};
