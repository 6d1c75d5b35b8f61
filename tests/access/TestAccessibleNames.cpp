#include "browser/T4ZelkaBrowser.h"
#include "browser/frmConNodesProgress.h"
#include "browser/frmLoadProgress.h"
#include "components/hvxdb/HvxAdministration.h"
#include "components/hvxutil/HvxUtilityComponent.h"
#include "components/syncconn/SyncConnectionComponent.h"
#include "dialogs/frmChSelPktSize.h"
#include "dialogs/frmSaveDirectNode.h"
#include "host/node-manager/NodeManagerWindow.h"
#include "host/node-manager/StartArguments.h"
#include "host/workstation/WorkstationWindow.h"
#include "model/ConData.h"
#include "model/ModelState.h"
#include "model/TreeEntries.h"
#include "platform/controls/TreeView.h"
#include "scan/frmBusSelection.h"
#include "scan/frmScanNotSavedList.h"
#include "scan/frmScanSaveAll.h"
#include "scan/frmScanSelSaveProgress.h"
#include "support/HelpWindow.h"
#include "support/modHTMLHelp.h"
#include "tests/host/RunProgram.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QAction>
#include <QCheckBox>
#include <QDialog>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidget>

#include <functional>

/// Walks the windows of the workstation on the demo database and asks of each control what those need who
/// cannot see it, or have no mouse.
class TestAccessibleNames : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void Workstation_Pages_AreAccessible();
    void ConnectionDialogs_AreAccessible();
    void NodeDialogs_AreAccessible();
    void ScanDialog_IsAccessible();
    void DirectDialog_IsAccessible();
    void FindDialogs_AreAccessible();
    void AboutAndVersion_AreAccessible();
    void ProgressForms_AreAccessible();
    void SavesOfFoundNodes_AreAccessible();
    void NoteAndBuses_AreAccessible();
    void Help_IsAccessible();
    void NodeManager_IsAccessible();

private:
    template <typename Widget>
    [[nodiscard]] Widget& Find(QWidget& window, const char* name) const;
    void Select(const char* tree, const QString& text, bool isNode);
    void WithDialog(const std::function<void()>& opening,
                    const std::function<void(QDialog& dialog)>& work = {});
    void Check(QWidget& window);
    void ShowAndCheck(QWidget& window);
    void CheckNames(QWidget& window);
    void CheckKeys(QWidget& window);
    void CheckFocusIsSeen(QWidget& window);

    QTemporaryDir m_folder;
    std::unique_ptr<QSettings> m_settings;
    std::unique_ptr<WorkstationWindow> m_window;
};

namespace {

/// Parts of Qt's own controls speak through these.
bool IsPart(const QWidget& widget)
{
    return widget.objectName().startsWith(QStringLiteral("qt_")) || widget.objectName().isEmpty();
}

bool TakesInput(const QWidget& widget)
{
    return widget.isVisibleTo(widget.window()) && widget.focusPolicy() != Qt::NoFocus && !IsPart(widget) &&
           !qobject_cast<const QTabWidget*>(&widget);
}

bool HasTabStop(const QWidget* group)
{
    const QList<QAbstractButton*> buttons = group->findChildren<QAbstractButton*>();
    return std::any_of(buttons.begin(), buttons.end(), [](const QAbstractButton* button) {
        return button->autoExclusive() && (button->focusPolicy() & Qt::TabFocus);
    });
}

QString Told(const QWidget& window, const QWidget& widget, const QString& what)
{
    return window.windowTitle() + u' ' + widget.objectName() + QStringLiteral(": ") + what;
}

} // namespace

void TestAccessibleNames::initTestCase()
{
    QVERIFY(m_folder.isValid());
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_folder.path());
    const QString database = m_folder.filePath(QStringLiteral("Demo.mdb"));
    const Outcome made =
        RunWithoutDisplay(QStringLiteral(ZELKA_PROGRAM), {"db", "init", "--demo"}, m_folder.path(), database);
    QVERIFY2(made.code == 0, qPrintable(made.errors));
    RegisterHvxDatabase();
    RegisterSyncConnections();
    RegisterHvxUtility();
    SetDataSource(database);
    m_settings =
        std::make_unique<QSettings>(m_folder.filePath(QStringLiteral("settings.ini")), QSettings::IniFormat);
    m_window = std::make_unique<WorkstationWindow>(*m_settings, database, WorkstationWindow::Place::Default);
    m_window->show();
    m_window->Start();
}

template <typename Widget>
Widget& TestAccessibleNames::Find(QWidget& window, const char* name) const
{
    auto* found = window.findChild<Widget*>(QString::fromLatin1(name));
    if (!found)
        qFatal("there is no %s", name);
    return *found;
}

void TestAccessibleNames::Select(const char* tree, const QString& text, bool isNode)
{
    auto& view = Find<TreeView>(*m_window, tree);
    const auto& entries = static_cast<const TreeEntries&>(*view.model());
    view.ClickEntry(entries.ModelIndex(entries.FindByText(text, isNode)));
    QCoreApplication::processEvents();
}

