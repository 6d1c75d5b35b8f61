#include "dialogs/ConNameBox.h"
#include "scan/ScanConnectionCheck.h"
#include "tests/scan/SaveFormsFixture.h"

/// The connection of a scan must be in the database before its nodes are.
class TestScanConnectionCheck : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Check_UnchangedConnection_AsksNothing();
    void Check_ConnectionNotToBeFound_IsAskedAbout_data();
    void Check_ConnectionNotToBeFound_IsAskedAbout();
    void Check_Declined_ChangesNothing_data();
    void Check_Declined_ChangesNothing();
    void Check_DirectConnection_IsSavedAsItWasScanned();
    void Check_ChangedConnection_IsReplaced();
    void Check_DialogCancelled_ChangesNothing();
    void Check_SavedUnderAnotherName_TakesTheName();
    void Check_SavedAsNew_IsNewNoMore();
    void Check_AppliedUnderItsStoredName_ReplacesTheRecord();
    void Check_AppliedUnderItsStoredName_QuestionDeclined_ChangesNothing();
    void Check_SaveRunNamedTheConnection_OffersItWhole();
    void Check_WindowGoneUnderTheQuestion_EndsQuietly();
    void Check_WindowGoneUnderTheDialog_EndsQuietly();
    void Save_Dialog_KnowsThatItIsForAScan();
    void Save_ControlStartedAnew_EndsQuietly();
    void Save_NoTrees_IsNotPossible();
};

static const QString OnlyDirect =
    QStringLiteral("Connection used in scanning must be saved before the found nodes can be saved.");
static const QString ChangedElsewhere =
    QStringLiteral("Another application has changed the scanned connection in the database. It must be saved "
                   "before the found nodes can be saved.");

static RecordedBox Question(const QString& text)
{
    return {text, BoxFlags::OkCancel, ApplicationTitle()};
}

/// The connection dialog may offer its types.
class CheckFixture : public SaveFormsFixture
{
public:
    CheckFixture()
    {
        Model().ConOrderObject = std::make_unique<ConOrderClass>();
        Model().ConOrderObject->LoadConTypesInOrder(*Model().Database, QStringLiteral("0,1,2,9,14,6,7"),
                                                    QStringLiteral("0,1,2,9,16,6,7"));
        NewDirect.ConDbID = 77;
        Form = std::make_unique<QDialog>();
        Form->show();
        Forget();
    }
    ~CheckFixture() { Model().ConOrderObject.reset(); }
    CheckFixture(const CheckFixture&) = delete;
    CheckFixture& operator=(const CheckFixture&) = delete;

    bool Check() { return CheckScanConnection(Direct, NewDirect, Form.get()); }
    /// The operator saves in the dialog, under another name where one is given.
    static void SaveInDialog(const QString& name = QString())
    {
        InNextDialog([name](QDialog& dialog) {
            if (!name.isEmpty())
                FindIn<ConNameBox>(dialog, "txtConName").setText(name);
            QTest::mouseClick(&FindIn<QPushButton>(dialog, "cmdSave"), Qt::LeftButton);
            if (dialog.isVisible())
                dialog.reject();
        });
    }
    [[nodiscard]] QString StoredTarget(const QString& name) const
    {
        for (const auto& connection : Component.Store.Now.connections) {
            if (connection.name == name)
                return connection.target;
        }
        return {};
    }
    /// The bus of the scanned connection, as an operator changes it.
    void SetBus(const QString& bus) { Direct.SetWpDataItem(1, 1, 2, bus); }
    [[nodiscard]] QStringList NewDirectFlags() const
    {
        return {NewDirect.ConName, QString::number(NewDirect.ConDbID)};
    }
};

void TestScanConnectionCheck::Check_UnchangedConnection_AsksNothing()
{
    CheckFixture f;

    QVERIFY(f.Check());

    QVERIFY(f.Operator.Boxes.empty());
    QCOMPARE(f.Direct.ConName, "Alpha");
    QCOMPARE(f.NewDirectFlags(), (QStringList{"", "77"}));
}

void TestScanConnectionCheck::Check_ConnectionNotToBeFound_IsAskedAbout_data()
{
    QTest::addColumn<QString>("how");
    QTest::addColumn<QString>("question");
    QTest::newRow("only direct") << "direct" << OnlyDirect;
    QTest::newRow("changed") << "changed" << ChangedElsewhere;
    QTest::newRow("removed") << "removed" << ChangedElsewhere;
    QTest::newRow("renamed") << "renamed" << ChangedElsewhere;
    QTest::newRow("cannot be read") << "unread" << ChangedElsewhere;
    QTest::newRow("never stored") << "unstored" << ChangedElsewhere;
}

static void Spoil(CheckFixture& f, const QString& how)
{
    if (how == "direct")
        f.NewDirect.ConName = "Alpha";
    else if (how == "changed")
        f.ChangeElsewhere("Alpha");
    else if (how == "removed")
        f.RemoveElsewhere("Alpha");
    else if (how == "renamed")
        f.Component.Store.Now.connections[0].name = "Omega";
    else if (how == "unread")
        f.Component.Answer("GetParentID", {""});
    if (how != "unstored")
        return;
    f.Direct.ConName = "Unknown";
    f.Direct.ConDbID = 0;
}

