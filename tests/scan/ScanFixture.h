#pragma once

#include "database/DatabaseState.h"
#include "model/ModelState.h"
#include "platform/HelpHook.h"
#include "platform/controls/IntervalTimer.h"
#include "scan/FoundNodesGrid.h"
#include "scan/frmScan.h"
#include "scan/network/ScanState.h"
#include "tests/database/SaveFixture.h"
#include "tests/support/ScriptedNetwork.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QMap>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>

#include <memory>

/// The scan dialog over the records of SaveFixture, on a scripted network whose nodes are named by Nodes, for
/// an operator with the edit right. The walk's timer does not tick by itself.
class ScanFixture : public SaveFixture
{
public:
    /// What a scan opens for the connection Alpha.
    static QString OpenTarget() { return AlphaTarget + QStringLiteral(",WP=OPT,VERIFY=NO"); }

    ScanFixture()
    {
        Database().EditRight = true;
        Model().DirectObject = std::make_unique<ConData>();
        Model().NewDirectObject = std::make_unique<ConData>();
        Help().ShowHelpTopic = [this](const QString& topic) { Topics << topic; };
        Network.OnSend = [this](const QString& target, const QString& request) {
            return AnswerOf(target, request);
        };
    }
    ~ScanFixture()
    {
        Form.reset();
        Scan() = ScanState();
        Help() = HelpHook();
        Model().DirectObject.reset();
        Model().NewDirectObject.reset();
    }
    ScanFixture(const ScanFixture&) = delete;
    ScanFixture& operator=(const ScanFixture&) = delete;

    ScriptedNetwork Network;
    std::unique_ptr<frmScan> Form;
    /// Identifications of the nodes that answer, by address; their type is "T" and the address.
    QMap<int, QString> Nodes;
    QStringList Topics;

    [[nodiscard]] static ConData& Direct() { return *Model().DirectObject; }
    [[nodiscard]] static ConData& NewDirect() { return *Model().NewDirectObject; }

    // Opening ----------------------------------------------------------------------------------------------

    static void Load(const QString& connection)
    {
        if (!Direct().SetParentConData(connection, true))
            qFatal("The connection cannot be read.");
        Direct().Retry = QStringLiteral("3");
        Direct().Time = QStringLiteral("2000");
    }
    /// The dialog on a stored connection; what was recorded while it opened is forgotten.
    void ShowScan(const QString& connection = QStringLiteral("Alpha"))
    {
        Load(connection);
        Show();
    }
    void Show()
    {
        Form = std::make_unique<frmScan>(Direct());
        Form->show();
        if (!QTest::qWaitForWindowActive(Form.get()))
            qFatal("The dialog does not become active.");
        constexpr int never = 1'000'000'000;
        Timer().SetInterval(never);
        Forget();
    }

    // Controls ---------------------------------------------------------------------------------------------

    template <typename Control>
    [[nodiscard]] Control& Find(const char* name) const
    {
        auto* control = Form->findChild<Control*>(QString::fromLatin1(name));
        if (!control)
            qFatal("There is no %s.", name);
        return *control;
    }
    [[nodiscard]] QPushButton& Button(const char* name) const { return Find<QPushButton>(name); }
    [[nodiscard]] QLineEdit& Box(const char* name) const { return Find<QLineEdit>(name); }
    [[nodiscard]] QString LabelText(const char* name) const { return Find<QLabel>(name).text(); }
    [[nodiscard]] FoundNodesGrid& Grid() const { return Find<FoundNodesGrid>("grdFoundNodes"); }
    [[nodiscard]] QProgressBar& Bar() const { return Find<QProgressBar>("PrgBarScan"); }
    [[nodiscard]] IntervalTimer& Timer() const { return Find<IntervalTimer>("tmrScanNodes"); }
    [[nodiscard]] QString State() const { return Button("cmdStartStop").text(); }

    void Click(const char* button) const { QTest::mouseClick(&Button(button), Qt::LeftButton); }
    void Repeat(bool on) const { Find<QCheckBox>("chkRepeatScan").setChecked(on); }
    void SetRange(int begin, int end) const
    {
        Box("txtAddrBegin").setText(QString::number(begin));
        Box("txtAddrEnd").setText(QString::number(end));
    }
    void Start(int begin, int end) const
    {
        SetRange(begin, end);
        Click("cmdStartStop");
    }
    void ClickRow(int row) const
    {
        QTest::mouseClick(Grid().viewport(), Qt::LeftButton, {}, Grid().CellRect(row, 0).center());
    }

    // Walk -------------------------------------------------------------------------------------------------

    /// Ticks while the timer is on.
    void Tick(int times) const
    {
        for (int k = 0; k < times && Form && Timer().Enabled(); ++k)
            Q_EMIT Timer().Timer();
    }
    void Step(int times = 1) const { Tick(2 * times); }
    void WalkToTheEnd() const
    {
        while (Form && Timer().Enabled())
            Tick(1);
    }

    // What is seen -----------------------------------------------------------------------------------------

    /// Found nodes, their columns joined with "|", a star behind the marked ones.
    [[nodiscard]] QStringList Rows() const
    {
        QStringList rows;
        for (qint16 row = 1; row <= Grid().FoundCount(); ++row) {
            QStringList cells;
            for (int column = 0; column < FoundNodesGrid::ColumnCount; ++column)
                cells << Grid().TextMatrix(row, column);
            rows << cells.join(u'|') + (Grid().IsMarked(row) ? QStringLiteral("*") : QString());
        }
        return rows;
    }
    /// Names of the commands that are enabled: save, all, select, close, bus.
    [[nodiscard]] QString Enabled() const
    {
        QStringList names;
        const auto note = [&](const char* control, const char* name) {
            if (Find<QWidget>(control).isEnabled())
                names << QString::fromLatin1(name);
        };
        note("cmdSave", "save");
        note("cmdSaveAll", "all");
        note("cmdSelect", "select");
        note("cmdCancel", "close");
        note("txtBus", "bus");
        return names.join(u' ');
    }
    /// Nothing of a scan is left.
    [[nodiscard]] bool IsReleased() const
    {
        return Network.Connections == 0 && Network.Utilities == 0 && !Scan().SyncConnObj &&
               !Scan().HVXUtilObject;
    }
    /// Addresses that were asked who they are, which are then forgotten.
    [[nodiscard]] QList<int> TakeAsked()
    {
        QList<int> asked;
        for (const QString& call : Network.TakeCalls()) {
            if (call.startsWith(u"Send ") && call.endsWith(u"|40"))
                asked << AddressOf(call);
        }
        return asked;
    }
    [[nodiscard]] static int AddressOf(const QString& target)
    {
        return target.section(QStringLiteral("ADDR="), 1).section(u',', 0, 0).toInt();
    }
    /// What a node answers; silence where there is none.
    [[nodiscard]] QString AnswerOf(const QString& target, const QString& request) const
    {
        const int address = AddressOf(target);
        if (!Nodes.contains(address))
            ScriptedNetwork::Raise();
        return request == u"40" ? Nodes[address] : QStringLiteral("T%1").arg(address);
    }
};
