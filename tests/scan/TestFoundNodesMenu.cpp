#include "platform/controls/DisabledReason.h"
#include "tests/scan/ScanFixture.h"
#include "tests/support/MenuOperator.h"

#include <QClipboard>

namespace {

/// Found nodes 17 and 20 in the dialog of connection Alpha.
class MenuFixture : public ScanFormFixture
{
public:
    MenuFixture()
    {
        ShowScan();
        Grid().StoreFoundNode(17, QStringLiteral("X1"), QStringLiteral("North"));
        Grid().StoreFoundNode(20, QStringLiteral("X2"), QStringLiteral("South"));
    }
    ~MenuFixture() { MenuOperator::Close(); }
    MenuFixture(const MenuFixture&) = delete;
    MenuFixture& operator=(const MenuFixture&) = delete;

    void RightClick(int row) const
    {
        MenuOperator::RightClick(*Grid().viewport(), Grid().CellRect(row, 1).center());
    }
    QString Copy(const char* entry) const
    {
        RightClick(2);
        MenuOperator::Choose(QString::fromLatin1(entry));
        return QGuiApplication::clipboard()->text();
    }
    [[nodiscard]] QString Reason(const char* button) const
    {
        return Button(button).toolTip().section(QLatin1Char('\n'), 1);
    }
};

} // namespace

/// The context menu of the found nodes, and why the commands of the scan dialog are disabled.
class TestFoundNodesMenu : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void RightClick_Row_SelectsItFirst()
    {
        const MenuFixture f;
        f.RightClick(2);
        QCOMPARE(f.Grid().Row(), 2);
        QCOMPARE(MenuOperator::Entries().join(QLatin1Char(' ')),
                 QStringLiteral("Select Save... Save All... | Copy Address Copy Identification Copy Target | "
                                "Start | Help"));
    }

    void RightClick_BelowTheFoundNodes_SelectsTheNearest()
    {
        const MenuFixture f;
        f.RightClick(10);
        QCOMPARE(f.Grid().Row(), 2);
        QVERIFY(MenuOperator::Opened());
    }

    void RightClick_NothingFound_OffersTheStartOnly()
    {
        ScanFormFixture f;
        f.ShowScan();
        MenuOperator::RightClick(*f.Grid().viewport(), f.Grid().CellRect(1, 0).center());
        QCOMPARE(MenuOperator::Entries().join(QLatin1Char(' ')),
                 QStringLiteral("-Select -Save... -Save All... | -Copy Address -Copy Identification "
                                "-Copy Target | Start | Help"));
        MenuOperator::Close();
    }

    void ShiftF10_RowSelected_OpensTheMenu()
    {
        const MenuFixture f;
        f.ClickRow(2);
        QTest::keyClick(&f.Grid(), Qt::Key_F10, Qt::ShiftModifier);
        QVERIFY(MenuOperator::Opened());
        QCOMPARE(f.Grid().Row(), 2);
    }

    void MenuKey_RowSelected_OpensTheMenu()
    {
        const MenuFixture f;
        f.ClickRow(1);
        MenuOperator::MenuKey(f.Grid());
        QVERIFY(MenuOperator::Opened());
        QCOMPARE(f.Grid().Row(), 1);
    }

    void Copy_FoundNode_GivesItsTexts()
    {
        const MenuFixture f;
        QCOMPARE(f.Copy("Copy Address"), QStringLiteral("20"));
        QCOMPARE(f.Copy("Copy Identification"), QStringLiteral("South"));
        const QString target = f.Copy("Copy Target");
        QVERIFY(target.startsWith(QLatin1String("WP=BUST4")));
        QVERIFY(target.endsWith(QLatin1String(",WP=NET4,ADDR=20")));
    }

    void CtrlC_RowSelected_CopiesTheAddress()
    {
        const MenuFixture f;
        f.ClickRow(1);
        QTest::keyClick(&f.Grid(), Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("17"));
    }

    void Select_Chosen_TakesTheNode()
    {
        MenuFixture f;
        f.RightClick(2);
        MenuOperator::Choose(QStringLiteral("Select"));
        QVERIFY(ScanFormFixture::Direct().SelectPressed);
        QCOMPARE(ScanFormFixture::Direct().NodeAddress, QStringLiteral("20"));
    }

    // Reasons ----------------------------------------------------------------------------------------------

    void Reasons_NothingFound_TellIt()
    {
        ScanFormFixture f;
        f.ShowScan();
        for (const char* button : {"cmdSelect", "cmdSave", "cmdSaveAll"})
            QVERIFY2(f.Button(button).toolTip().endsWith(ReasonText(DisabledReason::NothingFound)), button);
    }

    void Reasons_FoundAndSelected_AreGone()
    {
        const MenuFixture f;
        f.ClickRow(1);
        for (const char* button : {"cmdSelect", "cmdSave", "cmdSaveAll"})
            QVERIFY2(f.Reason(button).isEmpty(), button);
    }

    void Reasons_NoEditRight_TellIt()
    {
        ScanFormFixture f;
        Database().EditRight = false;
        f.ShowScan();
        f.Grid().StoreFoundNode(17, QStringLiteral("X1"), QStringLiteral("North"));
        f.ClickRow(1);
        for (const char* button : {"cmdSelect", "cmdSave", "cmdSaveAll"})
            QVERIFY2(f.Button(button).toolTip().endsWith(ReasonText(DisabledReason::NoEditRight)), button);
    }

    void Reasons_Scanning_TellToStopIt()
    {
        ScanFixture f;
        f.ShowScan();
        f.Start(1, 3);
        const QString reason = ReasonText(DisabledReason::ScanRuns);
        for (const char* control :
             {"cmdSelect", "cmdSave", "cmdSaveAll", "cmdCancel", "txtBus", "cmdScanBus"})
            QVERIFY2(f.Find<QWidget>(control).toolTip().endsWith(reason), control);
        f.WalkToTheEnd();
        for (const char* control : {"cmdCancel", "txtBus", "cmdScanBus"})
            QVERIFY2(!f.Find<QWidget>(control).toolTip().contains(reason), control);
    }
};

QTEST_MAIN(TestFoundNodesMenu)
#include "TestFoundNodesMenu.moc"
