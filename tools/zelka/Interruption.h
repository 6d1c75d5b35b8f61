#pragma once

#include <csignal>

/// Notes Ctrl+C and requests to end while it lives, so that a command can give up in good order. The second
/// one ends the program at once.
class Interruption
{
public:
    Interruption();
    ~Interruption();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

    [[nodiscard]] static bool Asked();
    /// Raises CommandError (Interrupted) when it was asked for. Nothing needs to be told: who asked knows.
    static void Require();

private:
    struct sigaction m_beforeInt = {};
    struct sigaction m_beforeTerm = {};
    struct sigaction m_beforeHup = {};
};
