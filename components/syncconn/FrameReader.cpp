#include "components/syncconn/FrameReader.h"

#include "components/syncconn/GatewayFrame.h"

namespace {

constexpr uchar SequenceTag = 0x30;
/// In the first byte of a length: that many bytes of length follow; none stands for the indefinite form.
constexpr uchar LongForm = 0x80;
/// A length in more bytes than this is taken for garbage, even when most of them are zero.
constexpr int LargestLengthBytes = 4;

/// Reads the header of the frame that `bytes` begins with. Frame: `size` is that of the frame with its
/// header, of which perhaps not all has come.
FrameReader::Result ReadHeader(QByteArrayView bytes, qsizetype& size)
{
    using Result = FrameReader::Result;
    if (bytes.isEmpty())
        return Result::Incomplete;
    if (static_cast<uchar>(bytes[0]) != SequenceTag)
        return Result::Malformed;
    if (bytes.size() < 2)
        return Result::Incomplete;
    const auto first = static_cast<uchar>(bytes[1]);
    if (first < LongForm) {
        size = 2 + first;
        return Result::Frame;
    }
    const int lengthBytes = first - LongForm;
    if (lengthBytes == 0 || lengthBytes > LargestLengthBytes)
        return Result::Malformed;

    const qsizetype header = 2 + lengthBytes;
    qint64 length = 0;
    for (int at = 0; at < lengthBytes && 2 + at < bytes.size(); ++at) {
        length = (length << 8) + static_cast<uchar>(bytes[2 + at]);
        // What is still to come can only make it longer.
        const qint64 atLeast = length << (8 * (lengthBytes - at - 1));
        if (header + atLeast > GatewayFrame::LargestFrame)
            return Result::Oversized;
    }
    if (bytes.size() < header)
        return Result::Incomplete;
    size = header + length;
    return Result::Frame;
}

} // namespace

void FrameReader::Append(const QByteArray& bytes)
{
    if (m_lost != Result::Incomplete)
        return;
    // Not before half of it is waste, so that each byte is moved once on average.
    if (m_taken >= m_buffer.size() / 2) {
        m_buffer.remove(0, m_taken);
        m_taken = 0;
    }
    m_buffer.append(bytes);
}

FrameReader::Result FrameReader::Next(QByteArray& frame)
{
    if (m_lost != Result::Incomplete)
        return m_lost;
    const QByteArrayView rest = QByteArrayView(m_buffer).sliced(m_taken);
    qsizetype size = 0;
    const Result result = ReadHeader(rest, size);
    if (result == Result::Malformed || result == Result::Oversized)
        m_lost = result;
    if (result != Result::Frame)
        return result;
    if (rest.size() < size)
        return Result::Incomplete;
    frame = rest.first(size).toByteArray();
    m_taken += size;
    return Result::Frame;
}

void FrameReader::Clear()
{
    m_buffer.clear();
    m_taken = 0;
    m_lost = Result::Incomplete;
}
