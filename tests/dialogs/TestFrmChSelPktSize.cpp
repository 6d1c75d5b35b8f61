#include "dialogs/frmChSelPktSize.h"
#include "platform/HelpHook.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

class TestFrmChSelPktSize : public QObject
{
    Q_OBJECT

private:
    QStringList m_topics;

private Q_SLOTS:
    void init()
    {
        m_topics.clear();
        Help().ShowHelpTopic = [this](const QString& topic) { m_topics << topic; };
    }
    void cleanup() { Help() = HelpHook(); }

    void Load_Texts_AreAsTheyShould()
    {
        const frmChSelPktSize form;
        QCOMPARE(form.windowTitle(), "FE CHANNEL and PACKET SIZE");
        QCOMPARE(form.findChild<QLabel*>(QStringLiteral("Label1"))->text(),
                 "The FE CHANNEL and PACKET SIZE should be matched. For more details please click \"Help\" "
                 "button.");
        QCOMPARE(form.findChild<QPushButton*>(QStringLiteral("CmdOk"))->text(), "&OK");
        QCOMPARE(form.findChild<QPushButton*>(QStringLiteral("CmdHelp"))->text(), "&Help");
        QVERIFY(form.isModal());
    }

    void Help_ButtonOrF1_ShowsItsTopicAndStays()
    {
        frmChSelPktSize form;
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        QTest::mouseClick(form.findChild<QPushButton*>(QStringLiteral("CmdHelp")), Qt::LeftButton);
        QTest::keyClick(&form, Qt::Key_F1);
        const QString topic = QStringLiteral("Browser4FE_Parameters.htm");
        QCOMPARE(m_topics, QStringList({topic, topic}));
        QVERIFY(form.isVisible());
    }

    void Ok_ClickEnterOrEscape_Closes_data()
    {
        QTest::addColumn<int>("key");
        QTest::newRow("click") << 0;
        QTest::newRow("Enter") << int(Qt::Key_Return);
        QTest::newRow("Escape") << int(Qt::Key_Escape);
    }
    void Ok_ClickEnterOrEscape_Closes()
    {
        QFETCH(const int, key);
        frmChSelPktSize form;
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        if (key == 0)
            QTest::mouseClick(form.findChild<QPushButton*>(QStringLiteral("CmdOk")), Qt::LeftButton);
        else
            QTest::keyClick(&form, Qt::Key(key));
        QVERIFY(!form.isVisible());
    }
};

QTEST_MAIN(TestFrmChSelPktSize)
#include "TestFrmChSelPktSize.moc"
