#include "tools/zelka/CsvReader.h"
#include "tools/zelka/CsvText.h"

#include <QBuffer>
#include <QTest>

namespace {

/// What reading gave: one line "number|field|field" a record, "number!text" a problem.
QStringList ReadAll(QIODevice& device)
{
    QStringList seen;
    CsvReader reader(
        [&seen](qint64 line, const CsvReader::Fields& fields) {
            QString record = QString::number(line);
            for (const QByteArrayView field : fields)
                record += u'|' + QString::fromUtf8(field);
            seen << record;
        },
        [&seen](qint64 line, const QString& text) { seen << QString::number(line) + u'!' + text; });
    if (!reader.Read(device))
        seen << QStringLiteral("failed");
    return seen;
}

QStringList ReadText(const QByteArray& text)
{
    QBuffer buffer;
    buffer.setData(text);
    buffer.open(QIODevice::ReadOnly);
    return ReadAll(buffer);
}

/// Gives one byte at a time, as a slow pipe does.
class SlowDevice : public QIODevice
{
public:
    explicit SlowDevice(const QByteArray& text) : m_text(text) { open(ReadOnly | Unbuffered); }

protected:
    qint64 readData(char* data, qint64 size) override
    {
        if (size < 1 || m_at == m_text.size())
            return 0;
        *data = m_text[m_at++];
        return 1;
    }
    qint64 writeData(const char* /*data*/, qint64 /*size*/) override { return -1; }

private:
    QByteArray m_text;
    qsizetype m_at = 0;
};

class FailingDevice : public QIODevice
{
public:
    FailingDevice() { open(ReadOnly); }

protected:
    qint64 readData(char* /*data*/, qint64 /*size*/) override { return -1; }
    qint64 writeData(const char* /*data*/, qint64 /*size*/) override { return -1; }
};

} // namespace

class TestCsvReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Read_Text_GivesRecordsWithLines_data();
    void Read_Text_GivesRecordsWithLines();
    void Read_OneByteAtATime_GivesTheSame_data() { Read_Text_GivesRecordsWithLines_data(); }
    void Read_OneByteAtATime_GivesTheSame();
    void Read_LineEndAtBlockEnd_CountsOnce_data();
    void Read_LineEndAtBlockEnd_CountsOnce();
    void Read_FailingDevice_IsFalse();
    void Read_RecordTooLong_IsRefusedAndReadingGoesOn();
    void AppendCsvRecord_AnyFields_ReadBackTheSame_data();
    void AppendCsvRecord_AnyFields_ReadBackTheSame();
};

void TestCsvReader::Read_Text_GivesRecordsWithLines_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QStringList>("expected");

    const QString quoting = QStringLiteral("malformed quoting");
    const QString open = QStringLiteral("malformed quoting: a quote is not closed");
    QTest::newRow("empty") << QByteArray() << QStringList();
    QTest::newRow("one record") << QByteArray("a,b\n") << QStringList{"1|a|b"};
    QTest::newRow("no end of line") << QByteArray("a,b") << QStringList{"1|a|b"};
    QTest::newRow("empty last field") << QByteArray("a,\nb,") << QStringList{"1|a|", "2|b|"};
    QTest::newRow("CR LF") << QByteArray("a\r\nb\r\n") << QStringList{"1|a", "2|b"};
    QTest::newRow("CR alone") << QByteArray("a\rb\r") << QStringList{"1|a", "2|b"};
    QTest::newRow("empty lines") << QByteArray("\n\na\r\n\r\nb\n") << QStringList{"3|a", "5|b"};
    QTest::newRow("byte order mark") << QByteArray("\xEF\xBB\xBFkind\n") << QStringList{"1|kind"};
    QTest::newRow("byte order mark and a quote")
        << QByteArray("\xEF\xBB\xBF\"a,b\"\n") << QStringList{"1|a,b"};
    QTest::newRow("byte order mark alone") << QByteArray("\xEF\xBB\xBF") << QStringList();
    QTest::newRow("two bytes") << QByteArray("ab") << QStringList{"1|ab"};
    QTest::newRow("blanks belong to fields") << QByteArray(" a , b\t\n") << QStringList{"1| a | b\t"};
    QTest::newRow("quotes") << QByteArray("\"a,b\",\"c\"\"d\",\"\"\n") << QStringList{"1|a,b|c\"d|"};
    QTest::newRow("line breaks in quotes")
        << QByteArray("\"a\r\nb\nc\",d\ne,f\n") << QStringList{"1|a\r\nb\nc|d", "4|e|f"};
    QTest::newRow("quote inside a bare field")
        << QByteArray("a\"b,c\nd\n") << QStringList{"1!" + quoting, "2|d"};
    QTest::newRow("text behind a quoted field")
        << QByteArray("\"a\"b,c\nd\n") << QStringList{"1!" + quoting, "2|d"};
    QTest::newRow("blank before a quote")
        << QByteArray("a, \"b\"\nd\n") << QStringList{"1!" + quoting, "2|d"};
    QTest::newRow("blank behind a quote")
        << QByteArray("\"a\" ,b\nd\n") << QStringList{"1!" + quoting, "2|d"};
    QTest::newRow("refused line with CR LF")
        << QByteArray("a\"\r\nb\r\n") << QStringList{"1!" + quoting, "2|b"};
    QTest::newRow("open quote at the end") << QByteArray("a\nb,\"c\nd\n") << QStringList{"1|a", "2!" + open};
    QTest::newRow("two refused") << QByteArray("a\"\n\"b\"c\n")
                                 << QStringList{"1!" + quoting, "2!" + quoting};
    QTest::newRow("bytes that are not UTF-8")
        << QByteArray("a\n\xC3,b\nc\n")
        << QStringList{"1|a", "2!the record holds bytes that are not UTF-8", "3|c"};
    QTest::newRow("a character may not span fields")
        << QByteArray("\xC3,\xA9\n") << QStringList{"1!the record holds bytes that are not UTF-8"};
    QTest::newRow("overlong form") << QByteArray("\xC0\xAF\n")
                                   << QStringList{"1!the record holds bytes that are not UTF-8"};
    QTest::newRow("surrogate") << QByteArray("\xED\xA0\x80\n")
                               << QStringList{"1!the record holds bytes that are not UTF-8"};
    QTest::newRow("zero byte") << QByteArray("a\0b,c\nd\n", 8)
                               << QStringList{"1!the record holds a zero byte", "2|d"};
    QTest::newRow("letters of all kinds")
        << QStringLiteral("Žurawin,星見台,😀\n").toUtf8() << QStringList{QStringLiteral("1|Žurawin|星見台|😀")};
}

