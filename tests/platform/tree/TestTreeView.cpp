#include "ShownTree.h"

#include <QSignalSpy>
#include <QTest>

#include <functional>

/// The order of events for mouse and keyboard, and what receivers may do inside of them.
class TestTreeView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void Mouse_Gesture_RaisesInOrder_data();
    void Mouse_Gesture_RaisesInOrder();
    void Mouse_Press_SelectsBeforeEvents();
    void Mouse_Indicator_TogglesOnly();
    void Mouse_DoubleClickWithChildren_Toggles();
    void Mouse_DoubleClickOnEmptySpace_RaisesNoDblClick();
    void Mouse_OtherButton_DoesNothing();
    void Mouse_EntryGoneBeforeRelease_ClickAlone();

    void Key_Move_SelectsAndRaises_data();
    void Key_Move_SelectsAndRaises();
    void Key_Expansion_ChangesCurrentOnly_data();
    void Key_Expansion_ChangesCurrentOnly();
    void Key_RightToLeft_LeftExpands();
    void Key_HiddenCurrent_MovesFromVisibleParent();
    void Key_DownAndPress_RaisedFirst_data();
    void Key_DownAndPress_RaisedFirst();
    void Key_Swallowed_NothingFollows();
    void Key_CharacterDropped_NoSearch();
    void Key_CharacterReplaced_SearchedFor();
    void Key_Unused_LeftToParent_data();
    void Key_Unused_LeftToParent();

    void Search_Typed_Selects_data();
    void Search_Typed_Selects();
    void Search_Pause_BeginsAnew();
    void Search_PlusWhileSearching_IsACharacter();

    void SelectIndex_Entry_NoEvents();
    void SelectIndex_Hidden_ExpandsAndShows();
    void SelectIndex_SameAgain_ScrollsNothing();
    void SelectIndex_Invalid_SelectsNothing();

    void Receiver_ChangesModel_PairedAndAlive_data();
    void Receiver_ChangesModel_PairedAndAlive();
    void Receiver_DeletesView_NothingTouched_data();
    void Receiver_DeletesView_NothingTouched();

private:
    void ConnectTo(const QString& signal, std::function<void()> action);
    void Raise(const QString& signal);

    std::unique_ptr<ShownTree> m_tree;
};

void TestTreeView::init()
{
    m_tree = std::make_unique<ShownTree>();
    m_tree->FillSmall();
    m_tree->Show();
    // A test's clicks are no double clicks of the one before.
    QTest::qWait(1);
}

void TestTreeView::cleanup()
{
    m_tree.reset();
}

// Mouse -------------------------------------------------------------------------------------------------

void TestTreeView::Mouse_Gesture_RaisesInOrder_data()
{
    QTest::addColumn<QString>("gesture");
    QTest::addColumn<QStringList>("events");
    QTest::addColumn<QString>("selected");
    QTest::newRow("click") << "click" << QStringList({"begins", "NodeClick beta", "Click", "ended"})
                           << "beta";
    QTest::newRow("click twice, slowly") << "click click"
                                         << QStringList({"begins", "NodeClick beta", "Click", "ended",
                                                         "begins", "NodeClick beta", "Click", "ended"})
                                         << "beta";
    QTest::newRow("double click") << "double"
                                  << QStringList({"begins", "NodeClick beta", "Click", "ended", "DblClick",
                                                  "begins", "Click", "ended"})
                                  << "beta";
    QTest::newRow("empty space") << "empty" << QStringList({"begins", "Click", "ended"}) << QString();
    QTest::newRow("indicator") << "indicator" << QStringList() << QString();
    QTest::newRow("click, then empty space")
        << "click empty"
        << QStringList({"begins", "NodeClick beta", "Click", "ended", "begins", "Click", "ended"}) << "beta";
    QTest::newRow("click, then indicator")
        << "click indicator" << QStringList({"begins", "NodeClick beta", "Click", "ended"}) << "beta";
}

