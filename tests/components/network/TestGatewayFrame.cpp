#include "components/syncconn/GatewayFrame.h"

#include <QtTest>

#include <limits>

using namespace GatewayFrame;

Q_DECLARE_METATYPE(Frame)

namespace {

constexpr qint32 Largest = std::numeric_limits<qint32>::max();
constexpr qint32 Least = std::numeric_limits<qint32>::min();

/// An element of that tag; contents below 128 bytes.
QByteArray Element(char tag, const QByteArray& content)
{
    return tag + QByteArray(1, static_cast<char>(content.size())) + content;
}

/// A frame of version 1 and exchange 5 around those bytes of a body.
QByteArray FrameOf(const QByteArray& body)
{
    return Element('\x30', QByteArray::fromHex("020101020105") + body);
}

const QByteArray FiveOpened = QByteArray::fromHex("3008020101020105"
                                                  "8100");

} // namespace

/// The bytes of the messages.
class TestGatewayFrame : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Encode_AnyFrame_DecodesToTheSame_data();
    void Encode_AnyFrame_DecodesToTheSame();
    void Encode_Messages_AreDer_data();
    void Encode_Messages_AreDer();
    void Encode_FieldOutOfRange_Empty_data();
    void Encode_FieldOutOfRange_Empty();
    void Encode_LargestFrame_FitsExactly();
    void Decode_LongerFormsOfBer_Done_data();
    void Decode_LongerFormsOfBer_Done();
    void Decode_NoFrame_MalformedAndUntouched_data();
    void Decode_NoFrame_MalformedAndUntouched();
    void Decode_OtherVersion_WhateverFollows_data();
    void Decode_OtherVersion_WhateverFollows();
};

