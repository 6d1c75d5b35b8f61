#include "model/LookupHelpers.h"

#include "model/ModelState.h"
#include "model/TextHelpers.h"
#include "platform/NamedValues.h"

#include <QRegularExpression>

namespace {

constexpr qsizetype MaxValueBytes = 1024;
/// Type id that belongs to the SNMP family whatever its name.
constexpr int SnmpTypeId = 15;

/// The digits are those of a 32-bit number in two's complement.
bool FormatHexNumber(const QString& digits, QString& text)
{
    static const QRegularExpression hexNumber(QStringLiteral("\\A[0-9A-Fa-f]{1,8}\\z"));
    if (!hexNumber.match(digits).hasMatch())
        return false;
    text = QString::number(static_cast<qint32>(digits.toUInt(nullptr, 16)));
    return true;
}

} // namespace

int GetConTypeOfParent(const QString& conName, QString& shortName)
{
    if (TrimBlanks(conName).isEmpty())
        return NoConType;
    QString target;
    QString analysis;
    if (!LookupDatabase().GetParentDb(conName, target) ||
        !LookupDatabase().AnalyzeConTypeDb(target, analysis))
        return NoConType;
    shortName = GetItem(analysis, 2, TabChar);
    const int id = ValInt(GetItem(analysis, 1, TabChar));
    return id < 0 ? NoConType : id;
}

bool IsSnmpConType(int id, const QString& shortName)
{
    return id == SnmpTypeId || ConTypeHasWord(shortName, u"SNMP");
}

void ReadTimeRetryNames()
{
    auto& names = Model().TimeRetryNames;
    if (!LookupDatabase().GetWpLongNameDb(QStringLiteral("TIME"), names[0]))
        names[0] = QStringLiteral("TIME OUT");
    if (!LookupDatabase().GetWpLongNameDb(QStringLiteral("RETRY"), names[1]))
        names[1] = QStringLiteral("RETRY COUNT");
}

QString GetNodeManagerName()
{
    QString list;
    if (!Model().ConObject || !LookupDatabase().GetNMANamesDb(list))
        return {};
    PairTable managers;
    int count = 0;
    if (!PairListToTable(list, managers, count))
        return {};
    for (const ItemPair& manager : managers) {
        if (manager.first.compare(Model().ConObject->NodeType, Qt::CaseInsensitive) == 0)
            return manager.second;
    }
    return {};
}

bool ReadRegistryValue(const NamedValues& values, const QString& root, const QString& keyPath,
                       const QString& valueName, QString& text)
{
    text.clear();
    QString name = root + u'\\' + keyPath + u'\\' + (valueName.isEmpty() ? QStringLiteral("@") : valueName);
    name.replace(u'\\', u'/');
    std::optional<QString> value = values.Read(name);
    if (!value || value->toUtf8().size() > MaxValueBytes)
        return false;
    if (value->endsWith(QChar::Null))
        value->chop(1);
    const QLatin1String numberMark("dword:");
    if (value->startsWith(numberMark))
        return FormatHexNumber(value->sliced(numberMark.size()), text);
    text = *value;
    return true;
}
