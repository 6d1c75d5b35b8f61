#include "browser/ConnectionNames.h"
#include "tests/browser/BrowserTestSupport.h"

#include <QComboBox>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTest>

namespace {

/// Not a part that a Qt control is made of.
bool IsOurs(const QWidget& widget)
{
    const QString name = widget.objectName();
    return !name.isEmpty() && !name.startsWith(QLatin1String("qt_")) &&
           !name.startsWith(QLatin1String("Scroll"));
}

/// Controls on one page that the operator sees and that hold no others.
QList<QWidget*> VisibleControls(const QWidget& page)
{
    QList<QWidget*> controls;
    for (QWidget* widget : page.findChildren<QWidget*>()) {
        const bool isControl = qobject_cast<QAbstractButton*>(widget) || qobject_cast<QLineEdit*>(widget) ||
                               qobject_cast<QLabel*>(widget) || qobject_cast<QComboBox*>(widget) ||
                               qobject_cast<TreeView*>(widget);
        if (isControl && widget->isVisible() && IsOurs(*widget))
            controls << widget;
    }
    return controls;
}

QRect OnPage(const QWidget& widget, const QWidget& page)
{
    return {widget.mapTo(&page, QPoint(0, 0)), widget.size()};
}

} // namespace

class TestBrowserLayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QApplication::setFont(m_font); }

    void Pages_AnySizeAndFont_NothingOverlapsOrIsCut_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<int>("points");
        for (const QSize size : {QSize(420, 360), QSize(640, 480), QSize(1400, 1000)}) {
            for (const int points : {7, 9, 12, 18, 28})
                QTest::addRow("%dx%d, %d points", size.width(), size.height(), points) << size << points;
        }
    }
    void Pages_AnySizeAndFont_NothingOverlapsOrIsCut()
    {
        QFETCH(const QSize, size);
        QFETCH(const int, points);
        QFont font = m_font;
        font.setPointSize(points);
        QApplication::setFont(font);
        BrowserFixture f;
        f.StartOnDatabasePage();
        f.Control->SetManageVisible(true);
        f.ShowConnections();
        f.Control->resize(size.expandedTo(f.Control->minimumSizeHint()));
        for (const char* name : {"pagDatabase", "pagDirect", "pagDirect/1", "pagDirect/2"}) {
            const QByteArrayList parts = QByteArray(name).split('/');
            QWidget& page = f.Find<QWidget>(parts[0].constData());
            f.Find<QTabWidget>("tabMain").setCurrentWidget(&page);
            f.Find<QTabWidget>("tabNode").setCurrentIndex(parts.value(1).toInt());
            QCoreApplication::processEvents();
            const QList<QWidget*> controls = VisibleControls(page);
            QVERIFY(controls.size() > 10);
            for (qsizetype i = 0; i < controls.size(); ++i) {
                const QRect place = OnPage(*controls[i], page);
                QVERIFY2(page.rect().contains(place), qPrintable(controls[i]->objectName()));
                for (qsizetype k = i + 1; k < controls.size(); ++k)
                    QVERIFY2(
                        !place.intersects(OnPage(*controls[k], page)),
                        qPrintable(controls[i]->objectName() + QLatin1Char('/') + controls[k]->objectName()));
                if (qobject_cast<QPushButton*>(controls[i]))
                    QVERIFY2(controls[i]->width() >= controls[i]->minimumSizeHint().width(),
                             qPrintable(controls[i]->objectName()));
            }
        }
    }

    void Commands_AnySize_HaveOneWidth()
    {
        BrowserFixture f;
        f.StartOnDatabasePage();
        f.Control->SetManageVisible(true);
        f.Control->resize(700, 500);
        QCoreApplication::processEvents();
        const int width = f.Find<QPushButton>("cmdDatabaseAdd").width();
        for (const char* name : {"cmdDatabaseProp", "cmdDatabaseRemove", "cmdDbScan", "cmdDatabaseManage",
                                 "cmdRefresh", "cmdLoadMore", "cmdDatabaseHelp"})
            QCOMPARE(f.Find<QPushButton>(name).width(), width);
    }

    void Size_LongNamesInTheCaption_DoNotWidenTheControl()
    {
        BrowserFixture f;
        f.StartOnDatabasePage();
        const QSize before = f.Control->minimumSizeHint();
        f.Find<CaptionFrame>("fraConData").SetCaption(QString(10000, QLatin1Char('W')));
        f.Find<QLineEdit>("txtTarget").setText(QString(100000, QLatin1Char('W')));
        QCOMPARE(f.Control->minimumSizeHint(), before);
        QString target;
        f.Component.Answer(QStringLiteral("CheckTargetSyntax"),
                           {QStringLiteral("as typed"), QStringLiteral("OK")});
        QVERIFY(f.Control->GetTarget(target));
        QCOMPARE(f.Find<QLineEdit>("txtTarget").text().size(), 100000);
    }

    void Controls_ThatTakeTheFocus_HaveATellingName()
    {
        BrowserFixture f;
        f.Start();
        for (const QWidget* widget : f.Control->findChildren<QWidget*>()) {
            if (!(widget->focusPolicy() & Qt::TabFocus) || !IsOurs(*widget))
                continue;
            const auto* button = qobject_cast<const QAbstractButton*>(widget);
            const bool named = !widget->accessibleName().isEmpty() || (button && !button->text().isEmpty()) ||
                               qobject_cast<const QTabBar*>(widget);
            QVERIFY2(named, qPrintable(widget->objectName()));
        }
    }

    // Names of the connections -----------------------------------------------------------------------------

    void LoadConNames_EmptyTree_FillsBothQuietly()
    {
        BrowserFixture f;
        f.Component.Store.AddConnection(QStringLiteral("Beta"), QStringLiteral("WP=BUST4,ID=2"));
        f.Component.Store.AddConnection(QStringLiteral("Alpha"), QStringLiteral("WP=BUST4,ID=1"));
        f.StartOnDatabasePage();
        QComboBox combo;
        combo.addItem(QStringLiteral("old"));
        const QSignalSpy changes(&combo, &QComboBox::currentIndexChanged);
        QVERIFY(LoadConNames(combo, &f.ConEntries()));
        QCOMPARE(combo.count(), 2);
        QCOMPARE(combo.itemText(0), QStringLiteral("Beta"));
        QCOMPARE(f.ConEntries().ChildCount(1), 2);
        QCOMPARE(changes.count(), 0);

        f.Component.Store.AddConnection(QStringLiteral("Third"), QStringLiteral("WP=BUST4,ID=3"));
        QVERIFY(LoadConNames(combo, &f.ConEntries()));
        QVERIFY(LoadConNames(combo, nullptr));
        QCOMPARE(combo.count(), 3);
        QCOMPARE(f.ConEntries().ChildCount(1), 2);
    }

    void LoadConNames_QueryFails_LeavesTheList()
    {
        BrowserFixture f;
        f.StartOnDatabasePage();
        f.Component.Fail(QStringLiteral("QueryParentsWithID"));
        QComboBox combo;
        combo.addItem(QStringLiteral("old"));
        QVERIFY(!LoadConNames(combo, &f.ConEntries()));
        QCOMPARE(combo.count(), 1);
        QCOMPARE(f.ConEntries().Count(), 0);
    }

private:
    QFont m_font = QApplication::font();
};

QTEST_MAIN(TestBrowserLayout)
#include "TestBrowserLayout.moc"
