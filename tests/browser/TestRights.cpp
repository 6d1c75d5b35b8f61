#include "database/DatabaseState.h"
#include "dialogs/frmDatabaseConProp.h"
#include "dialogs/frmDatabaseNodeProp.h"
#include "tests/browser/CommandFixture.h"

#include <QDialog>
#include <QPointer>
#include <QTimer>

#include <algorithm>

namespace {

/// An operator who tries each control and key of the dialogs that open, and Cancel at last.
class Trier : public QObject
{
public:
    int Dialogs = 0;

    void Start() { Tick(); }

private:
    void Tick()
    {
        // The next one first: a dialog that opens here has its own event loop.
        QTimer::singleShot(0, this, [this] { Tick(); });
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        const int tick = dialog->property("tick").toInt() + 1;
        dialog->setProperty("tick", tick);
        if (tick == 3)
            TryAll(*dialog);
    }

    void TryAll(QDialog& dialog)
    {
        const QPointer<QDialog> open(&dialog);
        ++Dialogs;
        for (const char* name : {"txtConName", "txtNodeName"}) {
            if (auto* box = dialog.findChild<QLineEdit*>(QString::fromLatin1(name))) {
                box->setFocus();
                box->selectAll();
                QTest::keyClicks(box, QStringLiteral("Delta"));
                QTest::keyClick(box, Qt::Key_Return);
            }
        }
        const auto tried = [&] { return !open || !open->isVisible(); };
        for (const int key : {Qt::Key_S, Qt::Key_O, Qt::Key_N, Qt::Key_P, Qt::Key_M}) {
            if (!tried())
                QTest::keyClick(&dialog, Qt::Key(key), Qt::AltModifier);
        }
        if (tried())
            return;
        for (QWidget* control : dialog.findChildren<QWidget*>()) {
            if (tried())
                return;
            const bool leaves = control->objectName().compare(u"cmdCancel", Qt::CaseInsensitive) == 0 ||
                                control->objectName().compare(u"cmdHelp", Qt::CaseInsensitive) == 0;
            if (leaves || !control->isVisible())
                continue;
            if (qobject_cast<QPushButton*>(control))
                QTest::mouseClick(control, Qt::LeftButton);
            else
                QTest::keyClick(control, Qt::Key_Enter);
        }
        if (!tried())
            dialog.reject();
    }
};

/// The real control and the real dialogs.
class RightsFixture : public CommandFixture
{
public:
    explicit RightsFixture(bool edit) : CommandFixture(edit)
    {
        Opening() = DialogOpening();
        Machine().StartProgram = [](const QString&, const QStringList&) { return true; };
        Control->SetManageVisible(true);
        Worker.Start();
    }

    Trier Worker;

    /// One of the operator's ways: a button, "key …", "alt …" or "double click".
    void Try(const QString& way, const QString& selected)
    {
        Control->activateWindow();
        if (!QTest::qWaitForWindowActive(Control.get()))
            qFatal("The control does not become active.");
        auto& tree = Find<TreeView>(ShownTree());
        tree.setFocus();
        const QString argument = way.section(u' ', 1);
        if (way.startsWith(u"key "))
            QTest::keySequence(&tree, QKeySequence(argument));
        else if (way.startsWith(u"alt "))
            PressAccessKey(tree, argument);
        else if (way == u"double click")
            DoubleClick(ShownTree(), selected.startsWith(u"none") ? 1 : Selected());
        else
            QTest::mouseClick(&Find<QPushButton>(way.toLatin1().constData()), Qt::LeftButton);
    }
    /// A button that is reached by its key stays down for a moment.
    void PressAccessKey(QWidget& focus, const QString& letter) const
    {
        QTest::keySequence(&focus, QKeySequence(QStringLiteral("Alt+") + letter));
        const auto buttons = Control->findChildren<QAbstractButton*>();
        const bool released = QTest::qWaitFor([&] {
            return std::none_of(buttons.begin(), buttons.end(), [](auto* b) { return b->isDown(); });
        });
        if (!released)
            qFatal("A button stays down.");
    }
    /// Component calls that write.
    [[nodiscard]] QStringList Writes() const
    {
        QStringList writes = Methods();
        writes.removeIf([](const QString& method) {
            return !method.startsWith(u"Save") && !method.startsWith(u"Replace") &&
                   !method.startsWith(u"Delete") && !method.startsWith(u"Update");
        });
        return writes;
    }
};

const QStringList& Ways()
{
    static const QStringList ways{"cmdDatabaseAdd",
                                  "cmdDatabaseProp",
                                  "cmdDatabaseRemove",
                                  "cmdDatabaseManage",
                                  "key Del",
                                  "key .",
                                  "key Return",
                                  "key Enter",
                                  "key Shift+Del",
                                  "key Ctrl+Del",
                                  "key Ins",
                                  "alt A",
                                  "alt P",
                                  "alt R",
                                  "alt M",
                                  "double click"};
    return ways;
}

} // namespace

