#include "database/ReportComponentError.h"
#include "platform/ComponentError.h"
#include "tests/support/RecordingPresenter.h"

#include <QTest>

#include <functional>
#include <stdexcept>

/// What the operator hears of a component that keeps its own record of failures.
class TestReportComponentError : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Record_ShowsItsWordsAndCodes_data();
    void Record_ShowsItsWordsAndCodes();
    void NoRecord_ShowsTheErrorThatAskingRaised();
    void UnexpectedException_IsShownToo();
};

/// A component that answers as the test says.
class FailingComponent : public ComponentWithLastError
{
public:
    std::function<void(qint32& major, qint32& minor, qint32& third, QString& text)> Answer;

    void GetLastError(qint32& major, qint32& minor, qint32& third, QString& text) override
    {
        Answer(major, minor, third, text);
    }
};

void TestReportComponentError::Record_ShowsItsWordsAndCodes_data()
{
    QTest::addColumn<int>("major");
    QTest::addColumn<int>("minor");
    QTest::addColumn<QString>("words");
    QTest::addColumn<QString>("message");
    QTest::newRow("plain") << 4 << 17 << "No answer."
                           << "Scan failed.\r\n\r\nNo answer.\r\n(Major code = 4, Minor code = 17)";
    QTest::newRow("negative, no words") << -1 << 0 << ""
                                        << "Scan failed.\r\n\r\n\r\n(Major code = -1, Minor code = 0)";
}

void TestReportComponentError::Record_ShowsItsWordsAndCodes()
{
    QFETCH(int, major);
    QFETCH(int, minor);
    QFETCH(QString, words);
    QFETCH(QString, message);
    RecordingPresenter presenter;
    FailingComponent component;
    component.Answer = [&](qint32& givenMajor, qint32& givenMinor, qint32& third, QString& text) {
        givenMajor = major;
        givenMinor = minor;
        third = 99;
        text = words;
    };

    ReportComponentError("Scan failed.", component);

    QCOMPARE(presenter.Boxes, std::vector{RecordedBox::Error(message)});
}

void TestReportComponentError::NoRecord_ShowsTheErrorThatAskingRaised()
{
    RecordingPresenter presenter;
    FailingComponent component;
    component.Answer = [](qint32&, qint32&, qint32&, QString&) {
        throw ComponentError(0x8004001F, "component", "Not connected.");
    };

    ReportComponentError("Scan failed.", component);

    QCOMPARE(presenter.Boxes,
             std::vector{RecordedBox::Error(
                 "Scan failed.\r\n\r\nError with HVX component\r\nNot connected.(8004001F)")});
}

void TestReportComponentError::UnexpectedException_IsShownToo()
{
    RecordingPresenter presenter;
    FailingComponent component;
    component.Answer = [](qint32&, qint32&, qint32&, QString&) { throw std::runtime_error("broken"); };

    ReportComponentError("Scan failed.", component);

    QCOMPARE(presenter.Texts(), QStringList{"Scan failed.\r\n\r\nError with HVX component\r\nbroken(0)"});
}

QTEST_GUILESS_MAIN(TestReportComponentError)
#include "TestReportComponentError.moc"
