#pragma once

#include <QString>

#include <vector>

/// The found nodes on their way into the database: their names, and what is known of these.

/// Longest name of a node.
constexpr int LongestNodeName = 32;

enum class SaveState : qint8
{
    NameExists,
    NameFree,
    Saved,
};

/// A found node.
struct ScanSaveRow
{
    /// As in the results, and the copy that is shown and searched.
    QString address;
    QString shownAddress;
    /// The identification, until another name takes its place.
    QString name;
    QString retries;
    /// Milliseconds.
    QString timeOut;
    SaveState state = SaveState::NameExists;
    QString type;
    bool nameTooLong = false;

    [[nodiscard]] bool IsSaved() const { return state == SaveState::Saved; }
};

/// A line of the list that is selected and the row behind it.
struct ScanSelSaveRow
{
    /// From 0.
    int line = 0;
    /// From 1; 0: there is none.
    int row = 0;
};

/// Of what a name is made.
struct NodeNaming
{
    QString prefix;
    bool withAddress = true;
    bool withIdentification = true;
    bool withType = true;
};

/// The prefix and what is chosen, the first behind a comma, also behind an empty prefix, the others behind a
/// blank.
[[nodiscard]] QString GenerateNodeName(const NodeNaming& naming, const ScanSaveRow& row);
/// Names all rows so; their names must be the identifications.
void GenerateNodeNames(const NodeNaming& naming, std::vector<ScanSaveRow>& rows);

/// Sets nameTooLong of the rows that are not saved.
void CheckNameLengths(std::vector<ScanSaveRow>& rows);
/// Asks the database for the names of the rows that are not saved, in a transaction each; what is too long is
/// cut. False: failed, the operator has been told; the rows before the failure have their new state. Shows
/// the wait cursor.
[[nodiscard]] bool CheckNamesInDatabase(std::vector<ScanSaveRow>& rows);
/// The one character that no name may hold is the single quote.
[[nodiscard]] bool NameCharactersValid(const QString& name);

/// Row, from 1, whose shown address is this one; 0: none.
[[nodiscard]] int FindRowByAddress(const std::vector<ScanSaveRow>& rows, const QString& address);
/// Rows up to this one, from 1, that are saved.
[[nodiscard]] int CountSavedRows(const std::vector<ScanSaveRow>& rows, int row);

// Lines -----------------------------------------------------------------------------------------------------

/// Characters of a line: the address, to the right; three blanks; the name, to the left; whether it exists
/// and whether it is too long, both to the right. Other procedures take a line apart by these places.
namespace SaveLine {
constexpr int AddressWidth = 4;
constexpr int GapWidth = 3;
constexpr int NameWidth = 40;
constexpr int ExistsWidth = 4;
constexpr int TooLongWidth = 11;
constexpr int Width = AddressWidth + GapWidth + NameWidth + ExistsWidth + TooLongWidth;
} // namespace SaveLine

[[nodiscard]] QString SaveLineText(const ScanSaveRow& row);
/// The address that a line begins with; 0 where it begins with none.
[[nodiscard]] QString SaveLineAddress(const QString& line);
/// The 11 characters from a position, from 1, hold "Yes" in any case of letters.
[[nodiscard]] bool LineFieldHasYes(const QString& line, int position);
/// The column tells that the name exists. It is read with the last three characters of the name: a "yes"
/// there counts as well.
[[nodiscard]] bool LineTellsExisting(const QString& line);
[[nodiscard]] bool LineTellsTooLong(const QString& line);
