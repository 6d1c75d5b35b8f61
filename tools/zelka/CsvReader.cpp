#include "tools/zelka/CsvReader.h"

#include <algorithm>
#include <csv.h>
#include <new>

namespace {

constexpr qint64 BlockBytes = 1 << 16;
constexpr QByteArrayView ByteOrderMark("\xEF\xBB\xBF");

int NoBlanks(unsigned char /*character*/)
{
    return 0;
}

} // namespace

struct CsvReader::Parser
{
    csv_parser state{};

    Parser() { Begin(); }
    ~Parser() { csv_free(&state); }
    Parser(const Parser&) = delete;
    Parser& operator=(const Parser&) = delete;

    void Begin()
    {
        if (csv_init(&state, CSV_STRICT | CSV_STRICT_FINI) != 0)
            throw std::bad_alloc();
        csv_set_space_func(&state, NoBlanks);
        csv_set_blk_size(&state, 4096);
    }

    void BeginAgain()
    {
        csv_free(&state);
        Begin();
    }

    static void Field(void* text, size_t size, void* reader)
    {
        static_cast<CsvReader*>(reader)->TakeField(
            QByteArrayView(static_cast<const char*>(text), static_cast<qsizetype>(size)));
    }

    static void Record(int /*terminator*/, void* reader)
    {
        static_cast<CsvReader*>(reader)->m_complete = true;
    }
};

CsvReader::CsvReader(TakeRecord takeRecord, TakeProblem takeProblem)
    : m_takeRecord(std::move(takeRecord)),
      m_takeProblem(std::move(takeProblem)),
      m_parser(std::make_unique<Parser>())
{}

CsvReader::~CsvReader() = default;

bool CsvReader::Read(QIODevice& device)
{
    QByteArray block(BlockBytes, Qt::Uninitialized);
    qsizetype kept = 0;
    bool first = true;
    for (;;) {
        const qint64 size = device.read(block.data() + kept, BlockBytes - kept);
        if (size < 0)
            return false;
        QByteArrayView view = QByteArrayView(block).first(kept + size);
        // A pipe may give less than the whole mark at first.
        kept = first && size > 0 && view.size() < ByteOrderMark.size() ? view.size() : 0;
        if (kept > 0)
            continue;
        if (first && view.startsWith(ByteOrderMark))
            view = view.sliced(ByteOrderMark.size());
        first = false;
        TakeBlock(view);
        if (size == 0)
            break;
    }
    End();
    return true;
}

/// The parser does not count lines, so it is fed line by line.
void CsvReader::TakeBlock(QByteArrayView block)
{
    while (!block.isEmpty()) {
        const char* end =
            std::find_if(block.begin(), block.end(), [](char c) { return c == '\n' || c == '\r'; });
        if (end == block.end()) {
            m_afterReturn = false;
            TakeLinePart(block);
            return;
        }
        const qsizetype size = end - block.begin() + 1;
        // The second half of CR LF does not begin another line.
        const bool secondHalf = m_afterReturn && size == 1 && *end == '\n';
        m_afterReturn = *end == '\r';
        if (secondHalf)
            --m_line;
        TakeLinePart(block.first(size));
        ++m_line;
        m_skipLine = false;
        block = block.sliced(size);
    }
}

void CsvReader::TakeLinePart(QByteArrayView part)
{
    if (m_skipLine)
        return;
    if (!m_inRecord) {
        if (part.front() == '\n' || part.front() == '\r')
            return;
        m_inRecord = true;
        m_recordLine = m_line;
    }
    m_recordBytes += part.size();
    if (m_recordBytes > MaxRecordBytes) {
        Refuse(QStringLiteral("the record is longer than %1 bytes; a quote may not be closed")
                   .arg(MaxRecordBytes));
        return;
    }
    const auto size = static_cast<size_t>(part.size());
    const size_t parsed = csv_parse(&m_parser->state, part.data(), size, Parser::Field, Parser::Record, this);
    if (m_outOfMemory || csv_error(&m_parser->state) == CSV_ENOMEM)
        throw std::bad_alloc();
    if (parsed != size)
        Refuse(QStringLiteral("malformed quoting"));
    else if (m_complete)
        GiveRecord();
}

/// Called from C code, which no exception may cross.
void CsvReader::TakeField(QByteArrayView text) noexcept
{
    try {
        m_bytes.append(text);
        m_ends.push_back(m_bytes.size());
        m_bytes.append(',');
    } catch (const std::bad_alloc&) {
        m_outOfMemory = true;
    }
}

void CsvReader::GiveRecord()
{
    if (m_bytes.contains('\0')) {
        m_takeProblem(m_recordLine, QStringLiteral("the record holds a zero byte"));
    } else if (m_bytes.isValidUtf8()) {
        m_fields.clear();
        qsizetype begin = 0;
        for (const qsizetype end : m_ends) {
            m_fields.push_back(QByteArrayView(m_bytes).sliced(begin, end - begin));
            begin = end + 1;
        }
        m_takeRecord(m_recordLine, m_fields);
    } else {
        m_takeProblem(m_recordLine, QStringLiteral("the record holds bytes that are not UTF-8"));
    }
    ResetRecord();
}

void CsvReader::Refuse(const QString& text)
{
    m_takeProblem(m_recordLine, text);
    m_parser->BeginAgain();
    ResetRecord();
    m_skipLine = true;
}

void CsvReader::ResetRecord()
{
    m_bytes.resize(0);
    m_ends.clear();
    m_recordBytes = 0;
    m_inRecord = false;
    m_complete = false;
}

void CsvReader::End()
{
    if (!m_inRecord)
        return;
    const int failed = csv_fini(&m_parser->state, Parser::Field, Parser::Record, this);
    if (m_outOfMemory)
        throw std::bad_alloc();
    if (failed != 0)
        Refuse(QStringLiteral("malformed quoting: a quote is not closed"));
    else
        GiveRecord();
}