void TestScanConnectionCheck::Check_ConnectionNotToBeFound_IsAskedAbout()
{
    QFETCH(QString, how);
    QFETCH(QString, question);
    CheckFixture f;
    Spoil(f, how);
    f.Operator.Answers = {BoxAnswer::Cancel};

    QVERIFY(!f.Check());

    QCOMPARE(f.Operator.Boxes, std::vector{Question(question)});
}

void TestScanConnectionCheck::Check_Declined_ChangesNothing_data()
{
    QTest::addColumn<QString>("how");
    QTest::newRow("only direct") << "direct";
    QTest::newRow("changed") << "changed";
}

void TestScanConnectionCheck::Check_Declined_ChangesNothing()
{
    QFETCH(QString, how);
    CheckFixture f;
    f.SetBus("7");
    Spoil(f, how);
    const QStringList direct = f.DirectFlags();
    const QStringList newDirect = f.NewDirectFlags();
    const QStringList records = f.Records();
    f.Operator.Answers = {BoxAnswer::Cancel};

    QVERIFY(!f.Check());

    QCOMPARE(f.DirectFlags(), direct);
    QCOMPARE(f.NewDirectFlags(), newDirect);
    QCOMPARE(f.Records(), records);
    QCOMPARE(f.Direct.GetWpData(1).GetWpParam(1, 2), "7");
}

void TestScanConnectionCheck::Check_DirectConnection_IsSavedAsItWasScanned()
{
    CheckFixture f;
    f.SetBus("7");
    f.Direct.ConName = "Delta";
    f.Direct.ConDbID = 0;
    f.NewDirect.Copy(f.Direct);
    f.SaveInDialog();

    QVERIFY(f.Check());

    QCOMPARE(f.Operator.Boxes, std::vector{Question(OnlyDirect)});
    QVERIFY2(f.StoredTarget("Delta").startsWith("WP=BUST4,ID=7,"), qPrintable(f.StoredTarget("Delta")));
    QCOMPARE(f.Direct.ConName, "Delta");
    QCOMPARE(f.Direct.ConDbID, f.IdOfConnection("Delta"));
    QCOMPARE(f.NewDirectFlags(), (QStringList{"", QString::number(f.IdOfConnection("Delta"))}));
    QVERIFY(!f.Con().SaveFromScan);
    f.Forget();
    QVERIFY(f.Check());
    QVERIFY(f.Operator.Boxes.empty());
}

void TestScanConnectionCheck::Check_ChangedConnection_IsReplaced()
{
    CheckFixture f;
    f.ChangeElsewhere("Alpha");
    const qint32 changed = f.IdOfConnection("Alpha");
    f.SaveInDialog();

    QVERIFY(f.Check());

    QCOMPARE(f.Operator.Texts(),
             (QStringList{ChangedElsewhere, "Connection Alpha exists in database. Do you want "
                                            "to replace it ?"}));
    QVERIFY(f.IdOfConnection("Alpha") != changed);
    QCOMPARE(f.Direct.ConDbID, f.IdOfConnection("Alpha"));
    QCOMPARE(f.NewDirect.ConDbID, f.IdOfConnection("Alpha"));
}

void TestScanConnectionCheck::Check_DialogCancelled_ChangesNothing()
{
    CheckFixture f;
    f.NewDirect.ConName = "Alpha";
    const QStringList direct = f.DirectFlags();
    const QStringList records = f.Records();
    f.InNextDialog([](QDialog& dialog) { dialog.reject(); });

    QVERIFY(!f.Check());

    QCOMPARE(f.DirectFlags(), direct);
    QCOMPARE(f.NewDirectFlags(), (QStringList{"Alpha", "77"}));
    QCOMPARE(f.Records(), records);
    QVERIFY(!f.Con().SaveFromScan);
}

void TestScanConnectionCheck::Check_SavedUnderAnotherName_TakesTheName()
{
    CheckFixture f;
    f.RemoveElsewhere("Alpha");
    f.SaveInDialog("Omega");

    QVERIFY(f.Check());

    QCOMPARE(f.Direct.ConName, "Omega");
    QVERIFY(f.IdOfConnection("Omega") != 0);
    QCOMPARE(f.Direct.ConDbID, f.IdOfConnection("Omega"));
}

void TestScanConnectionCheck::Check_SavedAsNew_IsNewNoMore()
{
    CheckFixture f;
    f.RemoveElsewhere("Alpha");
    f.SaveInDialog();

    QVERIFY(f.Check());

    QVERIFY(!f.Direct.NewCon);
    QVERIFY(!f.Con().NewCon);
    QVERIFY(f.Check());
    QCOMPARE(f.Operator.Boxes.size(), std::size_t(1));
}

/// The stored connection with another bus, as Apply leaves it under its own name.
static void ApplyOwnName(CheckFixture& f)
{
    f.SetBus("7");
    f.Direct.ConDbID = 0;
    f.Direct.NewCon = false;
    f.NewDirect.Copy(f.Direct);
}