void TestCsvReader::Read_Text_GivesRecordsWithLines()
{
    QFETCH(QByteArray, text);
    QFETCH(QStringList, expected);

    QCOMPARE(ReadText(text), expected);
}

void TestCsvReader::Read_OneByteAtATime_GivesTheSame()
{
    QFETCH(QByteArray, text);
    QFETCH(QStringList, expected);
    SlowDevice device(text);

    QCOMPARE(ReadAll(device), expected);
}

void TestCsvReader::Read_LineEndAtBlockEnd_CountsOnce_data()
{
    QTest::addColumn<int>("length");
    for (int length = 65530; length <= 65540; ++length)
        QTest::addRow("%d", length) << length;
}

void TestCsvReader::Read_LineEndAtBlockEnd_CountsOnce()
{
    QFETCH(int, length);
    const QByteArray field(length, 'x');

    const QStringList seen = ReadText(field + "\r\nb\r\n");

    QCOMPARE(seen.size(), 2);
    QCOMPARE(seen[0].size(), length + 2);
    QCOMPARE(seen[1], QStringLiteral("2|b"));
}

void TestCsvReader::Read_FailingDevice_IsFalse()
{
    FailingDevice device;

    QCOMPARE(ReadAll(device), QStringList{"failed"});
}

void TestCsvReader::Read_RecordTooLong_IsRefusedAndReadingGoesOn()
{
    QByteArray text("first\n\"");
    text += QByteArray(CsvReader::MaxRecordBytes, 'x');
    text += "\nlast\n";

    const QStringList seen = ReadText(text);

    QCOMPARE(seen.size(), 3);
    QCOMPARE(seen[0], QStringLiteral("1|first"));
    QCOMPARE(seen[1], QStringLiteral("2!the record is longer than 1048576 bytes; a quote may not be closed"));
    QCOMPARE(seen[2], QStringLiteral("3|last"));
}

void TestCsvReader::AppendCsvRecord_AnyFields_ReadBackTheSame_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QByteArray>("written");
    QTest::newRow("plain") << "node" << QByteArray("node");
    QTest::newRow("empty") << "" << QByteArray("");
    QTest::newRow("comma") << "a,b" << QByteArray("\"a,b\"");
    QTest::newRow("quote") << "a\"b" << QByteArray("\"a\"\"b\"");
    QTest::newRow("only quotes") << "\"\"" << QByteArray("\"\"\"\"\"\"");
    QTest::newRow("line feed") << "a\nb" << QByteArray("\"a\nb\"");
    QTest::newRow("carriage return") << "a\rb" << QByteArray("\"a\rb\"");
    QTest::newRow("tab") << "a\tb" << QByteArray("a\tb");
    QTest::newRow("blanks") << " a " << QByteArray(" a ");
    QTest::newRow("emoji") << QStringLiteral("😀") << QStringLiteral("😀").toUtf8();
}

void TestCsvReader::AppendCsvRecord_AnyFields_ReadBackTheSame()
{
    QFETCH(QString, field);
    QFETCH(QByteArray, written);
    QByteArray text;

    AppendCsvRecord(text, {"x", field.toUtf8(), "y"});

    QCOMPARE(text, "x," + written + ",y\r\n");
    QCOMPARE(ReadText(text), QStringList{QStringLiteral("1|x|%1|y").arg(field)});
}

QTEST_GUILESS_MAIN(TestCsvReader)
#include "TestCsvReader.moc"
