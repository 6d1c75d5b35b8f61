#include "platform/controls/ModalForm.h"
#include "tests/dialogs/ConPropFixture.h"
#include "tests/dialogs/DirectPropFixture.h"
#include "tests/dialogs/NodePropFixture.h"
#include "tests/dialogs/SaveDirectNodeFixture.h"

#include <QPointer>
#include <QTimer>

/// The host destroys a dialog while a box or another dialog stands open over it.
class TestFormsGone : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Connection_RefusedSave_EndsWithoutTheForm();
    void Connection_ReplaceQuestion_SavesWithoutTheForm();
    void Direct_Refused_EndsWithoutTheForm_data();
    void Direct_Refused_EndsWithoutTheForm();
    void Direct_QuestionOfTheBegin_SavesWithoutTheForm();
    void Node_RefusedSave_EndsWithoutTheForm();
    void Node_ReplaceQuestion_SavesWithoutTheForm();
    void Node_PacketSizes_EndWithoutTheForm();
    void Node_ManagerInfo_EndsWithoutTheForm();
    void SaveDirect_RefusedSave_EndsWithoutTheForm();
    void SaveDirect_ReplaceQuestions_SaveWithoutTheForm();
    void ModalForm_BoxOfItsStart_StandsOpenWhenItIsMade();
    void ModalForm_ParentGoneUnderTheBoxOfItsStart_IsNotShown();
    void ModalForm_ParentGoneWhileShown_TellsSo();
    void ModalForm_Closed_IsThereNoMore();
};

namespace {

/// Tells something while it is being made.
class TellingForm : public QDialog
{
public:
    explicit TellingForm(QWidget* parent) : QDialog(parent) { MsgBox(QStringLiteral("told")); }
};

/// The form of a fixture goes while the first box stands open.
template <typename Fixture>
void DestroyUnderTheBox(Fixture& fixture)
{
    fixture.Operator.WhileOpen = [&fixture](const RecordedBox&) { fixture.Form.reset(); };
}

} // namespace

void TestFormsGone::Connection_RefusedSave_EndsWithoutTheForm()
{
    ConPropFixture f;
    f.Edit("Alpha");
    f.TypeName("Beta");
    const QStringList before = f.Records();
    DestroyUnderTheBox(f);

    f.Click("cmdSave");

    QVERIFY(!f.Form);
    QCOMPARE(f.Operator.Texts(), QStringList{"Connection Beta already exists. Give a new name."});
    QCOMPARE(f.Records(), before);
}

void TestFormsGone::Connection_ReplaceQuestion_SavesWithoutTheForm()
{
    ConPropFixture f;
    f.Edit("Alpha");
    f.Con().NewCon = true;
    const qint32 id = f.IdOfConnection("Alpha");
    DestroyUnderTheBox(f);

    f.Click("cmdSave");

    QVERIFY(!f.Form);
    QCOMPARE(f.Operator.Texts(),
             QStringList{"Connection Alpha exists in database. Do you want to replace it ?"});
    QVERIFY(f.IdOfConnection("Alpha") != id);
}

void TestFormsGone::Direct_Refused_EndsWithoutTheForm_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("button");
    QTest::newRow("Save, taken") << "Beta"
                                 << "cmdSave";
    QTest::newRow("Save, reserved") << "New Connection"
                                    << "cmdSave";
    QTest::newRow("Save, no name") << " "
                                   << "cmdSave";
    QTest::newRow("Apply, no name") << " "
                                    << "cmdApply";
}

void TestFormsGone::Direct_Refused_EndsWithoutTheForm()
{
    QFETCH(QString, name);
    QFETCH(QString, button);
    DirectPropFixture f;
    f.EditDirect("Alpha");
    const QStringList held = f.Held();
    f.Show();
    f.SetDirectValue(1, "99");
    f.TypeName(name);
    const QStringList before = f.Records();
    DestroyUnderTheBox(f);

    f.Click(button.toLatin1().constData());

    QVERIFY(!f.Form);
    QVERIFY(!f.Operator.Boxes.empty());
    QCOMPARE(f.Records(), before);
    QCOMPARE(f.Held(), held);
}

void TestFormsGone::Direct_QuestionOfTheBegin_SavesWithoutTheForm()
{
    DirectPropFixture f;
    f.Edit("Alpha");
    f.SetDirectValue(1, "99");
    f.TypeName("Omega");
    f.Component.FailTimes("BeginTransaction", 1, DatabaseErrorNumber::InUse);
    DestroyUnderTheBox(f);

    f.Click("cmdSave");

    QVERIFY(!f.Form);
    const QString target = QString(SaveFixture::AlphaTarget).replace("ID=254", "ID=99");
    QVERIFY(f.Records().contains("Omega|" + target));
    QCOMPARE(f.Direct().ConName, "Omega");
    QCOMPARE(f.Direct().GetWpData(1).GetWpParam(1, 2), "99");
}

