#include "dialogs/ConNameBox.h"
#include "tests/browser/ScanSavingFixture.h"

#include <QComboBox>

/// The Direct page behind a scan that has saved its connection with what it found.
class TestCommandScanSaves : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Save_AppliedUnderItsStoredName_IsTheStoredConnection_data();
    void Save_AppliedUnderItsStoredName_IsTheStoredConnection();
    void Save_AppliedUnderItsStoredName_Declined_StaysApplied();
    void Save_ConnectionRemovedElsewhere_IsStoredAndUnchanged();
    void Save_NewConnection_IsTheStoredOne();
};

namespace {

/// Changes the bus in the dialog of the connection and applies it, under another name where one is given.
void Apply(const ScanSavingFixture& f, const QString& name = QString())
{
    f.InNextDialog([name](QDialog& dialog) {
        QVERIFY(Model().DirectObject->SetWpParamByName(QStringLiteral("BUS NUMBER"), QStringLiteral("7")));
        if (!name.isEmpty())
            ModalForms::FindIn<ConNameBox>(dialog, "txtConName").setText(name);
        ModalForms::FindIn<QWidget>(dialog, "cmdApply").setEnabled(true);
        ModalForms::ClickIn(dialog, "cmdApply");
    });
    f.Find<QPushButton>("cmdDirectConProp").click();
}

/// Saves "West" of the found nodes and its connection first, and closes the scan with a button.
void SaveWest(const ScanSavingFixture& f, const char* close)
{
    f.InScan(1, [close](QDialog& scan) {
        ModalForms::InNextDialog([](QDialog& connection) {
            ModalForms::InNextDialog([](QDialog& node) { ModalForms::ClickIn(node, "cmdSave"); });
            ModalForms::ClickIn(connection, "cmdSave");
        });
        ModalForms::ClickIn(scan, "cmdSave");
        ModalForms::ClickIn(scan, close);
    });
}

/// Of "apply" and "save" what the dialog of the connection offers.
QString Offered(const ScanSavingFixture& f)
{
    QStringList offered;
    f.InNextDialog([&offered](QDialog& dialog) {
        for (const auto& [button, name] : {std::pair{"cmdApply", "apply"}, {"cmdSave", "save"}}) {
            if (ModalForms::FindIn<QWidget>(dialog, button).isEnabled())
                offered << QString::fromLatin1(name);
        }
        dialog.reject();
    });
    f.Find<QPushButton>("cmdDirectConProp").click();
    return offered.join(u' ');
}

QString TargetWith(const QString& node)
{
    return QStringLiteral("WP=BUST4,ID=7") + node;
}

const QString OnlyDirect =
    QStringLiteral("Connection used in scanning must be saved before the found nodes can be saved.");

} // namespace

void TestCommandScanSaves::Save_AppliedUnderItsStoredName_IsTheStoredConnection_data()
{
    QTest::addColumn<QString>("close");
    QTest::addColumn<QString>("node");
    QTest::newRow("close") << QStringLiteral("cmdCancel") << QString();
    QTest::newRow("select") << QStringLiteral("cmdSelect") << QStringLiteral(",WP=NET4,ADDR=3");
}
void TestCommandScanSaves::Save_AppliedUnderItsStoredName_IsTheStoredConnection()
{
    QFETCH(const QString, close);
    QFETCH(const QString, node);
    ScanSavingFixture f;
    const QStringList names = f.Names();
    Apply(f);
    QCOMPARE(Model().DirectObject->ConDbID, 0);
    QVERIFY(!Model().DirectObject->NewCon);
    QCOMPARE(f.TargetText(), TargetWith(QString()));

    SaveWest(f, close.toLatin1().constData());

    QCOMPARE(f.Told(), (QStringList{OnlyDirect, QStringLiteral("Connection Alpha exists in database. Do you "
                                                               "want to replace it ?")}));
    QVERIFY2(f.StoredTarget(QStringLiteral("Alpha")).startsWith(QLatin1String("WP=BUST4,ID=7")),
             qPrintable(f.StoredTarget(QStringLiteral("Alpha"))));
    QVERIFY(f.HasNode(QStringLiteral("West")) && f.HasNode(QStringLiteral("Taken")));
    QCOMPARE(f.Names(), names);
    QCOMPARE(f.List().currentText(), QStringLiteral("Alpha"));
    QCOMPARE(Model().NewDirectObject->ConName, QString());
    QCOMPARE(Model().DirectObject->ConDbID, f.StoredId(QStringLiteral("Alpha")));
    QVERIFY(f.TargetText().startsWith(TargetWith(node)));
    QCOMPARE(Offered(f), QString());
    QVERIFY(f.IsQuiet());
}

void TestCommandScanSaves::Save_AppliedUnderItsStoredName_Declined_StaysApplied()
{
    ScanSavingFixture f;
    Apply(f);
    const QString stored = f.StoredTarget(QStringLiteral("Alpha"));
    f.Operator.Answers = {BoxAnswer::Cancel};

    f.InScan(1, [](QDialog& scan) {
        ModalForms::ClickIn(scan, "cmdSave");
        ModalForms::ClickIn(scan, "cmdCancel");
    });

    QCOMPARE(f.Told(), QStringList{OnlyDirect});
    QCOMPARE(f.StoredTarget(QStringLiteral("Alpha")), stored);
    QVERIFY(!f.HasNode(QStringLiteral("West")));
    QCOMPARE(Model().NewDirectObject->ConName, QStringLiteral("Alpha"));
    QCOMPARE(f.TargetText(), TargetWith(QString()));
    QCOMPARE(Offered(f), QStringLiteral("apply save"));
}

void TestCommandScanSaves::Save_ConnectionRemovedElsewhere_IsStoredAndUnchanged()
{
    ScanSavingFixture f;
    f.Component.Store.DeleteParent(QStringLiteral("Alpha"), true);

    SaveWest(f, "cmdSelect");

    QCOMPARE(f.Told(),
             QStringList{QStringLiteral(
                 "Another application has changed the scanned connection in the database. It must be "
                 "saved before the found nodes can be saved.")});
    QVERIFY(f.HasNode(QStringLiteral("West")));
    QCOMPARE(Model().DirectObject->ConDbID, f.StoredId(QStringLiteral("Alpha")));
    QVERIFY(!Model().DirectObject->NewCon);
    QCOMPARE(Offered(f), QString());
}

void TestCommandScanSaves::Save_NewConnection_IsTheStoredOne()
{
    ScanSavingFixture f;
    Apply(f, QStringLiteral("Probe"));
    QCOMPARE(f.List().currentText(), QStringLiteral("Probe"));

    SaveWest(f, "cmdSelect");

    QCOMPARE(f.Told(), QStringList{OnlyDirect});
    QVERIFY(f.StoredTarget(QStringLiteral("Probe")).startsWith(QLatin1String("WP=BUST4,ID=7")));
    QCOMPARE(Model().DirectObject->ConDbID, f.StoredId(QStringLiteral("Probe")));
    QCOMPARE(f.List().currentText(), QStringLiteral("Probe"));
    QCOMPARE(f.Names().count(QStringLiteral("Probe")), 1);
    QCOMPARE(Offered(f), QString());
}

QTEST_MAIN(TestCommandScanSaves)
#include "TestCommandScanSaves.moc"
