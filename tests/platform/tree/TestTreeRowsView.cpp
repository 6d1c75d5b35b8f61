#include "ShownTree.h"

#include <QAccessible>
#include <QApplication>
#include <QPainter>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>

/// What the view shows, where it stands when the model changes, and how little it asks for.
class TestTreeRowsView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void VisualRect_Entries_RowsAndLevels();
    void VisualRect_RightToLeft_Mirrored();
    void IndexAt_Rows_Entries();
    void Model_None_ViewIsEmpty();

    void Scroll_ModelChanges_TopEntryStays_data();
    void Scroll_ModelChanges_TopEntryStays();
    void Scroll_TopEntryRemoved_NextTakesItsPlace();
    void Scroll_LastEntriesRemoved_StaysInRange();
    void Scroll_Cleared_BackToTop();
    void Scroll_AtTheRoot_StaysThere();
    void Scroll_Wheel_MovesRows();
    void ScrollTo_Hints_PlacesEntry_data();
    void ScrollTo_Hints_PlacesEntry();
    void Scroll_WideRow_HorizontalRange();

    void Selection_ModelChanges_Survives_data();
    void Selection_ModelChanges_Survives();
    void Selection_EntryRemoved_Neighbour_data();
    void Selection_EntryRemoved_Neighbour();

    void Paint_Rows_AsksForVisibleOnly();
    void Insert_Rows_AsksForVisibleOnly();
    void Accessible_Interface_AsksForNothing();
    void Paint_Selection_Differs();
    void Paint_Palette_Followed_data();
    void Paint_Palette_Followed();
    void Paint_Icons_FromProvider();
    void Paint_LongAndOddTexts_Works_data();
    void Paint_LongAndOddTexts_Works();
    void ToolTip_ElidedText_Shown();
    void Font_Larger_RowsGrow();

private:
    int TopEntry() const { return TreeEntries::EntryOf(m_tree->view->indexAt(QPoint(5, 0))); }
    QRect RectOf(int entry) const { return m_tree->view->visualRect(m_tree->entries.ModelIndex(entry)); }

    std::unique_ptr<ShownTree> m_tree;
};

void TestTreeRowsView::init()
{
    m_tree = std::make_unique<ShownTree>();
}

void TestTreeRowsView::cleanup()
{
    m_tree.reset();
}

// Geometry ----------------------------------------------------------------------------------------------

void TestTreeRowsView::VisualRect_Entries_RowsAndLevels()
{
    m_tree->FillSmall();
    m_tree->Show();
    const int height = m_tree->view->RowHeight();
    const QList<int> order = {1, 2, 5, 6, 3, 4, 7};

    for (int row = 0; row < order.size(); ++row) {
        QCOMPARE(RectOf(order.at(row)).top(), row * height);
        QCOMPARE(RectOf(order.at(row)).height(), height);
    }
    QVERIFY(RectOf(1).left() < RectOf(2).left());
    QVERIFY(RectOf(2).left() < RectOf(5).left());
    QCOMPARE(RectOf(2).left(), RectOf(3).left());
    m_tree->entries.SetExpanded(2, false);
    QVERIFY(RectOf(5).isEmpty());
    QCOMPARE(RectOf(3).top(), 2 * height);
}

void TestTreeRowsView::VisualRect_RightToLeft_Mirrored()
{
    m_tree->FillSmall();
    m_tree->Show();
    const QRect before = RectOf(5);
    const QRect indicator = m_tree->view->IndicatorRect(m_tree->entries.ModelIndex(2));
    const int width = m_tree->view->viewport()->width();

    m_tree->view->setLayoutDirection(Qt::RightToLeft);

    QCOMPARE(RectOf(5).right(), width - 1 - before.left());
    QCOMPARE(m_tree->view->IndicatorRect(m_tree->entries.ModelIndex(2)).right(),
             width - 1 - indicator.left());
    m_tree->Click(m_tree->PlaceOfIndicator(2));
    QVERIFY(!m_tree->entries.Expanded(2));
    QVERIFY(!m_tree->view->grab().isNull());
}

void TestTreeRowsView::IndexAt_Rows_Entries()
{
    m_tree->FillSmall();
    m_tree->Show();
    for (int entry = 1; entry <= 7; ++entry)
        QCOMPARE(m_tree->view->indexAt(RectOf(entry).center()), m_tree->entries.ModelIndex(entry));
    QVERIFY(!m_tree->view->indexAt(m_tree->EmptyPlace()).isValid());
    QVERIFY(!m_tree->view->indexAt(QPoint(5, -1)).isValid());
}

