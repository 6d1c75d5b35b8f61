#include "tests/database/SaveFaults.h"

#include "tests/database/DirectNodes.h"

#include <algorithm>

using namespace SaveTexts;

namespace {

const QString SharingProblem = QStringLiteral("Database sharing problem");
const QString RollbackFailure =
    QStringLiteral("Failure to roll back database changes. Warning, database may be corrupted.");
const QString FailureAndRollbackFailure =
    QStringLiteral("Failure in a database operation and database also failed to roll back its changes. "
                   "Warning, database may be corrupted.");

const QStringList& ToldTexts()
{
    static const QStringList texts{
        "Database is in use by another application, do you want to try again ?",
        Denied,
        UnknownError,
        CommitFailure,
        RolledBack,
        RollbackFailure,
        FailureAndRollbackFailure,
        NoSaving,
        SearchFailure,
        NodeIdMissing,
        ManagerMissing,
        Prevented("connection"),
        Prevented("node"),
        "Failure to get connection data from database.",
        "Error in connection database saving.",
        "Database error, Connection ID missing.",
        "Database error, failure in SaveParent.",
        "Error: Database search error.",
        "Database search error.",
        "Connection Beta exists in database. Do you want to replace it ?",
        "Node East exists in database. Do you want to replace it ?",
        "Failure in removing Node West.",
        "Failure in removing Node East.",
        "Node North not found from database.",
        "Node East not found from database.",
        "Failure in saving node North into database.",
        "Failure in saving node East into database.",
        "Connection Beta exists in database. Do you want to replace it?",
        ConnectionLost("Alpha", "deleted from database"),
        ConnectionLost("Beta", "deleted from database"),
        ConnectionLost("Delta", "deleted from database"),
    };
    return texts;
}

bool RollbackFailed(const SaveFixture& fixture)
{
    const QStringList texts = fixture.Operator.Texts();
    return texts.contains(RollbackFailure) || texts.contains(FailureAndRollbackFailure);
}

/// The records, but that node without its manager.
QStringList WithoutManager(QStringList records, const QString& node)
{
    for (QString& record : records) {
        QStringList fields = record.split('|');
        if (fields.size() == 6 && fields[0] == node)
            fields[4].clear();
        record = fields.join('|');
    }
    return records;
}

void EditNorth(SaveFixture& fixture)
{
    fixture.EditNode("North");
    fixture.SetValue(1, "99");
}

void AddLikeNorth(SaveFixture& fixture)
{
    fixture.AddNode("North");
    fixture.SetValue(1, "99");
}

void EditAlpha(SaveFixture& fixture)
{
    fixture.EditConnection("Alpha");
    fixture.SetValue(1, "99");
}

void EditDirectAlpha(SaveFixture& fixture)
{
    fixture.EditDirect("Alpha");
    fixture.SetDirectValue(1, "99");
}

bool SaveAsWest(SaveFixture& fixture)
{
    return fixture.SaveNodeAs("West");
}

bool SaveAsEast(SaveFixture& fixture)
{
    return fixture.SaveNodeAs("East");
}

void FindOnAlpha(SaveFixture& fixture)
{
    DirectNodes::Choose(fixture, "Alpha");
    DirectNodes::Load(fixture);
}

void FindOnNew(SaveFixture& fixture)
{
    DirectNodes::Compose(fixture, "Delta");
    DirectNodes::Load(fixture);
}

void FindOnReplaced(SaveFixture& fixture)
{
    DirectNodes::Compose(fixture, "Beta");
    DirectNodes::Load(fixture);
}

bool SaveFoundAsWest(SaveFixture& fixture)
{
    return DirectNodes::Save(fixture, "West");
}

bool SaveFoundAsEast(SaveFixture& fixture)
{
    return DirectNodes::Save(fixture, "East");
}

/// The node that a save is about.
QString SavedNode(const SaveFixture& fixture)
{
    return fixture.Direct().NodeName.isEmpty() ? fixture.Con().NodeName : fixture.Direct().NodeName;
}

} // namespace