/// What an operator with and without the edit right reaches in the window.
class TestRights : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void AnyWay_WithoutEditRight_WritesNothing_data();
    void AnyWay_WithoutEditRight_WritesNothing();
    void SomeWay_WithEditRight_Writes_data();
    void SomeWay_WithEditRight_Writes();
    void Save_RightTakenAwayMeanwhile_IsRefusedAndTold_data();
    void Save_RightTakenAwayMeanwhile_IsRefusedAndTold();
    void Remove_RightTakenAwayMeanwhile_IsRefusedAndTold();
};

void TestRights::AnyWay_WithoutEditRight_WritesNothing_data()
{
    QTest::addColumn<QString>("view");
    QTest::addColumn<QString>("selected");
    for (const QString& place :
         {QStringLiteral("nodes none"), QStringLiteral("nodes root"), QStringLiteral("nodes node/North"),
          QStringLiteral("connections none"), QStringLiteral("connections root"),
          QStringLiteral("connections con/Alpha"), QStringLiteral("connections node/North"),
          QStringLiteral("waypoints con/Alpha"), QStringLiteral("waypoints wp/Alpha")})
        QTest::newRow(qPrintable(place)) << place.section(u' ', 0, 0) << place.section(u' ', 1);
}
void TestRights::AnyWay_WithoutEditRight_WritesNothing()
{
    QFETCH(const QString, view);
    QFETCH(const QString, selected);
    for (const QString& way : Ways()) {
        RightsFixture f(false);
        f.Select(view, selected);
        const QStringList records = f.Component.Store.Records();
        f.Try(way, selected);

        QVERIFY2(f.Writes().isEmpty(), qPrintable(way + QStringLiteral(": ") + f.Writes().join(u',')));
        QCOMPARE(f.Component.Store.Records(), records);
        QCOMPARE(f.Component.Store.Now.lastJournalId, 1);
        for (const QString& text : f.Operator.Texts())
            QVERIFY2(!text.startsWith(u"Do you want to remove"), qPrintable(way));
        // A click on Refresh leaves the timer off.
        f.Tick();
        QVERIFY(f.IsAtRest());
    }
}

void TestRights::SomeWay_WithEditRight_Writes_data()
{
    AnyWay_WithoutEditRight_WritesNothing_data();
}
/// The same ways do write when the operator may: what is tried above would be seen.
void TestRights::SomeWay_WithEditRight_Writes()
{
    QFETCH(const QString, view);
    QFETCH(const QString, selected);
    QStringList writing;
    for (const QString& way : Ways()) {
        RightsFixture f(true);
        f.Select(view, selected);
        f.Try(way, selected);
        if (!f.Writes().isEmpty())
            writing << way;
    }
    if (selected.contains(u'/')) {
        QStringList expected{"cmdDatabaseProp", "cmdDatabaseRemove", "key Del", "key Return", "alt P"};
        // The period asks to remove in the connection view alone.
        if (view != u"nodes")
            expected << QStringLiteral("key .");
        for (const QString& way : expected)
            QVERIFY2(writing.contains(way), qPrintable(way + QStringLiteral(" of ") + writing.join(u',')));
    } else if (view != QLatin1String("nodes")) {
        QVERIFY2(writing.contains(QLatin1String("cmdDatabaseAdd")), qPrintable(writing.join(u',')));
    }
}

void TestRights::Save_RightTakenAwayMeanwhile_IsRefusedAndTold_data()
{
    QTest::addColumn<QString>("view");
    QTest::addColumn<QString>("selected");
    QTest::addColumn<QString>("told");
    QTest::newRow("connection") << QStringLiteral("connections") << QStringLiteral("con/Alpha")
                                << QStringLiteral("Error in connection database saving.");
    QTest::newRow("node") << QStringLiteral("nodes") << QStringLiteral("node/South")
                          << QStringLiteral("Failure in removing Node Delta.");
}
void TestRights::Save_RightTakenAwayMeanwhile_IsRefusedAndTold()
{
    QFETCH(const QString, view);
    QFETCH(const QString, selected);
    QFETCH(const QString, told);
    RightsFixture f(true);
    f.Select(view, selected);
    const QStringList records = f.Component.Store.Records();
    f.Component.Store.EditRight = false;
    f.Press("cmdDatabaseProp");

    QVERIFY(!f.Writes().isEmpty());
    QVERIFY2(f.Operator.Texts().contains(told), qPrintable(f.Operator.Texts().join(u'/')));
    QCOMPARE(f.Component.Store.Records(), records);
    QVERIFY(f.IsAtRest());
}

void TestRights::Remove_RightTakenAwayMeanwhile_IsRefusedAndTold()
{
    RightsFixture f(true);
    f.Select(QStringLiteral("nodes"), QStringLiteral("node/North"));
    const QStringList records = f.Component.Store.Records();
    f.Component.Store.EditRight = false;
    f.Press("cmdDatabaseRemove");

    QVERIFY(f.Operator.Texts().contains(QStringLiteral("Failure in removing Node North.")));
    QCOMPARE(f.Component.Store.Records(), records);
    QVERIFY(f.Node(QStringLiteral("North")) != 0);
    QVERIFY(f.IsAtRest());
}

QTEST_MAIN(TestRights)
#include "TestRights.moc"
