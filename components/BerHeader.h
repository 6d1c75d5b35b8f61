#pragma once

#include <QByteArrayView>

#include <algorithm>
#include <libtasn1.h>
#include <limits>
#include <optional>

/// What can be wrong with bytes that should be one BER element.
enum class BerProblem
{
    /// The bytes end within an element, or there are none.
    Cut,
    /// A tag or a length that means nothing, an end without a beginning, a child longer than what holds it.
    Malformed,
    TooDeep,
    /// Bytes behind the element.
    Trailing,
};

/// Tag and length at the beginning of a BER element (ITU-T X.690, 8.1.2 and 8.1.3).
struct BerHeader
{
    /// Of libtasn1: ASN1_CLASS_…, with ASN1_CLASS_STRUCTURED for a constructed element.
    uchar tagClass = 0;
    ulong tag = 0;
    /// Bytes of the header itself.
    qsizetype size = 0;
    /// Bytes behind it, all of which are there; none when the length is indefinite.
    std::optional<qsizetype> length;

    [[nodiscard]] bool IsConstructed() const { return (tagClass & ASN1_CLASS_STRUCTURED) != 0; }

    /// Reads the header that `bytes` begin with; the problem when there is none, Cut or Malformed.
    [[nodiscard]] std::optional<BerProblem> Read(QByteArrayView bytes)
    {
        constexpr long indefinite = -1;
        constexpr long longerThanRest = -4;
        // Elements beyond that size fit into nothing that is sent.
        const int end = static_cast<int>(std::min<qsizetype>(bytes.size(), std::numeric_limits<int>::max()));
        const auto* data = reinterpret_cast<const uchar*>(bytes.data());
        int tagSize = 0;
        if (end < 2 || asn1_get_tag_der(data, end, &tagClass, &tagSize, &tag) != ASN1_SUCCESS)
            return BerProblem::Cut;
        // The library takes the missing bytes of a length for none.
        if (tagSize >= end || (data[tagSize] > LongForm && data[tagSize] - LongForm >= end - tagSize))
            return BerProblem::Cut;
        int lengthSize = 0;
        const long read = asn1_get_length_der(data + tagSize, end - tagSize, &lengthSize);
        if (read == longerThanRest)
            return BerProblem::Cut;
        if (read < indefinite || (read == indefinite && !IsConstructed()))
            return BerProblem::Malformed;
        size = tagSize + lengthSize;
        length = read == indefinite ? std::optional<qsizetype>() : read;
        return std::nullopt;
    }

private:
    /// In the first byte of a length: that many bytes of length follow.
    static constexpr uchar LongForm = 0x80;
};
