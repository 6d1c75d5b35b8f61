#include "tests/dialogs/WpPropFixture.h"

#include <QHeaderView>

class TestFrmWpProp : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Load_Controls_AreAsTheyShould()
    {
        WpPropFixture fixture;
        fixture.Show();
        QCOMPARE(fixture.Form->windowTitle(), "Properties");
        QCOMPARE(fixture.Find<QPushButton>("CmdOk").text(), "&OK");
        QCOMPARE(fixture.Find<QPushButton>("cmdCancel").text(), "&Cancel");
        QCOMPARE(fixture.Find<QPushButton>("CmdHelp").text(), "&Help");
        QVERIFY(fixture.Form->isModal());
        QVERIFY(fixture.Find<QPushButton>("CmdOk").isDefault());
        for (const QWidget* control : fixture.Form->findChildren<QWidget*>()) {
            if (control->focusPolicy() != Qt::NoFocus && control->parentWidget() == fixture.Form.get())
                QVERIFY2(!control->accessibleName().isEmpty(), qPrintable(control->objectName()));
        }
    }

    void Load_Rows_ShowNamesFontsAndValues()
    {
        WpPropFixture fixture;
        fixture.SetValue(1, WpPropFixture::Phone, QStringLiteral("123"));
        fixture.SetValue(1, WpPropFixture::Password, QStringLiteral("secret"));
        fixture.Show();
        const FlexGrid& grid = fixture.Grid();
        QCOMPARE(grid.GridRows(), 6);
        QCOMPARE(grid.TextMatrix(0, 0), "Parameter");
        QCOMPARE(grid.TextMatrix(0, 1), "Value");
        QStringList cells;
        for (int row = 1; row <= 5; ++row)
            cells << grid.TextMatrix(row, 0) + u'=' + grid.TextMatrix(row, 1);
        QCOMPARE(cells, QStringList({"PHONE NUMBER=123", "USER NAME=", "PASSWORD=******", "TIME OUT=2000",
                                     "RETRY COUNT=2"}));
        QVERIFY(grid.item(0, 0)->font().bold());
        QVERIFY(!grid.item(0, 0)->font().italic());
        QVERIFY(!grid.item(1, 0)->font().bold());
        QCOMPARE(grid.CellMark(1, 0), "*");
        QCOMPARE(grid.CellMark(2, 0), QString());
        QVERIFY(grid.item(0, 1)->textAlignment() & Qt::AlignLeft);
        QCOMPARE(GridEdit().GridLastRow, 5);
        QCOMPARE(GridEdit().GridPasswordRow, int(WpPropFixture::Password));
        QCOMPARE(GridEdit().GridPasswordValue, "secret");
        QCOMPARE(GridEdit().GridWpName, "MODEM");
    }

    void Load_GroupMembers_AreBoldAndItalic()
    {
        WpPropFixture fixture(QStringLiteral("T4 Bus over TCP/IP"));
        fixture.Show();
        QVERIFY(fixture.Grid().item(0, 0)->font().bold());
        QVERIFY(fixture.Grid().item(0, 0)->font().italic());
        QCOMPARE(fixture.Grid().CellMark(1, 0), "**");
        QCOMPARE(fixture.Grid().CellMark(3, 0), "*");
    }

    void Load_Heading_EndsInParameters_data()
    {
        QTest::addColumn<QString>("longName");
        QTest::addColumn<QString>("heading");
        QTest::newRow("plain") << "Modem"
                               << "Modem Parameters";
        QTest::newRow("with the word") << "FE Parameters"
                                       << "FE Parameters";
        QTest::newRow("part of a word, any case") << "PARAMount"
                                                  << "PARAMount";
        QTest::newRow("ampersand") << "R&D"
                                   << "R&&D Parameters";
    }
    void Load_Heading_EndsInParameters()
    {
        QFETCH(const QString, longName);
        QFETCH(const QString, heading);
        WpPropFixture fixture;
        fixture.Con.SetConWpLongName(1, longName);
        fixture.Show();
        QCOMPARE(fixture.Find<QLabel>("lblParameterHeader").text(), heading);
    }

    void Load_ReducedCount_LeavesOutTheLastRows_data()
    {
        QTest::addColumn<int>("reduce");
        QTest::addColumn<int>("rows");
        QTest::newRow("none") << 0 << 5;
        QTest::newRow("two") << 2 << 3;
        QTest::newRow("all") << 5 << 0;
        QTest::newRow("more than there are") << 7 << 0;
    }
    void Load_ReducedCount_LeavesOutTheLastRows()
    {
        QFETCH(const int, reduce);
        QFETCH(const int, rows);
        WpPropFixture fixture;
        fixture.Con.ReduceParameterCount = reduce;
        fixture.Show();
        QCOMPARE(fixture.Grid().GridRows(), rows + 1);
        QCOMPARE(GridEdit().GridLastRow, rows);
    }

    void Load_Widths_GiveTheRestToTheValues()
    {
        WpPropFixture fixture;
        fixture.Show();
        FlexGrid& grid = fixture.Grid();
        QVERIFY(grid.columnWidth(0) >= 133);
        QTRY_COMPARE(grid.columnWidth(0) + grid.columnWidth(1), grid.viewport()->width());
        fixture.Form->resize(fixture.Form->width() + 200, fixture.Form->height());
        QTRY_COMPARE(grid.columnWidth(0) + grid.columnWidth(1), grid.viewport()->width());
        QVERIFY(grid.viewport()->height() >= 8 * grid.rowHeight(0));
    }

    void Activate_RowToStartOn_IsOpened_data()
    {
        QTest::addColumn<int>("selected");
        QTest::addColumn<int>("row");
        QTest::newRow("none") << 0 << 1;
        QTest::newRow("the third") << 3 << 3;
    }
    void Activate_RowToStartOn_IsOpened()
    {
        QFETCH(const int, selected);
        QFETCH(const int, row);
        WpPropFixture fixture;
        Dialogs().SelectedWpIndex = selected;
        fixture.Show();
        QCOMPARE(fixture.Grid().Row(), row);
        QCOMPARE(fixture.Grid().Col(), 1);
        QVERIFY(fixture.Text().hasFocus());
        QCOMPARE(fixture.Grid().rowHeight(0), fixture.Combo().sizeHint().height());
        QTRY_COMPARE(fixture.Text().geometry(), fixture.Grid().CellRect(row, 1));
    }

    void Activate_RowThatIsNotThere_OpensNothing()
    {
        WpPropFixture fixture;
        Dialogs().SelectedWpIndex = 9;
        fixture.Show();
        QVERIFY(fixture.Text().isHidden());
    }

    void Activate_Again_KeepsTheEdit()
    {
        WpPropFixture fixture;
        fixture.Show();
        fixture.Type(WpPropFixture::User, QStringLiteral("me"));
        fixture.Form->hide();
        fixture.Form->show();
        QCOMPARE(fixture.Grid().Row(), int(WpPropFixture::User));
    }

    void Load_NoWaypointSelected_OpensEmptyAndOkCloses()
    {
        for (const int waypoint : {0, -1, 11}) {
            WpPropFixture fixture;
            fixture.Con.SelectedWpIndx = waypoint;
            fixture.Show();
            QCOMPARE(fixture.Grid().GridRows(), 1);
            fixture.Press("CmdOk");
            QVERIFY(!fixture.Form->isVisible());
        }
    }

    void Help_ButtonOrF1_ShowsItsTopic()
    {
        WpPropFixture fixture;
        fixture.Show();
        fixture.Press("CmdHelp");
        QTest::keyClick(fixture.Form.get(), Qt::Key_F1);
        const QString topic = QStringLiteral("Browser4Properties00000007.htm#acf22e1c");
        QCOMPARE(fixture.Topics, QStringList({topic, topic}));
        QVERIFY(fixture.Form->isVisible());
    }

    void Close_Always_EndsTheServiceForItsGrid()
    {
        WpPropFixture fixture;
        fixture.SetMandatory();
        fixture.Show();
        fixture.Form.reset();
        QVERIFY(!GridEdit().GridControl);
        QVERIFY(!GridEdit().GridWpData);
        QCOMPARE(GridEdit().GridPasswordValue, QString());
    }
};

QTEST_MAIN(TestFrmWpProp)
#include "TestFrmWpProp.moc"
