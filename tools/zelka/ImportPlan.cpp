#include "tools/zelka/ImportPlan.h"

#include "components/hvxdb/HvxAdministration.h"
#include "tools/zelka/CommandError.h"

#include <algorithm>
#include <limits>

namespace {

constexpr std::array<QLatin1StringView, ImportTextCount + 1> ColumnNames = {
    QLatin1StringView("kind"),       QLatin1StringView("name"),    QLatin1StringView("target"),
    QLatin1StringView("connection"), QLatin1StringView("manager"), QLatin1StringView("command")};
constexpr std::size_t KindColumn = 0;
constexpr std::size_t RequiredColumns = 3;

constexpr std::size_t ColumnOf(ImportText which)
{
    return static_cast<std::size_t>(which) + 1;
}

bool HasControlCharacter(const QString& text)
{
    return std::any_of(text.begin(), text.end(),
                       [](QChar c) { return c.category() == QChar::Other_Control; });
}

/// Only blanks do not count at the ends of a text.
QByteArrayView TrimmedBlanks(QByteArrayView text)
{
    while (text.startsWith(' '))
        text = text.sliced(1);
    while (text.endsWith(' '))
        text.chop(1);
    return text;
}

bool IsReserved(const QString& name)
{
    return name.compare(QLatin1StringView("New Connection"), Qt::CaseInsensitive) == 0 ||
           name.compare(QLatin1StringView("New Node"), Qt::CaseInsensitive) == 0;
}

} // namespace

QString QuotedName(const QString& name)
{
    constexpr qsizetype longest = 60;
    return u'"' + (name.size() > longest ? name.first(longest) + u'…' : name) + u'"';
}

QByteArrayView ImportRow::Bytes(ImportText which) const
{
    const auto position = static_cast<std::size_t>(which);
    qsizetype begin = 0;
    for (std::size_t i = 0; i < position; ++i)
        begin += lengths[i];
    return {text + begin, static_cast<qsizetype>(lengths[position])};
}

ImportPlan::ImportPlan(const Definitions& definitions, ImportProblems& problems)
    : m_definitions(definitions), m_problems(problems)
{
    m_columns.fill(-1);
}

void ImportPlan::Read(QIODevice& device)
{
    CsvReader reader(
        [this](qint64 line, const CsvReader::Fields& fields) {
            if (m_headerSeen)
                TakeRecord(line, fields);
            else
                TakeHeader(line, fields);
        },
        [this](qint64 line, const QString& text) {
            m_problems.Add(line, text);
            m_headerSeen = true;
        });
    if (!reader.Read(device))
        throw CommandError(ExitCode::Refused,
                           QStringLiteral("The file cannot be read: %1.").arg(device.errorString()));
    if (!m_headerSeen)
        m_problems.Add(1, QStringLiteral("the header is missing"));
}

void ImportPlan::TakeHeader(qint64 line, const CsvReader::Fields& fields)
{
    m_headerSeen = true;
    m_columnCount = fields.size();
    const qint64 before = m_problems.Count();
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const QString name = QString::fromUtf8(TrimmedBlanks(fields[i]));
        const auto known =
            std::find_if(ColumnNames.begin(), ColumnNames.end(), [&name](QLatin1StringView column) {
                return name.compare(column, Qt::CaseInsensitive) == 0;
            });
        if (known == ColumnNames.end()) {
            m_problems.Add(line, QStringLiteral("unknown column %1 in the header").arg(QuotedName(name)));
            continue;
        }
        int& column = m_columns[static_cast<std::size_t>(known - ColumnNames.begin())];
        if (column >= 0)
            m_problems.Add(line, QStringLiteral("column \"%1\" stands twice in the header").arg(*known));
        column = static_cast<int>(i);
    }
    for (std::size_t i = 0; i < RequiredColumns; ++i) {
        if (m_columns[i] < 0)
            m_problems.Add(line,
                           QStringLiteral("column \"%1\" is missing in the header").arg(ColumnNames[i]));
    }
    m_headerUsable = m_problems.Count() == before;
}

bool ImportPlan::HasColumn(ImportText which) const
{
    return m_columns[ColumnOf(which)] >= 0;
}

QByteArrayView ImportPlan::Field(const CsvReader::Fields& fields, std::size_t column) const
{
    return m_columns[column] < 0 ? QByteArrayView() : fields[static_cast<std::size_t>(m_columns[column])];
}

