#include "components/hvxutil/HvxUtilityComponent.h"

#include "components/ByteText.h"
#include "components/hvxutil/BerElement.h"
#include "platform/ComponentError.h"
#include "platform/Components.h"

namespace {

[[noreturn]] void Refuse(const QString& description)
{
    throw ComponentError(HvxUtilityRefused, QStringLiteral("HvxUtility"), description);
}

QByteArray NeedBytes(const QString& text)
{
    const std::optional<QByteArray> bytes = BytesOf(text);
    if (!bytes)
        Refuse(QStringLiteral("The text holds a character that is no byte."));
    return *bytes;
}

/// Value of a hexadecimal digit.
char16_t DigitValue(QChar digit)
{
    const char16_t code = digit.unicode();
    if (code >= u'0' && code <= u'9')
        return code - u'0';
    if (code >= u'a' && code <= u'f')
        return code - u'a' + 10;
    if (code >= u'A' && code <= u'F')
        return code - u'A' + 10;
    Refuse(QStringLiteral("The text holds a character that is no hexadecimal digit."));
}

QString Describe(BerProblem problem)
{
    switch (problem) {
    case BerProblem::Cut:
        return QStringLiteral("The reply ends before its data do.");
    case BerProblem::Malformed:
        return QStringLiteral("The reply is malformed.");
    case BerProblem::TooDeep:
        return QStringLiteral("The reply holds elements within elements, deeper than %1.")
            .arg(BerElement::LargestDepth);
    case BerProblem::Trailing:
        return QStringLiteral("The reply has bytes behind its data.");
    }
    Q_UNREACHABLE();
}

} // namespace

void RegisterHvxUtility()
{
    RegisterHvxUtility(HvxUtilityId, [] { return std::make_unique<HvxUtilityComponent>(); });
}

void HvxUtilityComponent::Hex2U(const QString& hex, QString& text)
{
    if (hex.size() % 2 != 0)
        Refuse(QStringLiteral("The text has an odd number of hexadecimal digits."));
    QString converted;
    converted.reserve(hex.size() / 2);
    for (qsizetype at = 0; at < hex.size(); at += 2)
        converted += QChar(static_cast<char16_t>(DigitValue(hex[at]) * 16 + DigitValue(hex[at + 1])));
    text = converted;
}

void HvxUtilityComponent::U2A(const QString& text, QString& bytes)
{
    bytes = ByteText(NeedBytes(text));
}

void HvxUtilityComponent::A2U(const QString& bytes, QString& text)
{
    text = ByteText(NeedBytes(bytes));
}

void HvxUtilityComponent::GetBERData(const QString& reply, qint16 element, QString& payload)
{
    const QByteArray bytes = NeedBytes(reply);
    BerElement outer;
    if (const auto problem = outer.Read(bytes))
        Refuse(Describe(*problem));
    const std::size_t count = outer.IsConstructed() ? outer.Children().size() : 1;
    if (element < 0 || static_cast<std::size_t>(element) >= count)
        Refuse(QStringLiteral("The reply has no element %1.").arg(element));
    const QByteArrayView content =
        outer.IsConstructed() ? outer.Children()[static_cast<std::size_t>(element)] : outer.Content();
    payload = ByteText(content.toByteArray());
}
