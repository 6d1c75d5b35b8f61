#include "database/Gateway.h"
#include "database/NodeSave.h"
#include "model/TextHelpers.h"
#include "platform/MsgBox.h"
#include "scan/frmScanNotSavedList.h"
#include "scan/network/ScanState.h"

#include <QPointer>

// How nodes of the list get other names.

namespace {

const QString Title = QStringLiteral("Rename Node");
const QString InvalidCharacters = QStringLiteral("Invalid characters in node name.");
const QString ReservedName = QStringLiteral("Node name 'New Node' cannot be used as a node name.");
const QString SearchFailure = QStringLiteral("Failure in database search.");

QString Prompt(const ScanSaveRow& row)
{
    return QStringLiteral("Rename Node ") + row.name + QStringLiteral(" (at address ") + row.shownAddress +
           QStringLiteral(").");
}

QString TooLong(const QString& name)
{
    return QStringLiteral("Node name \"") + name + QStringLiteral("\" length is ") +
           QString::number(name.size()) + QStringLiteral(" characters, ") + QString::number(LongestNodeName) +
           QStringLiteral(" is allowed maximum length.");
}

QString ConnectionHasName(const QString& name)
{
    return QStringLiteral("Connection name ") + name +
           QStringLiteral(" already exists in the database. Give a new name, because nodes and connections "
                          "cannot share the same name.");
}

/// Why a node cannot have this name; empty when it can.
QString Refusal(const QString& name)
{
    if (name.size() > LongestNodeName)
        return TooLong(name);
    if (!NameCharactersValid(name))
        return InvalidCharacters;
    if (name.isEmpty())
        return {};
    if (IsReservedNodeName(name))
        return ReservedName;
    bool exists = false;
    if (!Gateway().ConNameExistDb(name, exists))
        return SearchFailure;
    return exists ? ConnectionHasName(name) : QString();
}

/// The row, from 1; null once the host has emptied the list under a box.
ScanSaveRow* RowAt(int row)
{
    if (row < 1 || row > Scan().ScanSaveCount())
        return nullptr;
    return &Scan().ScanSaveList[static_cast<std::size_t>(row - 1)];
}

} // namespace

void frmScanNotSavedList::cmdRename_Click()
{
    if (!RequireSelectedRows())
        return;
    std::vector<int> rows;
    for (const ScanSelSaveRow& selected : Scan().ScanSelSaveRows)
        rows.push_back(selected.row);
    const QPointer<frmScanNotSavedList> alive(this);
    for (const int row : rows) {
        RenameRow(row);
        if (!alive)
            return;
    }
    CheckNames();
    if (!alive)
        return;
    SelectRows(rows);
    UpdateNotSavedButtons();
}

void frmScanNotSavedList::RenameRow(int row)
{
    const QPointer<frmScanNotSavedList> alive(this);
    QString refusal;
    do {
        const ScanSaveRow* const asked = RowAt(row);
        if (!asked)
            return;
        QString answer = asked->name;
        if (!InputBox(Prompt(*asked), Title, answer) || !alive)
            return;
        answer = Trim(answer);
        refusal = Refusal(answer);
        ScanSaveRow* const renamed = RowAt(row);
        if (!refusal.isEmpty())
            MsgBox(refusal);
        else if (renamed && !answer.isEmpty())
            renamed->name = answer;
    } while (alive && !refusal.isEmpty());
}
