#pragma once

#include "browser/BrowserState.h"
#include "browser/CaptionFrame.h"
#include "browser/DialogOpening.h"
#include "browser/LoadState.h"
#include "browser/T4ZelkaBrowser.h"
#include "database/DatabaseClass.h"
#include "database/DatabaseState.h"
#include "dialogs/DialogState.h"
#include "model/ModelState.h"
#include "platform/Components.h"
#include "platform/HelpHook.h"
#include "platform/MachineSeams.h"
#include "platform/PropertyBag.h"
#include "platform/controls/TreeView.h"
#include "tests/support/FakeMachine.h"
#include "tests/support/RecordingPresenter.h"
#include "tests/support/ScriptedDatabase.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QHash>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStringList>
#include <QTest>
#include <QToolButton>
#include <QWidget>

/// Puts all module-level state back to what a process starts with.
inline void ResetModuleState()
{
    Database().DbObject.reset();
    Database().DatabaseOpen = false;
    Database().ScanRight = false;
    Database().EditRight = false;
    Model() = ModelState();
    Load() = LoadState();
    Browser() = BrowserState();
    ::Dialogs() = DialogState();
    Opening() = DialogOpening();
    Help() = HelpHook();
    ResetMachine();
    Machine().Sleep = [](int) {};
}

/// A property store in memory that writes down what is asked of it.
class RecordingBag : public PropertyBag
{
public:
    QHash<QString, QVariant> Values;
    QStringList Written;
    mutable QStringList Read;

    QVariant ReadProperty(const QString& name, const QVariant& defaultValue) const override
    {
        Read << name + QLatin1Char('=') + defaultValue.toString();
        return Values.value(name, defaultValue);
    }
    void WriteProperty(const QString& name, const QVariant& value) override
    {
        Written << name;
        Values[name] = value;
    }
    void WriteProperty(const QString& name, const QVariant& value, const QVariant& defaultValue) override
    {
        Written << name + QLatin1Char('=') + defaultValue.toString();
        if (value == defaultValue)
            Values.remove(name);
        else
            Values[name] = value;
    }
};

/// A child control by its name; fails loudly when there is none.
template <typename Control>
Control& Child(const QObject& parent, const char* name)
{
    auto* control = parent.findChild<Control*>(QString::fromLatin1(name));
    if (!control)
        qFatal("no control %s", name);
    return *control;
}

/// A control on a scripted database with an operator who is recorded; the module state is clean before and
/// after.
class BrowserFixture
{
public:
    BrowserFixture()
    {
        ResetModuleState();
        Opening().ConnectionProperties = [this](ConData& con, QWidget*) { ShowDialog("connection", con); };
        Opening().NodeProperties = [this](ConData& con, QWidget*) { ShowDialog("node", con); };
        Opening().DirectProperties = [this](ConData& con, QWidget*) { ShowDialog("direct", con); };
        Opening().Scan = [this](ConData& con, QWidget*) { ShowDialog("scan", con); };
    }
    ~BrowserFixture()
    {
        Control.reset();
        ResetModuleState();
    }
    BrowserFixture(const BrowserFixture&) = delete;
    BrowserFixture& operator=(const BrowserFixture&) = delete;

    RecordingPresenter Operator;
    ScriptedDatabase Component;
    std::unique_ptr<T4ZelkaBrowser> Control;
    /// Dialogs that the control showed: "connection", "node", "direct" or "scan".
    QStringList Dialogs;
    /// What the operator does in a dialog; without it, Cancel.
    std::function<void(ConData& con)> InDialog;

    void ShowDialog(const char* kind, ConData& con)
    {
        Dialogs << QString::fromLatin1(kind);
        if (InDialog)
            InDialog(con);
    }

    /// Makes the control and shows it, which starts it.
    void Start()
    {
        if (!Control)
            Control = std::make_unique<T4ZelkaBrowser>();
        Control->resize(500, 420);
        Control->show();
    }
    /// The same on the Database page, with what was recorded so far forgotten.
    void StartOnDatabasePage()
    {
        Browser().BrowserTabIndex = 0;
        Start();
        Component.TakeCalls();
        Operator.Boxes.clear();
    }
    void AddNodes(const QString& conName, int count)
    {
        for (int number = 1; number <= count; ++number) {
            Component.Store.AddNode(QStringLiteral("Node %1").arg(number, 6, 10, QLatin1Char('0')), conName,
                                    QString(), QStringLiteral("WP=NET4,ADDR=%1").arg(number));
        }
    }

    /// The outermost commits fail from now on.
    void FailOuterCommit()
    {
        Component.BeforeCall = [this](const QString& call) {
            if (call.startsWith(QLatin1String("CommitTransaction")) && Component.Store.Levels() == 1)
                Component.FailTimes(QStringLiteral("CommitTransaction"), 1);
        };
    }

    template <typename Widget>
    Widget& Find(const char* name) const
    {
        return Child<Widget>(*Control, name);
    }
    /// Entries that a tree of the control shows.
    TreeEntries& Entries(const char* tree) const
    {
        return static_cast<TreeEntries&>(*Find<QAbstractItemView>(tree).model());
    }
    TreeEntries& ConEntries() const { return Entries("tvwConTree"); }
    TreeEntries& NodeEntries() const { return Entries("tvwNodesTree"); }
    /// Brings an entry into view and clicks on it.
    void Click(const char* tree, TreeEntries::Index entry) const
    {
        auto& view = Find<TreeView>(tree);
        const QModelIndex index = Entries(tree).ModelIndex(entry);
        view.scrollTo(index);
        QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, view.visualRect(index).center());
    }
    void DoubleClick(const char* tree, TreeEntries::Index entry) const
    {
        auto& view = Find<TreeView>(tree);
        Click(tree, entry);
        QTest::mouseDClick(view.viewport(), Qt::LeftButton, Qt::NoModifier,
                           view.visualRect(Entries(tree).ModelIndex(entry)).center());
    }
    void ShowConnections() const { Find<QRadioButton>("optCon").setChecked(true); }
    [[nodiscard]] QString TargetText() const { return Find<QLineEdit>("txtTarget").text(); }
    [[nodiscard]] QString Caption() const { return Find<CaptionFrame>("fraConData").Caption(); }
    [[nodiscard]] int Picture() const { return Find<QLabel>("imgConArray").property("picture").toInt(); }
    [[nodiscard]] bool Enabled(const char* button) const { return Find<QWidget>(button).isEnabled(); }

    /// Methods called, transactions left out.
    QStringList Methods() const
    {
        QStringList methods;
        for (const QString& call : Component.Calls) {
            const QString method = call.section(QLatin1Char('('), 0, 0);
            if (!method.endsWith(QLatin1String("Transaction")))
                methods << method;
        }
        return methods;
    }
};