/// Runs what opens a modal dialog, and on the dialog the check and then `work`; cancels it.
void TestAccessibleNames::WithDialog(const std::function<void()>& opening,
                                     const std::function<void(QDialog& dialog)>& work)
{
    bool shown = false;
    QTimer::singleShot(0, this, [&] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        shown = true;
        Check(*dialog);
        if (work)
            work(*dialog);
        dialog->reject();
    });
    opening();
    QVERIFY(shown);
}

// Checks ------------------------------------------------------------------------------------------------

void TestAccessibleNames::Check(QWidget& window)
{
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    window.activateWindow();
    QCoreApplication::processEvents();
    CheckNames(window);
    CheckKeys(window);
    CheckFocusIsSeen(window);
}

void TestAccessibleNames::ShowAndCheck(QWidget& window)
{
    window.show();
    Check(window);
    window.close();
}

void TestAccessibleNames::CheckNames(QWidget& window)
{
    int checked = 0;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        if (!TakesInput(*widget))
            continue;
        const QAccessibleInterface* known = QAccessible::queryAccessibleInterface(widget);
        QVERIFY(known);
        QVERIFY2(!known->text(QAccessible::Name).trimmed().isEmpty(),
                 qPrintable(Told(window, *widget, "has no name")));
        const QAccessible::Role role = known->role();
        QVERIFY2(role != QAccessible::Client && role != QAccessible::NoRole,
                 qPrintable(Told(window, *widget, "has no role")));
        if (qobject_cast<const QPushButton*>(widget)) {
            QVERIFY2(!known->text(QAccessible::Description).isEmpty(),
                     qPrintable(Told(window, *widget, "does not tell what it does")));
        }
        ++checked;
    }
    QVERIFY(checked > 0);
}

/// Every command is reached by Tab or a key of its own, and no two share one.
void TestAccessibleNames::CheckKeys(QWidget& window)
{
    QHash<QKeySequence, QString> keys;
    for (const QAbstractButton* button : window.findChildren<QAbstractButton*>()) {
        if (!button->isVisibleTo(&window) || IsPart(*button))
            continue;
        const QKeySequence key = QKeySequence::mnemonic(button->text());
        // The arrow keys go from one to the other.
        const bool isChoice = button->autoExclusive() && HasTabStop(button->parentWidget());
        QVERIFY2((button->focusPolicy() & Qt::TabFocus) || !key.isEmpty() || isChoice,
                 qPrintable(Told(window, *button, "cannot be reached with keys")));
        // "&Remove" and "&Refresh" are both set; their key goes from one to the other.
        if (key.isEmpty() || button->objectName() == QLatin1String("cmdRefresh"))
            continue;
        QVERIFY2(!keys.contains(key),
                 qPrintable(Told(window, *button, "shares " + key.toString() + " with " + keys.value(key))));
        keys.insert(key, button->objectName());
    }
}

/// A control that gets the focus looks different.
void TestAccessibleNames::CheckFocusIsSeen(QWidget& window)
{
    // As after the first Tab; the style shows it from then on.
    window.setAttribute(Qt::WA_KeyboardFocusChange);
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        if (!TakesInput(*widget) || !widget->isEnabled() || !(widget->focusPolicy() & Qt::TabFocus))
            continue;
        if (QWidget* focused = QApplication::focusWidget())
            focused->clearFocus();
        // Marked as what Enter does, whether it has the focus or not.
        const auto* button = qobject_cast<const QPushButton*>(widget);
        if (button && button->isDefault())
            continue;
        // There is no entry yet that could show it.
        const auto* view = qobject_cast<const QAbstractItemView*>(widget);
        if (view && view->model() && view->model()->rowCount() == 0)
            continue;
        const QImage without = widget->grab().toImage();
        widget->setFocus(Qt::TabFocusReason);
        QVERIFY2(widget->hasFocus() || widget->isAncestorOf(QApplication::focusWidget()),
                 qPrintable(Told(window, *widget, "does not take the focus")));
        QVERIFY2(widget->grab().toImage() != without,
                 qPrintable(Told(window, *widget, "does not show that it has the focus")));
    }
}

// Windows -----------------------------------------------------------------------------------------------

void TestAccessibleNames::Workstation_Pages_AreAccessible()
{
    auto& pages = Find<QTabWidget>(*m_window, "tabMain");
    Find<QRadioButton>(*m_window, "optCon").setChecked(true);
    Select("tvwConTree", "Harbour Tower bus 254", false);
    Check(*m_window);
    Find<QRadioButton>(*m_window, "optNodes").setChecked(true);
    Check(*m_window);
    pages.setCurrentIndex(1);
    Check(*m_window);
    pages.setCurrentIndex(0);
}

