#pragma once

#include <QtGlobal>

#include <memory>
#include <utility>
#include <vector>

/// Objects under 32-bit numbers that never move in memory; 0 is no object; numbers of freed ones are reused.
template <typename Object>
class TreePool
{
public:
    using Id = quint32;

    /// Number 0 stands for an object of default values.
    TreePool() { m_pages.push_back(std::make_unique<Object[]>(PageSize)); }

    [[nodiscard]] Object& operator[](Id id) { return m_pages[id / PageSize][id % PageSize]; }
    [[nodiscard]] const Object& operator[](Id id) const { return m_pages[id / PageSize][id % PageSize]; }

    [[nodiscard]] Id Take()
    {
        if (!m_free.empty()) {
            const Id id = m_free.back();
            m_free.pop_back();
            return id;
        }
        if (m_next / PageSize == m_pages.size())
            m_pages.push_back(std::make_unique<Object[]>(PageSize));
        return m_next++;
    }
    void Give(Id id)
    {
        (*this)[id] = Object();
        m_free.push_back(id);
    }

    template <typename Visit>
    void ForEach(Visit visit) const
    {
        for (const std::unique_ptr<Object[]>& page : m_pages) {
            for (Id at = 0; at < PageSize; ++at)
                visit(std::as_const(page[at]));
        }
    }

    /// Bytes of the pool without what the objects hold elsewhere.
    [[nodiscard]] qint64 Bytes() const
    {
        return qint64(m_pages.size()) * qint64(PageSize * sizeof(Object) + 16) +
               qint64(m_pages.capacity() * sizeof(m_pages[0])) + qint64(m_free.capacity() * sizeof(Id));
    }

private:
    static constexpr Id PageSize = 256;

    std::vector<std::unique_ptr<Object[]>> m_pages;
    std::vector<Id> m_free;
    Id m_next = 1;
};
