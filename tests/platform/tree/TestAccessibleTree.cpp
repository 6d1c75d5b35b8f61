#include "ShownTree.h"
#include "platform/controls/AccessibleControls.h"
#include "platform/controls/AccessibleTree.h"

#include <QTest>

namespace {

constexpr int RootEntry = 1;
constexpr int Alpha = 2;
constexpr int Gamma = 4;
constexpr int Zeta = 5;

} // namespace

/// What those who cannot see a tree are told about it, and what they can do with it.
class TestAccessibleTree : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void Tree_Shown_HasRoleAndTopEntries();
    void Entry_Expanded_HasChildrenAndParent();
    void Entry_Collapsed_HidesChildren();
    void Entry_Description_TellsLevelAndPlace();
    void Entry_State_FollowsTree();
    void Entry_Place_IsThatOfItsRow();
    void Entry_Removed_IsNotValid();

    void Press_Entry_RaisesClick();
    void Open_Entry_RaisesDoubleClick();
    void Toggle_Entry_ExpandsAndCollapses();
    void Toggle_EntryWithoutChildren_IsNotOffered();
    void SetFocus_Entry_MovesAsArrowKeysDo();
    void Action_EntryGoneMeanwhile_DoesNothing();

    void Focus_Moved_TellsEntry();
    void Focus_Gained_TellsEntry();
    void Selection_Changed_TellsBoth();
    void Expansion_Changed_IsTold();
    void Rows_FewAdded_AreTold();
    void Rows_ManyAdded_TellParentOnly();
    void Rows_Removed_AreTold();
    void Rows_BelowCollapsed_NotTold();
    void Name_Changed_IsToldOfKnownEntry();

    void Entries_ManyAsked_FewKept();

private:
    [[nodiscard]] AccessibleTree& Tree() const;
    [[nodiscard]] QAccessibleInterface& Item(int entry) const;
    void Do(int entry, const QString& action) const;

    std::unique_ptr<ShownTree> m_tree;
    /// Kind of each event and the name of what it is about.
    QStringList m_told;
};

void TestAccessibleTree::initTestCase()
{
    OfferAccessibleControls();
}

void TestAccessibleTree::init()
{
    m_tree = std::make_unique<ShownTree>();
    m_tree->FillSmall();
    m_tree->Show();
    m_tree->view->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_tree->view.get()));
    QTRY_VERIFY(m_tree->view->hasFocus());
    QCoreApplication::processEvents();
    SetAssistiveListener([this](const QAccessibleEvent& event) {
        const QString name = event.accessibleInterface()->text(QAccessible::Name);
        m_told << QString::fromLatin1(qAccessibleEventString(event.type())) + u' ' + name;
    });
}

void TestAccessibleTree::cleanup()
{
    SetAssistiveListener({});
    m_tree.reset();
    m_told.clear();
}

AccessibleTree& TestAccessibleTree::Tree() const
{
    return dynamic_cast<AccessibleTree&>(*QAccessible::queryAccessibleInterface(m_tree->view.get()));
}

QAccessibleInterface& TestAccessibleTree::Item(int entry) const
{
    return *Tree().ItemOf(m_tree->entries.ModelIndex(entry));
}

void TestAccessibleTree::Do(int entry, const QString& action) const
{
    Item(entry).actionInterface()->doAction(action);
    QCoreApplication::processEvents();
}

// What is there -----------------------------------------------------------------------------------------

void TestAccessibleTree::Tree_Shown_HasRoleAndTopEntries()
{
    QCOMPARE(Tree().role(), QAccessible::Tree);
    QCOMPARE(Tree().childCount(), 1);
    QCOMPARE(Tree().child(0)->text(QAccessible::Name), "Connections");
    QCOMPARE(Tree().child(0)->role(), QAccessible::TreeItem);
    QCOMPARE(Tree().child(1), nullptr);
}

void TestAccessibleTree::Entry_Expanded_HasChildrenAndParent()
{
    QAccessibleInterface& alpha = Item(Alpha);

    QCOMPARE(alpha.childCount(), 2);
    QCOMPARE(alpha.child(0)->text(QAccessible::Name), "Zeta");
    QCOMPARE(alpha.indexOfChild(alpha.child(1)), 1);
    QCOMPARE(alpha.parent(), &Item(RootEntry));
    QCOMPARE(Item(RootEntry).parent(), &Tree());
    QCOMPARE(Tree().indexOfChild(&Item(RootEntry)), 0);
    QCOMPARE(Tree().indexOfChild(&alpha), -1);
}

