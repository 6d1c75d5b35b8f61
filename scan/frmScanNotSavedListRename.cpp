#include "database/Gateway.h"
#include "database/NodeSave.h"
#include "model/TextHelpers.h"
#include "platform/MsgBox.h"
#include "platform/Words.h"
#include "scan/frmScanNotSavedList.h"
#include "scan/network/ScanState.h"

#include <QPointer>

// How nodes of the list get other names.

namespace {

QString Title()
{
    return Words::tr("Rename Node");
}

QString InvalidCharacters()
{
    return Words::tr("Invalid characters in node name.");
}

QString ReservedName()
{
    return Words::tr("Node name 'New Node' cannot be used as a node name.");
}

QString SearchFailure()
{
    return Words::tr("Failure in database search.");
}

QString Prompt(const ScanSaveRow& row)
{
    return Words::tr("Rename Node %1 (at address %2).").arg(row.name, row.shownAddress);
}

QString TooLong(const QString& name)
{
    return Words::tr("Node name \"%1\" length is %2 characters, %3 is allowed maximum length.")
        .arg(name, QString::number(name.size()), QString::number(LongestNodeName));
}

QString ConnectionHasName(const QString& name)
{
    return Words::tr("Connection name %1 already exists in the database. Give a new name, because nodes and "
                     "connections "
                     "cannot share the same name.")
        .arg(name);
}

/// Why a node cannot have this name; empty when it can.
QString Refusal(const QString& name)
{
    if (name.size() > LongestNodeName)
        return TooLong(name);
    if (!NameCharactersValid(name))
        return InvalidCharacters();
    if (name.isEmpty())
        return {};
    if (IsReservedNodeName(name))
        return ReservedName();
    bool exists = false;
    if (!Gateway().ConNameExistDb(name, exists))
        return SearchFailure();
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
        if (!InputBox(Prompt(*asked), Title(), answer) || !alive)
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
