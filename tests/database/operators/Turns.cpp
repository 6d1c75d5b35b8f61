#include "tests/database/operators/Turns.h"

#include <thread>

void Turns::Run(const std::array<std::function<void()>, 2>& works, const Chooser& choose,
                const std::function<void(int)>& enter, const std::function<void(int)>& leave)
{
    m_states = {};
    m_wasInside = {};
    m_turn = None;
    m_enter = enter;
    m_leave = leave;
    std::array<std::thread, 2> threads;
    for (int who = 0; who < 2; ++who) {
        threads[static_cast<size_t>(who)] = std::thread([this, who, &works] {
            WaitForTurn(who);
            works[static_cast<size_t>(who)]();
            m_leave(who);
            const std::lock_guard lock(m_mutex);
            m_states[static_cast<size_t>(who)].finished = true;
            m_turn = None;
            m_changed.notify_all();
        });
    }
    {
        std::unique_lock lock(m_mutex);
        while (!m_states[0].finished || !m_states[1].finished) {
            const int chosen = m_states[0].finished ? 1 : m_states[1].finished ? 0 : choose(m_states);
            ++m_states[static_cast<size_t>(chosen)].steps;
            m_turn = chosen;
            m_changed.notify_all();
            m_changed.wait(lock, [this] { return m_turn == None; });
        }
    }
    for (std::thread& thread : threads)
        thread.join();
}

void Turns::Step(int who, bool inTransaction)
{
    m_leave(who);
    {
        const std::lock_guard lock(m_mutex);
        TurnState& state = m_states[static_cast<size_t>(who)];
        bool& wasInside = m_wasInside[static_cast<size_t>(who)];
        if (wasInside && !inTransaction)
            ++state.transactions;
        wasInside = inTransaction;
        state.outside = !inTransaction;
        m_turn = None;
        m_changed.notify_all();
    }
    WaitForTurn(who);
}

void Turns::WaitForTurn(int who)
{
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this, who] { return m_turn == who; });
    }
    m_enter(who);
}
