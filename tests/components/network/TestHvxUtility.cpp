#include "components/hvxutil/BerElement.h"
#include "components/hvxutil/HvxUtilityComponent.h"
#include "platform/ComponentError.h"
#include "platform/Components.h"

#include <QtTest>

namespace {

/// Bytes in hexadecimal digits as a byte-string.
QString Bytes(const QByteArray& hex)
{
    return QString::fromLatin1(QByteArray::fromHex(hex));
}

/// The description that a call raises; empty when it raises nothing.
QString RefusalOf(const std::function<void()>& call)
{
    try {
        call();
        return QString();
    } catch (const ComponentError& error) {
        return error.Number() == HvxUtilityRefused && error.Source() == QStringLiteral("HvxUtility")
                   ? error.Description()
                   : QStringLiteral("another error");
    }
}

/// That many elements of indefinite length within one another, and their ends.
QByteArray Nested(int depth)
{
    return QByteArray("3080").repeated(depth) + QByteArray("0000").repeated(depth);
}

const QString Cut = QStringLiteral("The reply ends before its data do.");
const QString Malformed = QStringLiteral("The reply is malformed.");

} // namespace

/// Conversions between texts and bytes.
class TestHvxUtility : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Hex2U_Pairs_Text_data();
    void Hex2U_Pairs_Text();
    void Hex2U_AnythingElse_RefusedAndUntouched_data();
    void Hex2U_AnythingElse_RefusedAndUntouched();
    void U2AAndA2U_EachByte_Itself();
    void U2AAndA2U_CharacterAbove255_RefusedAndUntouched();
    void GetBERData_Elements_Content_data();
    void GetBERData_Elements_Content();
    void GetBERData_Wrong_RefusedAndUntouched_data();
    void GetBERData_Wrong_RefusedAndUntouched();
    void GetBERData_LongContent_Whole();
    void Register_Identifier_CreatesIt();

private:
    HvxUtilityComponent m_utility;
};

void TestHvxUtility::Hex2U_Pairs_Text_data()
{
    QTest::addColumn<QString>("hex");
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing") << QString() << QString();
    QTest::newRow("upper and lower case") << "4a6B4C"
                                          << "JkL";
    QTest::newRow("bounds") << "00fF7f80" << QString::fromLatin1("\x00\xff\x7f\x80", 4);
}

void TestHvxUtility::Hex2U_Pairs_Text()
{
    QFETCH(QString, hex);
    QFETCH(QString, text);

    QString converted;
    m_utility.Hex2U(hex, converted);
    QCOMPARE(converted, text);
}

void TestHvxUtility::Hex2U_AnythingElse_RefusedAndUntouched_data()
{
    QTest::addColumn<QString>("hex");
    QTest::addColumn<QString>("description");
    const QString noDigit = QStringLiteral("The text holds a character that is no hexadecimal digit.");
    QTest::newRow("odd") << "4a6"
                         << "The text has an odd number of hexadecimal digits.";
    QTest::newRow("letter behind f") << "4g" << noDigit;
    QTest::newRow("blank") << "4a 6b " << noDigit;
    QTest::newRow("sign") << "-1" << noDigit;
    QTest::newRow("prefix") << "0x41" << noDigit;
    QTest::newRow("digit of another script") << QString(2, QChar(0x0661)) << noDigit;
    QTest::newRow("between digits and letters") << ":;" << noDigit;
}

void TestHvxUtility::Hex2U_AnythingElse_RefusedAndUntouched()
{
    QFETCH(QString, hex);
    QFETCH(QString, description);

    QString text = QStringLiteral("before");
    QCOMPARE(RefusalOf([&] { m_utility.Hex2U(hex, text); }), description);
    QCOMPARE(text, QStringLiteral("before"));
}

void TestHvxUtility::U2AAndA2U_EachByte_Itself()
{
    QString all;
    for (char16_t code = 0; code < 256; ++code)
        all += QChar(code);

    QString bytes;
    m_utility.U2A(all, bytes);
    QCOMPARE(bytes, all);
    QString text;
    m_utility.A2U(bytes, text);
    QCOMPARE(text, all);
}

void TestHvxUtility::U2AAndA2U_CharacterAbove255_RefusedAndUntouched()
{
    const QString wide = QStringLiteral("a") + QChar(256);
    const QString description = QStringLiteral("The text holds a character that is no byte.");

    QString out = QStringLiteral("before");
    QCOMPARE(RefusalOf([&] { m_utility.U2A(wide, out); }), description);
    QCOMPARE(RefusalOf([&] { m_utility.A2U(wide, out); }), description);
    QCOMPARE(RefusalOf([&] { m_utility.GetBERData(wide, 0, out); }), description);
    QCOMPARE(out, QStringLiteral("before"));
}

