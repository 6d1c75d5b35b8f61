#include "components/syncconn/FrameReader.h"
#include "components/syncconn/GatewayFrame.h"

#include <QtTest>

using Result = FrameReader::Result;

namespace {

/// A SEQUENCE of that many bytes of content, with its length in `lengthBytes` bytes (0: the short form).
QByteArray Sequence(qsizetype content, int lengthBytes)
{
    QByteArray bytes("\x30");
    if (lengthBytes == 0) {
        bytes += static_cast<char>(content);
    } else {
        bytes += static_cast<char>(0x80 + lengthBytes);
        for (int at = lengthBytes - 1; at >= 0; --at)
            bytes += static_cast<char>(content >> (8 * at));
    }
    return bytes + QByteArray(content, 'x');
}

} // namespace

/// Streams that come in pieces.
class TestFrameReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Next_NothingCame_Incomplete();
    void Next_FormsOfLength_WholeFrame_data();
    void Next_FormsOfLength_WholeFrame();
    void Next_ByteByByte_FrameAtLastByte();
    void Next_SeveralFramesAtOnce_EachInTurn();
    void Next_HalfAFrameBehindOne_IsTheRest();
    void Next_Garbage_LostForGood_data();
    void Next_Garbage_LostForGood();
    void Next_LargestFrame_Taken();
    void Next_TooLong_OversizedAtFirstByteThatTells_data();
    void Next_TooLong_OversizedAtFirstByteThatTells();
    void Next_FrameBeforeGarbage_IsStillTaken();
    void Clear_LostStream_BeginsAgain();
    void Next_LongStreamInTinyPieces_AllFrames();
};

void TestFrameReader::Next_NothingCame_Incomplete()
{
    FrameReader reader;
    QByteArray frame("before");

    QCOMPARE(reader.Next(frame), Result::Incomplete);
    QVERIFY(!reader.HasRest());
    QCOMPARE(frame, "before");
}

void TestFrameReader::Next_FormsOfLength_WholeFrame_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << Sequence(0, 0);
    QTest::newRow("short form") << Sequence(127, 0);
    QTest::newRow("one byte") << Sequence(200, 1);
    QTest::newRow("one byte, shorter would do") << Sequence(5, 1);
    QTest::newRow("two bytes") << Sequence(300, 2);
    QTest::newRow("four bytes with zeros") << Sequence(300, 4);
}

void TestFrameReader::Next_FormsOfLength_WholeFrame()
{
    QFETCH(QByteArray, bytes);
    FrameReader reader;
    reader.Append(bytes);

    QByteArray frame;
    QCOMPARE(reader.Next(frame), Result::Frame);
    QCOMPARE(frame, bytes);
    QVERIFY(!reader.HasRest());
    QCOMPARE(reader.Next(frame), Result::Incomplete);
}

void TestFrameReader::Next_ByteByByte_FrameAtLastByte()
{
    const QByteArray bytes = Sequence(300, 2);
    FrameReader reader;
    QByteArray frame;
    for (qsizetype at = 0; at < bytes.size() - 1; ++at) {
        reader.Append(bytes.mid(at, 1));
        QCOMPARE(reader.Next(frame), Result::Incomplete);
        QVERIFY(reader.HasRest());
    }
    reader.Append(bytes.right(1));

    QCOMPARE(reader.Next(frame), Result::Frame);
    QCOMPARE(frame, bytes);
}

void TestFrameReader::Next_SeveralFramesAtOnce_EachInTurn()
{
    FrameReader reader;
    reader.Append(Sequence(3, 0) + Sequence(200, 1) + Sequence(0, 0));

    QByteArray frame;
    for (const QByteArray& expected : {Sequence(3, 0), Sequence(200, 1), Sequence(0, 0)}) {
        QCOMPARE(reader.Next(frame), Result::Frame);
        QCOMPARE(frame, expected);
    }
    QCOMPARE(reader.Next(frame), Result::Incomplete);
}

