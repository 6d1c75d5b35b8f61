#pragma once

#include <QByteArray>

/// Cuts a stream of bytes, which may come in pieces of any size, into frames.
class FrameReader
{
public:
    enum class Result
    {
        /// `frame` holds the bytes of one whole frame.
        Frame,
        /// More bytes are needed.
        Incomplete,
        /// What comes next cannot begin a frame, or has no definite length. The stream is lost.
        Malformed,
        /// The next frame is announced as longer than GatewayFrame::LargestFrame. The stream is lost.
        Oversized,
    };

    void Append(const QByteArray& bytes) { m_buffer.append(bytes); }
    /// Takes the next frame. Behind Malformed and Oversized every further call gives the same again.
    [[nodiscard]] Result Next(QByteArray& frame);
    /// Bytes that are not part of a taken frame are held.
    [[nodiscard]] bool HasRest() const { return !m_buffer.isEmpty(); }
    void Clear() { m_buffer.clear(); }

private:
    QByteArray m_buffer;
};
