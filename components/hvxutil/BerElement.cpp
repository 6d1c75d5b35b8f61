#include "components/hvxutil/BerElement.h"

namespace {

/// Goes through bytes element by element.
class Walk
{
public:
    explicit Walk(QByteArrayView bytes) : m_rest(bytes) {}

    [[nodiscard]] bool AtEnd() const { return m_rest.isEmpty(); }

    /// Reads the header of the next element.
    [[nodiscard]] std::optional<BerProblem> ReadHeader()
    {
        if (const auto problem = m_header.Read(m_rest))
            return problem;
        // An end without a beginning.
        if (m_header.tagClass == ASN1_CLASS_UNIVERSAL && m_header.tag == 0)
            return BerProblem::Malformed;
        m_rest = m_rest.sliced(m_header.size);
        return std::nullopt;
    }
    [[nodiscard]] bool IsConstructed() const { return m_header.IsConstructed(); }

    /// Takes what the element behind the header that was read holds, and its mark.
    [[nodiscard]] std::optional<BerProblem> TakeContent(QByteArrayView& content)
    {
        if (m_header.length) {
            content = TakeDefinite();
            return std::nullopt;
        }
        const QByteArrayView start = m_rest;
        qsizetype end = 0;
        for (int depth = 1; depth > 0;) {
            if (AtMark()) {
                --depth;
                end = start.size() - m_rest.size();
                SkipMark();
                continue;
            }
            if (const auto problem = ReadHeader())
                return problem;
            if (m_header.length)
                (void)TakeDefinite();
            else if (++depth > BerElement::LargestDepth)
                return BerProblem::TooDeep;
        }
        content = start.first(end);
        return std::nullopt;
    }

private:
    [[nodiscard]] bool AtMark() const { return m_rest.startsWith(QByteArrayView("\0\0", 2)); }
    void SkipMark() { m_rest = m_rest.sliced(2); }
    QByteArrayView TakeDefinite()
    {
        const QByteArrayView content = m_rest.first(*m_header.length);
        m_rest = m_rest.sliced(*m_header.length);
        return content;
    }

    QByteArrayView m_rest;
    BerHeader m_header;
};

} // namespace

std::optional<BerProblem> BerElement::Read(QByteArrayView bytes)
{
    *this = BerElement();
    Walk outer(bytes);
    if (const auto problem = outer.ReadHeader())
        return problem;
    m_constructed = outer.IsConstructed();
    if (const auto problem = outer.TakeContent(m_content))
        return problem;
    if (!outer.AtEnd())
        return BerProblem::Trailing;
    if (!m_constructed)
        return std::nullopt;

    Walk children(m_content);
    while (!children.AtEnd()) {
        QByteArrayView child;
        auto problem = children.ReadHeader();
        if (!problem)
            problem = children.TakeContent(child);
        if (problem) {
            // All of the element is there, so a child that lacks bytes is one that claims too many.
            return problem == BerProblem::Cut ? BerProblem::Malformed : problem;
        }
        m_children.push_back(child);
    }
    return std::nullopt;
}
