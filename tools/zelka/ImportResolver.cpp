#include "tools/zelka/ImportResolver.h"

#include <algorithm>

namespace {

bool LooksNumbered(const QString& name)
{
    return name.endsWith(u')') && name.contains(QLatin1StringView(" ("));
}

ImportTexts TextsOf(const ImportRow& row)
{
    ImportTexts texts;
    for (std::size_t i = 0; i < ImportTextCount; ++i)
        texts[i] = row.Bytes(static_cast<ImportText>(i));
    return texts;
}

QByteArrayView& At(ImportTexts& texts, ImportText which)
{
    return texts[static_cast<std::size_t>(which)];
}

} // namespace

QString JoinCommand(const QString& managerIndex, const QString& tail)
{
    return managerIndex.isEmpty() && !tail.contains(u'|') ? tail : managerIndex + u'|' + tail;
}

void SplitCommand(const QString& command, QString& managerIndex, QString& tail)
{
    const qsizetype sign = command.indexOf(u'|');
    managerIndex = sign < 0 ? QString() : command.first(sign);
    tail = command.sliced(sign + 1);
}

ImportResolver::ImportResolver(ImportPlan& plan, ConflictRule rule, ImportProblems& problems)
    : m_plan(plan), m_rule(rule), m_problems(problems)
{}

void ImportResolver::TakeManagers(const std::vector<ManagerRecord>& managers)
{
    for (const ManagerRecord& manager : managers) {
        m_devices.insert(FoldedName(manager.device));
        m_managerIndices.insert(manager.index);
    }
}

ImportRow* ImportResolver::RowNamed(const QString& name)
{
    const std::optional<quint32> row = m_plan.FindRow(FoldedName(name));
    return row ? &m_plan.Rows()[*row] : nullptr;
}

void ImportResolver::NoteStoredName(const QString& name)
{
    if (m_rule == ConflictRule::Rename && LooksNumbered(name))
        m_storedNumberedNames.insert(FoldedName(name));
}

bool ImportResolver::TakeConflict(ImportRow& row, ImportKind storedKind)
{
    switch (m_rule) {
    case ConflictRule::Skip:
        row.action = ImportAction::Skip;
        return false;
    case ConflictRule::Rename:
        m_rowsToRename.push_back(static_cast<quint32>(&row - m_plan.Rows().data()));
        return false;
    case ConflictRule::Update:
        if (row.kind == storedKind)
            return true;
        break;
    case ConflictRule::Fail:
        break;
    }
    const QString stored =
        storedKind == ImportKind::Connection ? QStringLiteral("connection") : QStringLiteral("node");
    m_problems.Add(row.line, QStringLiteral("the name %1 is taken by a stored %2")
                                 .arg(QuotedName(row.Text(ImportText::Name)), stored));
    return false;
}

void ImportResolver::TakeStored(const ConnectionRecord& connection)
{
    m_storedConnections.insert(FoldedName(connection.name), connection.name.toUtf8());
    NoteStoredName(connection.name);
    ImportRow* const row = RowNamed(connection.name);
    if (!row || !TakeConflict(*row, ImportKind::Connection))
        return;
    const bool same = row->Bytes(ImportText::Name) == connection.name.toUtf8() &&
                      row->Bytes(ImportText::Target) == connection.target.toUtf8();
    row->action = same ? ImportAction::Unchanged : ImportAction::Update;
}

void ImportResolver::TakeStored(const NodeRecord& node)
{
    NoteStoredName(node.name);
    ImportRow* const row = RowNamed(node.name);
    if (!row || !TakeConflict(*row, ImportKind::Node))
        return;

    const std::array<QByteArray, ImportTextCount> stored = {
        node.name.toUtf8(), node.target.toUtf8(), node.conName.toUtf8(), node.nodeType.toUtf8(),
        JoinCommand(node.managerIndex, node.commandTail).toUtf8()};
    ImportTexts texts = TextsOf(*row);
    for (std::size_t i = 0; i < ImportTextCount; ++i) {
        if (!m_plan.HasColumn(static_cast<ImportText>(i)))
            texts[i] = stored[i];
    }
    // A reference in other letters means the same connection.
    if (FoldedName(QString::fromUtf8(At(texts, ImportText::Connection))) == FoldedName(node.conName))
        At(texts, ImportText::Connection) = stored[static_cast<std::size_t>(ImportText::Connection)];
    row->action = std::equal(texts.begin(), texts.end(), stored.begin()) ? ImportAction::Unchanged
                                                                         : ImportAction::Update;
    m_plan.SetTexts(*row, texts);
}

