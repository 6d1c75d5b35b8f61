#pragma once

#include <QByteArrayView>

#include <cstring>
#include <memory>
#include <vector>

/// Keeps many short texts in large blocks; a kept text stays where it is until the arena goes.
class TextArena
{
public:
    /// Room for `size` bytes.
    char* Reserve(std::size_t size)
    {
        if (size > m_left) {
            const std::size_t block = std::max(BlockBytes, size);
            m_blocks.push_back(std::make_unique_for_overwrite<char[]>(block));
            m_next = m_blocks.back().get();
            m_left = block;
        }
        char* const room = m_next;
        m_next += size;
        m_left -= size;
        return room;
    }

private:
    static constexpr std::size_t BlockBytes = 1 << 20;
    std::vector<std::unique_ptr<char[]>> m_blocks;
    char* m_next = nullptr;
    std::size_t m_left = 0;
};