void TestScanConnectionCheck::Check_AppliedUnderItsStoredName_ReplacesTheRecord()
{
    CheckFixture f;
    ApplyOwnName(f);
    const qint32 before = f.IdOfConnection("Alpha");
    f.SaveInDialog();

    QVERIFY(f.Check());

    QCOMPARE(f.Operator.Boxes,
             (std::vector<RecordedBox>{Question(OnlyDirect),
                                       {"Connection Alpha exists in database. Do you want to replace it ?",
                                        BoxFlags::OkCancel, "Replace Connection"}}));
    QVERIFY(f.StoredTarget("Alpha").startsWith("WP=BUST4,ID=7,"));
    QVERIFY(f.IdOfConnection("Alpha") != before);
    QCOMPARE(f.Direct.ConDbID, f.IdOfConnection("Alpha"));
    QCOMPARE(f.NewDirectFlags(), (QStringList{"", QString::number(f.Direct.ConDbID)}));
    QVERIFY(!f.Direct.NewCon);
    QCOMPARE(f.Nodes(), (QStringList{"East", "North", "South"}));
    QCOMPARE(f.TreeContents(), SaveFixture::FreshTreeContents());
}

void TestScanConnectionCheck::Check_AppliedUnderItsStoredName_QuestionDeclined_ChangesNothing()
{
    CheckFixture f;
    ApplyOwnName(f);
    const QStringList records = f.Records();
    const QStringList newDirect = f.NewDirectFlags();
    f.Operator.Answers = {BoxAnswer::Ok, BoxAnswer::Cancel};
    f.SaveInDialog();

    QVERIFY(!f.Check());

    QCOMPARE(f.Operator.Boxes.size(), std::size_t(2));
    QCOMPARE(f.Records(), records);
    QCOMPARE(f.NewDirectFlags(), newDirect);
    QCOMPARE(f.Direct.ConDbID, 0);
    QCOMPARE(f.Direct.GetWpData(1).GetWpParam(1, 2), "7");
}

void TestScanConnectionCheck::Check_SaveRunNamedTheConnection_OffersItWhole()
{
    CheckFixture f;
    f.RemoveElsewhere("Alpha");
    f.NewDirect.ConName = f.Direct.ConName;
    f.SaveInDialog();

    QVERIFY(f.Check());

    QCOMPARE(f.StoredTarget("Alpha"), SaveFixture::AlphaTarget);
}

void TestScanConnectionCheck::Check_WindowGoneUnderTheQuestion_EndsQuietly()
{
    CheckFixture f;
    f.NewDirect.ConName = "Alpha";
    f.Operator.WhileOpen = [&](const RecordedBox&) { f.Form.reset(); };

    QVERIFY(!f.Check());

    QCOMPARE(f.Operator.Boxes.size(), std::size_t(1));
    QCOMPARE(f.NewDirect.ConName, "Alpha");
}

void TestScanConnectionCheck::Check_WindowGoneUnderTheDialog_EndsQuietly()
{
    CheckFixture f;
    f.NewDirect.ConName = "Alpha";
    f.InNextDialog([&](QDialog&) { f.Form.reset(); });

    QVERIFY(!f.Check());

    QVERIFY(!f.Con().SaveFromScan);
    QCOMPARE(f.NewDirect.ConName, "Alpha");
}

void TestScanConnectionCheck::Save_Dialog_KnowsThatItIsForAScan()
{
    CheckFixture f;
    bool newCon = false;
    bool fromScan = false;
    QString name;
    f.InNextDialog([&](QDialog& dialog) {
        newCon = f.Con().NewCon;
        fromScan = f.Con().SaveFromScan;
        name = f.FindIn<ConNameBox>(dialog, "txtConName").text();
        dialog.reject();
    });

    QVERIFY(!SaveScanConnection(f.Direct, f.Direct, f.NewDirect, f.Form.get()));

    QVERIFY(newCon && fromScan);
    QCOMPARE(name, "Alpha");
}

void TestScanConnectionCheck::Save_ControlStartedAnew_EndsQuietly()
{
    CheckFixture f;
    std::unique_ptr<ConData> replaced;
    f.InNextDialog([&](QDialog& dialog) {
        replaced = std::exchange(Model().ConObject, std::make_unique<ConData>());
        dialog.reject();
    });

    QVERIFY(!SaveScanConnection(f.Direct, f.Direct, f.NewDirect, f.Form.get()));

    QCOMPARE(f.Direct.ConName, "Alpha");
}

void TestScanConnectionCheck::Save_NoTrees_IsNotPossible()
{
    CheckFixture f;
    f.Con().ConTree = nullptr;

    QVERIFY(!SaveScanConnection(f.Direct, f.Direct, f.NewDirect, f.Form.get()));

    Model().ConObject.reset();
    QVERIFY(!SaveScanConnection(f.Direct, f.Direct, f.NewDirect, f.Form.get()));
    Model().ConObject = std::make_unique<ConData>();
}

QTEST_MAIN(TestScanConnectionCheck)
#include "TestScanConnectionCheck.moc"