void TestTreeRowsView::Model_None_ViewIsEmpty()
{
    m_tree->view->setModel(nullptr);
    m_tree->Show();

    m_tree->Click(m_tree->EmptyPlace());
    QTest::keyClick(m_tree->view.get(), Qt::Key_Down);
    QTest::keyClick(m_tree->view.get(), Qt::Key_Left);
    QTest::keyClick(m_tree->view.get(), Qt::Key_A);

    QVERIFY(!m_tree->view->SelectedIndex().isValid());
    m_tree->view->SelectIndex(QModelIndex());
    m_tree->view->scrollTo(QModelIndex());
    QCOMPARE(m_tree->events, QStringList({"begins", "Click", "ended"}));
}

// Scrolling ---------------------------------------------------------------------------------------------

void TestTreeRowsView::Scroll_ModelChanges_TopEntryStays_data()
{
    QTest::addColumn<QString>("change");
    for (const char* change : {"insert above", "insert below", "remove above", "remove below", "sort a batch",
                               "expand above", "collapse above", "rename above", "move from below"})
        QTest::newRow(change) << QString(change);
}

void TestTreeRowsView::Scroll_ModelChanges_TopEntryStays()
{
    QFETCH(QString, change);
    m_tree->FillNodes(10000);
    TreeEntries& entries = m_tree->entries;
    entries.Add(100, "W,1,1", "below an entry");
    entries.Add(101, "W,1,2", "below another");
    entries.SetExpanded(101, true);
    m_tree->Show();
    const int height = m_tree->view->RowHeight();
    m_tree->view->verticalScrollBar()->setValue(5000 * height + 3);
    const int top = TopEntry();
    const int place = RectOf(top).top();
    QCOMPARE(place, -3);

    if (change == "insert above") {
        for (int id = 20000; id < 20100; ++id)
            entries.Add(1, QStringLiteral("N,%1").arg(id), "Node 00");
    } else if (change == "insert below") {
        entries.Add(1, "N,20000", "Z");
    } else if (change == "remove above") {
        for (int entry = 10; entry < 300; ++entry)
            entries.Remove(entry);
    } else if (change == "remove below") {
        entries.Remove(9000);
    } else if (change == "sort a batch") {
        entries.SetSorted(1, false);
        const std::vector<NewTreeEntry> batch = {{20000, u"Node 00001 x"}, {20001, u"a"}, {20002, u"Node 9"}};
        entries.AddNodes(1, batch);
        entries.SetSorted(1, true);
    } else if (change == "expand above") {
        entries.SetExpanded(100, true);
    } else if (change == "collapse above") {
        entries.SetExpanded(101, false);
    } else if (change == "rename above") {
        entries.SetText(50, "zzz");
    } else {
        entries.SetText(9000, "a");
    }

    QCOMPARE(TopEntry(), top);
    QCOMPARE(RectOf(top).top(), place);
}

void TestTreeRowsView::Scroll_TopEntryRemoved_NextTakesItsPlace()
{
    m_tree->FillNodes(1000);
    m_tree->Show();
    m_tree->view->verticalScrollBar()->setValue(500 * m_tree->view->RowHeight());
    const int top = TopEntry();
    const int next = m_tree->entries.NextSibling(top);

    m_tree->entries.Remove(top);

    QCOMPARE(TopEntry(), next);
    QCOMPARE(RectOf(next).top(), 0);
}

void TestTreeRowsView::Scroll_LastEntriesRemoved_StaysInRange()
{
    m_tree->FillNodes(1000);
    m_tree->Show();
    QScrollBar* bar = m_tree->view->verticalScrollBar();
    bar->setValue(bar->maximum());

    for (int entry = 600; entry <= 1001; ++entry)
        m_tree->entries.Remove(entry);

    QVERIFY(RectOf(599).top() >= 0);
    QCOMPARE(bar->value(), bar->maximum());
    m_tree->entries.RemoveChildren(1);
    QCOMPARE(RectOf(1).top(), 0);
    QCOMPARE(bar->maximum(), 0);
}

void TestTreeRowsView::Scroll_Cleared_BackToTop()
{
    m_tree->FillNodes(1000);
    m_tree->Show();
    m_tree->view->verticalScrollBar()->setValue(3000);

    m_tree->entries.Clear();
    m_tree->FillNodes(2000);

    QCOMPARE(TopEntry(), 1);
}

