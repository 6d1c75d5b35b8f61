#include "tests/browser/CommandFaults.h"

#include "tests/browser/CommandTexts.h"

#include <QRegularExpression>

namespace {

void Describe(const TreeEntries& tree, TreeEntries::Index entry, int depth, QStringList& lines)
{
    // A node's key may name its connection as well; a waypoint whose name could not be looked up shows its
    // keyword until the next load.
    const QString key = tree.Key(entry).section(u',', 0, tree.Kind(entry) == u'N' ? 1 : -1);
    lines << QString(depth, u' ') + key + u' ' + (tree.Kind(entry) == u'W' ? QString() : tree.Text(entry));
    for (int row = 0; row < tree.ChildCount(entry); ++row)
        Describe(tree, tree.Child(entry, row), depth + 1, lines);
}

/// The records, but a new node without its manager.
QStringList WithoutManager(QStringList records, const QString& node)
{
    for (QString& record : records) {
        QStringList fields = record.split(u'|');
        if (fields.size() == 6 && fields[0] == node)
            fields[4].clear();
        record = fields.join(u'|');
    }
    return records;
}

/// The record of that name.
QString RecordOf(const QStringList& records, const QString& name)
{
    return records.filter(QRegularExpression(u'^' + name + QStringLiteral("\\|"))).value(0);
}

QString Difference(const QStringList& now, const QStringList& expected)
{
    QStringList lines;
    for (const QString& line : now) {
        if (!expected.contains(line))
            lines << "+ " + line;
    }
    for (const QString& line : expected) {
        if (!now.contains(line))
            lines << "- " + line;
    }
    return lines.isEmpty() ? QStringLiteral("another order or number") : lines.join(u'\n');
}

} // namespace

// Rows ------------------------------------------------------------------------------------------------------

const std::vector<FaultedCommand>& FaultedCommand::ConnectionAdditions()
{
    static const std::vector<FaultedCommand> commands{
        {"connection from nothing", "waypoints", "root", "cmdDatabaseAdd", "Delta", "", "77"},
        {"connection of another type", "connections", "root", "cmdDatabaseAdd", "Delta", "KD7 Mediation Bus",
         "77"},
        {"copy of a connection", "connections", "con/Alpha", "cmdDatabaseAdd", "Delta", "", "77"},
        {"copy of a waypoint's connection", "waypoints", "wp/Alpha", "cmdDatabaseAdd", "Delta", "", "77"},
    };
    return commands;
}

const std::vector<FaultedCommand>& FaultedCommand::NodeAdditions()
{
    static const std::vector<FaultedCommand> commands{
        {"copy of a node", "nodes", "node/North", "cmdDatabaseAdd", "Nearby", "", "77"},
        {"copy of a node below", "connections", "node/North", "cmdDatabaseAdd", "Nearby", "", "77"},
        {"node of the default type", "nodes", "root", "cmdDatabaseAdd", "Nearby", "", "77"},
    };
    return commands;
}

const std::vector<FaultedCommand>& FaultedCommand::ConnectionProperties()
{
    static const std::vector<FaultedCommand> commands{
        {"connection", "connections", "con/Alpha", "cmdDatabaseProp", "Omega", "", "77"},
        {"connection without nodes", "waypoints", "con/Alpha", "cmdDatabaseProp", "", "", "77"},
        {"waypoint", "waypoints", "wp/Alpha", "cmdDatabaseProp", "Omega", "", "77"},
    };
    return commands;
}

const std::vector<FaultedCommand>& FaultedCommand::NodeProperties()
{
    static const std::vector<FaultedCommand> commands{
        {"node", "nodes", "node/North", "cmdDatabaseProp", "", "", "77"},
        {"renamed node", "nodes", "node/North", "cmdDatabaseProp", "West", "", "77"},
        {"node below", "connections", "node/North", "cmdDatabaseProp", "West", "", "77"},
        {"node to another connection", "connections", "node/North", "cmdDatabaseProp", "", "Beta", "77"},
    };
    return commands;
}

const std::vector<FaultedCommand>& FaultedCommand::Others()
{
    static const std::vector<FaultedCommand> commands{
        {"remove node", "nodes", "node/North", "cmdDatabaseRemove"},
        {"remove node below", "connections", "node/North", "cmdDatabaseRemove"},
        {"remove connection", "connections", "con/Alpha", "cmdDatabaseRemove"},
        {"remove connection from its waypoint", "waypoints", "wp/Alpha", "cmdDatabaseRemove"},
        {"manage node", "nodes", "node/North", "cmdDatabaseManage"},
        {"manage node below", "connections", "node/North", "cmdDatabaseManage"},
    };
    return commands;
}

