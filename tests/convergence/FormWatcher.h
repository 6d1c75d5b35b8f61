#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>

class ProgressForm;

/// Presses the buttons of the progress forms, which stand open while their loads run: stops a load when it is
/// to be stopped, and closes a form whose load was given up.
class FormWatcher : public QObject
{
    Q_OBJECT

public:
    FormWatcher();

    /// The next load is stopped behind so many turns of the event loop.
    void StopNextLoad(int turns);
    /// Forgets a stop for which no load has come.
    void StopNoLoad();

private:
    void PressStop();
    void CloseGivenUp();

    QTimer m_turns;
    QTimer m_patience;
    int m_turnsLeft = 0;
    QPointer<ProgressForm> m_seen;
};
