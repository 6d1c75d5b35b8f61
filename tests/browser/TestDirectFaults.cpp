#include "tests/browser/CommandFaults.h"
#include "tests/browser/CommandTexts.h"

#include <QComboBox>
#include <QTabWidget>

// What the Direct page and the scan's commands do while each of their component calls fails in turn.

namespace {

/// A control with connection Beta chosen on the Direct page, whose operator takes an address in each scan.
class DirectFaultFixture : public CommandFixture
{
public:
    explicit DirectFaultFixture(bool onDirectPage)
    {
        Machine().ShowBusyPointer = [this](bool busy) { PointerBusy = busy; };
        InDialog = [](ConData& con) {
            con.NodeAddress = QStringLiteral("17");
            con.SelectPressed = true;
        };
        TurnTo(1);
        Choose(QStringLiteral("Beta"));
        if (!onDirectPage) {
            TurnTo(0);
            Select(QStringLiteral("connections"), QStringLiteral("con/Alpha"));
        }
        Forget();
    }
    bool PointerBusy = false;

    DialogOperator Worker;

    void Properties() const { Find<QPushButton>("cmdDirectConProp").click(); }
    /// From now on an operator changes and saves the connection in its dialog.
    void WorkInProperties()
    {
        Opening().DirectProperties = DialogOpening().DirectProperties;
        Worker.Value = QStringLiteral("77");
        Worker.Start();
    }
    QComboBox& List() const { return Find<QComboBox>("cboDirectConName"); }
    void TurnTo(int page) const { Find<QTabWidget>("tabMain").setCurrentIndex(page); }
    /// False: it is not listed.
    bool Choose(const QString& name) const
    {
        const int row = List().findText(name);
        if (row < 0)
            return false;
        List().setCurrentIndex(row);
        Q_EMIT List().activated(row);
        return true;
    }
};

struct DirectAct
{
    const char* name;
    bool onDirectPage;
    std::function<void(DirectFaultFixture& f)> act;

    static const std::vector<DirectAct>& All()
    {
        static const std::vector<DirectAct> acts{
            {"choose", true, [](auto& f) { f.Choose(QStringLiteral("Alpha")); }},
            {"scan", true, [](auto& f) { f.template Find<QPushButton>("cmdScan").click(); }},
            {"scan changed meanwhile", true,
             [](auto& f) {
                 f.ChangeElsewhere(QStringLiteral("con/Beta"));
                 f.template Find<QPushButton>("cmdScan").click();
             }},
            {"turn the page", false, [](auto& f) { f.TurnTo(1); }},
            {"properties", true,
             [](auto& f) {
                 f.InDialog = [](ConData& con) { con.SelectPressed = true; };
                 f.Properties();
             }},
            {"properties changed meanwhile", true,
             [](auto& f) {
                 f.ChangeElsewhere(QStringLiteral("con/Beta"));
                 f.Properties();
             }},
            {"properties, saved", true,
             [](auto& f) {
                 f.WorkInProperties();
                 f.Properties();
             }},
            {"scan selected", false, [](auto& f) { f.Press("cmdDbScan"); }},
        };
        return acts;
    }
};

const QStringList& Told()
{
    static const QStringList texts =
        CommandTexts::Told() +
        QStringList{
            QStringLiteral("Failure to set connection data."),
            QStringLiteral("Connection name not found."),
            QStringLiteral("Database search error."),
            CommandTexts::Changed("Connection Beta"),
            CommandTexts::ChangedTwiceTold("Connection Beta"),
            QStringLiteral("Nodes count for connection Betafailed. Close the dialog and try again. ")};
    return texts;
}

/// The operator gives up at each question, or first asks for another try.
void TakeAnswers(DirectFaultFixture& f, const CommandFault& fault, int& triesLeft)
{
    triesLeft = fault.triesAgain ? 1 : 0;
    f.Operator.WhileOpen = [&](const RecordedBox& box) {
        const bool givesUp = box.text == CommandTexts::InUse() && triesLeft-- <= 0;
        f.Operator.Answers = {givesUp ? BoxAnswer::Cancel : BoxAnswer::Ok};
        if (givesUp)
            triesLeft = fault.triesAgain ? 1 : 0;
    };
}

QString ProblemAtRest(const DirectFaultFixture& f)
{
    for (const RecordedBox& box : f.Operator.Boxes) {
        if (!Told().contains(box.text))
            return QStringLiteral("unknown box \"") + box.text + u'"';
    }
    if (Browser().Busy != 0 || f.PointerBusy)
        return QStringLiteral("stays busy");
    if (Model().ConObject->ConTree || Model().ConObject->NodesTree)
        return QStringLiteral("the trees stay handed out");
    return {};
}

/// What the page shows is what it works with.
QString ProblemWithPage(const DirectFaultFixture& f)
{
    const ConData& direct = *Model().DirectObject;
    const QString name = f.List().currentText();
    if (!name.isEmpty() && name != direct.ConName)
        return QStringLiteral("shows %1 and holds %2").arg(name, direct.ConName);
    QString target;
    direct.SetTargetWithoutDefaults(target);
    if (direct.TargetString != target || target.isEmpty())
        return QStringLiteral("holds \"%1\" as the target of %2").arg(direct.TargetString, direct.ConName);
    const QString address = f.Find<QLineEdit>("txtAddress").text();
    const QString shown = address.isEmpty() ? target : target + QStringLiteral(",WP=NET4,ADDR=") + address;
    if (f.Find<QTabWidget>("tabMain").currentIndex() == 1 && f.TargetText() != shown)
        return QStringLiteral("shows \"%1\" instead of \"%2\"").arg(f.TargetText(), shown);
    return {};
}

/// The next choice works as if nothing had been.
QString ProblemWithNextChoice(DirectFaultFixture& f)
{
    f.TurnTo(0);
    f.Tick();
    // One that could not be rolled back is at the next operation.
    if (f.Component.Store.Levels() > 0)
        return QStringLiteral("a transaction stays open");
    f.TurnTo(1);
    f.Forget();
    f.Find<QLineEdit>("txtAddress").clear();
    if (!f.Choose(QStringLiteral("Alpha")) || f.TargetText() != QLatin1String("WP=BUST4,ID=254"))
        return QStringLiteral("the next choice shows ") + f.TargetText();
    return f.Operator.Boxes.empty()
               ? QString()
               : QStringLiteral("the next choice tells ") + f.Operator.Texts().join(u'/');
}

} // namespace

class TestDirectFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void EachCallFails_PageShowsWhatItHolds_data()
    {
        QTest::addColumn<int>("act");
        QTest::addColumn<int>("fault");
        for (std::size_t act = 0; act < DirectAct::All().size(); ++act) {
            for (std::size_t fault = 0; fault < CommandFault::All().size(); ++fault) {
                if (!CommandFault::All()[fault].savesAgain)
                    QTest::addRow("%s, %s", DirectAct::All()[act].name, CommandFault::All()[fault].name)
                        << static_cast<int>(act) << static_cast<int>(fault);
            }
        }
    }
    void EachCallFails_PageShowsWhatItHolds()
    {
        QFETCH(const int, act);
        QFETCH(const int, fault);
        const DirectAct& acting = DirectAct::All()[static_cast<std::size_t>(act)];
        const CommandFault& failing = CommandFault::All()[static_cast<std::size_t>(fault)];
        int calls = 0;
        QStringList before;
        QStringList after;
        {
            DirectFaultFixture f(acting.onDirectPage);
            before = f.Component.Store.Records();
            acting.act(f);
            after = f.Component.Store.Records();
            calls = static_cast<int>(f.Component.Calls.size());
            QCOMPARE(ProblemWithPage(f), QString());
        }
        QVERIFY(calls > 5);
        for (int k = 1; k <= calls; ++k) {
            DirectFaultFixture f(acting.onDirectPage);
            int triesLeft = 0;
            TakeAnswers(f, failing, triesLeft);
            if (failing.goesOn)
                f.Component.FailFrom(k, failing.number);
            else
                f.Component.FailCall(k, failing.number);
            acting.act(f);
            f.Component.Repair();
            ++m_cases;
            QString problem = ProblemAtRest(f);
            if (problem.isEmpty())
                problem = ProblemWithPage(f);
            const QStringList records = f.Component.Store.Records();
            if (problem.isEmpty() && records != before && records != after)
                problem = QStringLiteral("half is stored");
            const QString told = f.Operator.Texts().join(QStringLiteral(" / "));
            if (problem.isEmpty())
                problem = ProblemWithNextChoice(f);
            QVERIFY2(problem.isEmpty(),
                     qPrintable(QStringLiteral("call %1: %2\nboxes: %3").arg(k).arg(problem, told)));
        }
    }
    void cleanupTestCase() const { qInfo("%d acts with a failing call", m_cases); }

private:
    int m_cases = 0;
};

QTEST_MAIN(TestDirectFaults)
#include "TestDirectFaults.moc"
