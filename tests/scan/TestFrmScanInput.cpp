#include "tests/scan/ScanFixture.h"

#include <QClipboard>
#include <QTest>

/// What the text boxes of the scan dialog take.
class TestFrmScanInput : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Digits_OtherKeys_AreDroppedWithTheBell_data();
    void Digits_OtherKeys_AreDroppedWithTheBell();
    void Digits_Paste_TakesDigitsOnly_data();
    void Digits_Paste_TakesDigitsOnly();
    void Digits_Enter_Starts();
    void Address_Typed_EndsAt4094_data();
    void Address_Typed_EndsAt4094();
    void Address_Refused_MovesTheCaretBack();
    void Address_Emptied_IsAccepted();
};

void TestFrmScanInput::Digits_OtherKeys_AreDroppedWithTheBell_data()
{
    QTest::addColumn<QString>("box");
    for (const char* box : {"txtAddrBegin", "txtAddrEnd", "txtBus", "txtTimingRetries", "txtTimingTimeout"})
        QTest::newRow(box) << box;
}

void TestFrmScanInput::Digits_OtherKeys_AreDroppedWithTheBell()
{
    QFETCH(const QString, box);
    ScanFixture f;
    f.ShowScan();
    QLineEdit& text = f.Box(qPrintable(box));
    text.selectAll();

    QTest::keyClicks(&text, "1a-2 .");
    QCOMPARE(text.text(), "12");
    QCOMPARE(f.Computer.Steps, QStringList({"Beep", "Beep", "Beep", "Beep"}));

    QTest::keyClick(&text, Qt::Key_Backspace);
    QCOMPARE(text.text(), "1");
    QTest::keyClick(&text, Qt::Key_Left);
    QTest::keyClick(&text, Qt::Key_Delete);
    QCOMPARE(text.text(), QString());
    QCOMPARE(f.Computer.Steps.size(), 4);
}

void TestFrmScanInput::Digits_Paste_TakesDigitsOnly_data()
{
    QTest::addColumn<QString>("pasted");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("beeps");
    QTest::newRow("digits") << "17"
                            << "17" << 0;
    QTest::newRow("blanks around") << " 17 "
                                   << "17" << 0;
    QTest::newRow("letters") << "1x7"
                             << "" << 1;
    QTest::newRow("sign") << "-17"
                          << "" << 1;
}

void TestFrmScanInput::Digits_Paste_TakesDigitsOnly()
{
    QFETCH(const QString, pasted);
    QFETCH(const int, beeps);
    ScanFixture f;
    f.ShowScan();
    QApplication::clipboard()->setText(pasted);

    QTest::keyClick(&f.Box("txtAddrBegin"), Qt::Key_V, Qt::ControlModifier);

    QTEST(f.Box("txtAddrBegin").text(), "text");
    QCOMPARE(f.Computer.Steps, QStringList(beeps, "Beep"));
}

void TestFrmScanInput::Digits_Enter_Starts()
{
    ScanFixture f;
    f.ShowScan();
    f.SetRange(3, 5);

    QTest::keyClick(&f.Box("txtAddrEnd"), Qt::Key_Return);

    QCOMPARE(f.State(), "Stop");
    QVERIFY(!f.Computer.Steps.contains("Beep"));
}

void TestFrmScanInput::Address_Typed_EndsAt4094_data()
{
    QTest::addColumn<QString>("box");
    QTest::newRow("begin") << "txtAddrBegin";
    QTest::newRow("end") << "txtAddrEnd";
}

void TestFrmScanInput::Address_Typed_EndsAt4094()
{
    QFETCH(const QString, box);
    ScanFixture f;
    f.ShowScan();
    QLineEdit& text = f.Box(qPrintable(box));

    QTest::keyClicks(&text, "4094");
    QCOMPARE(text.text(), "4094");
    QVERIFY(f.Computer.Steps.isEmpty());

    QTest::keyClicks(&text, "0");
    QCOMPARE(text.text(), "4094");
    text.clear();
    QTest::keyClicks(&text, "4095");
    QCOMPARE(text.text(), "409");
    QCOMPARE(f.Computer.Steps, QStringList({"Beep", "Beep"}));
}

void TestFrmScanInput::Address_Refused_MovesTheCaretBack()
{
    ScanFixture f;
    f.ShowScan();
    QLineEdit& text = f.Box("txtAddrBegin");
    text.setText("4000");
    text.setCursorPosition(1);

    QTest::keyClicks(&text, "5");

    QCOMPARE(text.text(), "4000");
    QCOMPARE(text.cursorPosition(), 1);
}

void TestFrmScanInput::Address_Emptied_IsAccepted()
{
    ScanFixture f;
    f.ShowScan();
    QLineEdit& text = f.Box("txtAddrEnd");
    text.setText("4000");

    text.clear();
    text.setText("5000");

    QCOMPARE(text.text(), QString());
}

QTEST_MAIN(TestFrmScanInput)
#include "TestFrmScanInput.moc"
