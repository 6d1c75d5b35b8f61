#include "platform/controls/FlexGrid.h"
#include "platform/controls/MarkDelegate.h"
#include "platform/controls/TextDirection.h"
#include "platform/controls/TreeRowDelegate.h"

#include <QTest>

namespace {

/// Tells what a delegate shows.
template <typename Delegate>
class Shown : public Delegate
{
public:
    QString Text(const QModelIndex& index, Qt::LayoutDirection direction) const
    {
        QStyleOptionViewItem option;
        option.direction = direction;
        this->initStyleOption(&option, index);
        return option.text;
    }
};

} // namespace

/// Names and values in windows whose lines run from right to left.
class TestTextDirection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Isolated_LeftToRight_IsTheTextItself()
    {
        QCOMPARE(Isolated(QStringLiteral("-5"), Qt::LeftToRight), QStringLiteral("-5"));
        QVERIFY(Isolated(QString(), Qt::RightToLeft).isEmpty());
    }

    void Isolated_RightToLeft_KeepsTheText()
    {
        const QString shown = Isolated(QStringLiteral("North (1)."), Qt::RightToLeft);
        QCOMPARE(shown.mid(1, shown.size() - 2), QStringLiteral("North (1)."));
    }

    void Delegates_RightToLeft_IsolateWhatTheyShow()
    {
        const QString text = QStringLiteral("WP=BUST4,ID=");
        FlexGrid grid;
        grid.SetGridSize(2, 1);
        grid.SetTextMatrix(1, 0, text);
        const QModelIndex cell = grid.model()->index(0, 0);
        const Shown<MarkDelegate> cells;
        const Shown<TreeRowDelegate> rows;
        QCOMPARE(cells.Text(cell, Qt::LeftToRight), text);
        QCOMPARE(rows.Text(cell, Qt::LeftToRight), text);
        QCOMPARE(cells.Text(cell, Qt::RightToLeft), Isolated(text, Qt::RightToLeft));
        QCOMPARE(rows.Text(cell, Qt::RightToLeft), Isolated(text, Qt::RightToLeft));
        QCOMPARE(grid.TextMatrix(1, 0), text);
    }
};

QTEST_MAIN(TestTextDirection)
#include "TestTextDirection.moc"