void TestAccessibleNames::ConnectionDialogs_AreAccessible()
{
    Find<QRadioButton>(*m_window, "optCon").setChecked(true);
    Select("tvwConTree", "Ellermoor TCP", false);
    WithDialog([this] { Find<QPushButton>(*m_window, "cmdDatabaseProp").click(); },
               [this](QDialog& dialog) {
                   Find<QCheckBox>(dialog, "chkShowParameters").setChecked(true);
                   auto& list = Find<QTreeWidget>(dialog, "lvWPlist");
                   list.setCurrentItem(list.topLevelItem(0));
                   WithDialog([&] { Find<QPushButton>(dialog, "cmdProperties").click(); });
               });
}

void TestAccessibleNames::NodeDialogs_AreAccessible()
{
    Find<QRadioButton>(*m_window, "optNodes").setChecked(true);
    Select("tvwNodesTree", "Harbour Tower radio 1", true);
    WithDialog(
        [this] { Find<QPushButton>(*m_window, "cmdDatabaseProp").click(); },
        [this](QDialog& dialog) { WithDialog([&] { Find<QPushButton>(dialog, "cmdManager").click(); }); });
}

void TestAccessibleNames::ScanDialog_IsAccessible()
{
    Find<QRadioButton>(*m_window, "optCon").setChecked(true);
    Select("tvwConTree", "Harbour Tower bus 254", false);
    WithDialog([this] { Find<QPushButton>(*m_window, "cmdDbScan").click(); });
}

void TestAccessibleNames::DirectDialog_IsAccessible()
{
    Find<QTabWidget>(*m_window, "tabMain").setCurrentIndex(1);
    WithDialog([this] { Find<QPushButton>(*m_window, "cmdDirectConProp").click(); });
    Find<QTabWidget>(*m_window, "tabMain").setCurrentIndex(0);
}

void TestAccessibleNames::FindDialogs_AreAccessible()
{
    Find<QRadioButton>(*m_window, "optCon").setChecked(true);
    WithDialog([this] { Find<QToolButton>(*m_window, "FindElement").click(); },
               [this](QDialog& find) {
                   Find<QLineEdit>(find, "txtMatch_Patern").setText("harbour");
                   WithDialog([&] { Find<QPushButton>(find, "Go").click(); });
               });
}

void TestAccessibleNames::AboutAndVersion_AreAccessible()
{
    WithDialog(
        [this] { Find<QAction>(*m_window, "mnuAbout").trigger(); },
        [this](QDialog& about) { WithDialog([&] { Find<QPushButton>(about, "cmdVersion").click(); }); });
}

void TestAccessibleNames::ProgressForms_AreAccessible()
{
    // Not shown: they would load or save, and go.
    frmLoadProgress load;
    frmConNodesProgress loadNodes;
    frmScanSelSaveProgress save(*Model().DirectObject, *Model().NewDirectObject);
    for (QDialog* form :
         {static_cast<QDialog*>(&load), static_cast<QDialog*>(&loadNodes), static_cast<QDialog*>(&save)}) {
        CheckNames(*form);
        CheckKeys(*form);
        const QAccessibleInterface* bar =
            QAccessible::queryAccessibleInterface(&Find<QProgressBar>(*form, "LoadPrgBar"));
        QVERIFY2(bar && !bar->text(QAccessible::Name).isEmpty(), qPrintable(form->objectName()));
    }
}

void TestAccessibleNames::SavesOfFoundNodes_AreAccessible()
{
    Find<QRadioButton>(*m_window, "optNodes").setChecked(true);
    Select("tvwNodesTree", "Harbour Tower radio 1", true);
    ConData& direct = *Model().DirectObject;
    ConData& newDirect = *Model().NewDirectObject;
    QVERIFY(direct.SetNodeDataFromNodeName("Harbour Tower radio 1"));
    frmSaveDirectNode save(direct, newDirect, nullptr);
    ShowAndCheck(save);
    frmScanSaveAll names(direct, newDirect);
    ShowAndCheck(names);
    frmScanNotSavedList list(direct, newDirect);
    ShowAndCheck(list);
}

void TestAccessibleNames::NoteAndBuses_AreAccessible()
{
    frmChSelPktSize note;
    ShowAndCheck(note);
    frmBusSelection buses(*Model().DirectObject);
    CheckNames(buses);
    CheckKeys(buses);
}

void TestAccessibleNames::Help_IsAccessible()
{
    modHTMLHelp::ShowHelpTopic("index.htm");
    HelpWindow* const help = HelpWindow::Current();
    QVERIFY(help);
    auto& ways = Find<QTabWidget>(*help, "tabHelp");
    for (int way = 0; way < ways.count(); ++way) {
        ways.setCurrentIndex(way);
        CheckNames(*help);
        CheckKeys(*help);
    }
    HelpWindow::End();
}

void TestAccessibleNames::NodeManager_IsAccessible()
{
    StartArguments arguments;
    arguments.node = "Harbour Tower radio 1";
    NodeManagerWindow window(arguments);
    ShowAndCheck(window);
}

QTEST_MAIN(TestAccessibleNames)
#include "TestAccessibleNames.moc"
