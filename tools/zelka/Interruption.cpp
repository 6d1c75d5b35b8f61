#include "tools/zelka/Interruption.h"

#include "tools/zelka/CommandError.h"

namespace {

volatile std::sig_atomic_t asked = 0;

void Note(int /*signal*/)
{
    asked = 1;
}

/// Where the shell has the signal ignored, as for a job in the background, it stays so.
void NoteSignal(int signal, struct sigaction& before)
{
    struct sigaction note = {};
    note.sa_handler = Note;
    note.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
    sigemptyset(&note.sa_mask);
    sigaction(signal, nullptr, &before);
    if (before.sa_handler != SIG_IGN)
        sigaction(signal, &note, nullptr);
}

} // namespace

Interruption::Interruption()
{
    asked = 0;
    NoteSignal(SIGINT, m_beforeInt);
    NoteSignal(SIGTERM, m_beforeTerm);
    NoteSignal(SIGHUP, m_beforeHup);
}

Interruption::~Interruption()
{
    sigaction(SIGINT, &m_beforeInt, nullptr);
    sigaction(SIGTERM, &m_beforeTerm, nullptr);
    sigaction(SIGHUP, &m_beforeHup, nullptr);
}

bool Interruption::Asked()
{
    return asked != 0;
}

void Interruption::Require()
{
    if (Asked())
        throw CommandError(ExitCode::Interrupted, QStringLiteral("Interrupted."), true);
}