void TestHvxUtility::GetBERData_Elements_Content_data()
{
    QTest::addColumn<QByteArray>("hex");
    QTest::addColumn<int>("element");
    QTest::addColumn<QByteArray>("content");
    const auto row = [](const char* name, const QByteArray& hex, int element, const QByteArray& content) {
        QTest::newRow(name) << hex << element << content;
    };
    row("primitive", "04024142", 0, "4142");
    row("primitive, empty", "0400", 0, "");
    row("first child", "3007040141020200ff", 0, "41");
    row("second child", "3007040141020200ff", 1, "00ff");
    row("empty child", "30020400", 0, "");
    row("constructed child", "300630040402ffff", 0, "0402ffff");
    row("long length", "308103040141", 0, "41");
    row("length of four bytes", "308400000006048300000141", 0, "41");
    row("tag of two bytes", "bf2a03040141", 0, "41");
    row("indefinite outer", "30800401410000", 0, "41");
    row("indefinite outer, second child", "30800401410401420000", 1, "42");
    row("indefinite child", "300724800401410000", 0, "040141");
    row("indefinite in indefinite", "3080248004014100000000", 0, "040141");
    row("zeros as content",
        "308004020000"
        "0000",
        0, "0000");
    row("deep", Nested(BerElement::LargestDepth), 0, Nested(BerElement::LargestDepth - 2));
    row("child that does not look into itself", "30040402ff81", 0, "ff81");
}

void TestHvxUtility::GetBERData_Elements_Content()
{
    QFETCH(QByteArray, hex);
    QFETCH(int, element);
    QFETCH(QByteArray, content);

    QString payload;
    m_utility.GetBERData(Bytes(hex), static_cast<qint16>(element), payload);
    QCOMPARE(payload.toLatin1().toHex(), content);
}

void TestHvxUtility::GetBERData_Wrong_RefusedAndUntouched_data()
{
    QTest::addColumn<QByteArray>("hex");
    QTest::addColumn<int>("element");
    QTest::addColumn<QString>("description");
    const auto row = [](const char* name, const QByteArray& hex, int element, const QString& description) {
        QTest::newRow(name) << hex << element << description;
    };
    const QString trailing = QStringLiteral("The reply has bytes behind its data.");
    const QString deep = QStringLiteral("The reply holds elements within elements, deeper than 64.");
    row("nothing", "", 0, Cut);
    row("tag alone", "30", 0, Cut);
    row("tag without an end", "bfff", 0, Cut);
    row("content cut", "30050401", 0, Cut);
    row("length cut", "308200", 0, Cut);
    row("no mark at the end", "3080040141", 0, Cut);
    row("half a mark at the end", "308004014100", 0, Cut);
    row("length of many bytes", "3089010000000000000000", 0, Malformed);
    row("indefinite primitive", "0480410000", 0, Malformed);
    row("end first", "0000", 0, Malformed);
    row("end as a child", "300204000000", 0, trailing);
    row("end within definite",
        "3004040000"
        "00",
        0, Malformed);
    row("child longer than its parent", "3003040541", 0, Malformed);
    row("child cut", "300104", 0, Malformed);
    row("second child malformed",
        "3005040141"
        "0480",
        0, Malformed);
    row("trailing byte", "04014100", 0, trailing);
    row("trailing byte behind indefinite", "3080000000", 0, trailing);
    row("missing child", "3003040141", 1, QStringLiteral("The reply has no element 1."));
    row("no child at all", "3000", 0, QStringLiteral("The reply has no element 0."));
    row("second of a primitive", "040141", 1, QStringLiteral("The reply has no element 1."));
    row("negative of a primitive", "040141", -1, QStringLiteral("The reply has no element -1."));
    row("negative child", "3003040141", -1, QStringLiteral("The reply has no element -1."));
    row("least number", "3003040141", -32768, QStringLiteral("The reply has no element -32768."));
    row("too deep", Nested(BerElement::LargestDepth + 1), 0, deep);
    row("far too deep", QByteArray("3080").repeated(100'000), 0, deep);
}

void TestHvxUtility::GetBERData_Wrong_RefusedAndUntouched()
{
    QFETCH(QByteArray, hex);
    QFETCH(int, element);
    QFETCH(QString, description);

    QString payload = QStringLiteral("before");
    QCOMPARE(RefusalOf([&] { m_utility.GetBERData(Bytes(hex), static_cast<qint16>(element), payload); }),
             description);
    QCOMPARE(payload, QStringLiteral("before"));
}

void TestHvxUtility::GetBERData_LongContent_Whole()
{
    const QString content(300'000, u'x');
    QString payload;
    m_utility.GetBERData(Bytes("30830493e5"
                               "04830493e0") +
                             content,
                         0, payload);

    QCOMPARE(payload, content);
}

void TestHvxUtility::Register_Identifier_CreatesIt()
{
    RegisterHvxUtility();
    QString text;
    CreateHvxUtility(HvxUtilityId)->Hex2U(QStringLiteral("41"), text);
    RegisterHvxUtility(HvxUtilityId, nullptr);

    QCOMPARE(text, QStringLiteral("A"));
}

QTEST_GUILESS_MAIN(TestHvxUtility)
#include "TestHvxUtility.moc"