void TestTreeRowsView::Scroll_AtTheRoot_StaysThere()
{
    m_tree->FillNodes(1000);
    m_tree->Show();

    m_tree->entries.Add(1, "N,20000", "A");
    m_tree->entries.Remove(5);

    QCOMPARE(TopEntry(), 1);
}

void TestTreeRowsView::Scroll_Wheel_MovesRows()
{
    m_tree->FillNodes(1000);
    m_tree->Show();
    const QPointF place(50, 50);
    QWheelEvent event(place, m_tree->view->viewport()->mapToGlobal(place), QPoint(), QPoint(0, -120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);

    QCoreApplication::sendEvent(m_tree->view->viewport(), &event);

    QCOMPARE(m_tree->view->verticalScrollBar()->value(),
             QApplication::wheelScrollLines() * m_tree->view->RowHeight());
}

void TestTreeRowsView::ScrollTo_Hints_PlacesEntry_data()
{
    QTest::addColumn<int>("hint");
    QTest::addColumn<int>("entry");
    QTest::newRow("visible, above") << int(QAbstractItemView::EnsureVisible) << 100;
    QTest::newRow("visible, below") << int(QAbstractItemView::EnsureVisible) << 900;
    QTest::newRow("top") << int(QAbstractItemView::PositionAtTop) << 300;
    QTest::newRow("bottom") << int(QAbstractItemView::PositionAtBottom) << 300;
    QTest::newRow("center") << int(QAbstractItemView::PositionAtCenter) << 300;
}

void TestTreeRowsView::ScrollTo_Hints_PlacesEntry()
{
    QFETCH(int, hint);
    QFETCH(int, entry);
    m_tree->FillNodes(1000);
    m_tree->Show();
    const int height = m_tree->view->RowHeight();
    m_tree->view->verticalScrollBar()->setValue(500 * height);

    m_tree->view->scrollTo(m_tree->entries.ModelIndex(entry), QAbstractItemView::ScrollHint(hint));

    const int room = m_tree->view->viewport()->height() - height;
    QVERIFY(m_tree->view->viewport()->rect().contains(RectOf(entry)));
    if (hint == QAbstractItemView::PositionAtTop || entry == 100)
        QCOMPARE(RectOf(entry).top(), 0);
    else if (hint == QAbstractItemView::PositionAtCenter)
        QVERIFY(qAbs(RectOf(entry).top() - room / 2) <= 1);
    else
        QCOMPARE(RectOf(entry).top(), room);
}

void TestTreeRowsView::Scroll_WideRow_HorizontalRange()
{
    m_tree->FillNodes(1000);
    m_tree->entries.SetText(5, "Node 00003 " + QString(100, u'W'));
    m_tree->entries.SetText(1000, "Node 00998 " + QString(200, u'W'));
    m_tree->Show();
    QScrollBar* bar = m_tree->view->horizontalScrollBar();
    QTRY_VERIFY(bar->maximum() > 0);
    const int before = bar->maximum();
    const int left = RectOf(5).left();

    bar->setValue(40);

    QCOMPARE(RectOf(5).left(), left - 40);
    // A wider row counts from when it was painted.
    m_tree->view->scrollTo(m_tree->entries.ModelIndex(1000), QAbstractItemView::PositionAtCenter);
    QTRY_VERIFY(bar->maximum() > before);
}

// Selection ---------------------------------------------------------------------------------------------

void TestTreeRowsView::Selection_ModelChanges_Survives_data()
{
    QTest::addColumn<QString>("change");
    for (const char* change : {"insert before", "remove before", "rename it", "change its key", "sort",
                               "collapse above", "batch behind"})
        QTest::newRow(change) << QString(change);
}

void TestTreeRowsView::Selection_ModelChanges_Survives()
{
    QFETCH(QString, change);
    m_tree->FillSmall();
    m_tree->Show();
    TreeEntries& entries = m_tree->entries;
    m_tree->view->SelectIndex(entries.ModelIndex(6));

    if (change == "insert before") {
        entries.SetSorted(2, true);
        entries.Add(2, "N,50", "A");
    } else if (change == "remove before") {
        entries.Remove(5);
    } else if (change == "rename it") {
        entries.SetSorted(2, true);
        entries.SetText(6, "zzz");
    } else if (change == "change its key") {
        entries.SetKey(6, "N,77");
    } else if (change == "sort") {
        entries.SetSorted(2, true);
        entries.SetSorted(1, true);
    } else if (change == "collapse above") {
        entries.SetExpanded(1, false);
    } else {
        const std::vector<NewTreeEntry> batch = {{60, u"b"}, {61, u"a"}};
        entries.AddNodes(2, batch);
    }

    QCOMPARE(m_tree->Selected(), 6);
    QCOMPARE(m_tree->view->selectionModel()->selectedIndexes(), QModelIndexList({entries.ModelIndex(6)}));
    QCOMPARE(m_tree->events, QStringList());
}

void TestTreeRowsView::Selection_EntryRemoved_Neighbour_data()
{
    QTest::addColumn<int>("selected");
    QTest::addColumn<int>("removed");
    QTest::addColumn<int>("expected");
    QTest::newRow("next") << 5 << 5 << 6;
    QTest::newRow("previous of the last") << 6 << 6 << 5;
    QTest::newRow("parent of the only one") << 7 << 7 << 4;
    QTest::newRow("parent removed, next of the parent") << 5 << 2 << 3;
    QTest::newRow("everything") << 5 << 1 << 0;
}

void TestTreeRowsView::Selection_EntryRemoved_Neighbour()
{
    QFETCH(int, selected);
    QFETCH(int, removed);
    QFETCH(int, expected);
    m_tree->FillSmall();
    m_tree->Show();
    m_tree->view->SelectIndex(m_tree->entries.ModelIndex(selected));

    m_tree->entries.Remove(removed);

    QCOMPARE(m_tree->Selected(), expected);
    QCOMPARE(m_tree->events, QStringList());
}

// Painting ----------------------------------------------------------------------------------------------

void TestTreeRowsView::Paint_Rows_AsksForVisibleOnly()
{
    m_tree->FillNodes(100000);
    m_tree->Show();
    const int rows = m_tree->view->viewport()->height() / m_tree->view->RowHeight() + 2;
    m_tree->view->verticalScrollBar()->setValue(m_tree->view->verticalScrollBar()->maximum() / 2);
    m_tree->entries.rowsAsked = 0;
    m_tree->entries.dataAsked = 0;

    m_tree->view->viewport()->repaint();

    QVERIFY(m_tree->entries.rowsAsked >= rows - 2);
    QVERIFY(m_tree->entries.rowsAsked <= 3 * rows);
    QVERIFY(m_tree->entries.dataAsked <= 40 * rows);
}

void TestTreeRowsView::Insert_Rows_AsksForVisibleOnly()
{
    m_tree->FillNodes(100000);
    m_tree->Show();
    QTest::qWait(1);
    m_tree->entries.rowsAsked = 0;
    m_tree->entries.dataAsked = 0;

    for (int id = 200000; id < 200010; ++id)
        m_tree->entries.Add(1, QStringLiteral("N,%1").arg(id), "Node 00");
    for (int entry = 50000; entry < 50010; ++entry)
        m_tree->entries.Remove(entry);
    m_tree->entries.SetExpanded(1, false);
    m_tree->entries.SetExpanded(1, true);
    m_tree->view->SelectIndex(m_tree->entries.ModelIndex(90000));
    QTest::qWait(1);

    QVERIFY(m_tree->entries.rowsAsked < 1000);
    QVERIFY(m_tree->entries.dataAsked < 10000);
}

void TestTreeRowsView::Accessible_Interface_AsksForNothing()
{
    m_tree->FillNodes(100000);
    m_tree->view->setAccessibleName("Nodes");
    m_tree->Show();
    m_tree->entries.rowsAsked = 0;
    m_tree->entries.dataAsked = 0;

    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(m_tree->view.get());

    QVERIFY(accessible);
    QCOMPARE(accessible->text(QAccessible::Name), "Nodes");
    QVERIFY(accessible->childCount() < 100);
    QVERIFY(m_tree->entries.rowsAsked < 100);
    QVERIFY(m_tree->entries.dataAsked < 100);
}

void TestTreeRowsView::Paint_Selection_Differs()
{
    m_tree->FillSmall();
    m_tree->Show();
    const QRect rect = RectOf(3);
    const QImage before = m_tree->view->viewport()->grab(rect).toImage();

    m_tree->view->SelectIndex(m_tree->entries.ModelIndex(3));

    const QImage after = m_tree->view->viewport()->grab(rect).toImage();
    QVERIFY(before != after);
    QVERIFY(m_tree->view->viewport()->grab(RectOf(4)).toImage() != after);
}

void TestTreeRowsView::Paint_Palette_Followed_data()
{
    QTest::addColumn<QColor>("base");
    QTest::addColumn<QColor>("text");
    QTest::newRow("light") << QColor(Qt::white) << QColor(Qt::black);
    QTest::newRow("dark") << QColor(30, 30, 30) << QColor(Qt::white);
}

void TestTreeRowsView::Paint_Palette_Followed()
{
    QFETCH(QColor, base);
    QFETCH(QColor, text);
    m_tree->FillSmall();
    QPalette palette = m_tree->view->palette();
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::Text, text);
    m_tree->view->setPalette(palette);
    m_tree->Show();

    const QImage image = m_tree->view->viewport()->grab(RectOf(3)).toImage();

    QCOMPARE(image.pixelColor(image.width() - 2, 1), base);
    bool textFound = false;
    for (int x = 0; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y) {
            const int distance = qAbs(image.pixelColor(x, y).lightness() - text.lightness());
            textFound = textFound || distance < 60;
        }
    }
    QVERIFY(textFound);
}

