#pragma once

#include <QByteArray>

/// Cuts a stream of bytes, which may come in pieces of any size, into frames: BER elements with the tag of a
/// SEQUENCE and a definite length (ITU-T X.690, 8.1). What the frame holds is not looked at.
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

    /// Adds what came. Bytes behind a lost stream are dropped, so that nothing grows.
    void Append(const QByteArray& bytes);
    /// Takes the next frame; `frame` stays as it was unless Frame. Behind Malformed and Oversized every
    /// further call gives the same again, until Clear.
    [[nodiscard]] Result Next(QByteArray& frame);
    /// Bytes that are not part of a taken frame are held.
    [[nodiscard]] bool HasRest() const { return m_taken < m_buffer.size(); }
    void Clear();

private:
    QByteArray m_buffer;
    /// Bytes at the start of the buffer that taken frames held; removed many at a time.
    qsizetype m_taken = 0;
    /// Malformed or Oversized once the stream is lost.
    Result m_lost = Result::Incomplete;
};
