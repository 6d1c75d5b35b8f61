#pragma once

#include <QtGlobal>

#include <array>
#include <memory>
#include <utility>
#include <vector>

/// A hash index of entries by handle that grows and shrinks one bucket at a time, so that no single
/// insertion or removal pays for all (linear hashing). The chains run through the entries themselves.
///
/// `Links` gives `static quint32 Hash(const Entry&)`, `static quint32& Next(Entry&)` and, where many entries
/// may share a hash, `static quint32& Previous(Entry&)`, which makes removal independent of their number.
/// `Entries` gives `Entry& operator[](quint32 handle)`; 0 is no entry.
template <typename Entries, typename Links>
class TreeHash
{
public:
    explicit TreeHash(Entries& entries) : m_entries(entries)
    {
        m_segments.push_back(std::make_unique<Segment>());
    }

    /// First entry of the chain that holds all entries of that hash, among others.
    [[nodiscard]] quint32 Chain(quint32 hash) const { return Bucket(BucketOf(hash)); }

    /// Brings near the processor where Chain looks.
    void FetchChain(quint32 hash) const
    {
        const quint32 bucket = BucketOf(hash);
        __builtin_prefetch(&(*m_segments[bucket / SegmentSize])[bucket % SegmentSize]);
    }

    void Insert(quint32 handle)
    {
        if (++m_count > m_buckets)
            Grow();
        Link(BucketOf(Links::Hash(m_entries[handle])), handle);
    }

    void Remove(quint32 handle)
    {
        Unlink(BucketOf(Links::Hash(m_entries[handle])), handle);
        --m_count;
        // Two buckets a removal keep pace with the threshold.
        for (int step = 0; step < 2 && m_buckets > SegmentSize && m_count < m_buckets / 2; ++step)
            Shrink();
    }

    [[nodiscard]] qint64 Bytes() const
    {
        return qint64(m_segments.size()) * qint64(sizeof(Segment) + BlockOverhead) +
               qint64(m_segments.capacity() * sizeof(m_segments[0]));
    }

private:
    static constexpr quint32 SegmentSize = 1024;
    /// What the allocator adds to a block, at most.
    static constexpr int BlockOverhead = 16;
    using Segment = std::array<quint32, SegmentSize>;

    static constexpr bool TwoWay = requires(decltype(std::declval<Entries&>()[0]) entry)
    {
        Links::Previous(entry);
    };

    [[nodiscard]] quint32 Bucket(quint32 bucket) const
    {
        return (*m_segments[bucket / SegmentSize])[bucket % SegmentSize];
    }
    [[nodiscard]] quint32& Bucket(quint32 bucket)
    {
        return (*m_segments[bucket / SegmentSize])[bucket % SegmentSize];
    }

    [[nodiscard]] quint32 BucketOf(quint32 hash) const
    {
        const quint32 bucket = hash & (2 * m_base - 1);
        return bucket < m_buckets ? bucket : hash & (m_base - 1);
    }

    void Link(quint32 bucket, quint32 handle)
    {
        quint32& head = Bucket(bucket);
        auto& entry = m_entries[handle];
        Links::Next(entry) = head;
        if constexpr (TwoWay) {
            Links::Previous(entry) = 0;
            if (head != 0)
                Links::Previous(m_entries[head]) = handle;
        }
        head = handle;
    }

    void Unlink(quint32 bucket, quint32 handle)
    {
        auto& entry = m_entries[handle];
        const quint32 next = Links::Next(entry);
        if constexpr (TwoWay) {
            const quint32 previous = Links::Previous(entry);
            (previous != 0 ? Links::Next(m_entries[previous]) : Bucket(bucket)) = next;
            if (next != 0)
                Links::Previous(m_entries[next]) = previous;
        } else {
            quint32* link = &Bucket(bucket);
            while (*link != handle)
                link = &Links::Next(m_entries[*link]);
            *link = next;
        }
    }

    /// Takes the chain out of a bucket and links each of its entries anew.
    void Distribute(quint32 chain)
    {
        while (chain != 0) {
            auto& entry = m_entries[chain];
            const quint32 next = Links::Next(entry);
            Link(BucketOf(Links::Hash(entry)), chain);
            chain = next;
        }
    }

    void Grow()
    {
        if (m_buckets % SegmentSize == 0)
            m_segments.push_back(std::make_unique<Segment>());
        const quint32 split = m_buckets - m_base;
        if (++m_buckets == 2 * m_base)
            m_base = m_buckets;
        Distribute(std::exchange(Bucket(split), 0));
    }

    void Shrink()
    {
        if (m_buckets == m_base)
            m_base /= 2;
        --m_buckets;
        Distribute(std::exchange(Bucket(m_buckets), 0));
        if (m_buckets % SegmentSize == 0)
            m_segments.pop_back();
    }

    Entries& m_entries;
    std::vector<std::unique_ptr<Segment>> m_segments;
    quint32 m_buckets = SegmentSize;
    /// The largest power of two that is not above the number of buckets.
    quint32 m_base = SegmentSize;
    quint32 m_count = 0;
};
