#include "tests/browser/CommandFixture.h"
#include "tests/support/MenuOperator.h"
#include "tests/support/ModalForms.h"

#include <QClipboard>

namespace {

void RightClick(const CommandFixture& f, const char* tree, TreeEntries::Index entry)
{
    auto& view = f.Find<TreeView>(tree);
    const QModelIndex index = f.Entries(tree).ModelIndex(entry);
    view.scrollTo(index);
    MenuOperator::RightClick(*view.viewport(), view.visualRect(index).center());
}

QString Clipboard()
{
    return QGuiApplication::clipboard()->text();
}

/// The keys that open a menu.
void PressMenuKeys(QWidget& focused, const QString& keys)
{
    if (keys == QLatin1String("menu"))
        MenuOperator::MenuKey(focused);
    else
        QTest::keyClick(&focused, Qt::Key_F10, Qt::ShiftModifier);
}

} // namespace

/// The context menus of the trees.
class TestTreeMenu : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { MenuOperator::Close(); }

    void RightClick_Node_SelectsItFirst()
    {
        CommandFixture f;
        f.Click("tvwNodesTree", f.Node(QStringLiteral("Mid")));
        RightClick(f, "tvwNodesTree", f.Node(QStringLiteral("North")));
        QCOMPARE(f.SelectedText(), QStringLiteral("North"));
        QVERIFY(f.TargetText().contains(QLatin1String("WP=NET4,ADDR=17")));
        QVERIFY(MenuOperator::Opened());
    }

    void RightClick_AnySelection_OffersWhatTheButtonsOffer_data()
    {
        QTest::addColumn<QString>("view");
        QTest::addColumn<QString>("selected");
        for (const char* view : {"nodes", "waypoints", "connections"}) {
            for (const char* selected : {"root", "con/Alpha", "wp/Alpha", "node/North", "node/South"}) {
                const QByteArray what(selected);
                const bool isThere = what == "root" ||
                                     (what.startsWith("con") && qstrcmp(view, "nodes") != 0) ||
                                     (what.startsWith("wp") && qstrcmp(view, "waypoints") == 0) ||
                                     (what.startsWith("node") && qstrcmp(view, "waypoints") != 0);
                if (isThere)
                    QTest::addRow("%s %s", view, selected)
                        << QString::fromLatin1(view) << QString::fromLatin1(selected);
            }
        }
    }
    void RightClick_AnySelection_OffersWhatTheButtonsOffer()
    {
        QFETCH(const QString, view);
        QFETCH(const QString, selected);
        CommandFixture f;
        f.Control->SetManageVisible(true);
        f.Select(view, selected);
        RightClick(f, f.ShownTree(), f.Selected());
        const QMenu* const menu = MenuOperator::Opened();
        QVERIFY(menu);
        int commands = 0;
        for (const QAction* action : menu->actions()) {
            const auto* const button = f.Control->findChild<QAbstractButton*>(action->objectName());
            if (action->objectName().isEmpty() || !button)
                continue;
            ++commands;
            QVERIFY2(action->isEnabled() == button->isEnabled(), qPrintable(action->objectName()));
            QCOMPARE(action->toolTip(), button->toolTip());
        }
        QCOMPARE(commands, 9);
    }

    void RightClick_HiddenCommands_AreLeftOut()
    {
        CommandFixture f;
        f.Control->SetRefreshVisible(false);
        f.Select(QStringLiteral("nodes"), QStringLiteral("node/North"));
        RightClick(f, "tvwNodesTree", f.Selected());
        QCOMPARE(
            MenuOperator::Entries().join(QLatin1Char(' ')),
            QStringLiteral("Add ... Properties.. Remove | -Scan... | Copy Name Copy Target Copy Address | "
                           "Find... -Load More | Help"));
    }

    void RightClick_EmptySpace_KeepsTheSelection()
    {
        CommandFixture f;
        f.Select(QStringLiteral("nodes"), QStringLiteral("node/North"));
        auto& view = f.Find<TreeView>("tvwNodesTree");
        MenuOperator::RightClick(*view.viewport(), view.viewport()->rect().bottomLeft() - QPoint(-20, 3));
        QCOMPARE(f.SelectedText(), QStringLiteral("North"));
        QVERIFY(MenuOperator::Opened());
    }

    void RightClick_StaleEntry_TellsAndOpensNothing()
    {
        CommandFixture f;
        f.ChangeElsewhere(QStringLiteral("node/North"));
        RightClick(f, "tvwNodesTree", f.Node(QStringLiteral("North")));
        QCOMPARE(f.Operator.Boxes.size(), std::size_t(1));
        QVERIFY(f.Operator.Boxes.front().text.startsWith(QLatin1String("Node North cannot be accessed")));
        QVERIFY(!MenuOperator::Opened());
    }

    void RightClick_StaleEntryRemovedElsewhere_OpensNothing()
    {
        CommandFixture f;
        f.Component.Store.DeleteNode(QStringLiteral("North"));
        RightClick(f, "tvwNodesTree", f.Node(QStringLiteral("North")));
        QCOMPARE(f.Operator.Boxes.size(), std::size_t(1));
        QVERIFY(!MenuOperator::Opened());
    }

    void Keys_Selected_OpenTheMenuAtIt_data()
    {
        QTest::addColumn<QString>("keys");
        QTest::newRow("menu key") << QStringLiteral("menu");
        QTest::newRow("Shift+F10") << QStringLiteral("shift");
    }
    void Keys_Selected_OpenTheMenuAtIt()
    {
        QFETCH(const QString, keys);
        CommandFixture f;
        f.Select(QStringLiteral("nodes"), QStringLiteral("node/South"));
        auto& view = f.Find<TreeView>("tvwNodesTree");
        PressMenuKeys(view, keys);
        const QMenu* const menu = MenuOperator::Opened();
        QVERIFY(menu);
        const QRect row = view.visualRect(view.SelectedIndex());
        QCOMPARE(menu->pos().y(), view.viewport()->mapToGlobal((row & view.viewport()->rect()).center()).y());
        QCOMPARE(f.SelectedText(), QStringLiteral("South"));
    }

    void Keys_NothingSelected_OpenTheMenu()
    {
        CommandFixture f;
        f.Select(QStringLiteral("nodes"), QStringLiteral("none"));
        PressMenuKeys(f.Find<TreeView>("tvwNodesTree"), QStringLiteral("shift"));
        QVERIFY(MenuOperator::Entries().contains(QStringLiteral("-Copy Name")));
    }

    void Properties_Chosen_ShowsTheDialog()
    {
        CommandFixture f;
        f.Select(QStringLiteral("nodes"), QStringLiteral("node/North"));
        RightClick(f, "tvwNodesTree", f.Selected());
        MenuOperator::Choose(QStringLiteral("Properties.."));
        QCOMPARE(f.Dialogs, QStringList{QStringLiteral("node")});
        QVERIFY(f.IsAtRest());
    }

    void Remove_Chosen_AsksAndRemoves()
    {
        CommandFixture f;
        f.Select(QStringLiteral("nodes"), QStringLiteral("node/North"));
        RightClick(f, "tvwNodesTree", f.Selected());
        MenuOperator::Choose(QStringLiteral("Remove"));
        QCOMPARE(f.Operator.Boxes.front().text,
                 QStringLiteral("Do you want to remove Node North from database ?"));
    }

    void Help_Chosen_ShowsTheTopic()
    {
        CommandFixture f;
        QStringList topics;
        Help().ShowHelpTopic = [&](const QString& topic) { topics << topic; };
        RightClick(f, "tvwNodesTree", 1);
        MenuOperator::Choose(QStringLiteral("Help"));
        QCOMPARE(topics.size(), 1);
    }

    void Find_Chosen_OpensTheForm()
    {
        CommandFixture f;
        QString opened;
        RightClick(f, "tvwNodesTree", 1);
        ModalForms::InNextDialog([&](QDialog& form) {
            opened = form.objectName();
            form.reject();
        });
        MenuOperator::Choose(QStringLiteral("Find..."));
        QCOMPARE(opened, QStringLiteral("frmFindElement"));
    }

    void Copy_Node_GivesNameTargetAndAddress()
    {
        CommandFixture f;
        const auto copy = [&](const char* what) {
            RightClick(f, "tvwNodesTree", f.Node(QStringLiteral("North")));
            MenuOperator::Choose(QString::fromLatin1(what));
            return Clipboard();
        };
        QCOMPARE(copy("Copy Name"), QStringLiteral("North"));
        QCOMPARE(copy("Copy Target"), f.TargetText());
        QCOMPARE(copy("Copy Address"), QStringLiteral("17"));
    }

    void Copy_Connection_HasNoAddress()
    {
        CommandFixture f;
        f.Select(QStringLiteral("waypoints"), QStringLiteral("con/Alpha"));
        RightClick(f, "tvwConTree", f.Selected());
        const QStringList entries = MenuOperator::Entries();
        QVERIFY(entries.contains(QStringLiteral("Copy Name")));
        QVERIFY(entries.contains(QStringLiteral("Copy Target")));
        QVERIFY(entries.contains(QStringLiteral("-Copy Address")));
    }

    void CtrlC_Selected_CopiesTheName()
    {
        CommandFixture f;
        f.Select(QStringLiteral("nodes"), QStringLiteral("node/South"));
        QTest::keyClick(&f.Find<TreeView>("tvwNodesTree"), Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(Clipboard(), QStringLiteral("South"));
    }

    void Control_GoneWhileTheMenuIsOpen_TakesItAlong()
    {
        CommandFixture f;
        RightClick(f, "tvwNodesTree", 1);
        QVERIFY(MenuOperator::Opened());
        f.Control.reset();
        QVERIFY(!MenuOperator::Opened());
    }
};

QTEST_MAIN(TestTreeMenu)
#include "TestTreeMenu.moc"