const std::vector<CommandFault>& CommandFault::All()
{
    static const std::vector<CommandFault> faults{
        {"once", DatabaseErrorNumber::Refused, false},
        {"once, saved again", DatabaseErrorNumber::Refused, false, false, true},
        {"from then on", DatabaseErrorNumber::Refused, true},
        {"once in use, given up", DatabaseErrorNumber::InUse, false},
        {"once in use, tried again", DatabaseErrorNumber::InUse, false, true},
        {"in use from then on, given up", DatabaseErrorNumber::InUse, true},
        {"in use from then on, tried again", DatabaseErrorNumber::InUse, true, true},
    };
    return faults;
}

// Fixture ---------------------------------------------------------------------------------------------------

CommandFaultFixture::CommandFaultFixture(const FaultedCommand& command)
{
    Opening() = DialogOpening();
    Machine().ShowBusyPointer = [this](bool busy) { PointerBusy = busy; };
    Machine().StartProgram = [this](const QString&, const QStringList&) {
        ++Started;
        return true;
    };
    Component.Store.Now.users[QStringLiteral("NodeWP/north")] = QStringLiteral("somebody");
    Control->SetManageVisible(true);
    Type(command);
    Worker.Start();
    Select(QString::fromLatin1(command.view), QString::fromLatin1(command.selected));
}

void CommandFaultFixture::Type(const FaultedCommand& command)
{
    Worker.Name = QString::fromLatin1(command.newName);
    Worker.Choice = QString::fromLatin1(command.choice);
    Worker.Value = QString::fromLatin1(command.value);
    Worker.SavesAgain = false;
}

QStringList CommandFaultFixture::Trees() const
{
    QStringList lines;
    for (const TreeEntries* tree : {&ConEntries(), &NodeEntries()}) {
        if (const TreeEntries::Index root = tree->FindByKey(QStringLiteral("R,0")))
            Describe(*tree, root, 0, lines);
    }
    return lines;
}

// Run -------------------------------------------------------------------------------------------------------

CommandFaultRun::CommandFaultRun(const FaultedCommand& command, const CommandFault& fault)
    : m_command(command), m_fault(fault)
{
    CommandFaultFixture fixture(m_command);
    m_recordsBefore = fixture.Records();
    fixture.Run(m_command);
    m_calls = fixture.Component.Calls;
    m_recordsAfter = fixture.Records();
    m_recordsWithoutManager = WithoutManager(
        m_recordsAfter, fixture.Worker.Name.isEmpty() ? QStringLiteral("North") : fixture.Worker.Name);
    const bool isDone = m_recordsAfter != m_recordsBefore || fixture.Started == 1;
    if (!isDone || !fixture.Worker.Problems.isEmpty())
        qFatal("The command fails without a fault: %s", qPrintable(fixture.Operator.Texts().join(u'/')));
    RunNext(fixture);
    m_nextRecord = RecordOf(fixture.Records(), NextName());
}

void CommandFaultRun::TakeAnswers(CommandFaultFixture& fixture)
{
    m_triesLeft = m_fault.triesAgain ? 1 : 0;
    fixture.Operator.WhileOpen = [this, &fixture](const RecordedBox& box) {
        const bool givesUp = box.text == CommandTexts::InUse() && m_triesLeft-- <= 0;
        fixture.Operator.Answers = {givesUp ? BoxAnswer::Cancel : BoxAnswer::Ok};
        if (givesUp)
            m_triesLeft = m_fault.triesAgain ? 1 : 0;
    };
}

QString CommandFaultRun::ProblemWithCall(int k)
{
    // The question whether to try again is asked at a begin alone.
    if (m_fault.triesAgain && !m_fault.goesOn && !m_calls[k - 1].startsWith(QLatin1String("Begin")))
        return {};
    ++m_cases;
    CommandFaultFixture fixture(m_command);
    TakeAnswers(fixture);
    fixture.Worker.SavesAgain = m_fault.savesAgain;
    if (m_fault.goesOn)
        fixture.Component.FailFrom(k, m_fault.number);
    else
        fixture.Component.FailCall(k, m_fault.number);
    fixture.Run(m_command);
    fixture.Component.Repair();
    const QStringList calls = fixture.Component.Calls;
    const QStringList texts = fixture.Operator.Texts();
    QString problem = Problem(fixture);
    if (problem.isEmpty() && k % 4 == 1)
        problem = ProblemWithNextCommand(fixture);
    if (problem.isEmpty())
        return {};
    return QStringLiteral("call %1 (%2): %3\nboxes: %4")
        .arg(k)
        .arg(calls.value(k - 1), problem, texts.join(QStringLiteral(" / ")));
}

