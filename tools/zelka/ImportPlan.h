#pragma once

#include "components/hvxdb/Definitions.h"
#include "tools/zelka/CsvReader.h"
#include "tools/zelka/ImportProblems.h"
#include "tools/zelka/NameIndex.h"
#include "tools/zelka/TextArena.h"

#include <array>

/// The records of one file to import, checked as far as the file alone tells.

enum class ImportKind : quint8
{
    Connection,
    Node,
};

/// What becomes of a row.
enum class ImportAction : quint8
{
    Add,
    /// The stored record of that name stays.
    Skip,
    /// The stored record takes the row's contents.
    Update,
    /// The stored record has these contents already.
    Unchanged,
};

/// The texts of a row.
enum class ImportText : quint8
{
    Name,
    Target,
    Connection,
    Manager,
    Command,
};
constexpr std::size_t ImportTextCount = 5;

/// Texts to put into a row, in the order of ImportText.
using ImportTexts = std::array<QByteArrayView, ImportTextCount>;

struct ImportRow
{
    /// The texts one behind the other, UTF-8.
    const char* text = nullptr;
    std::array<quint32, ImportTextCount> lengths{};
    quint32 line = 0;
    ImportKind kind = ImportKind::Connection;
    ImportAction action = ImportAction::Add;

    [[nodiscard]] QByteArrayView Bytes(ImportText which) const;
    [[nodiscard]] QString Text(ImportText which) const { return QString::fromUtf8(Bytes(which)); }
};

class ImportPlan
{
public:
    static constexpr qsizetype MaxNameLength = 255;

    ImportPlan(const Definitions& definitions, ImportProblems& problems);

    /// Reads a file; problems are listed with their lines. Raises CommandError (Refused) when the device
    /// fails or the file has more rows than can be held.
    void Read(QIODevice& device);

    [[nodiscard]] std::vector<ImportRow>& Rows() { return m_rows; }
    [[nodiscard]] const std::vector<ImportRow>& Rows() const { return m_rows; }
    /// False: the file has no such column.
    [[nodiscard]] bool HasColumn(ImportText which) const;
    /// Number of the row with that folded name, whatever its kind.
    [[nodiscard]] std::optional<quint32> FindRow(const QString& folded) const;
    /// Gives a row other texts.
    void SetTexts(ImportRow& row, const ImportTexts& texts);

private:
    void TakeRecord(qint64 line, const CsvReader::Fields& fields);
    void TakeHeader(qint64 line, const CsvReader::Fields& fields);
    [[nodiscard]] QByteArrayView Field(const CsvReader::Fields& fields, std::size_t column) const;
    [[nodiscard]] std::optional<ImportKind> KindOf(qint64 line, QByteArrayView text);
    [[nodiscard]] QString CheckName(const QString& name, ImportKind kind) const;
    /// Name, or an empty text when it cannot be used; the problem is listed.
    [[nodiscard]] QString TakeName(qint64 line, QByteArrayView text, ImportKind kind);
    [[nodiscard]] QByteArray TakeTarget(qint64 line, QByteArrayView text);
    void CheckConnectionFields(qint64 line, const CsvReader::Fields& fields);

    const Definitions& m_definitions;
    ImportProblems& m_problems;
    /// Position in a record of kind, name, target, connection, manager, command; -1: no such column.
    std::array<int, ImportTextCount + 1> m_columns{};
    std::size_t m_columnCount = 0;
    bool m_headerSeen = false;
    bool m_headerUsable = false;
    std::vector<ImportRow> m_rows;
    NameIndex m_names;
    TextArena m_texts;
};

/// Makes a name short enough for a message.
QString QuotedName(const QString& name);
