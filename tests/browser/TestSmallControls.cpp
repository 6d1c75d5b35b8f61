#include "browser/CaptionFrame.h"
#include "platform/controls/IntervalTimer.h"
#include "platform/controls/UpDown.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>

class TestSmallControls : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void CaptionFrame_AnyCaption_IsGivenBackAsSet_data()
    {
        QTest::addColumn<QString>("caption");
        QTest::newRow("short") << QStringLiteral("T4 Bus: Espoo");
        QTest::newRow("ampersand") << QStringLiteral("R&D: a & b");
        QTest::newRow("10,000 characters") << QString(10000, QLatin1Char('w'));
        QTest::newRow("empty") << QStringLiteral("");
    }
    void CaptionFrame_AnyCaption_IsGivenBackAsSet()
    {
        QFETCH(const QString, caption);
        CaptionFrame frame;
        frame.resize(300, 100);
        const QSize before = frame.minimumSizeHint();
        frame.SetCaption(caption);
        QCOMPARE(frame.Caption(), caption);
        QCOMPARE(frame.minimumSizeHint().width(), before.width());
    }

    void CaptionFrame_Ampersand_IsShownAndNoAccessKey()
    {
        CaptionFrame frame;
        frame.resize(300, 100);
        frame.SetCaption(QStringLiteral("a & b"));
        QCOMPARE(frame.title(), QStringLiteral("a && b"));
    }

    void CaptionFrame_TooLong_IsCutAndInTheToolTip()
    {
        CaptionFrame frame;
        frame.resize(120, 100);
        const QString caption = QStringLiteral("T4 Bus over TCP/IP: a name that is long");
        frame.SetCaption(caption);
        QVERIFY(frame.title().size() < caption.size());
        QCOMPARE(frame.toolTip(), caption);
        frame.show();
        frame.resize(900, 100);
        QCOMPARE(frame.title(), caption);
        QCOMPARE(frame.toolTip(), QString());
    }

    void UpDown_Click_StepsTheNumber_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("button");
        QTest::addColumn<QString>("after");
        QTest::newRow("up") << QStringLiteral("161") << 0 << QStringLiteral("162");
        QTest::newRow("down") << QStringLiteral("161") << 1 << QStringLiteral("160");
        QTest::newRow("at the top") << QStringLiteral("65535") << 0 << QStringLiteral("65535");
        QTest::newRow("at the bottom") << QStringLiteral("0") << 1 << QStringLiteral("0");
        QTest::newRow("above the top") << QStringLiteral("99999999") << 1 << QStringLiteral("65535");
        QTest::newRow("empty") << QString() << 0 << QStringLiteral("0");
        QTest::newRow("no number") << QStringLiteral("x") << 0 << QStringLiteral("0");
        QTest::newRow("beyond 64 bits") << QString(30, QLatin1Char('9')) << 0 << QStringLiteral("0");
    }
    void UpDown_Click_StepsTheNumber()
    {
        QFETCH(const QString, text);
        QFETCH(const int, button);
        QFETCH(const QString, after);
        QLineEdit field(text);
        UpDown upDown;
        upDown.SetBuddy(&field, 0, 65535);
        upDown.findChildren<QToolButton*>().at(button)->click();
        QCOMPARE(field.text(), after);
    }

    void UpDown_NoBuddyOrDisabledField_ChangesNothing()
    {
        UpDown upDown;
        upDown.findChildren<QToolButton*>().first()->click();
        QLineEdit field(QStringLiteral("5"));
        field.setEnabled(false);
        upDown.SetBuddy(&field, 0, 9);
        upDown.findChildren<QToolButton*>().first()->click();
        QCOMPARE(field.text(), QStringLiteral("5"));
    }

    void IntervalTimer_EnabledWithInterval_Ticks()
    {
        IntervalTimer timer;
        QSignalSpy ticks(&timer, &IntervalTimer::Timer);
        timer.SetEnabled(true);
        QVERIFY(!timer.Runs());
        timer.SetInterval(1);
        QVERIFY(ticks.wait());
        timer.SetEnabled(false);
        QVERIFY(!timer.Runs());
    }
};

QTEST_MAIN(TestSmallControls)
#include "TestSmallControls.moc"