void TestAccessibleTree::Entry_Collapsed_HidesChildren()
{
    m_tree->entries.SetExpanded(Alpha, false);

    QCOMPARE(Item(Alpha).childCount(), 0);
    QVERIFY(Item(Zeta).state().invisible);
}

void TestAccessibleTree::Entry_Description_TellsLevelAndPlace()
{
    QCOMPARE(Item(RootEntry).text(QAccessible::Description), "level 1, entry 1 of 1");
    QCOMPARE(Item(Gamma).text(QAccessible::Description), "level 2, entry 3 of 3");
    QCOMPARE(Item(Zeta).text(QAccessible::Description), "level 3, entry 1 of 2");
}

void TestAccessibleTree::Entry_State_FollowsTree()
{
    m_tree->view->SelectIndex(m_tree->entries.ModelIndex(Alpha));

    QAccessible::State state = Item(Alpha).state();
    QVERIFY(state.selected && state.focused && state.focusable && state.selectable);
    QVERIFY(state.expandable && state.expanded && !state.collapsed);
    m_tree->entries.SetExpanded(Alpha, false);
    state = Item(Alpha).state();
    QVERIFY(state.expandable && !state.expanded && state.collapsed);
    state = Item(3).state();
    QVERIFY(!state.selected && !state.focused && !state.expandable && !state.collapsed);
    QCOMPARE(Tree().focusChild(), &Item(Alpha));
}

void TestAccessibleTree::Entry_Place_IsThatOfItsRow()
{
    const QRect place = Item(Gamma).rect();
    const QPoint inside = m_tree->view->viewport()->mapToGlobal(m_tree->PlaceOf(Gamma));

    QVERIFY(place.contains(inside));
    QCOMPARE(Tree().childAt(inside.x(), inside.y()), &Item(Gamma));
}

void TestAccessibleTree::Entry_Removed_IsNotValid()
{
    QAccessibleInterface& zeta = Item(Zeta);

    m_tree->entries.Remove(Zeta);

    QVERIFY(!zeta.isValid());
    QVERIFY(zeta.state().invalid);
    QCOMPARE(zeta.text(QAccessible::Name), QString());
}

// Actions -----------------------------------------------------------------------------------------------

void TestAccessibleTree::Press_Entry_RaisesClick()
{
    Do(Gamma, QAccessibleActionInterface::pressAction());

    QCOMPARE(m_tree->SelectedText(), "Gamma");
    QCOMPARE(m_tree->events, QStringList({"begins", "NodeClick Gamma", "Click", "ended"}));
}

void TestAccessibleTree::Open_Entry_RaisesDoubleClick()
{
    Do(Zeta, "Open");

    const QStringList click{"begins", "NodeClick Zeta", "Click", "ended"};
    QCOMPARE(m_tree->events, click + QStringList({"DblClick", "begins", "Click", "ended"}));
}

void TestAccessibleTree::Toggle_Entry_ExpandsAndCollapses()
{
    Do(Alpha, QAccessibleActionInterface::toggleAction());
    QVERIFY(!m_tree->entries.Expanded(Alpha));

    Do(Alpha, QAccessibleActionInterface::toggleAction());
    QVERIFY(m_tree->entries.Expanded(Alpha));
    QCOMPARE(m_tree->events, QStringList());
}

void TestAccessibleTree::Toggle_EntryWithoutChildren_IsNotOffered()
{
    QVERIFY(
        !Item(Zeta).actionInterface()->actionNames().contains(QAccessibleActionInterface::toggleAction()));
    QVERIFY(
        Item(Alpha).actionInterface()->actionNames().contains(QAccessibleActionInterface::toggleAction()));
}

void TestAccessibleTree::SetFocus_Entry_MovesAsArrowKeysDo()
{
    m_tree->view->clearFocus();

    Do(3, QAccessibleActionInterface::setFocusAction());

    QVERIFY(m_tree->view->hasFocus());
    QCOMPARE(m_tree->SelectedText(), "beta");
    QCOMPARE(m_tree->events, QStringList({"begins", "NodeClick beta", "Click", "ended"}));
}