void TestTreeRowsView::Paint_Icons_FromProvider()
{
    m_tree->FillNodes(1000);
    QPixmap red(16, 16);
    red.fill(Qt::red);
    QSet<int> asked;
    m_tree->view->SetIconProvider([&](const QModelIndex& index) {
        asked.insert(TreeEntries::EntryOf(index));
        return index.data(TreeEntries::KindRole).toChar() == u'N' ? QIcon(red) : QIcon();
    });
    m_tree->Show();

    const QImage node = m_tree->view->viewport()->grab(RectOf(5)).toImage();
    const QImage root = m_tree->view->viewport()->grab(RectOf(1)).toImage();

    const auto reds = [](const QImage& image) {
        int count = 0;
        for (int x = 0; x < image.width(); ++x)
            count += int(image.pixelColor(x, image.height() / 2) == QColor(Qt::red));
        return count;
    };
    QVERIFY(reds(node) > 8);
    QCOMPARE(reds(root), 0);
    QVERIFY(asked.contains(5));
    QVERIFY(!asked.contains(900));
    QVERIFY(m_tree->view->RowHeight() >= 16);
}

void TestTreeRowsView::Paint_LongAndOddTexts_Works_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("10,000 characters") << QString(10000, u'W');
    QTest::newRow("10,000 emoji") << QString::fromUtf8("\U0001F600").repeated(5000);
    QTest::newRow("combining") << QString::fromUtf8("e\u0301").repeated(50);
    QTest::newRow("empty") << QString();
    QTest::newRow("right to left") << QString::fromUtf8("\u05e9\u05dc\u05d5\u05dd");
    QTest::newRow("line breaks") << QStringLiteral("one\ntwo\tthree");
}

