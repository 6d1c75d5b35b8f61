#include "bench/Workstation.h"

#include "platform/ComponentError.h"

#include <QStringList>

namespace {

constexpr qint32 RecordLimit = 12000;
constexpr qint32 RecordsToKeep = 2000;
constexpr qint32 DayLimit = 2;
constexpr qint32 DaysToKeep = 1;

} // namespace

void Workstation::Open()
{
    m_component.OpenDatabase();
    qint32 started = 0;
    m_component.BeginTransaction(started);
    m_component.GetJournalLastId(m_position);
    m_component.CommitTransaction(started);
}

int Workstation::Refresh()
{
    qint32 started = 0;
    m_component.BeginTransaction(started);
    try {
        qint32 last = 0;
        m_component.GetJournalLastId(last);
        const int records = last > m_position ? ReadRecords() : 0;
        m_component.JournalClearByRecordLimit(RecordLimit, RecordsToKeep);
        m_component.JournalClearByDayLimit(DayLimit, DaysToKeep);
        if (records == 0)
            m_component.GetJournalLastId(m_position);
        m_component.CommitTransaction(started);
        return records;
    } catch (...) {
        m_component.RollbackTransaction();
        throw;
    }
}

int Workstation::ReadRecords()
{
    ReadRecord(m_position);
    QString list;
    m_component.GetJournalChangesAfterId(m_position, list);
    const QStringList ids = list.split(u'\t', Qt::SkipEmptyParts);
    for (const QString& id : ids)
        ReadRecord(id.toInt());
    if (!ids.isEmpty())
        m_position = ids.last().toInt();
    return static_cast<int>(ids.size());
}

void Workstation::ReadRecord(qint32 id)
{
    qint32 type = 0;
    QString name;
    qint32 number = 0;
    QString extra;
    m_component.GetJournalRecordById(id, type, name, number, extra);
    if (id == m_position || (type != 30 && type != 40))
        return;
    try {
        QString conName;
        QString target;
        m_component.GetNode(name, conName, target);
    } catch (const ComponentError&) {
        // It has gone since; a later record tells so.
    }
}
