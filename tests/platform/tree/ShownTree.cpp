#include "ShownTree.h"

#include <QTest>

ShownTree::ShownTree() : view(std::make_unique<TreeView>())
{
    view->resize(300, 400);
    view->setModel(&entries);
    const TreeView* shown = view.get();
    QObject::connect(shown, &TreeView::ClickBegins, shown, [this] { events.append("begins"); });
    QObject::connect(shown, &TreeView::NodeClick, shown, [this](const QModelIndex& index) {
        events.append("NodeClick " + index.data().toString());
    });
    QObject::connect(shown, &TreeView::Click, shown, [this] { events.append("Click"); });
    QObject::connect(shown, &TreeView::ClickEnded, shown, [this] { events.append("ended"); });
    QObject::connect(shown, &TreeView::DblClick, shown, [this] { events.append("DblClick"); });
}

void ShownTree::FillSmall()
{
    entries.Add(0, "R,0", "Connections");
    entries.Add(1, "C,10", "Alpha");
    entries.Add(1, "C,11", "beta");
    entries.Add(1, "C,12", "Gamma");
    entries.Add(2, "N,20", "Zeta");
    entries.Add(2, "N,21", "eta");
    entries.Add(4, "N,22", "Alpha 2");
    for (const int entry : {1, 2, 4})
        entries.SetExpanded(entry, true);
}

void ShownTree::FillNodes(int count)
{
    entries.Add(0, "R,0", "Nodes");
    std::vector<QString> texts;
    for (int id = 0; id < count; ++id)
        texts.push_back(QStringLiteral("Node %1").arg(id, 5, 10, QLatin1Char('0')));
    std::vector<NewTreeEntry> nodes;
    for (int id = 0; id < count; ++id)
        nodes.push_back({id + 1, texts[size_t(id)]});
    entries.AddNodes(1, nodes);
    entries.SetSorted(1, true);
    entries.SetExpanded(1, true);
}

void ShownTree::Show()
{
    view->show();
    QVERIFY(QTest::qWaitForWindowExposed(view.get()));
    view->setFocus();
}

QPoint ShownTree::PlaceOf(TreeEntries::Index entry) const
{
    const QRect rect = view->visualRect(entries.ModelIndex(entry));
    return rect.intersected(view->viewport()->rect()).center();
}

QPoint ShownTree::PlaceOfIndicator(TreeEntries::Index entry) const
{
    return view->IndicatorRect(entries.ModelIndex(entry)).center();
}

QPoint ShownTree::EmptyPlace() const
{
    return view->viewport()->rect().bottomLeft() + QPoint(30, -5);
}

void ShownTree::Press(const QPoint& place)
{
    QTest::mousePress(view->viewport(), Qt::LeftButton, {}, place);
}

void ShownTree::Release(const QPoint& place)
{
    QTest::mouseRelease(view->viewport(), Qt::LeftButton, {}, place);
}

void ShownTree::Click(const QPoint& place)
{
    const QPointer<TreeView> alive = view.get();
    Press(place);
    if (alive)
        Release(place);
}

void ShownTree::DoubleClick(const QPoint& place)
{
    const QPointer<TreeView> alive = view.get();
    Click(place);
    if (alive)
        QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, place);
    if (alive)
        Release(place);
}

QString ShownTree::SelectedText() const
{
    return view->SelectedIndex().data().toString();
}

TreeEntries::Index ShownTree::Selected() const
{
    return TreeEntries::EntryOf(view->SelectedIndex());
}