void ImportResolver::Resolve()
{
    // In the order of the file, whatever order the stored records came in.
    std::sort(m_rowsToRename.begin(), m_rowsToRename.end());
    for (const quint32 row : m_rowsToRename)
        ChooseName(row);
    for (ImportRow& row : m_plan.Rows()) {
        if (row.kind != ImportKind::Node || row.action == ImportAction::Skip ||
            row.action == ImportAction::Unchanged)
            continue;
        ResolveConnection(row);
        CheckManager(row);
    }
    // Last, because references find their row by its old name.
    for (const quint32 row : m_rowsToRename) {
        ImportTexts texts = TextsOf(m_plan.Rows()[row]);
        At(texts, ImportText::Name) = m_newNames[row];
        m_plan.SetTexts(m_plan.Rows()[row], texts);
    }
}

void ImportResolver::ChooseName(quint32 row)
{
    const QString name = m_plan.Rows()[row].Text(ImportText::Name);
    const QString newName = FreeName(name);
    m_givenNames.insert(FoldedName(newName));
    m_newNames.insert(row, newName.toUtf8());
    m_renames.push_back({m_plan.Rows()[row].line, name, newName});
}

QString ImportResolver::FreeName(const QString& name) const
{
    for (int number = 2;; ++number) {
        const QString suffix = QStringLiteral(" (%1)").arg(number);
        qsizetype length = std::min(name.size(), ImportPlan::MaxNameLength - suffix.size());
        if (length < name.size() && name[length - 1].isHighSurrogate())
            --length;
        QString candidate = name.first(length) + suffix;
        const QString folded = FoldedName(candidate);
        if (!m_plan.FindRow(folded) && !m_storedNumberedNames.contains(folded) &&
            !m_givenNames.contains(folded))
            return candidate;
    }
}

void ImportResolver::ResolveConnection(ImportRow& row)
{
    const QByteArrayView reference = row.Bytes(ImportText::Connection);
    if (reference.isEmpty()) {
        m_problems.Add(row.line, QStringLiteral("the node has no connection"));
        return;
    }
    // Nodes of one connection mostly stand together.
    if (reference != m_lastReference || m_lastReferred.isEmpty()) {
        const QString name = QString::fromUtf8(reference);
        const std::optional<QByteArray> referred = ReferredConnection(name);
        if (!referred) {
            m_problems.Add(row.line, QStringLiteral("unknown connection %1").arg(QuotedName(name)));
            return;
        }
        m_lastReference = reference.toByteArray();
        m_lastReferred = *referred;
    }
    if (reference == m_lastReferred)
        return;
    ImportTexts texts = TextsOf(row);
    At(texts, ImportText::Connection) = m_lastReferred;
    m_plan.SetTexts(row, texts);
}

std::optional<QByteArray> ImportResolver::ReferredConnection(const QString& name) const
{
    const QString folded = FoldedName(name);
    if (const std::optional<quint32> number = m_plan.FindRow(folded)) {
        const ImportRow& row = m_plan.Rows()[*number];
        if (row.kind == ImportKind::Connection && row.action != ImportAction::Skip) {
            const auto renamed = m_newNames.constFind(*number);
            return renamed != m_newNames.cend() ? *renamed : row.Bytes(ImportText::Name).toByteArray();
        }
    }
    const auto stored = m_storedConnections.constFind(folded);
    return stored != m_storedConnections.cend() ? std::optional(*stored) : std::nullopt;
}

void ImportResolver::CheckManager(const ImportRow& row)
{
    if (m_plan.HasColumn(ImportText::Manager)) {
        const QString device = row.Text(ImportText::Manager);
        if (!device.isEmpty() && !m_devices.contains(FoldedName(device)))
            m_problems.Add(row.line, QStringLiteral("unknown manager %1").arg(QuotedName(device)));
    }
    if (m_plan.HasColumn(ImportText::Command)) {
        QString index;
        QString tail;
        SplitCommand(row.Text(ImportText::Command), index, tail);
        if (!index.isEmpty() && !m_managerIndices.contains(index))
            m_problems.Add(row.line, QStringLiteral("unknown manager index %1").arg(QuotedName(index)));
    }
}