void TestFormsGone::Node_RefusedSave_EndsWithoutTheForm()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.TypeName("Alpha");
    const QStringList before = f.Records();
    DestroyUnderTheBox(f);

    f.Click("cmdSave");

    QVERIFY(!f.Form);
    QCOMPARE(f.Operator.Boxes.size(), std::size_t(1));
    QCOMPARE(f.Records(), before);
}

void TestFormsGone::Node_ReplaceQuestion_SavesWithoutTheForm()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.TypeName("South");
    DestroyUnderTheBox(f);

    f.Click("cmdSave");

    QVERIFY(!f.Form);
    QCOMPARE(f.Operator.Texts(), QStringList{"Node South exists in database. Do you want to replace it ?"});
    QCOMPARE(f.IdOfNode("North"), 0);
}

void TestFormsGone::Node_PacketSizes_EndWithoutTheForm()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.ClickPage(2);
    f.EnterValue(2, "15");
    f.EnterValue(6, "1020");
    QTimer::singleShot(0, this, [&f] { f.Form.reset(); });

    f.Click("cmdSave");

    QVERIFY(!f.Form);
}

void TestFormsGone::Node_ManagerInfo_EndsWithoutTheForm()
{
    NodePropFixture f;
    f.ShowNode("North");
    int shown = 0;
    Dialogs().ShowManagerInfo = [&](QWidget*) {
        ++shown;
        f.Form.reset();
    };

    f.Click("cmdManager");

    QCOMPARE(shown, 1);
    QVERIFY(!f.Form);
}

void TestFormsGone::SaveDirect_RefusedSave_EndsWithoutTheForm()
{
    SaveDirectNodeFixture f;
    f.ShowOn("Alpha");
    const QStringList before = f.Records();
    DestroyUnderTheBox(f);

    f.Click("cmdSave");

    QVERIFY(!f.Form);
    QCOMPARE(f.Operator.Texts(), QStringList{"Give node name."});
    QCOMPARE(f.Records(), before);
}

void TestFormsGone::SaveDirect_ReplaceQuestions_SaveWithoutTheForm()
{
    SaveDirectNodeFixture f;
    f.ShowOnNew("Beta");
    f.ClickPage(1);
    f.TypeName("South");
    const qint32 id = f.IdOfNode("South");
    f.Operator.WhileOpen = [&f](const RecordedBox& box) {
        if (box.title == "Replace Node")
            f.Form.reset();
    };

    f.Click("cmdSave");

    QVERIFY(!f.Form);
    QCOMPARE(f.Operator.Boxes.size(), 2U);
    QVERIFY(f.IdOfNode("South") > id);
}

void TestFormsGone::ModalForm_BoxOfItsStart_StandsOpenWhenItIsMade()
{
    RecordingPresenter boxes;
    QWidget parent;
    bool made = false;
    boxes.WhileOpen = [&](const RecordedBox&) {
        auto* const form = dynamic_cast<TellingForm*>(parent.children().value(0));
        made = form && !form->isVisible();
        if (form)
            QTimer::singleShot(0, form, &QDialog::reject);
    };

    QVERIFY(ShowModalForm<TellingForm>(&parent));

    QVERIFY(made);
    QCOMPARE(boxes.Texts(), QStringList{"told"});
}

void TestFormsGone::ModalForm_ParentGoneUnderTheBoxOfItsStart_IsNotShown()
{
    RecordingPresenter boxes;
    auto parent = std::make_unique<QWidget>();
    boxes.WhileOpen = [&](const RecordedBox&) { parent.reset(); };

    QVERIFY(!ShowModalForm<TellingForm>(parent.get()));

    QCOMPARE(boxes.Texts(), QStringList{"told"});
}

void TestFormsGone::ModalForm_ParentGoneWhileShown_TellsSo()
{
    auto parent = std::make_unique<QWidget>();
    QTimer::singleShot(0, this, [&] { parent.reset(); });

    QVERIFY(!ShowModalForm<QDialog>(parent.get()));
}

void TestFormsGone::ModalForm_Closed_IsThereNoMore()
{
    QWidget parent;
    QTimer::singleShot(0, this, [&] { parent.findChild<QDialog*>()->accept(); });

    QVERIFY(ShowModalForm<QDialog>(&parent));

    QVERIFY(parent.children().isEmpty());
}

QTEST_MAIN(TestFormsGone)
#include "TestFormsGone.moc"
