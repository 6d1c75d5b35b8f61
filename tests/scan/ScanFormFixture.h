#pragma once

#include "database/DatabaseState.h"
#include "model/ModelState.h"
#include "platform/HelpHook.h"
#include "platform/controls/IntervalTimer.h"
#include "scan/FoundNodesGrid.h"
#include "scan/frmScan.h"
#include "scan/network/ScanState.h"
#include "tests/database/SaveFixture.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>

#include <memory>

/// The scan dialog over the records of SaveFixture, for an operator with the edit right, on whatever network
/// there is. The walk's timer does not tick by itself.
class ScanFormFixture : public SaveFixture
{
public:
    ScanFormFixture()
    {
        Database().EditRight = true;
        Model().DirectObject = std::make_unique<ConData>();
        Model().NewDirectObject = std::make_unique<ConData>();
        Help().ShowHelpTopic = [this](const QString& topic) { Topics << topic; };
    }
    ~ScanFormFixture()
    {
        Form.reset();
        Scan() = ScanState();
        Help() = HelpHook();
        Model().DirectObject.reset();
        Model().NewDirectObject.reset();
    }
    ScanFormFixture(const ScanFormFixture&) = delete;
    ScanFormFixture& operator=(const ScanFormFixture&) = delete;

    std::unique_ptr<frmScan> Form;
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
};
