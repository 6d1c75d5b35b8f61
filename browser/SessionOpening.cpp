#include "browser/SessionOpening.h"

#include "browser/BrowserState.h"
#include "browser/LoadState.h"
#include "database/DatabaseState.h"
#include "database/Gateway.h"
#include "model/ModelState.h"
#include "platform/IndexError.h"
#include "platform/MsgBox.h"
#include "platform/Words.h"

namespace {

// The types that the browser offers, in its order, by their place in the database's list, and their pictures.
const QString OfferedTypes = QStringLiteral("0,1,2,9,14,6,7");
const QString OfferedPictures = QStringLiteral("0,1,2,9,16,6,7");

} // namespace

LoadStep SessionOpening::Step()
{
    switch (m_step++) {
    case 0:
        Display().ShowRange(1, 100);
        Display().ShowLabel(Words::tr("Opening Database."));
        return LoadStep::More;
    case 1:
        CreateGateway();
        Display().ShowValue(10);
        return LoadStep::More;
    case 2:
        OpenSession();
        Display().ShowValue(20);
        Display().ShowLabel(Words::tr("Checking security options."));
        return LoadStep::More;
    case 3:
        ReadRights();
        ShowValues({30, 40});
        return LoadStep::More;
    case 4:
        ReadConnectionTypes();
        Display().ShowValue(50);
        Display().ShowLabel(Words::tr("Reading journal table."));
        return LoadStep::More;
    case 5:
        ReadJournalPosition();
        ShowValues({60, 70, 80});
        return LoadStep::More;
    case 6:
        CountNodes();
        Display().ShowValue(90);
        return LoadStep::More;
    default:
        SetLoadState();
        Display().ShowValue(100);
        Display().ShowLabel(Words::tr("Loading Nodes."));
        return LoadStep::Done;
    }
}

void SessionOpening::ShowValues(std::initializer_list<int> values)
{
    for (const int value : values)
        Display().ShowValue(value);
}

void SessionOpening::CreateGateway()
{
    // A further control in the process goes on with the session that is open.
    if (!Database().DatabaseOpen || !Database().DbObject) {
        Database().DbObject = std::make_unique<DatabaseClass>();
        // What other controls show may be of another database.
        Load().ReloadDue = !Browser().Loaded.empty();
    }
    Model().Database = Database().DbObject.get();
}

void SessionOpening::OpenSession()
{
    Database().DatabaseOpen = Gateway().OpenDb();
}

void SessionOpening::ReadRights()
{
    if (Gateway().SetUserSecurityDb())
        return;
    MsgBox(Words::tr("Failure in fetching RMX/30 privileges."));
    Database().ScanRight = false;
    Database().EditRight = false;
}

void SessionOpening::ReadConnectionTypes()
{
    Model().ConOrderObject = std::make_unique<ConOrderClass>();
    try {
        Model().ConOrderObject->LoadConTypesInOrder(Gateway(), OfferedTypes, OfferedPictures);
    } catch (const IndexError& error) {
        // The types alone are damaged: the records can still be shown and used.
        ErrorBox(QString::fromUtf8(error.what()));
    }
}

void SessionOpening::ReadJournalPosition()
{
    if (!Database().DatabaseOpen)
        return;
    const qint32 seen = Load().JournalLastId;
    Load().JournalLastRecord = {};
    if (!Gateway().GetJournalLastIdDb(Load().JournalLastId)) {
        MsgBox(Words::tr("Journal table access failure."));
        Load().JournalLastId = 1;
    } else if (!Browser().Loaded.empty()) {
        // Other controls have not seen more.
        Load().JournalLastId = qMin(seen, Load().JournalLastId);
    }
}

void SessionOpening::CountNodes()
{
    Load().LoadLimit = LoadState::FirstLimit;
    if (Database().DatabaseOpen && !Gateway().GetNodeCountDb(Load().NodeCount))
        Load().NodeCount = LoadState::FirstLimit;
}

void SessionOpening::SetLoadState()
{
    LoadState& load = Load();
    load.LoadMoreId = 0;
    load.LoadRootKey = Words::tr("Nodes");
    load.LoadKeySuffix = QStringLiteral("N");
    load.LoadTree = Model().ConObject ? Model().ConObject->NodesTree : nullptr;
    load.LoadAddRoot = true;
    if (load.NodeCount > LoadState::FirstLimit)
        load.LoadMoreId = LoadState::FirstLimitedPosition;
}
