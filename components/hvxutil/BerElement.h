#pragma once

#include "components/BerHeader.h"

#include <QByteArrayView>

#include <optional>
#include <vector>

/// One BER element (ITU-T X.690, 8.1) with the elements it holds, as views of bytes that have to outlive it.
///
/// Long lengths and indefinite ones are understood. What a child of definite length holds is not looked at;
/// one of indefinite length is read to its end, up to LargestDepth such elements within one another.
class BerElement
{
public:
    static constexpr int LargestDepth = 64;

    /// Reads bytes that hold exactly one element; the problem when they do not.
    [[nodiscard]] std::optional<BerProblem> Read(QByteArrayView bytes);

    [[nodiscard]] bool IsConstructed() const { return m_constructed; }
    /// What the element holds, without its header and the mark at its end.
    [[nodiscard]] QByteArrayView Content() const { return m_content; }
    /// What each child of a constructed element holds.
    [[nodiscard]] const std::vector<QByteArrayView>& Children() const { return m_children; }

private:
    bool m_constructed = false;
    QByteArrayView m_content;
    std::vector<QByteArrayView> m_children;
};
