#include "platform/controls/FlexGrid.h"
#include "platform/controls/Theme.h"
#include "tests/browser/ControlOnDatabase.h"
#include "tests/support/ModalForms.h"

#include <QTabWidget>
#include <QTreeWidget>

namespace {

/// What is wrong with how a window shows its texts; empty: nothing.
QString CutText(const QWidget& window)
{
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        const auto* const label = qobject_cast<const QLabel*>(widget);
        const bool isText = label && !label->text().isEmpty() && !label->wordWrap();
        if (!widget->isVisible() || widget->objectName().isEmpty() ||
            !(isText || qobject_cast<const QAbstractButton*>(widget)))
            continue;
        const QSize needed = widget->minimumSizeHint();
        if (widget->width() < needed.width() || widget->height() < needed.height())
            return widget->objectName() + QStringLiteral(" is cut");
        const QRect place(widget->mapTo(&window, QPoint(0, 0)), widget->size());
        if (!window.rect().contains(place))
            return widget->objectName() + QStringLiteral(" leaves its window");
    }
    return {};
}

/// Opens the dialog of that name, does `work` in it and cancels it.
void WithDialog(const ControlOnDatabase& f, const QString& dialog, const std::function<void(QDialog&)>& work)
{
    const auto inNext = [&](const std::function<void(QDialog&)>& what) {
        ModalForms::InNextDialog([what](QDialog& form) {
            what(form);
            form.reject();
        });
    };
    const auto press = [&](const char* button) { f.Find<QPushButton>(button).click(); };
    if (dialog == QLatin1String("node")) {
        f.ClickNode(QStringLiteral("North"));
        inNext(work);
        press("cmdDatabaseProp");
        return;
    }
    if (dialog == QLatin1String("direct")) {
        f.Find<QTabWidget>("tabMain").setCurrentIndex(1);
        inNext(work);
        press("cmdDirectConProp");
        return;
    }
    f.ShowConnections();
    f.ClickConnection(QStringLiteral("Alpha"));
    if (dialog == QLatin1String("scan")) {
        inNext(work);
        press("cmdDbScan");
        return;
    }
    inNext([&](QDialog& connection) {
        if (dialog == QLatin1String("connection")) {
            work(connection);
            return;
        }
        auto& list = ModalForms::FindIn<QTreeWidget>(connection, "lvWPlist");
        list.setCurrentItem(list.topLevelItem(0));
        inNext(work);
        ModalForms::ClickIn(connection, "cmdProperties");
    });
    press("cmdDatabaseProp");
}

} // namespace

/// The dialogs at any size of the letters, in both directions and in all colours.
class TestDialogLooks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup()
    {
        QApplication::setFont(m_font);
        QApplication::setLayoutDirection(Qt::LeftToRight);
        ApplyTheme(Theme::System);
    }

    void Dialog_AnyFontAndDirection_NothingIsCut_data()
    {
        QTest::addColumn<QString>("dialog");
        QTest::addColumn<int>("percent");
        QTest::addColumn<bool>("rightToLeft");
        for (const char* dialog : {"connection", "waypoint", "node", "direct", "scan"}) {
            for (const int percent : {100, 150, 200, 300}) {
                for (const bool rightToLeft : {false, true})
                    QTest::addRow("%s %d %s", dialog, percent, rightToLeft ? "rtl" : "ltr")
                        << QString::fromLatin1(dialog) << percent << rightToLeft;
            }
        }
    }
    void Dialog_AnyFontAndDirection_NothingIsCut()
    {
        QFETCH(const QString, dialog);
        QFETCH(const int, percent);
        QFETCH(const bool, rightToLeft);
        QFont font = m_font;
        font.setPointSizeF(font.pointSizeF() * percent / 100);
        QApplication::setFont(font);
        QApplication::setLayoutDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
        ControlOnDatabase f;
        f.ShowRealDialogs();
        f.Start();
        bool shown = false;
        QString wrong;
        WithDialog(f, dialog, [&](QDialog& form) {
            shown = true;
            wrong = CutText(form);
        });
        QVERIFY(shown);
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
    }

    void Editors_RightToLeft_StandOverTheirCell()
    {
        QApplication::setLayoutDirection(Qt::RightToLeft);
        ControlOnDatabase f;
        f.ShowRealDialogs();
        f.Start();
        int checked = 0;
        WithDialog(f, QStringLiteral("waypoint"), [&](QDialog& form) {
            auto& grid = *form.findChild<FlexGrid*>();
            for (int row = 1; row < grid.GridRows(); ++row) {
                grid.setFocus();
                grid.SetCell(row, 1);
                QTest::keyClick(&grid, Qt::Key_F2);
                QCoreApplication::processEvents();
                const QRect cell = grid.CellRect(row, 1);
                for (QWidget* editor : grid.viewport()->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
                    if (!editor->isVisible())
                        continue;
                    ++checked;
                    QVERIFY(cell.left() <= editor->x() && editor->geometry().right() <= cell.right());
                    QCOMPARE(editor->y(), cell.y());
                }
            }
        });
        QVERIFY(checked > 0);
    }

    void Control_RightToLeft_KeepsTargetsAndAddressesInOrder()
    {
        QApplication::setLayoutDirection(Qt::RightToLeft);
        ControlOnDatabase f;
        f.Start();
        QCOMPARE(f.Control->layoutDirection(), Qt::RightToLeft);
        for (const char* box : {"txtTarget", "txtAddress", "txtHost", "txtPort", "txtPath"})
            QCOMPARE(f.Find<QLineEdit>(box).layoutDirection(), Qt::LeftToRight);
        QCOMPARE(f.Find<TreeView>("tvwNodesTree").layoutDirection(), Qt::RightToLeft);
    }

private:
    QFont m_font = QApplication::font();
};

QTEST_MAIN(TestDialogLooks)
#include "TestDialogLooks.moc"
