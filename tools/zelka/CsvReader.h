#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QIODevice>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

/// Reads comma-separated values record by record (RFC 4180, strictly: a quote stands only around a whole
/// field and is doubled inside; blanks belong to the field). UTF-8, with or without a byte order mark; lines
/// end in CR LF, LF or CR; empty lines are skipped.
///
/// Memory: one record, at most MaxRecordBytes.
class CsvReader
{
public:
    static constexpr qsizetype MaxRecordBytes = 1 << 20;

    using Fields = std::vector<QByteArrayView>;
    /// A record and the line, from 1, on which it begins. The fields live until the procedure returns.
    using TakeRecord = std::function<void(qint64 line, const Fields& fields)>;
    /// A record that cannot be used; reading goes on with the next line.
    using TakeProblem = std::function<void(qint64 line, const QString& text)>;

    CsvReader(TakeRecord takeRecord, TakeProblem takeProblem);
    ~CsvReader();
    CsvReader(const CsvReader&) = delete;
    CsvReader& operator=(const CsvReader&) = delete;

    /// Reads to the end. False: the device failed; its errorString() tells why.
    bool Read(QIODevice& device);

private:
    struct Parser;
    void TakeBlock(QByteArrayView block);
    void TakeLinePart(QByteArrayView part);
    void TakeField(QByteArrayView text) noexcept;
    void GiveRecord();
    void Refuse(const QString& text);
    void ResetRecord();
    void End();

    TakeRecord m_takeRecord;
    TakeProblem m_takeProblem;
    std::unique_ptr<Parser> m_parser;
    /// Bytes of the fields so far, each followed by a comma so that no character can seem to span two.
    QByteArray m_bytes;
    std::vector<qsizetype> m_ends;
    Fields m_fields;
    qint64 m_line = 1;
    qint64 m_recordLine = 1;
    qsizetype m_recordBytes = 0;
    bool m_inRecord = false;
    bool m_complete = false;
    /// The rest of the line is passed over after a refused record.
    bool m_skipLine = false;
    bool m_afterReturn = false;
    bool m_outOfMemory = false;
};
