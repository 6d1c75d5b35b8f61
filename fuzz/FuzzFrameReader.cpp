#include "components/syncconn/FrameReader.h"
#include "components/syncconn/GatewayFrame.h"
#include "fuzz/Fuzzing.h"

#include <algorithm>
#include <fuzzer/FuzzedDataProvider.h>
#include <vector>

/// Streams of any bytes, in one piece and in many, and the messages in them.

namespace {

struct Stream
{
    std::vector<QByteArray> frames;
    FrameReader::Result end = FrameReader::Result::Incomplete;

    bool operator==(const Stream&) const = default;
};

/// What is read of a stream that comes in pieces of those sizes, in turn.
Stream Read(const QByteArray& bytes, const std::vector<qsizetype>& sizes)
{
    FrameReader reader;
    Stream stream;
    QByteArray frame;
    const auto takeAll = [&] {
        while ((stream.end = reader.Next(frame)) == FrameReader::Result::Frame)
            stream.frames.push_back(frame);
    };
    std::size_t piece = 0;
    for (qsizetype at = 0; at < bytes.size(); ++piece) {
        const qsizetype size = std::min(sizes[piece % sizes.size()], bytes.size() - at);
        reader.Append(bytes.mid(at, size));
        at += size;
        takeAll();
    }
    takeAll();
    return stream;
}

void CheckDecoding(const QByteArray& bytes)
{
    GatewayFrame::Frame frame;
    if (GatewayFrame::Decode(bytes, frame) != GatewayFrame::Decoding::Done)
        return;
    const QByteArray shortest = GatewayFrame::Encode(frame);
    Require(!shortest.isEmpty() && shortest.size() <= bytes.size(), "what was read can be written");
    GatewayFrame::Frame again;
    Require(GatewayFrame::Decode(shortest, again) == GatewayFrame::Decoding::Done && again == frame,
            "what was written is read again");
}

GatewayFrame::Body AnyBody(FuzzedDataProvider& input)
{
    const auto bytes = [&] { return QByteArray::fromStdString(input.ConsumeRandomLengthString()); };
    const auto text = [&] { return QString::fromUtf8(bytes()); };
    const auto number = [&] { return input.ConsumeIntegral<qint32>(); };
    switch (input.ConsumeIntegralInRange(0, 4)) {
    case 0:
        return GatewayFrame::Open{text()};
    case 1:
        return GatewayFrame::Opened{};
    case 2:
        return GatewayFrame::Request{text(), number(), bytes()};
    case 3:
        return GatewayFrame::Reply{bytes()};
    default:
        return GatewayFrame::Failure{number(), number(), text()};
    }
}

void CheckEncoding(FuzzedDataProvider& input)
{
    const GatewayFrame::Frame frame{input.ConsumeIntegral<qint32>(), AnyBody(input)};
    const QByteArray bytes = GatewayFrame::Encode(frame);
    const auto* request = std::get_if<GatewayFrame::Request>(&frame.body);
    const bool inRange = frame.exchange >= 0 && (!request || request->attempt >= 0);
    Require(!bytes.isEmpty() == inRange, "a frame in range can be written, and no other");
    if (bytes.isEmpty())
        return;
    GatewayFrame::Frame again;
    Require(GatewayFrame::Decode(bytes, again) == GatewayFrame::Decoding::Done && again == frame,
            "a frame is read as it was written");
    const Stream stream = Read(bytes, {1});
    Require(stream.frames == std::vector{bytes} && stream.end == FrameReader::Result::Incomplete,
            "a written frame is one frame of a stream");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const Stream whole = Read(bytes, {std::max<qsizetype>(1, bytes.size())});
    Require(whole == Read(bytes, {1}), "pieces of one byte give the same frames");
    // Sizes of pieces that differ from input to input.
    std::vector<qsizetype> sizes;
    for (const char byte : bytes.left(8))
        sizes.push_back(1 + static_cast<uchar>(byte) % 37);
    Require(sizes.empty() || whole == Read(bytes, sizes), "pieces of any size give the same frames");
    for (const QByteArray& frame : whole.frames)
        CheckDecoding(frame);
    CheckDecoding(bytes);

    FuzzedDataProvider input(data, size);
    CheckEncoding(input);
    return 0;
}