void TestGatewayFrame::Encode_AnyFrame_DecodesToTheSame_data()
{
    QTest::addColumn<Frame>("frame");
    QByteArray all256;
    for (int byte = 0; byte < 256; ++byte)
        all256 += static_cast<char>(byte);
    QTest::newRow("open") << Frame{0, Open{QStringLiteral("WP=SOCKET,IP=127.0.0.1,PORT=4004")}};
    QTest::newRow("open nothing") << Frame{1, Open{}};
    QTest::newRow("opened") << Frame{Largest, Opened{}};
    QTest::newRow("request") << Frame{2, Request{QStringLiteral("WP=NET4,ADDR=17"), 3, "40"}};
    QTest::newRow("request of nothing") << Frame{2, Request{}};
    QTest::newRow("request, last attempt") << Frame{2, Request{QString(), Largest, all256}};
    QTest::newRow("reply") << Frame{128, Reply{all256}};
    QTest::newRow("reply of nothing") << Frame{129, Reply{}};
    QTest::newRow("reply of a nul") << Frame{129, Reply{QByteArray(1, '\0')}};
    QTest::newRow("failure") << Frame{32'768, Failure{3, 1, QStringLiteral("Bus 7 is not served here.")}};
    QTest::newRow("failure, bounds") << Frame{65'536, Failure{Least, Largest, QString()}};
    QTest::newRow("failure, small negative") << Frame{255, Failure{-1, -129, QString()}};
    QTest::newRow("any text") << Frame{
        256, Failure{0, 0, QString::fromUtf8("\xef\xbb\xbfä€\xf0\x9f\x94\x8c\r\n") + QChar(0) + u'x'}};
    QTest::newRow("long") << Frame{7, Reply{QByteArray(60'000, '\xff')}};
}

void TestGatewayFrame::Encode_AnyFrame_DecodesToTheSame()
{
    QFETCH(Frame, frame);

    const QByteArray bytes = Encode(frame);
    QVERIFY(!bytes.isEmpty());
    Frame decoded;
    QCOMPARE(Decode(bytes, decoded), Decoding::Done);
    QVERIFY(decoded == frame);
}

void TestGatewayFrame::Encode_Messages_AreDer_data()
{
    QTest::addColumn<Frame>("frame");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("open") << Frame{5, Open{QStringLiteral("A")}}
                          << FrameOf(QByteArray::fromHex("a0030c0141"));
    QTest::newRow("opened") << Frame{5, Opened{}} << FiveOpened;
    QTest::newRow("request") << Frame{5, Request{QStringLiteral("A"), 200, "40"}}
                             << FrameOf(QByteArray::fromHex("a20b0c0141020200c804023430"));
    QTest::newRow("reply") << Frame{5, Reply{"40"}} << FrameOf(QByteArray::fromHex("83023430"));
    QTest::newRow("failure") << Frame{5, Failure{3, -1, QStringLiteral("A")}}
                             << FrameOf(QByteArray::fromHex("a4090201030201ff0c0141"));
}

void TestGatewayFrame::Encode_Messages_AreDer()
{
    QFETCH(Frame, frame);
    QFETCH(QByteArray, bytes);

    QCOMPARE(Encode(frame).toHex(), bytes.toHex());
}

void TestGatewayFrame::Encode_FieldOutOfRange_Empty_data()
{
    QTest::addColumn<Frame>("frame");
    QTest::newRow("exchange below 0") << Frame{-1, Opened{}};
    QTest::newRow("attempt below 0") << Frame{1, Request{QString(), -1, "40"}};
    QTest::newRow("half a character") << Frame{1, Open{QString(QChar(0xd83d))}};
    QTest::newRow("data too long") << Frame{1, Reply{QByteArray(LargestFrame, 'x')}};
    QTest::newRow("data far too long") << Frame{1, Reply{QByteArray(1'000'000, 'x')}};
    QTest::newRow("text too long") << Frame{1, Failure{1, 1, QString(30'000, QChar(0x20ac))}};
}

void TestGatewayFrame::Encode_FieldOutOfRange_Empty()
{
    QFETCH(Frame, frame);

    QCOMPARE(Encode(frame), QByteArray());
}

void TestGatewayFrame::Encode_LargestFrame_FitsExactly()
{
    // Headers of the frame and of the data with three bytes of length, version and exchange.
    constexpr int around = 5 + 3 + 3 + 5;
    // Data from 65,536 bytes on would need three; these need two and a byte less.
    constexpr int largestData = LargestFrame - around + 2;

    QCOMPARE(Encode({1, Reply{QByteArray(largestData, 'x')}}).size(), LargestFrame);
    QCOMPARE(Encode({1, Reply{QByteArray(largestData + 1, 'x')}}).size(), 0);
}

void TestGatewayFrame::Decode_LongerFormsOfBer_Done_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("length of one byte") << QByteArray::fromHex("308108020101020105"
                                                               "8100");
    QTest::newRow("length of four bytes") << QByteArray::fromHex("308400000008020101020105"
                                                                 "8100");
    QTest::newRow("inner length of two bytes") << QByteArray::fromHex("300a"
                                                                      "02820001"
                                                                      "01020105"
                                                                      "8100");
}

void TestGatewayFrame::Decode_LongerFormsOfBer_Done()
{
    QFETCH(QByteArray, bytes);

    Frame frame;
    QCOMPARE(Decode(bytes, frame), Decoding::Done);
    QVERIFY((frame == Frame{5, Opened{}}));
}

void TestGatewayFrame::Decode_NoFrame_MalformedAndUntouched_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("tag alone") << QByteArray::fromHex("30");
    QTest::newRow("empty sequence") << QByteArray::fromHex("3000");
    QTest::newRow("text") << QByteArray("garbage");
    QTest::newRow("other outer tag") << QByteArray::fromHex("3108020101020105"
                                                            "8100");
    QTest::newRow("one byte missing") << FiveOpened.chopped(1);
    QTest::newRow("one byte too many") << FiveOpened + '\0';
    QTest::newRow("indefinite length") << QByteArray::fromHex("3080020101020105"
                                                              "81000000");
    QTest::newRow("indefinite length within") << FrameOf(QByteArray::fromHex("a0800c01410000"));
    QTest::newRow("version is no integer") << QByteArray::fromHex("3008040101020105"
                                                                  "8100");
    QTest::newRow("version below 0") << QByteArray::fromHex("30080201ff020105"
                                                            "8100");
    QTest::newRow("version above 255") << QByteArray::fromHex("300902020101020105"
                                                              "8100");
    QTest::newRow("version without bytes") << QByteArray::fromHex("30070200020105"
                                                                  "8100");
    QTest::newRow("exchange below 0") << QByteArray::fromHex("30080201010201ff"
                                                             "8100");
    QTest::newRow("exchange of 33 bits") << QByteArray::fromHex("300c02010102050100000000"
                                                                "8100");
    QTest::newRow("exchange of six bytes") << QByteArray::fromHex("300d0201010206000000000001"
                                                                  "8100");
    QTest::newRow("no body") << FrameOf(QByteArray());
    QTest::newRow("two bodies") << FrameOf(QByteArray::fromHex("81008100"));
    QTest::newRow("unknown body") << FrameOf(QByteArray::fromHex("8500"));
    QTest::newRow("opened with content") << FrameOf(QByteArray::fromHex("810100"));
    QTest::newRow("open without target") << FrameOf(QByteArray::fromHex("a000"));
    QTest::newRow("open with more") << FrameOf(QByteArray::fromHex("a0060c01410c0141"));
    QTest::newRow("text not utf-8") << FrameOf(QByteArray::fromHex("a0030c01ff"));
    QTest::newRow("text cut in a character") << FrameOf(QByteArray::fromHex("a0040c02e282"));
    QTest::newRow("text overlong") << FrameOf(QByteArray::fromHex("a0040c02c0af"));
    QTest::newRow("attempt below 0") << FrameOf(QByteArray::fromHex("a2080c000201ff040141"));
    QTest::newRow("request without data") << FrameOf(QByteArray::fromHex("a2050c00020100"));
    QTest::newRow("failure of 33 bits") << FrameOf(QByteArray::fromHex("a40c020500800000000201010c00"));
    QTest::newRow("inner length cut") << FrameOf(QByteArray::fromHex("8382"));
    QTest::newRow("constructed reply") << FrameOf(QByteArray::fromHex("a30404023430"));
    QTest::newRow("constructed data") << FrameOf(QByteArray::fromHex("a20b0c0002010024040402"
                                                                     "3430"));
    QTest::newRow("constructed text") << FrameOf(QByteArray::fromHex("a0052c030c0141"));
    QTest::newRow("inner longer than outer") << QByteArray::fromHex("3008020101020105"
                                                                    "8301");
}

void TestGatewayFrame::Decode_NoFrame_MalformedAndUntouched()
{
    QFETCH(QByteArray, bytes);

    const Frame before{9, Reply{"before"}};
    Frame frame = before;
    QCOMPARE(Decode(bytes, frame), Decoding::Malformed);
    QVERIFY(frame == before);
}

void TestGatewayFrame::Decode_OtherVersion_WhateverFollows_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("same body") << QByteArray::fromHex("3008020102020105"
                                                      "8100");
    QTest::newRow("version 0") << QByteArray::fromHex("3008020100020105"
                                                      "8100");
    QTest::newRow("version 255") << QByteArray::fromHex("3009020200ff020105"
                                                        "8100");
    QTest::newRow("other body") << QByteArray::fromHex("3008020102"
                                                       "0c03414243");
    QTest::newRow("version alone") << QByteArray::fromHex("3003020102");
}

void TestGatewayFrame::Decode_OtherVersion_WhateverFollows()
{
    QFETCH(QByteArray, bytes);

    const Frame before{9, Reply{"before"}};
    Frame frame = before;
    QCOMPARE(Decode(bytes, frame), Decoding::OtherVersion);
    QVERIFY(frame == before);
}

QTEST_GUILESS_MAIN(TestGatewayFrame)
#include "TestGatewayFrame.moc"