QString CommandFaultRun::Problem(CommandFaultFixture& fixture) const
{
    if (!fixture.Worker.Problems.isEmpty())
        return fixture.Worker.Problems.join(u'\n');
    if (fixture.Started > 1)
        return QStringLiteral("started more than once");
    for (const QString& problem : {ProblemWithBoxes(fixture), ProblemAtRest(fixture)}) {
        if (!problem.isEmpty())
            return problem;
    }
    fixture.Forget();
    fixture.Tick();
    if (fixture.Component.Store.Levels() > 0)
        return QStringLiteral("%1 levels stay open").arg(fixture.Component.Store.Levels());
    if (!fixture.Operator.Boxes.empty())
        return QStringLiteral("the refresh tells ") + fixture.Operator.Texts().join(u'/');
    for (const QString& problem :
         {ProblemAtRest(fixture), ProblemWithRecords(fixture), ProblemWithTrees(fixture)}) {
        if (!problem.isEmpty())
            return problem;
    }
    return {};
}

QString CommandFaultRun::ProblemWithBoxes(const CommandFaultFixture& fixture)
{
    for (const RecordedBox& box : fixture.Operator.Boxes) {
        if (!CommandTexts::Told().contains(box.text))
            return QStringLiteral("unknown box \"") + box.text + u'"';
    }
    return {};
}

QString CommandFaultRun::ProblemAtRest(const CommandFaultFixture& fixture)
{
    if (const QWidget* modal = QApplication::activeModalWidget())
        return QString::fromLatin1(modal->metaObject()->className()) + QStringLiteral(" stays open");
    if (Browser().Busy != 0)
        return QStringLiteral("stays busy");
    if (!fixture.TimerOn())
        return QStringLiteral("the refresh stays off");
    if (fixture.PointerBusy)
        return QStringLiteral("the pointer stays busy");
    if (!Model().ConObject || Model().ConObject->ConTree || Model().ConObject->NodesTree)
        return QStringLiteral("the trees stay handed out");
    return {};
}

QString CommandFaultRun::ProblemWithRecords(const CommandFaultFixture& fixture) const
{
    const QStringList records = fixture.Records();
    if (records == m_recordsBefore || records == m_recordsAfter || records == m_recordsWithoutManager)
        return {};
    return QStringLiteral("half is stored\n") + Difference(records, m_recordsBefore);
}

/// The trees behind a refresh are those of a full load.
QString CommandFaultRun::ProblemWithTrees(CommandFaultFixture& fixture)
{
    // One that has not been shown yet is filled when it is.
    const bool hasConnections = fixture.ConEntries().Count() > 0;
    const QStringList refreshed = fixture.Trees();
    Load().ReloadDue = true;
    fixture.Tick();
    if (!hasConnections)
        fixture.ConEntries().Clear();
    const QStringList loaded = fixture.Trees();
    if (refreshed == loaded)
        return {};
    return QStringLiteral("the trees do not follow\n") + Difference(refreshed, loaded);
}

bool CommandFaultRun::InNodeView() const
{
    return QLatin1String(m_command.view) == QLatin1String("nodes");
}

QString CommandFaultRun::NextName() const
{
    return InNodeView() ? QStringLiteral("Southern") : QStringLiteral("Bravo");
}

/// Renames another record.
void CommandFaultRun::RunNext(CommandFaultFixture& fixture) const
{
    static const FaultedCommand renameNode{"", "", "", "cmdDatabaseProp", "Southern"};
    static const FaultedCommand renameConnection{"", "", "", "cmdDatabaseProp", "Bravo"};
    const FaultedCommand& next = InNodeView() ? renameNode : renameConnection;
    fixture.Type(next);
    if (InNodeView())
        fixture.Click("tvwNodesTree", fixture.Node(QStringLiteral("South")));
    else
        fixture.Click("tvwConTree", fixture.Con(QStringLiteral("Beta")));
    fixture.Forget();
    fixture.Run(next);
}

/// The next command works as if nothing had been.
QString CommandFaultRun::ProblemWithNextCommand(CommandFaultFixture& fixture) const
{
    const bool isNode = InNodeView();
    const QString oldName = isNode ? QStringLiteral("South") : QStringLiteral("Beta");
    QStringList expected = fixture.Records();
    for (QString& record : expected) {
        if (record == RecordOf(expected, oldName))
            record = m_nextRecord;
        else if (!isNode)
            record.replace(QStringLiteral("|Beta|"), QStringLiteral("|Bravo|"));
    }
    expected.sort();
    RunNext(fixture);
    if (!fixture.Operator.Boxes.empty())
        return QStringLiteral("the next command tells ") + fixture.Operator.Texts().join(u'/');
    if (fixture.Records() != expected)
        return QStringLiteral("the next command stores\n") + Difference(fixture.Records(), expected);
    if (fixture.SelectedText() != NextName())
        return QStringLiteral("the next command selects ") + fixture.SelectedText();
    return ProblemAtRest(fixture);
}
