#include "components/hvxutil/HvxUtilityComponent.h"
#include "fuzz/Fuzzing.h"
#include "platform/ComponentError.h"

#include <cstring>
#include <optional>

/// Replies of any bytes. The first two bytes of an input are the number of the element that is asked for.

namespace {

std::optional<QString> DataOf(const QString& reply, qint16 element)
{
    const QString before = QStringLiteral("before");
    QString payload = before;
    try {
        HvxUtilityComponent().GetBERData(reply, element, payload);
        return payload;
    } catch (const ComponentError& error) {
        Require(error.Number() == HvxUtilityRefused && !error.Description().isEmpty(), "a refusal is told");
        Require(payload == before, "a refusal leaves the payload as it was");
        return std::nullopt;
    }
}

/// An element of that tag with four bytes of length.
QString Element(char16_t tag, const QString& content)
{
    QString element = QChar(tag) + QString(QChar(0x84));
    for (int shift = 24; shift >= 0; shift -= 8)
        element += QChar(static_cast<char16_t>((content.size() >> shift) & 0xff));
    return element + content;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    qint16 element = 0;
    if (size < sizeof element)
        return 0;
    std::memcpy(&element, data, sizeof element);
    const QString reply = QString::fromLatin1(reinterpret_cast<const char*>(data) + sizeof element,
                                              static_cast<qsizetype>(size - sizeof element));

    const std::optional<QString> payload = DataOf(reply, element);
    if (payload) {
        Require(element >= 0, "there is no element below 0");
        Require(reply.contains(*payload), "data stand in the reply");
        Require(!DataOf(reply + QChar(0), element), "bytes behind the data are refused");
        const QString ends = QString(2, QChar(0));
        const std::optional<QString> content = DataOf(Element(0x30, reply), 0);
        Require(content && content == DataOf(QStringLiteral("\x30\u0080") + reply + ends, 0),
                "the form of the outer length makes no difference");
    }
    Require(DataOf(Element(0x04, reply), 0) == reply, "the content of a primitive element comes back");
    Require(DataOf(Element(0x30, Element(0x02, QString()) + Element(0x04, reply)), 1) == reply,
            "the content of the second child comes back");
    return 0;
}