void TestTreeView::Mouse_Gesture_RaisesInOrder()
{
    QFETCH(QString, gesture);
    QFETCH(QStringList, events);
    QFETCH(QString, selected);

    const QStringList gestures = gesture.split(u' ');
    for (const QString& each : gestures) {
        if (each == "click")
            m_tree->Click(m_tree->PlaceOf(3));
        else if (each == "double")
            m_tree->DoubleClick(m_tree->PlaceOf(3));
        else if (each == "empty")
            m_tree->Click(m_tree->EmptyPlace());
        else
            m_tree->Click(m_tree->PlaceOfIndicator(2));
    }

    QCOMPARE(m_tree->events, events);
    QCOMPARE(m_tree->SelectedText(), selected);
}

void TestTreeView::Mouse_Press_SelectsBeforeEvents()
{
    m_tree->Press(m_tree->PlaceOf(4));

    QCOMPARE(m_tree->SelectedText(), "Gamma");
    QCOMPARE(m_tree->events, QStringList());
    m_tree->Release(m_tree->EmptyPlace());
    QCOMPARE(m_tree->events, QStringList({"begins", "NodeClick Gamma", "Click", "ended"}));
}

void TestTreeView::Mouse_Indicator_TogglesOnly()
{
    m_tree->Click(m_tree->PlaceOfIndicator(2));
    QVERIFY(!m_tree->entries.Expanded(2));
    m_tree->Click(m_tree->PlaceOfIndicator(2));
    QVERIFY(m_tree->entries.Expanded(2));
    m_tree->DoubleClick(m_tree->PlaceOfIndicator(2));
    QVERIFY(m_tree->entries.Expanded(2));
    QCOMPARE(m_tree->events, QStringList());
    QVERIFY(m_tree->view->IndicatorRect(m_tree->entries.ModelIndex(3)).isEmpty());
}

void TestTreeView::Mouse_DoubleClickWithChildren_Toggles()
{
    m_tree->DoubleClick(m_tree->PlaceOf(2));
    QVERIFY(!m_tree->entries.Expanded(2));
    m_tree->DoubleClick(m_tree->PlaceOf(3));
    QVERIFY(!m_tree->entries.Expanded(3));
}

void TestTreeView::Mouse_DoubleClickOnEmptySpace_RaisesNoDblClick()
{
    m_tree->Click(m_tree->PlaceOf(3));
    m_tree->events.clear();

    m_tree->DoubleClick(m_tree->EmptyPlace());

    QCOMPARE(m_tree->events, QStringList({"begins", "Click", "ended", "begins", "Click", "ended"}));
}

void TestTreeView::Mouse_OtherButton_DoesNothing()
{
    QTest::mouseClick(m_tree->view->viewport(), Qt::RightButton, {}, m_tree->PlaceOf(3));
    QTest::mouseDClick(m_tree->view->viewport(), Qt::MiddleButton, {}, m_tree->PlaceOf(3));

    QCOMPARE(m_tree->events, QStringList());
    QCOMPARE(m_tree->SelectedText(), QString());
}

void TestTreeView::Mouse_EntryGoneBeforeRelease_ClickAlone()
{
    const QPoint place = m_tree->PlaceOf(7);
    m_tree->Press(place);
    m_tree->entries.Remove(7);
    m_tree->Release(place);

    QCOMPARE(m_tree->events, QStringList({"begins", "Click", "ended"}));
    QCOMPARE(m_tree->SelectedText(), "Gamma");
}

// Keyboard ----------------------------------------------------------------------------------------------

void TestTreeView::Key_Move_SelectsAndRaises_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("selected");
    QTest::newRow("down") << 2 << int(Qt::Key_Down) << "Zeta";
    QTest::newRow("up") << 3 << int(Qt::Key_Up) << "eta";
    QTest::newRow("up at the top") << 1 << int(Qt::Key_Up) << QString();
    QTest::newRow("down at the end") << 7 << int(Qt::Key_Down) << QString();
    QTest::newRow("home") << 6 << int(Qt::Key_Home) << "Connections";
    QTest::newRow("end") << 6 << int(Qt::Key_End) << "Alpha 2";
    QTest::newRow("page down") << 1 << int(Qt::Key_PageDown) << "Alpha 2";
    QTest::newRow("page up") << 7 << int(Qt::Key_PageUp) << "Connections";
    QTest::newRow("left to the parent") << 5 << int(Qt::Key_Left) << "Alpha";
    QTest::newRow("right to the first child") << 2 << int(Qt::Key_Right) << "Zeta";
    QTest::newRow("right without children") << 3 << int(Qt::Key_Right) << QString();
    QTest::newRow("letter") << 1 << int(Qt::Key_B) << "beta";
}

