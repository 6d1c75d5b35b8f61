#include "tests/convergence/FormWatcher.h"

#include "browser/ProgressForm.h"

#include <QApplication>
#include <QPushButton>

namespace {

/// A load of this size takes a small part of it.
constexpr int PatienceMs = 5000;

ProgressForm* OpenForm()
{
    return qobject_cast<ProgressForm*>(QApplication::activeModalWidget());
}

} // namespace

FormWatcher::FormWatcher()
{
    connect(&m_turns, &QTimer::timeout, this, &FormWatcher::PressStop);
    connect(&m_patience, &QTimer::timeout, this, &FormWatcher::CloseGivenUp);
    m_patience.start(PatienceMs);
}

void FormWatcher::StopNextLoad(int turns)
{
    m_turnsLeft = turns;
    m_turns.start(0);
}

void FormWatcher::StopNoLoad()
{
    m_turns.stop();
}

void FormWatcher::PressStop()
{
    if (m_turnsLeft-- > 0)
        return;
    m_turns.stop();
    if (const ProgressForm* form = OpenForm())
        form->findChild<QPushButton*>(QStringLiteral("cmdLoadStop"))->click();
}

void FormWatcher::CloseGivenUp()
{
    ProgressForm* const form = OpenForm();
    if (form && form == m_seen)
        form->reject();
    m_seen = form;
}
