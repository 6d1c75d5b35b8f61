#include "scan/network/SaveList.h"

#include "database/Gateway.h"
#include "database/UnitOfWork.h"
#include "model/TextHelpers.h"
#include "platform/MachineSeams.h"
#include "platform/Words.h"

#include <algorithm>

namespace {

/// Fields of a line, as they are searched.
constexpr int FieldWidth = 11;
constexpr int ExistsPosition = 45;
constexpr int TooLongPosition = 56;
/// Characters in which the address of a line is searched.
constexpr int AddressFieldWidth = 5;

constexpr QChar SingleQuote = u'\'';

QString YesNo(bool yes)
{
    return yes ? Words::tr("Yes") : Words::tr("No");
}

/// False: failed, the operator has been told.
bool FindName(const QString& name, bool& exists)
{
    UnitOfWork unit{};
    return unit.Run([&](UnitOfWork& work) {
        work.Begin(DatabaseClass::TransactionUse::Reading);
        if (!Gateway().NodeNameExistDb(name, exists))
            UnitOfWork::Fail();
        work.Commit();
    });
}

} // namespace

// Names -----------------------------------------------------------------------------------------------------

QString GenerateNodeName(const NodeNaming& naming, const ScanSaveRow& row)
{
    QString name = Trim(naming.prefix);
    QChar joint = u',';
    const auto add = [&](bool chosen, const QString& text) {
        if (!chosen)
            return;
        name += joint + text;
        joint = u' ';
    };
    add(naming.withAddress, row.shownAddress);
    add(naming.withIdentification, row.name);
    add(naming.withType, row.type);
    return Trim(name);
}

void GenerateNodeNames(const NodeNaming& naming, std::vector<ScanSaveRow>& rows)
{
    for (ScanSaveRow& row : rows)
        row.name = GenerateNodeName(naming, row);
}

void CheckNameLengths(std::vector<ScanSaveRow>& rows)
{
    for (ScanSaveRow& row : rows) {
        if (!row.IsSaved())
            row.nameTooLong = row.name.size() > LongestNodeName;
    }
}

bool CheckNamesInDatabase(std::vector<ScanSaveRow>& rows)
{
    const BusyPointer pointer;
    // By position: a box lets the host empty the list.
    for (std::size_t position = 0; position < rows.size(); ++position) {
        if (rows[position].IsSaved())
            continue;
        bool exists = false;
        if (!FindName(rows[position].name.left(LongestNodeName), exists))
            return false;
        if (position < rows.size())
            rows[position].state = exists ? SaveState::NameExists : SaveState::NameFree;
    }
    return true;
}

bool NameCharactersValid(const QString& name)
{
    return !name.contains(SingleQuote);
}

// Rows ------------------------------------------------------------------------------------------------------

int FindRowByAddress(const std::vector<ScanSaveRow>& rows, const QString& address)
{
    const auto found = std::find_if(rows.begin(), rows.end(),
                                    [&](const ScanSaveRow& row) { return row.shownAddress == address; });
    return found == rows.end() ? 0 : static_cast<int>(found - rows.begin()) + 1;
}

int CountSavedRows(const std::vector<ScanSaveRow>& rows, int row)
{
    const auto end = rows.begin() + std::clamp(row, 0, static_cast<int>(rows.size()));
    return static_cast<int>(
        std::count_if(rows.begin(), end, [](const ScanSaveRow& each) { return each.IsSaved(); }));
}

// Lines -----------------------------------------------------------------------------------------------------

QString SaveLineText(const ScanSaveRow& row)
{
    return PadText(row.shownAddress, SaveLine::AddressWidth, false) + QString(SaveLine::GapWidth, u' ') +
           PadText(row.name, SaveLine::NameWidth, true) +
           PadText(YesNo(row.state == SaveState::NameExists), SaveLine::ExistsWidth, false) +
           PadText(YesNo(row.nameTooLong), SaveLine::TooLongWidth, false);
}

QString SaveLineAddress(const QString& line)
{
    return QString::number(ValInt(Trim(line.left(AddressFieldWidth))));
}

bool LineFieldHasYes(const QString& line, int position)
{
    return TextContains(QStringView(line).mid(position - 1, FieldWidth), YesNo(true));
}

bool LineTellsExisting(const QString& line)
{
    return LineFieldHasYes(line, ExistsPosition);
}

bool LineTellsTooLong(const QString& line)
{
    return LineFieldHasYes(line, TooLongPosition);
}