void TestTreeView::Key_Move_SelectsAndRaises()
{
    QFETCH(int, start);
    QFETCH(int, key);
    QFETCH(QString, selected);
    m_tree->view->SelectIndex(m_tree->entries.ModelIndex(start));

    QTest::keyClick(m_tree->view.get(), Qt::Key(key));

    // No text: the key moves nothing, so there is nothing to raise.
    QCOMPARE(m_tree->SelectedText(), selected.isEmpty() ? m_tree->entries.Text(start) : selected);
    QCOMPARE(m_tree->events, selected.isEmpty()
                                 ? QStringList()
                                 : QStringList({"begins", "NodeClick " + selected, "Click", "ended"}));
}

void TestTreeView::Key_Expansion_ChangesCurrentOnly_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("before");
    QTest::addColumn<bool>("after");
    QTest::newRow("left") << int(Qt::Key_Left) << true << false;
    QTest::newRow("minus") << int(Qt::Key_Minus) << true << false;
    QTest::newRow("minus, collapsed") << int(Qt::Key_Minus) << false << false;
    QTest::newRow("right") << int(Qt::Key_Right) << false << true;
    QTest::newRow("plus") << int(Qt::Key_Plus) << false << true;
    QTest::newRow("plus, expanded") << int(Qt::Key_Plus) << true << true;
    QTest::newRow("asterisk") << int(Qt::Key_Asterisk) << false << true;
}

void TestTreeView::Key_Expansion_ChangesCurrentOnly()
{
    QFETCH(int, key);
    QFETCH(bool, before);
    QFETCH(bool, after);
    m_tree->entries.SetExpanded(2, false);
    m_tree->entries.SetExpanded(1, before);
    m_tree->view->SelectIndex(m_tree->entries.ModelIndex(1));

    QTest::keyClick(m_tree->view.get(), Qt::Key(key));

    QCOMPARE(m_tree->entries.Expanded(1), after);
    QVERIFY(!m_tree->entries.Expanded(2));
    QCOMPARE(m_tree->events, QStringList());
    QCOMPARE(m_tree->Selected(), 1);
}

void TestTreeView::Key_RightToLeft_LeftExpands()
{
    m_tree->view->setLayoutDirection(Qt::RightToLeft);
    m_tree->view->SelectIndex(m_tree->entries.ModelIndex(2));
    QTest::keyClick(m_tree->view.get(), Qt::Key_Right);
    QVERIFY(!m_tree->entries.Expanded(2));
    QTest::keyClick(m_tree->view.get(), Qt::Key_Left);
    QVERIFY(m_tree->entries.Expanded(2));
}

void TestTreeView::Key_HiddenCurrent_MovesFromVisibleParent()
{
    m_tree->view->SelectIndex(m_tree->entries.ModelIndex(5));
    m_tree->entries.SetExpanded(2, false);
    QCOMPARE(m_tree->Selected(), 5);

    QTest::keyClick(m_tree->view.get(), Qt::Key_Down);

    QCOMPARE(m_tree->SelectedText(), "beta");
    m_tree->entries.SetExpanded(4, true);
    m_tree->view->SelectIndex(m_tree->entries.ModelIndex(7));
    m_tree->entries.SetExpanded(4, false);
    QTest::keyClick(m_tree->view.get(), Qt::Key_Left);
    QCOMPARE(m_tree->SelectedText(), "Gamma");
}

