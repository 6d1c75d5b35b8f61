#pragma once

#include <QString>

/// What an operator may enter for a timing parameter of a scan, as the database tells it.
struct TimingLimits
{
    /// As the database writes them: numbers, perhaps with blanks around.
    QString lowest;
    QString highest;

    /// The number in a text lies within; an empty text is 0.
    [[nodiscard]] bool Allow(const QString& text) const;
};

/// The limits of a gateway's repeats; 0 to 1000 where the database cannot tell. Each call asks the database,
/// which may show a box.
[[nodiscard]] TimingLimits RetryLimits();
/// The limits of a gateway's time-out in milliseconds; 0 to 30000 where the database cannot tell.
[[nodiscard]] TimingLimits TimeLimits();