void ImportPlan::TakeRecord(qint64 line, const CsvReader::Fields& fields)
{
    if (!m_headerUsable)
        return;
    if (fields.size() != m_columnCount) {
        m_problems.Add(line, QStringLiteral("%1 fields instead of %2").arg(fields.size()).arg(m_columnCount));
        return;
    }
    const std::optional<ImportKind> kind = KindOf(line, Field(fields, KindColumn));
    if (!kind)
        return;
    if (line > std::numeric_limits<qint32>::max())
        throw CommandError(ExitCode::Refused, QStringLiteral("The file has too many lines."));

    const QString name = TakeName(line, Field(fields, ColumnOf(ImportText::Name)), *kind);
    const QByteArray target = TakeTarget(line, Field(fields, ColumnOf(ImportText::Target)));
    if (*kind == ImportKind::Connection)
        CheckConnectionFields(line, fields);

    ImportRow row;
    row.line = static_cast<quint32>(line);
    row.kind = *kind;
    const QByteArray nameBytes = name.toUtf8();
    SetTexts(row, {nameBytes, target, TrimmedBlanks(Field(fields, ColumnOf(ImportText::Connection))),
                   TrimmedBlanks(Field(fields, ColumnOf(ImportText::Manager))),
                   Field(fields, ColumnOf(ImportText::Command))});
    m_rows.push_back(row);
    if (!name.isEmpty())
        m_names.Add(FoldedName(name), static_cast<quint32>(m_rows.size() - 1));
}

std::optional<ImportKind> ImportPlan::KindOf(qint64 line, QByteArrayView text)
{
    const QByteArrayView kind = TrimmedBlanks(text);
    if (kind.compare("node", Qt::CaseInsensitive) == 0)
        return ImportKind::Node;
    if (kind.compare("connection", Qt::CaseInsensitive) == 0)
        return ImportKind::Connection;
    m_problems.Add(
        line,
        QStringLiteral("the kind is %1 and not connection or node").arg(QuotedName(QString::fromUtf8(text))));
    return std::nullopt;
}

QString ImportPlan::CheckName(const QString& name, ImportKind kind) const
{
    if (name.isEmpty())
        return QStringLiteral("the name is empty");
    if (name.size() > MaxNameLength)
        return QStringLiteral("the name has more than %1 characters").arg(MaxNameLength);
    if (HasControlCharacter(name))
        return QStringLiteral("the name holds control characters");
    if (kind == ImportKind::Connection && name.contains(u','))
        return QStringLiteral("the name %1 of a connection holds a comma").arg(QuotedName(name));
    if (IsReserved(name))
        return QStringLiteral("the name %1 is reserved").arg(QuotedName(name));
    if (const std::optional<quint32> other = FindRow(FoldedName(name)))
        return QStringLiteral("the name %1 is taken by line %2")
            .arg(QuotedName(name))
            .arg(m_rows[*other].line);
    return {};
}

QString ImportPlan::TakeName(qint64 line, QByteArrayView text, ImportKind kind)
{
    QString name = QString::fromUtf8(TrimmedBlanks(text));
    const QString problem = CheckName(name, kind);
    if (problem.isEmpty())
        return name;
    m_problems.Add(line, problem);
    return {};
}

QByteArray ImportPlan::TakeTarget(qint64 line, QByteArrayView text)
{
    const QString target = QString::fromUtf8(text);
    QString reformatted;
    if (!m_definitions.CheckTarget(target, reformatted))
        m_problems.Add(line, QStringLiteral("the target %1 is refused").arg(QuotedName(target)));
    return reformatted.toUtf8();
}

void ImportPlan::CheckConnectionFields(qint64 line, const CsvReader::Fields& fields)
{
    for (const ImportText which : {ImportText::Connection, ImportText::Manager, ImportText::Command}) {
        if (!TrimmedBlanks(Field(fields, ColumnOf(which))).isEmpty())
            m_problems.Add(line, QStringLiteral("a connection has no %1").arg(ColumnNames[ColumnOf(which)]));
    }
}

std::optional<quint32> ImportPlan::FindRow(const QString& folded) const
{
    return m_names.Find(folded, [this, &folded](quint32 row) {
        return FoldedName(m_rows[row].Text(ImportText::Name)) == folded;
    });
}

void ImportPlan::SetTexts(ImportRow& row, const ImportTexts& texts)
{
    std::size_t size = 0;
    for (const QByteArrayView text : texts)
        size += static_cast<std::size_t>(text.size());
    char* next = m_texts.Reserve(size);
    row.text = next;
    for (std::size_t i = 0; i < ImportTextCount; ++i) {
        const QByteArrayView text = texts[i];
        if (!text.isEmpty())
            std::memcpy(next, text.data(), static_cast<std::size_t>(text.size()));
        next += text.size();
        row.lengths[i] = static_cast<quint32>(text.size());
    }
}
