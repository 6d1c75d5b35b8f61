#include "browser/T4ZelkaBrowser.h"
#include "platform/controls/IntervalTimer.h"
#include "tests/browser/BrowserTestSupport.h"
#include "tests/support/RecordingPresenter.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTest>

namespace {

/// The persisted properties with their defaults, in the order in which they are stored.
const QStringList StoredProperties = {
    QStringLiteral("RefreshVisible=true"),
    QStringLiteral("RefreshTimer=false"),
    QStringLiteral("RefreshInterval=30000"),
    QStringLiteral("ManageVisible=false"),
    QStringLiteral("Sobriquet="),
    QStringLiteral("CommandLine="),
    QStringLiteral("NodeType="),
    QStringLiteral("JournalDayLimit=2"),
    QStringLiteral("JournalDaysToKeep=1"),
    QStringLiteral("JournalRecordLimit=12000"),
    QStringLiteral("JournalRecordsToKeep=2000"),
    QStringLiteral("BrowserTabIndex=1"),
};

/// A control in a form editor: it has its properties and no database.
std::unique_ptr<T4ZelkaBrowser> DesignedControl()
{
    auto control = std::make_unique<T4ZelkaBrowser>();
    control->SetUserMode(false);
    return control;
}

} // namespace

class TestBrowserProperties : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { ResetModuleState(); }
    void cleanup() { ResetModuleState(); }

    void NewControl_AllProperties_HaveTheirDefaults()
    {
        const auto control = DesignedControl();
        for (const QString& property : StoredProperties) {
            const QStringList parts = property.split(QLatin1Char('='));
            QCOMPARE(control->property(parts[0].toLatin1()).toString(), parts[1]);
        }
        QCOMPARE(control->UserMode(), false);
        QCOMPARE(T4ZelkaBrowser().UserMode(), true);
    }

    void NewControl_Captions_AreThere()
    {
        const auto control = DesignedControl();
        const QList<std::pair<const char*, QString>> labels = {
            {"Label2", QStringLiteral("Target:")},     {"Label3", QStringLiteral("Name:")},
            {"Label1", QStringLiteral("Type:")},       {"lblAddr", QStringLiteral("Address:")},
            {"lblFeId", QStringLiteral("FE ID:")},     {"lblFeCh", QStringLiteral("FE Channel:")},
            {"lblRetry", QStringLiteral("Retries:")},  {"lblTime", QStringLiteral("Time-out:")},
            {"lblUser", QStringLiteral("User Name:")}, {"lblPsw", QStringLiteral("Password:")},
            {"lblPath", QStringLiteral("Path:")},      {"lblTimeMML", QStringLiteral("Time-out:")},
            {"lblHost", QStringLiteral("Host:")},      {"lblRetryMML", QStringLiteral("Retries:")},
            {"Label4", QStringLiteral("Port:")},       {"Label5", QStringLiteral("Community:")},
            {"Label6", QStringLiteral("Section:")},    {"Label7", QStringLiteral("Station:")}};
        for (const auto& [name, text] : labels)
            QCOMPARE(Child<QLabel>(*control, name).text(), text);
        QCOMPARE(Child<QGroupBox>(*control, "Frame3").title(), QStringLiteral("Target String"));
        QCOMPARE(Child<QGroupBox>(*control, "Frame1").title(), QStringLiteral("Connection"));
        QCOMPARE(Child<QGroupBox>(*control, "fraNodeParam").title(), QStringLiteral("Node Parameters"));
        const QStringList nodePages = {QStringLiteral("NET4"), QStringLiteral("NEMML"),
                                       QStringLiteral("SNMP Node")};
        for (int page = 0; page < nodePages.size(); ++page)
            QCOMPARE(Child<QTabWidget>(*control, "tabNode").tabText(page), nodePages[page]);
    }

    void StoredProperties_MetaObject_AllNotify()
    {
        const QMetaObject& meta = T4ZelkaBrowser::staticMetaObject;
        for (const QString& property : StoredProperties) {
            const int index = meta.indexOfProperty(property.section(QLatin1Char('='), 0, 0).toLatin1());
            QVERIFY2(index >= 0, qPrintable(property));
            QVERIFY2(meta.property(index).hasNotifySignal(), qPrintable(property));
            QVERIFY2(meta.property(index).isWritable(), qPrintable(property));
        }
    }

    void WriteProperties_DefaultControl_AsksInOrderAndStoresTheIntervalAlone()
    {
        RecordingBag bag;
        DesignedControl()->UserControl_WriteProperties(bag);

        QStringList expected = StoredProperties;
        expected[2] = QStringLiteral("RefreshInterval"); // without a default
        QCOMPARE(bag.Written, expected);
        QCOMPARE(bag.Values.keys(), QStringList{QStringLiteral("RefreshInterval")});
        QCOMPARE(bag.Values[QStringLiteral("RefreshInterval")].toInt(), 30000);
    }

    void ReadProperties_EmptyBag_AsksInOrderWithDefaults()
    {
        const RecordingBag bag;
        DesignedControl()->UserControl_ReadProperties(bag);
        QCOMPARE(bag.Read, StoredProperties);
    }

    void ReadProperties_WhatWasWritten_GivesItBack()
    {
        RecordingBag bag;
        const auto written = DesignedControl();
        written->SetRefreshVisible(false);
        written->SetRefreshTimer(true);
        written->SetRefreshInterval(5000);
        written->SetManageVisible(true);
        written->SetSobriquet(QStringLiteral("Espoo"));
        written->SetCommandLine(QStringLiteral("-x"));
        written->SetNodeType(QStringLiteral("DEV"));
        written->SetJournalDayLimit(7);
        written->SetJournalDaysToKeep(6);
        written->SetJournalRecordLimit(50);
        written->SetJournalRecordsToKeep(40);
        written->SetBrowserTabIndex(0);
        written->UserControl_WriteProperties(bag);
        Browser().BrowserTabIndex = 1;

        const auto read = DesignedControl();
        read->UserControl_ReadProperties(bag);

        for (const QString& property : StoredProperties) {
            const QByteArray name = property.section(QLatin1Char('='), 0, 0).toLatin1();
            QCOMPARE(read->property(name), written->property(name));
        }
        QCOMPARE(read->BrowserTabIndex(), 0);
    }

    void ReadProperties_TextThatIsNoNumber_CountsAsNotStored()
    {
        RecordingBag bag;
        bag.Values[QStringLiteral("RefreshInterval")] = QStringLiteral("soon");
        bag.Values[QStringLiteral("RefreshVisible")] = QStringLiteral("false");
        const auto control = DesignedControl();
        control->UserControl_ReadProperties(bag);
        QCOMPARE(control->RefreshInterval(), 30000);
        QCOMPARE(control->RefreshVisible(), false);
    }

    void InitProperties_ChangedProperties_GoBackInOrder()
    {
        const auto control = DesignedControl();
        control->SetSobriquet(QStringLiteral("a"));
        control->SetCommandLine(QStringLiteral("b"));
        control->SetNodeType(QStringLiteral("c"));
        QStringList told;
        const QMetaObject& meta = T4ZelkaBrowser::staticMetaObject;
        std::vector<std::unique_ptr<QSignalSpy>> spies;
        for (const QString& property : StoredProperties) {
            const QByteArray name = property.section(QLatin1Char('='), 0, 0).toLatin1();
            const QMetaMethod notify = meta.property(meta.indexOfProperty(name)).notifySignal();
            spies.push_back(std::make_unique<QSignalSpy>(control.get(), notify));
        }
        connect(control.get(), &T4ZelkaBrowser::RefreshVisibleChanged,
                [&] { told << QStringLiteral("first"); });
        connect(control.get(), &T4ZelkaBrowser::SobriquetChanged, [&] { told << QStringLiteral("middle"); });
        connect(control.get(), &T4ZelkaBrowser::BrowserTabIndexChanged,
                [&] { told << QStringLiteral("last"); });

        control->UserControl_InitProperties();

        for (const auto& spy : spies)
            QCOMPARE(spy->count(), 1);
        QCOMPARE(told,
                 QStringList({QStringLiteral("first"), QStringLiteral("middle"), QStringLiteral("last")}));
    }

    void SetProperty_Visibility_ShowsAndHidesTheButton_data()
    {
        QTest::addColumn<QByteArray>("property");
        QTest::addColumn<QByteArray>("button");
        QTest::newRow("refresh") << QByteArray("RefreshVisible") << QByteArray("cmdRefresh");
        QTest::newRow("manage") << QByteArray("ManageVisible") << QByteArray("cmdDatabaseManage");
    }
    void SetProperty_Visibility_ShowsAndHidesTheButton()
    {
        QFETCH(const QByteArray, property);
        QFETCH(const QByteArray, button);
        const auto control = DesignedControl();
        for (const bool value : {false, true}) {
            control->setProperty(property, value);
            QCOMPARE(Child<QPushButton>(*control, button).isHidden(), !value);
        }
    }

    void SetRefreshTimer_AndInterval_DriveTheTimer()
    {
        const auto control = DesignedControl();
        const auto& timer = Child<IntervalTimer>(*control, "tmrRefreshTimer");
        QCOMPARE(timer.Interval(), 30000);
        QVERIFY(!timer.Enabled());
        control->SetRefreshTimer(true);
        QVERIFY(timer.Runs());
        control->SetRefreshInterval(1234);
        QCOMPARE(timer.Interval(), 1234);
        control->SetRefreshInterval(0);
        QVERIFY(timer.Enabled() && !timer.Runs());
        control->SetRefreshInterval(-5);
        QVERIFY(!timer.Runs());
        control->SetRefreshTimer(false);
        QVERIFY(!timer.Enabled());
    }

    void SetBrowserTabIndex_WhileRunning_TurnsThePage()
    {
        T4ZelkaBrowser control;
        const auto& tabMain = Child<QTabWidget>(control, "tabMain");
        control.SetBrowserTabIndex(1);
        QCOMPARE(tabMain.currentIndex(), 1);
        control.SetBrowserTabIndex(0);
        QCOMPARE(tabMain.currentIndex(), 0);
        QVERIFY(tabMain.isTabEnabled(0));
    }

    void SetBrowserTabIndex_InAFormEditor_KeepsThePageAndIsShared()
    {
        const auto control = DesignedControl();
        control->SetBrowserTabIndex(1);
        QCOMPARE(Child<QTabWidget>(*control, "tabMain").currentIndex(), 0);
        control->SetBrowserTabIndex(5);
        QCOMPARE(DesignedControl()->BrowserTabIndex(), 5);
    }

    void SetDirectNodeTabEnabled_EitherValue_EnablesFieldsAndTheSecondPage()
    {
        const auto control = DesignedControl();
        for (const bool value : {true, false}) {
            control->SetDirectNodeTabEnabled(value);
            for (const char* name : {"txtAddress", "txtFeId", "txtRetries", "txtFeChannel", "txtTimeOut"})
                QCOMPARE(Child<QLineEdit>(*control, name).isEnabled(), value);
            for (const char* name : {"lblAddr", "lblFeId", "lblRetry", "lblFeCh", "lblTime"})
                QCOMPARE(Child<QLabel>(*control, name).isEnabled(), value);
            QCOMPARE(Child<QTabWidget>(*control, "tabNode").isTabEnabled(1), value);
            QVERIFY(Child<QTabWidget>(*control, "tabNode").isTabEnabled(0));
            QCOMPARE(DesignedControl()->DirectNodeTabEnabled(), value);
        }
    }

    void FormEditor_StartAndShow_TouchNoDatabase()
    {
        RecordingPresenter boxes;
        const auto control = DesignedControl();
        control->UserControl_InitProperties();
        control->SetBrowserTabIndex(2);
        control->show();
        control->hide();
        QVERIFY(!Model().ConObject);
        QVERIFY(!Database().DbObject);
        QVERIFY(!Browser().ControlInitialized);
        QCOMPARE(boxes.Texts(), QStringList());
        control->SetSobriquet(QStringLiteral("still a property"));
        QCOMPARE(control->Sobriquet(), QStringLiteral("still a property"));
    }
};

QTEST_MAIN(TestBrowserProperties)
#include "TestBrowserProperties.moc"
