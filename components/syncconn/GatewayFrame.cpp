#include "components/syncconn/GatewayFrame.h"

#include "components/BerHeader.h"

#include <QStringDecoder>

#include <libtasn1.h>
#include <limits>
#include <memory>
#include <optional>
#include <type_traits>

// The tables of the schema, made from gateway.asn.
extern "C" const asn1_static_node gateway_asn1[];

namespace GatewayFrame {
namespace {

struct NodeDeleter
{
    void operator()(asn1_node node) const { asn1_delete_structure(&node); }
};
using Node = std::unique_ptr<std::remove_pointer_t<asn1_node>, NodeDeleter>;

/// An empty Frame of the schema.
Node NewFrame()
{
    static const Node definitions = [] {
        asn1_node node = nullptr;
        asn1_array2tree(gateway_asn1, &node, nullptr);
        return Node(node);
    }();
    asn1_node frame = nullptr;
    asn1_create_element(definitions.get(), "Gateway.Frame", &frame);
    return Node(frame);
}

// Writing
// ----------------------------------------------------------------------------------------------------

/// Writes the fields of one frame; remembers whether all of them could be written.
class Writer
{
public:
    explicit Writer(asn1_node frame) : m_frame(frame) {}

    [[nodiscard]] bool Good() const { return m_good; }

    void operator()(const Open& open)
    {
        Choose("open");
        Text("body.open.target", open.target);
    }
    void operator()(const Opened&) { Choose("opened"); }
    void operator()(const Request& request)
    {
        Choose("request");
        Text("body.request.target", request.target);
        if (request.attempt < 0)
            m_good = false;
        Number("body.request.attempt", request.attempt);
        Bytes("body.request.data", request.data);
    }
    void operator()(const Reply& reply)
    {
        Choose("reply");
        Bytes("body.reply", reply.data);
    }
    void operator()(const Failure& failure)
    {
        Choose("failure");
        Number("body.failure.major", failure.major);
        Number("body.failure.minor", failure.minor);
        Text("body.failure.text", failure.text);
    }

    void Number(const char* field, qint32 number) { Write(field, QByteArray::number(number).constData(), 0); }

private:
    void Choose(const char* body) { Write("body", body, 1); }
    void Bytes(const char* field, const QByteArray& bytes)
    {
        // Keeps the library from copying what cannot go out anyway.
        if (bytes.size() > LargestFrame) {
            m_good = false;
            return;
        }
        Write(field, bytes.constData(), static_cast<int>(bytes.size()));
    }
    void Text(const char* field, const QString& text)
    {
        // A lone surrogate has no bytes; the far end would read another text.
        if (!text.isValidUtf16())
            m_good = false;
        Bytes(field, text.toUtf8());
    }
    void Write(const char* field, const void* value, int size)
    {
        m_good = m_good && asn1_write_value(m_frame, field, value, size) == ASN1_SUCCESS;
    }

    asn1_node m_frame;
    bool m_good = true;
};

// Reading
// ----------------------------------------------------------------------------------------------------

// Numbers of the constructed bodies in the schema.
constexpr ulong OpenTag = 0;
constexpr ulong RequestTag = 2;
constexpr ulong FailureTag = 4;

/// A SEQUENCE, or one of the bodies; texts and bytes come in one piece.
bool MayBeConstructed(const BerHeader& header)
{
    if (header.tagClass == (ASN1_CLASS_UNIVERSAL | ASN1_CLASS_STRUCTURED))
        return header.tag == ASN1_TAG_SEQUENCE;
    return header.tag == OpenTag || header.tag == RequestTag || header.tag == FailureTag;
}

/// The header of an element with a definite length.
std::optional<BerHeader> ReadHeader(QByteArrayView bytes)
{
    BerHeader header;
    if (header.Read(bytes) || !header.length)
        return std::nullopt;
    return header;
}

/// No element of the schema lies deeper.
constexpr int LargestDepth = 3;

/// Every element has a definite length and fits exactly into the one around it.
bool IsWellFormed(QByteArrayView bytes, int depth = 0)
{
    while (!bytes.isEmpty()) {
        const auto header = ReadHeader(bytes);
        if (!header)
            return false;
        if (header->IsConstructed() &&
            (depth >= LargestDepth || !MayBeConstructed(*header) ||
             !IsWellFormed(bytes.sliced(header->size, *header->length), depth + 1)))
            return false;
        bytes = bytes.sliced(header->size + *header->length);
    }
    return true;
}

/// A number in two's complement; nothing when it has no or too many bytes.
std::optional<qint64> NumberIn(QByteArrayView bytes)
{
    if (bytes.isEmpty() || bytes.size() > 5)
        return std::nullopt;
    auto number = static_cast<qint64>(static_cast<qint8>(bytes[0]));
    for (const char byte : bytes.sliced(1))
        number = number * 256 + static_cast<uchar>(byte);
    return number;
}

/// The version of what is a SEQUENCE of any version; nothing when it has none.
std::optional<qint64> VersionOf(QByteArrayView bytes)
{
    const auto frame = ReadHeader(bytes);
    if (!frame || frame->tagClass != (ASN1_CLASS_UNIVERSAL | ASN1_CLASS_STRUCTURED) ||
        frame->tag != ASN1_TAG_SEQUENCE || frame->size + *frame->length != bytes.size())
        return std::nullopt;
    const QByteArrayView content = bytes.sliced(frame->size);
    const auto version = ReadHeader(content);
    if (!version || version->tagClass != ASN1_CLASS_UNIVERSAL || version->tag != ASN1_TAG_INTEGER)
        return std::nullopt;
    const auto number = NumberIn(content.sliced(version->size, *version->length));
    return number && *number >= 0 && *number <= 255 ? number : std::nullopt;
}

/// Reads the fields of one frame; remembers whether all of them could be read.
class Reader
{
public:
    explicit Reader(asn1_node frame) : m_frame(frame) {}