void TestTreeView::Key_DownAndPress_RaisedFirst_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("arrow") << int(Qt::Key_Down) << QString() << QStringList({"down", "click"});
    QTest::newRow("letter") << int(Qt::Key_B) << "b" << QStringList({"down", "press 98", "click"});
    QTest::newRow("period") << int(Qt::Key_Period) << "." << QStringList({"down", "press 46"});
    QTest::newRow("enter") << int(Qt::Key_Return) << "\r" << QStringList({"down", "press 13"});
    QTest::newRow("escape") << int(Qt::Key_Escape) << "\x1b" << QStringList({"down", "press 27"});
    QTest::newRow("delete") << int(Qt::Key_Delete) << "\x7f" << QStringList({"down"});
    QTest::newRow("F1") << int(Qt::Key_F1) << QString() << QStringList({"down"});
}

void TestTreeView::Key_DownAndPress_RaisedFirst()
{
    QFETCH(int, key);
    QFETCH(QString, text);
    QFETCH(QStringList, expected);
    m_tree->view->SelectIndex(m_tree->entries.ModelIndex(1));
    QStringList order;
    int raisedKey = 0;
    Qt::KeyboardModifiers raisedModifiers;
    connect(m_tree->view.get(), &TreeView::KeyDown, this,
            [&](int each, Qt::KeyboardModifiers modifiers, bool&) {
                order.append("down");
                raisedKey = each;
                raisedModifiers = modifiers;
            });
    connect(m_tree->view.get(), &TreeView::KeyPress, this,
            [&](ushort& character) { order.append("press " + QString::number(character)); });
    connect(m_tree->view.get(), &TreeView::Click, this, [&] { order.append("click"); });

    QKeyEvent event(QEvent::KeyPress, key, Qt::ShiftModifier, text);
    QCoreApplication::sendEvent(m_tree->view.get(), &event);

    QCOMPARE(order, expected);
    QCOMPARE(raisedKey, key);
    QCOMPARE(raisedModifiers, Qt::KeyboardModifiers(Qt::ShiftModifier));
}

void TestTreeView::Key_Swallowed_NothingFollows()
{
    m_tree->view->SelectIndex(m_tree->entries.ModelIndex(1));
    connect(m_tree->view.get(), &TreeView::KeyDown, this,
            [](int, Qt::KeyboardModifiers, bool& swallow) { swallow = true; });
    QSignalSpy pressed(m_tree->view.get(), &TreeView::Click);

    QTest::keyClick(m_tree->view.get(), Qt::Key_Down);
    QTest::keyClick(m_tree->view.get(), Qt::Key_B);

    QCOMPARE(m_tree->Selected(), 1);
    QCOMPARE(pressed.size(), 0);
}

void TestTreeView::Key_CharacterDropped_NoSearch()
{
    m_tree->view->SelectIndex(m_tree->entries.ModelIndex(1));
    connect(m_tree->view.get(), &TreeView::KeyPress, this, [](ushort& character) { character = 0; });

    QTest::keyClick(m_tree->view.get(), Qt::Key_B);

    QCOMPARE(m_tree->Selected(), 1);
}

void TestTreeView::Key_CharacterReplaced_SearchedFor()
{
    m_tree->view->SelectIndex(m_tree->entries.ModelIndex(1));
    connect(m_tree->view.get(), &TreeView::KeyPress, this, [](ushort& character) { character = u'g'; });

    QTest::keyClick(m_tree->view.get(), Qt::Key_B);

    QCOMPARE(m_tree->SelectedText(), "Gamma");
}

void TestTreeView::Key_Unused_LeftToParent_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("escape goes on") << int(Qt::Key_Escape) << false;
    QTest::newRow("F1 goes on") << int(Qt::Key_F1) << false;
    QTest::newRow("enter stays") << int(Qt::Key_Return) << true;
    QTest::newRow("arrow stays") << int(Qt::Key_Down) << true;
}

void TestTreeView::Key_Unused_LeftToParent()
{
    QFETCH(int, key);
    QFETCH(bool, accepted);
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);

    QCoreApplication::sendEvent(m_tree->view.get(), &event);

    QCOMPARE(event.isAccepted(), accepted);
}

