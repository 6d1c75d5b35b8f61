#pragma once

#include <QString>

/// Programmatic identifier of the conversion utility.
inline const QString HvxUtilityId = QStringLiteral("Zelka.HVXUtil.1");

/// Converts between texts and what goes over a connection. A byte-string is a text with one character from 0
/// to 255 a byte. Each method raises ComponentError for input that it cannot convert and then leaves its
/// output as it was.
class HvxUtility
{
public:
    virtual ~HvxUtility() = default;

    /// Pairs of hexadecimal digits, in either case, to 8-bit characters. Anything else is an error.
    virtual void Hex2U(const QString& hex, QString& text) = 0;
    /// Text to a byte-string; a character above 255 is an error.
    virtual void U2A(const QString& text, QString& bytes) = 0;
    /// A byte-string to text.
    virtual void A2U(const QString& bytes, QString& text) = 0;
    /// What a BER element holds (ITU-T X.690): of a constructed one, the content of its child number
    /// `element`, from 0; of a primitive one, its content. Long and indefinite lengths are understood.
    virtual void GetBERData(const QString& reply, qint16 element, QString& payload) = 0;
};