void TestFrameReader::Next_HalfAFrameBehindOne_IsTheRest()
{
    FrameReader reader;
    reader.Append(Sequence(3, 0) + Sequence(10, 0).left(4));

    QByteArray frame;
    QCOMPARE(reader.Next(frame), Result::Frame);
    QVERIFY(reader.HasRest());
    QCOMPARE(reader.Next(frame), Result::Incomplete);
    reader.Append(Sequence(10, 0).mid(4));
    QCOMPARE(reader.Next(frame), Result::Frame);
    QCOMPARE(frame, Sequence(10, 0));
}

void TestFrameReader::Next_Garbage_LostForGood_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("text") << QByteArray("GET / HTTP/1.1\r\n");
    QTest::newRow("other tag") << QByteArray::fromHex("0400");
    QTest::newRow("first byte alone") << QByteArray::fromHex("00");
    QTest::newRow("indefinite length") << QByteArray::fromHex("30800000");
    QTest::newRow("reserved length") << QByteArray::fromHex("30ff");
    QTest::newRow("length of five bytes") << QByteArray::fromHex("30850000000001");
}

void TestFrameReader::Next_Garbage_LostForGood()
{
    QFETCH(QByteArray, bytes);
    FrameReader reader;
    reader.Append(bytes);

    QByteArray frame("before");
    QCOMPARE(reader.Next(frame), Result::Malformed);
    reader.Append(Sequence(3, 0));
    QCOMPARE(reader.Next(frame), Result::Malformed);
    QCOMPARE(frame, "before");
}

void TestFrameReader::Next_LargestFrame_Taken()
{
    const QByteArray bytes = Sequence(GatewayFrame::LargestFrame - 5, 3);
    FrameReader reader;
    reader.Append(bytes);

    QByteArray frame;
    QCOMPARE(reader.Next(frame), Result::Frame);
    QCOMPARE(frame.size(), GatewayFrame::LargestFrame);
}

void TestFrameReader::Next_TooLong_OversizedAtFirstByteThatTells_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("one byte too long") << Sequence(GatewayFrame::LargestFrame - 4, 3).left(5);
    QTest::newRow("two gigabytes") << QByteArray::fromHex("30847f");
    QTest::newRow("with zeros in front") << QByteArray::fromHex("30840001");
}

void TestFrameReader::Next_TooLong_OversizedAtFirstByteThatTells()
{
    QFETCH(QByteArray, bytes);
    FrameReader reader;
    QByteArray frame;
    reader.Append(bytes.chopped(1));
    QCOMPARE(reader.Next(frame), Result::Incomplete);

    reader.Append(bytes.right(1));
    QCOMPARE(reader.Next(frame), Result::Oversized);
    reader.Append(Sequence(3, 0));
    QCOMPARE(reader.Next(frame), Result::Oversized);
}

void TestFrameReader::Next_FrameBeforeGarbage_IsStillTaken()
{
    FrameReader reader;
    reader.Append(Sequence(3, 0) + "garbage");

    QByteArray frame;
    QCOMPARE(reader.Next(frame), Result::Frame);
    QCOMPARE(reader.Next(frame), Result::Malformed);
}

void TestFrameReader::Clear_LostStream_BeginsAgain()
{
    FrameReader reader;
    QByteArray frame;
    reader.Append("garbage");
    QCOMPARE(reader.Next(frame), Result::Malformed);

    reader.Clear();
    QVERIFY(!reader.HasRest());
    reader.Append(Sequence(3, 0));
    QCOMPARE(reader.Next(frame), Result::Frame);
}

void TestFrameReader::Next_LongStreamInTinyPieces_AllFrames()
{
    QByteArray stream;
    for (int number = 0; number < 2000; ++number)
        stream += Sequence(number % 700, 2);
    FrameReader reader;
    int frames = 0;
    for (qsizetype at = 0; at < stream.size(); at += 3) {
        reader.Append(stream.mid(at, 3));
        QByteArray frame;
        while (reader.Next(frame) == Result::Frame) {
            QCOMPARE(frame, Sequence(frames % 700, 2));
            ++frames;
        }
    }
    QCOMPARE(frames, 2000);
    QVERIFY(!reader.HasRest());
}

QTEST_GUILESS_MAIN(TestFrameReader)
#include "TestFrameReader.moc"
