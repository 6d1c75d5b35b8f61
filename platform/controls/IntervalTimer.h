#pragma once

#include <QTimer>

/// A timer with a switch and an interval that are set apart from each other: it runs while it is switched on
/// and its interval is above 0.
class IntervalTimer : public QObject
{
    Q_OBJECT

public:
    explicit IntervalTimer(QObject* parent = nullptr);

    [[nodiscard]] bool Enabled() const { return m_enabled; }
    void SetEnabled(bool enabled);
    [[nodiscard]] int Interval() const { return m_interval; }
    void SetInterval(int milliseconds);
    /// It is switched on and has an interval.
    [[nodiscard]] bool Runs() const { return m_timer.isActive(); }

Q_SIGNALS:
    void Timer();

private:
    void Apply();

    QTimer m_timer;
    bool m_enabled = false;
    int m_interval = 0;
};