void TestAccessibleTree::Action_EntryGoneMeanwhile_DoesNothing()
{
    Item(Zeta).actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    m_tree->entries.Remove(Zeta);
    QCoreApplication::processEvents();

    QCOMPARE(m_tree->events, QStringList());
}

// What is told ------------------------------------------------------------------------------------------

void TestAccessibleTree::Focus_Moved_TellsEntry()
{
    m_tree->view->SelectIndex(m_tree->entries.ModelIndex(Gamma));

    QVERIFY(m_told.contains("Focus Gamma"));
}

void TestAccessibleTree::Focus_Gained_TellsEntry()
{
    m_tree->view->SelectIndex(m_tree->entries.ModelIndex(Gamma));
    m_tree->view->clearFocus();
    m_told.clear();

    m_tree->view->setFocus();
    QCoreApplication::processEvents();

    QCOMPARE(m_told, QStringList("Focus Gamma"));
}

void TestAccessibleTree::Selection_Changed_TellsBoth()
{
    m_tree->view->SelectIndex(m_tree->entries.ModelIndex(Alpha));
    m_told.clear();

    m_tree->view->SelectIndex(m_tree->entries.ModelIndex(Gamma));

    QVERIFY(m_told.contains("SelectionRemove Alpha"));
    QVERIFY(m_told.contains("SelectionAdd Gamma"));
}

void TestAccessibleTree::Expansion_Changed_IsTold()
{
    m_tree->entries.SetExpanded(Alpha, false);

    QVERIFY(m_told.contains("StateChanged Alpha"));
}

void TestAccessibleTree::Rows_FewAdded_AreTold()
{
    m_tree->entries.Add(Alpha, "N,30", "Theta");

    QVERIFY(m_told.contains("ObjectCreated Theta"));
}

void TestAccessibleTree::Rows_ManyAdded_TellParentOnly()
{
    std::vector<NewTreeEntry> nodes;
    for (int id = 100; id < 200; ++id)
        nodes.push_back({id, u"node"});

    m_tree->entries.AddNodes(Alpha, nodes);

    QCOMPARE(m_told, QStringList("DescriptionChanged Alpha"));
}

void TestAccessibleTree::Rows_Removed_AreTold()
{
    m_tree->entries.Remove(Zeta);

    QVERIFY(m_told.contains("ObjectDestroyed Zeta"));
}

void TestAccessibleTree::Rows_BelowCollapsed_NotTold()
{
    m_tree->entries.SetExpanded(Alpha, false);
    m_told.clear();

    m_tree->entries.Add(Alpha, "N,30", "Theta");

    QCOMPARE(m_told, QStringList());
}

void TestAccessibleTree::Name_Changed_IsToldOfKnownEntry()
{
    QCOMPARE(Item(Gamma).text(QAccessible::Name), "Gamma");

    m_tree->entries.SetText(Gamma, "Delta");

    QVERIFY(m_told.contains("NameChanged Delta"));
}

// Memory ------------------------------------------------------------------------------------------------

void TestAccessibleTree::Entries_ManyAsked_FewKept()
{
    constexpr int nodes = 5 * AccessibleTree::MostItems;
    m_tree->entries.Clear();
    m_tree->FillNodes(nodes);
    QAccessibleInterface& root = *Tree().child(0);
    QCOMPARE(root.childCount(), nodes);

    for (int row = 0; row < nodes; ++row)
        QCOMPARE(Tree().child(0)->child(row)->text(QAccessible::Name),
                 QStringLiteral("Node %1").arg(row, 5, 10, QLatin1Char('0')));

    int kept = 0;
    const TreeEntries& entries = m_tree->entries;
    for (int row = 0; row < nodes; ++row)
        kept += Tree().KnownItemOf(entries.ModelIndex(entries.Child(RootEntry, row))) ? 1 : 0;
    QVERIFY(kept > 0 && kept <= AccessibleTree::MostItems);
}

QTEST_MAIN(TestAccessibleTree)
#include "TestAccessibleTree.moc"
