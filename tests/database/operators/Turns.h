#pragma once

#include <array>
#include <condition_variable>
#include <functional>
#include <mutex>

/// How far one of two works has come.
struct TurnState
{
    bool finished = false;
    /// Steps made so far.
    int steps = 0;
    /// Stands at a step outside any transaction.
    bool outside = true;
    /// Transactions that came to an end.
    int transactions = 0;
};

/// Runs two works on threads of their own, of which only one goes on at any time: both stop before each step
/// until they are chosen. So every order of the steps of two operators can be had, each time the same.
class Turns
{
public:
    static constexpr int None = -1;
    /// Gives the work, 0 or 1, that makes the next step; it is not finished.
    using Chooser = std::function<int(const std::array<TurnState, 2>& states)>;

    /// Runs both works to their end. `enter` and `leave` run around each turn of a work, in its thread.
    void Run(const std::array<std::function<void()>, 2>& works, const Chooser& choose,
             const std::function<void(int)>& enter, const std::function<void(int)>& leave);

    /// Called by a work before a step; returns when it has been chosen.
    void Step(int who, bool inTransaction);

private:
    void WaitForTurn(int who);

    std::mutex m_mutex;
    std::condition_variable m_changed;
    /// The work that may go on; None: the scheduler.
    int m_turn = None;
    std::array<TurnState, 2> m_states;
    std::array<bool, 2> m_wasInside{};
    std::function<void(int)> m_enter;
    std::function<void(int)> m_leave;
};