    [[nodiscard]] bool Good() const { return m_good; }

    [[nodiscard]] Body ReadBody()
    {
        const QByteArray chosen = Value("body").split('\0').value(0);
        if (chosen == "open")
            return Open{Text("body.open.target")};
        if (chosen == "opened")
            return Opened{};
        if (chosen == "request")
            return Request{Text("body.request.target"), Number("body.request.attempt", 0),
                           Value("body.request.data")};
        if (chosen == "reply")
            return Reply{Value("body.reply")};
        if (chosen == "failure")
            return Failure{Number("body.failure.major"), Number("body.failure.minor"),
                           Text("body.failure.text")};
        m_good = false;
        return Opened{};
    }

    [[nodiscard]] qint32 Number(const char* field, qint32 least = std::numeric_limits<qint32>::min())
    {
        const auto number = NumberIn(Value(field));
        if (number && *number >= least && *number <= std::numeric_limits<qint32>::max())
            return static_cast<qint32>(*number);
        m_good = false;
        return 0;
    }

private:
    [[nodiscard]] QByteArray Value(const char* field)
    {
        int size = 0;
        int result = asn1_read_value(m_frame, field, nullptr, &size);
        if (result == ASN1_SUCCESS || result != ASN1_MEM_ERROR) {
            m_good = m_good && result == ASN1_SUCCESS;
            return {};
        }
        QByteArray value(size, '\0');
        result = asn1_read_value(m_frame, field, value.data(), &size);
        m_good = m_good && result == ASN1_SUCCESS;
        value.truncate(size);
        return value;
    }
    [[nodiscard]] QString Text(const char* field)
    {
        QStringDecoder decoder(QStringDecoder::Utf8,
                               QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
        const QByteArray bytes = Value(field);
        QString text = decoder(bytes);
        m_good = m_good && !decoder.hasError();
        return text;
    }

    asn1_node m_frame;
    bool m_good = true;
};

} // namespace

QByteArray Encode(const Frame& frame)
{
    const Node node = NewFrame();
    Writer writer(node.get());
    writer.Number("version", Version);
    writer.Number("exchange", frame.exchange);
    std::visit(writer, frame.body);
    if (!writer.Good() || frame.exchange < 0)
        return {};
    QByteArray bytes(LargestFrame, '\0');
    int size = static_cast<int>(bytes.size());
    if (asn1_der_coding(node.get(), "", bytes.data(), &size, nullptr) != ASN1_SUCCESS)
        return {};
    bytes.truncate(size);
    return bytes;
}

Decoding Decode(const QByteArray& bytes, Frame& frame)
{
    if (bytes.size() > LargestFrame)
        return Decoding::Malformed;
    const auto version = VersionOf(bytes);
    if (!version)
        return Decoding::Malformed;
    if (*version != Version)
        return Decoding::OtherVersion;
    if (!IsWellFormed(bytes))
        return Decoding::Malformed;

    Node node = NewFrame();
    asn1_node raw = node.release();
    int size = static_cast<int>(bytes.size());
    const int result = asn1_der_decoding2(&raw, bytes.constData(), &size, 0, nullptr);
    node.reset(raw);
    if (result != ASN1_SUCCESS || size != bytes.size())
        return Decoding::Malformed;

    Reader reader(node.get());
    const qint32 exchange = reader.Number("exchange", 0);
    Body body = reader.ReadBody();
    if (!reader.Good())
        return Decoding::Malformed;
    frame = {exchange, std::move(body)};
    return Decoding::Done;
}

} // namespace GatewayFrame