// Searching ---------------------------------------------------------------------------------------------

void TestTreeView::Search_Typed_Selects_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("selected");
    QTest::newRow("one letter") << "g"
                                << "Gamma";
    QTest::newRow("case ignored") << "BE"
                                  << "beta";
    QTest::newRow("same letter steps") << "aa"
                                       << "Alpha 2";
    QTest::newRow("same letter wraps around") << "aaa"
                                              << "Alpha";
    QTest::newRow("longer text stays while it fits") << "al"
                                                     << "Alpha";
    QTest::newRow("longer text moves on") << "alpha 2"
                                          << "Alpha 2";
    QTest::newRow("nothing found") << "q"
                                   << "Connections";
}

void TestTreeView::Search_Typed_Selects()
{
    QFETCH(QString, typed);
    QFETCH(QString, selected);
    QApplication::setKeyboardInputInterval(60000);
    m_tree->view->SelectIndex(m_tree->entries.ModelIndex(1));

    QTest::keyClicks(m_tree->view.get(), typed);

    QCOMPARE(m_tree->SelectedText(), selected);
}

void TestTreeView::Search_Pause_BeginsAnew()
{
    m_tree->view->SelectIndex(m_tree->entries.ModelIndex(1));
    // Every pause is longer than an interval of none.
    QApplication::setKeyboardInputInterval(0);

    QTest::keyClicks(m_tree->view.get(), "ag");

    QCOMPARE(m_tree->SelectedText(), "Gamma");
}

void TestTreeView::Search_PlusWhileSearching_IsACharacter()
{
    QApplication::setKeyboardInputInterval(60000);
    m_tree->entries.SetText(3, "beta-2");
    m_tree->entries.Add(1, "C,13", "beta+2");
    m_tree->view->SelectIndex(m_tree->entries.ModelIndex(1));

    QTest::keyClicks(m_tree->view.get(), "beta+");

    QCOMPARE(m_tree->SelectedText(), "beta+2");
}

// Selecting in code -------------------------------------------------------------------------------------

void TestTreeView::SelectIndex_Entry_NoEvents()
{
    m_tree->view->SelectIndex(m_tree->entries.ModelIndex(3));

    QCOMPARE(m_tree->SelectedText(), "beta");
    QCOMPARE(m_tree->events, QStringList());
}

void TestTreeView::SelectIndex_Hidden_ExpandsAndShows()
{
    m_tree->entries.SetExpanded(4, false);
    m_tree->entries.SetExpanded(1, false);

    m_tree->view->SelectIndex(m_tree->entries.ModelIndex(7));

    QVERIFY(m_tree->entries.Expanded(1));
    QVERIFY(m_tree->entries.Expanded(4));
    QVERIFY(
        m_tree->view->viewport()->rect().contains(m_tree->view->visualRect(m_tree->entries.ModelIndex(7))));
}

void TestTreeView::SelectIndex_SameAgain_ScrollsNothing()
{
    m_tree->view->SelectIndex(m_tree->entries.ModelIndex(7));
    m_tree->entries.SetExpanded(4, false);

    m_tree->view->SelectIndex(m_tree->entries.ModelIndex(7));

    QVERIFY(!m_tree->entries.Expanded(4));
    QCOMPARE(m_tree->Selected(), 7);
}

void TestTreeView::SelectIndex_Invalid_SelectsNothing()
{
    m_tree->view->SelectIndex(m_tree->entries.ModelIndex(3));

    m_tree->view->SelectIndex(QModelIndex());

    QVERIFY(!m_tree->view->SelectedIndex().isValid());
    QVERIFY(!m_tree->view->currentIndex().isValid());
}

// Receivers ---------------------------------------------------------------------------------------------

