#include "host/designer/PropertyGroups.h"

#include <QExtensionManager>
#include <QScopedValueRollback>

#include <ZelkaBrowser/T4ZelkaBrowser.h>

namespace {

struct GroupedProperty
{
    const char* name;
    const char* group;
};

constexpr GroupedProperty Properties[] = {
    {"ManageVisible", "View"},        {"BrowserTabIndex", "View"},       {"RefreshVisible", "Refresh"},
    {"RefreshTimer", "Refresh"},      {"RefreshInterval", "Refresh"},    {"Sobriquet", "Selection"},
    {"CommandLine", "Selection"},     {"NodeType", "Selection"},         {"JournalDayLimit", "Journal"},
    {"JournalDaysToKeep", "Journal"}, {"JournalRecordLimit", "Journal"}, {"JournalRecordsToKeep", "Journal"},
};

} // namespace

PropertyGroups::PropertyGroups(QExtensionManager* manager) : QExtensionFactory(manager) {}

QObject* PropertyGroups::createExtension(QObject* object, const QString& iid, QObject* /*parent*/) const
{
    if (m_asking || iid != Q_TYPEID(QDesignerPropertySheetExtension) ||
        !qobject_cast<T4ZelkaBrowser*>(object))
        return nullptr;
    const QScopedValueRollback asking(m_asking, true);
    QObject* extension = extensionManager()->extension(object, iid);
    auto* sheet = qobject_cast<QDesignerPropertySheetExtension*>(extension);
    if (!sheet)
        return nullptr;
    for (const GroupedProperty& property : Properties)
        sheet->setPropertyGroup(sheet->indexOf(QLatin1String(property.name)), QLatin1String(property.group));
    return extension;
}
