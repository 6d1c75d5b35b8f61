#include "tests/dialogs/NodePropFixture.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

namespace {

const QString ChannelAndSize = QStringLiteral("FE CHANNEL and PACKET SIZE");

/// Closes the modal form that the next action opens, and keeps its caption and text.
class ModalCloser
{
public:
    ModalCloser()
    {
        QObject::connect(&m_timer, &QTimer::timeout, [this] {
            QWidget* form = QApplication::activeModalWidget();
            if (!form || form->objectName() != QLatin1String("frmChSelPktSize"))
                return;
            Caption = form->windowTitle();
            for (const QLabel* label : form->findChildren<QLabel*>())
                Texts << label->text();
            form->close();
        });
        m_timer.start(5);
    }

    QString Caption;
    QStringList Texts;

private:
    QTimer m_timer;
};

} // namespace

/// The check of FE CHANNEL and PACKET SIZE before a node is saved.
class TestFrmDatabaseNodePropFeCheck : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Check_ChannelAndSize_FitOrNot_data();
    void Check_ChannelAndSize_FitOrNot();
    void Check_Mismatch_ShowsTheFormAndSavesNothing();
    void Check_OtherPage_DoesNotRun();
    void Check_OtherClass_DoesNotRun();
    void Check_OpenEditor_CountsAsItIsSeen();
    void Check_OpenDefault_CountsAsItsValue();
    void Check_BeforeTheReservedName();
};

void TestFrmDatabaseNodePropFeCheck::Check_ChannelAndSize_FitOrNot_data()
{
    QTest::addColumn<QString>("channel");
    QTest::addColumn<QString>("size");
    QTest::addColumn<bool>("fits");

    const QList<int> sizes{18, 32, 32, 64, 64, 128, 128, 256, 256, 512, 512, 768, 768, 1020, 1020, 1032};
    for (int channel = 0; channel < sizes.size(); ++channel) {
        QTest::addRow("%d fits", channel)
            << QString::number(channel) << QString::number(sizes[channel]) << true;
        const int other = sizes[channel] == 18 ? 32 : 18;
        QTest::addRow("%d does not", channel) << QString::number(channel) << QString::number(other) << false;
    }
    QTest::newRow("15 with the size before") << "15"
                                             << "1020" << false;
    QTest::newRow("16 is free") << "16"
                                << "18" << true;
    QTest::newRow("255 is free") << "255"
                                 << "1032" << true;
    QTest::newRow("no channel is 0") << ""
                                     << "18" << true;
}

void TestFrmDatabaseNodePropFeCheck::Check_ChannelAndSize_FitOrNot()
{
    QFETCH(QString, channel);
    QFETCH(QString, size);
    QFETCH(bool, fits);
    NodePropFixture f;
    f.ShowNode("North");
    f.ClickPage(2);
    f.EnterValue(1, "7");
    f.EnterValue(2, channel);
    f.EnterValue(6, size);
    const ModalCloser closer;
    f.Click("cmdSave");

    QCOMPARE(closer.Caption, fits ? QString() : ChannelAndSize);
    QCOMPARE(f.Form->isVisible(), !fits);
}

void TestFrmDatabaseNodePropFeCheck::Check_Mismatch_ShowsTheFormAndSavesNothing()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.ClickPage(2);
    f.EnterValue(2, "15");
    f.EnterValue(6, "1020");
    f.Forget();
    const ModalCloser closer;
    f.Click("cmdSave");

    QCOMPARE(closer.Caption, ChannelAndSize);
    QCOMPARE(closer.Texts, QStringList{"The FE CHANNEL and PACKET SIZE should be matched. For more details "
                                       "please click \"Help\" button."});
    QCOMPARE(f.Component.Calls, QStringList());
    QVERIFY(f.Form->isVisible());
}

void TestFrmDatabaseNodePropFeCheck::Check_OtherPage_DoesNotRun()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.ClickPage(2);
    f.EnterValue(1, "7");
    f.EnterValue(2, "15");
    f.ClickPage(1);
    const ModalCloser closer;
    f.Click("cmdSave");

    QCOMPARE(closer.Caption, QString());
    QCOMPARE(f.Form->result(), int(QDialog::Accepted));
}

void TestFrmDatabaseNodePropFeCheck::Check_OtherClass_DoesNotRun()
{
    NodePropFixture f;
    f.Component.Answer("GetNodeTypeWpList(,1)", {"FE\t1"});
    f.ShowNode("North");
    f.Choose("cboNodeType", "MML Network Element");
    QCOMPARE(f.Pages(), QStringList{"FE Parameters"});
    f.EnterValue(1, "7");
    f.EnterValue(2, "15");
    const ModalCloser closer;
    f.Click("cmdSave");

    QCOMPARE(closer.Caption, QString());
    QCOMPARE(f.Form->result(), int(QDialog::Accepted));
}

void TestFrmDatabaseNodePropFeCheck::Check_OpenEditor_CountsAsItIsSeen()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.ClickPage(2);
    f.EnterValue(2, "15");
    f.TypeValue(6, "1032");
    const ModalCloser closer;
    QTest::keyClick(f.Editor(), Qt::Key_S, Qt::AltModifier);

    QTRY_COMPARE(f.Form->result(), int(QDialog::Accepted));
    QCOMPARE(closer.Caption, QString());
}

void TestFrmDatabaseNodePropFeCheck::Check_OpenDefault_CountsAsItsValue()
{
    NodePropFixture f;
    f.ShowNode("North");
    f.ClickPage(2);
    f.EnterValue(6, "32");
    f.TypeValue(6, "Default (18)");
    const ModalCloser closer;
    QTest::keyClick(f.Editor(), Qt::Key_S, Qt::AltModifier);

    QTRY_COMPARE(f.Form->result(), int(QDialog::Accepted));
    QCOMPARE(closer.Caption, QString());
}

void TestFrmDatabaseNodePropFeCheck::Check_BeforeTheReservedName()
{
    NodePropFixture f;
    f.ShowNewNode("North");
    f.ClickPage(2);
    f.EnterValue(2, "15");
    const ModalCloser closer;
    f.Click("cmdSave");

    QCOMPARE(closer.Caption, ChannelAndSize);
    QVERIFY(f.Operator.Boxes.empty());
}

QTEST_MAIN(TestFrmDatabaseNodePropFeCheck)
#include "TestFrmDatabaseNodePropFeCheck.moc"