const std::vector<SaveKind>& SaveKind::All()
{
    static const std::vector<SaveKind> kinds{
        {"new connection", [](SaveFixture& fixture) { fixture.AddConnection(); },
         [](SaveFixture& fixture) { return fixture.Save("Delta"); }, true},
        {"replaced connection",
         [](SaveFixture& fixture) {
             fixture.AddConnection();
             fixture.Con().ConName = "Beta";
         },
         [](SaveFixture& fixture) { return fixture.Save("Beta"); }},
        {"renamed connection", EditAlpha, [](SaveFixture& fixture) { return fixture.Save("Omega"); }},
        {"retargeted connection", EditAlpha, [](SaveFixture& fixture) { return fixture.Save("Alpha"); }},
        {"direct connection, new", [](SaveFixture& fixture) { fixture.AddDirect("Alpha", "Mine"); },
         [](SaveFixture& fixture) { return fixture.SaveDirect("Mine"); }, true},
        {"direct connection over its record", EditDirectAlpha,
         [](SaveFixture& fixture) { return fixture.SaveDirect("Alpha"); }},
        {"direct connection under another name", EditDirectAlpha,
         [](SaveFixture& fixture) { return fixture.SaveDirect("Omega"); }, true},
        {"new node", AddLikeNorth, SaveAsWest, true},
        {"renamed node", EditNorth, SaveAsWest},
        {"changed node", EditNorth, [](SaveFixture& fixture) { return fixture.SaveNodeAs("North"); }},
        {"node on another connection", EditNorth,
         [](SaveFixture& fixture) { return fixture.SaveNodeAs("North", "Beta"); }},
        {"node renamed to another connection", EditNorth,
         [](SaveFixture& fixture) { return fixture.SaveNodeAs("West", "Gamma"); }},
        {"replaced node", AddLikeNorth, SaveAsEast},
        {"node renamed onto another", EditNorth, SaveAsEast},
        {"found node", FindOnAlpha, SaveFoundAsWest},
        {"found node onto another", FindOnAlpha, SaveFoundAsEast},
        {"found node on a new connection", FindOnNew, SaveFoundAsWest},
        {"found node onto another on a new connection", FindOnNew, SaveFoundAsEast},
        {"found node on a replaced connection", FindOnReplaced, SaveFoundAsWest},
        {"found node onto another on a replaced connection", FindOnReplaced, SaveFoundAsEast},
    };
    return kinds;
}

const std::vector<FaultMode>& FaultMode::All()
{
    static const std::vector<FaultMode> modes{
        {"once", DatabaseErrorNumber::Refused, false, BoxAnswer::Ok},
        {"from then on", DatabaseErrorNumber::Refused, true, BoxAnswer::Ok},
        {"once in use, tried again", DatabaseErrorNumber::InUse, false, BoxAnswer::Ok},
        {"once in use, given up", DatabaseErrorNumber::InUse, false, BoxAnswer::Cancel},
        {"in use from then on", DatabaseErrorNumber::InUse, true, BoxAnswer::Cancel},
    };
    return modes;
}

FaultRun::FaultRun(const SaveKind& kind, const FaultMode& mode) : m_kind(kind), m_mode(mode)
{
    const std::unique_ptr<SaveFixture> fixture = Prepared();
    m_recordsBefore = fixture->Records();
    m_flagsBefore = fixture->Flags();
    m_treesBefore = fixture->Trees();
    m_contentsBefore = fixture->TreeContents();
    if (!m_kind.save(*fixture))
        qFatal("The save fails without a fault.");
    m_callCount = static_cast<int>(fixture->Component.Calls.size());
    m_recordsAfter = fixture->Records();
    m_recordsWithoutManager = WithoutManager(m_recordsAfter, SavedNode(*fixture));
    m_flagsAfter = fixture->Flags();
}

std::unique_ptr<SaveFixture> FaultRun::Prepared() const
{
    auto fixture = std::make_unique<SaveFixture>();
    fixture->Component.Store.Now.users["NodeWP/north"] = "somebody";
    fixture->Component.Store.Now.users["Parent/beta"] = "somebody else";
    m_kind.prepare(*fixture);
    return fixture;
}

void FaultRun::TakeAnswers(SaveFixture& fixture)
{
    m_toldTooEarly = false;
    fixture.Operator.WhileOpen = [this, &fixture](const RecordedBox& box) {
        const bool asksAgain = box.title == SharingProblem;
        fixture.Operator.Answers = {asksAgain ? m_mode.retry : BoxAnswer::Ok};
        m_toldTooEarly = m_toldTooEarly || (!asksAgain && fixture.Component.Store.Levels() > 0);
    };
}