/// Runs `action` once, the first time that the signal is raised.
void TestTreeView::ConnectTo(const QString& signal, std::function<void()> action)
{
    TreeView* view = m_tree->view.get();
    const auto once = [action, done = std::make_shared<bool>(false)] {
        if (!std::exchange(*done, true))
            action();
    };
    if (signal == "ClickBegins")
        connect(view, &TreeView::ClickBegins, this, once);
    else if (signal == "NodeClick")
        connect(view, &TreeView::NodeClick, this, once);
    else if (signal == "Click")
        connect(view, &TreeView::Click, this, once);
    else if (signal == "DblClick")
        connect(view, &TreeView::DblClick, this, once);
    else if (signal == "KeyDown")
        connect(view, &TreeView::KeyDown, this, once);
    else
        connect(view, &TreeView::KeyPress, this, once);
}

/// Does what raises the signal on the entry beta.
void TestTreeView::Raise(const QString& signal)
{
    if (signal == "DblClick") {
        m_tree->DoubleClick(m_tree->PlaceOf(3));
    } else if (signal.startsWith("Key")) {
        m_tree->view->SelectIndex(m_tree->entries.ModelIndex(3));
        QTest::keyClick(m_tree->view.get(), Qt::Key_G);
    } else {
        m_tree->Click(m_tree->PlaceOf(3));
    }
}

void TestTreeView::Receiver_ChangesModel_PairedAndAlive_data()
{
    QTest::addColumn<QString>("signal");
    QTest::addColumn<QString>("change");
    for (const QString signal : {"ClickBegins", "NodeClick", "Click", "DblClick", "KeyDown", "KeyPress"}) {
        for (const QString change : {"remove entry", "remove siblings", "clear", "clear and fill",
                                     "collapse root", "sort", "other model"})
            QTest::addRow("%s, %s", qPrintable(signal), qPrintable(change)) << signal << change;
    }
}

void TestTreeView::Receiver_ChangesModel_PairedAndAlive()
{
    QFETCH(QString, signal);
    QFETCH(QString, change);
    TreeEntries other;
    other.Add(0, "R,0", "Other");
    bool changed = false;
    ConnectTo(signal, [&] {
        changed = true;
        if (change == "remove entry")
            m_tree->entries.Remove(3);
        else if (change == "remove siblings")
            m_tree->entries.RemoveChildren(1);
        else if (change.startsWith("clear"))
            m_tree->entries.Clear();
        else if (change == "collapse root")
            m_tree->entries.SetExpanded(1, false);
        else if (change == "sort")
            m_tree->entries.SetSorted(1, true);
        else
            m_tree->view->setModel(&other);
        if (change == "clear and fill")
            m_tree->FillSmall();
    });

    Raise(signal);

    QVERIFY(changed);
    QCOMPARE(m_tree->events.count("begins"), m_tree->events.count("ended"));
    QCOMPARE(m_tree->events.count("begins"), m_tree->events.count("Click"));
    if (!signal.startsWith("Key"))
        QVERIFY(m_tree->events.contains("Click"));
    // The view goes on working.
    QTest::qWait(1);
    QVERIFY(!m_tree->view->grab().isNull());
    QTest::keyClick(m_tree->view.get(), Qt::Key_End);
    QTest::keyClick(m_tree->view.get(), Qt::Key_Home);
    m_tree->view->setModel(&m_tree->entries);
}

void TestTreeView::Receiver_DeletesView_NothingTouched_data()
{
    QTest::addColumn<QString>("signal");
    for (const QString signal : {"ClickBegins", "NodeClick", "Click", "DblClick", "KeyDown", "KeyPress"})
        QTest::addRow("%s", qPrintable(signal)) << signal;
}

void TestTreeView::Receiver_DeletesView_NothingTouched()
{
    QFETCH(QString, signal);
    const QPointer<TreeView> view = m_tree->view.get();
    ConnectTo(signal, [&] { m_tree->view.reset(); });

    if (signal.startsWith("Key")) {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_G, Qt::NoModifier, "g");
        QCoreApplication::sendEvent(view, &event);
    } else {
        Raise(signal);
    }

    QVERIFY(!view);
    QVERIFY(m_tree->entries.Exists(3));
}

QTEST_MAIN(TestTreeView)
#include "TestTreeView.moc"