void TestTreeRowsView::Paint_LongAndOddTexts_Works()
{
    QFETCH(QString, text);
    m_tree->FillSmall();
    m_tree->entries.SetText(3, text);
    m_tree->Show();
    const int height = m_tree->view->RowHeight();

    QVERIFY(!m_tree->view->grab().isNull());
    QTest::qWait(1);

    QCOMPARE(RectOf(3).height(), height);
    QVERIFY(m_tree->view->horizontalScrollBar()->maximum() <= 8000);
    m_tree->Click(m_tree->PlaceOf(3));
    QCOMPARE(m_tree->SelectedText(), text);
}

void TestTreeRowsView::ToolTip_ElidedText_Shown()
{
    m_tree->FillSmall();
    const QString text = QStringLiteral("<b>wide</b> ") + QString(100, u'W');
    m_tree->entries.SetText(3, text);
    m_tree->Show();
    const auto ask = [this](int entry) {
        const QPoint place = m_tree->PlaceOf(entry);
        QHelpEvent event(QEvent::ToolTip, place, m_tree->view->viewport()->mapToGlobal(place));
        QCoreApplication::sendEvent(m_tree->view->viewport(), &event);
    };

    ask(3);
    QCOMPARE(QToolTip::text(), QStringLiteral("<span>%1</span>").arg(text.toHtmlEscaped()));
    QToolTip::hideText();
}

void TestTreeRowsView::Font_Larger_RowsGrow()
{
    m_tree->FillSmall();
    m_tree->Show();
    const int height = m_tree->view->RowHeight();
    QFont font = m_tree->view->font();
    font.setPointSize(font.pointSize() * 3);

    m_tree->view->setFont(font);

    QVERIFY(RectOf(2).top() > height);
    QCOMPARE(RectOf(2).top(), m_tree->view->RowHeight());
}

QTEST_MAIN(TestTreeRowsView)
#include "TestTreeRowsView.moc"