QString FaultRun::ProblemWithCall(int k)
{
    const std::unique_ptr<SaveFixture> fixture = Prepared();
    TakeAnswers(*fixture);
    if (m_mode.goesOn)
        fixture->Component.FailFrom(k, m_mode.number);
    else
        fixture->Component.FailCall(k, m_mode.number);
    const bool saved = m_kind.save(*fixture);
    fixture->Component.Repair();
    const QString problem = Problem(*fixture, saved);
    if (problem.isEmpty())
        return {};
    return QStringLiteral("call %1 (%2): %3\nboxes: %4")
        .arg(k)
        .arg(fixture->Component.Calls.value(k - 1), problem, fixture->Operator.Texts().join(" / "));
}

QString FaultRun::Problem(SaveFixture& fixture, bool saved)
{
    if (!fixture.Pointers.isEmpty() && fixture.Pointers.last() != DatabaseClass::NormalPointer)
        return "the pointer stays busy";
    for (const QString& problem : {ProblemWithBoxes(fixture, saved), ProblemWithLevels(fixture)}) {
        if (!problem.isEmpty())
            return problem;
    }
    return saved ? ProblemAfterSuccess(fixture) : ProblemAfterFailure(fixture);
}

QString FaultRun::ProblemWithBoxes(const SaveFixture& fixture, bool saved) const
{
    const QStringList texts = fixture.Operator.Texts();
    for (const QString& text : texts) {
        if (!ToldTexts().contains(text))
            return "unknown box " + text;
    }
    if (!saved && texts.isEmpty())
        return "fails without a word";
    if (m_toldTooEarly && !RollbackFailed(fixture))
        return "a box stood over an open transaction";
    return {};
}

/// A database that could not roll back keeps the transaction, and the operator is warned; a rollback that
/// comes later still finds it.
QString FaultRun::ProblemWithLevels(SaveFixture& fixture) const
{
    if (fixture.Component.Store.Levels() == 0)
        return {};
    if (!RollbackFailed(fixture))
        return QStringLiteral("%1 levels stay open").arg(fixture.Component.Store.Levels());
    while (fixture.Component.Store.Levels() > 0)
        fixture.Gateway().RollbackTransactionDb();
    return {};
}

QString FaultRun::ProblemAfterSuccess(const SaveFixture& fixture) const
{
    const bool managerTold = fixture.Operator.Texts().contains(ManagerMissing);
    if (fixture.Records() != (managerTold ? m_recordsWithoutManager : m_recordsAfter))
        return "saved something else: " + fixture.Records().join('\n');
    if (fixture.Flags() != m_flagsAfter)
        return "flags do not follow: " + fixture.Flags().join('|');
    if (fixture.TreeContents() != SaveFixture::FreshTreeContents())
        return "trees do not follow: " + fixture.TreeContents().join('\n');
    return {};
}

QString FaultRun::ProblemAfterFailure(const SaveFixture& fixture) const
{
    if (fixture.Flags() != m_flagsBefore)
        return "flags stay changed: " + fixture.Flags().join('|');
    if (fixture.Component.Store.Commits > 0)
        return ProblemWithKeptFailure(fixture);
    if (fixture.Records() != m_recordsBefore)
        return "records changed: " + fixture.Records().join('\n');
    if (fixture.Trees() != m_treesBefore)
        return "trees changed: " + fixture.Trees().join('\n');
    return {};
}

/// A new record that was written, but whose id or whose connection's nodes could then not be read, stays; its
/// entry may be missing, or be without what is below it, until the next refresh. Nothing else has changed.
QString FaultRun::ProblemWithKeptFailure(const SaveFixture& fixture) const
{
    if (!m_kind.keepsFailedSave)
        return "a failed save was committed";
    const QStringList records = fixture.Records();
    if (records != m_recordsBefore && records != m_recordsAfter && records != m_recordsWithoutManager)
        return "half of the save was committed: " + records.join('\n');
    const QStringList trees = fixture.TreeContents();
    for (const QString& line : m_contentsBefore) {
        if (!trees.contains(line))
            return "entry changed: " + line;
    }
    return {};
}
