#include "components/syncconn/SyncFailure.h"
#include "host/workstation/ConsolePanel.h"
#include "tests/support/FakeMachine.h"
#include "tests/support/ScriptedNetwork.h"

#include <QAbstractItemView>
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

/// The console, with real controls, on scripted components.
class TestConsolePanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void Panel_NoTarget_CannotSend();
    void Panel_Offers_TellWordsAndPutTheRequest();
    void Send_FirstRequest_OpensTheTarget();
    void Send_SecondRequest_UsesTheOpenTarget();
    void Send_OtherTarget_ClosesTheFirst();
    void Send_EnterInTheBox_Sends();
    void Send_ByAccessKey_KeepsTheFocus();
    void Send_RequestAbove8Bit_IsAFailure();
    void Send_ComponentMissing_IsAFailure_data();
    void Send_ComponentMissing_IsAFailure();
    void Send_OpenFails_TellsAndStaysClosed_data();
    void Send_OpenFails_TellsAndStaysClosed();
    void Send_RequestFails_StaysOpenOrCloses_data();
    void Send_RequestFails_StaysOpenOrCloses();
    void Disconnect_Pressed_Closes();

    void Wait_UnderWay_OffersOnlyToDisconnect_data();
    void Wait_UnderWay_OffersOnlyToDisconnect();
    void Wait_Disconnected_TellsAndCanSendAgain();
    void Wait_Disconnected_CanSendAtOnce();
    void Wait_TargetChanged_StaysWithTheFirst();
    void Wait_PanelGone_EndsSafely_data();
    void Wait_PanelGone_EndsSafely();

    void Log_Text_IsShownAsItIs();
    void Log_NotPrintable_IsShownAsHexToo_data();
    void Log_NotPrintable_IsShownAsHexToo();
    void Log_ManyLines_KeepsTheNewest();
    void Log_Copied_IsOnTheClipboard();
    void Log_Cleared_IsEmpty();
    void Controls_All_HaveNamesAndKeys();

private:
    template <typename Widget>
    [[nodiscard]] Widget& Child(const char* name) const
    {
        return *m_panel->findChild<Widget*>(QLatin1String(name));
    }
    [[nodiscard]] QPushButton& Button(const char* name) const { return Child<QPushButton>(name); }
    void Press(const char* name) const { QTest::mouseClick(&Button(name), Qt::LeftButton); }
    void SendRequest(const QString& request) const;
    /// Lines of the log without their times.
    [[nodiscard]] QStringList Log() const;
    [[nodiscard]] QString State() const;
    /// Runs within the wait of the component, which then fails when it was closed.
    void WhileWaiting(const std::function<void()>& action, bool whileOpening = false);

    std::unique_ptr<FakeMachine> m_machine;
    std::unique_ptr<ScriptedNetwork> m_network;
    std::unique_ptr<ConsolePanel> m_panel;
};

static const QString Bus = QStringLiteral("WP=BUST4,ID=1");

void TestConsolePanel::init()
{
    m_machine = std::make_unique<FakeMachine>();
    Machine().WallClock = [] { return QDateTime(QDate(2024, 5, 6), QTime(7, 8, 9)); };
    m_network = std::make_unique<ScriptedNetwork>();
    m_network->OnSend = [](const QString&, const QString& request) {
        return QStringLiteral("Reply to ") + request;
    };
    m_panel = std::make_unique<ConsolePanel>();
    m_panel->SetTarget(Bus);
    m_panel->resize(400, 400);
    m_panel->show();
    m_panel->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_panel.get()));
}

void TestConsolePanel::cleanup()
{
    m_panel.reset();
    QCOMPARE(m_network->Connections, 0);
    QCOMPARE(m_network->Utilities, 0);
    m_network.reset();
    m_machine.reset();
}

void TestConsolePanel::SendRequest(const QString& request) const
{
    Child<QComboBox>("cboRequest").setEditText(request);
    Press("cmdSend");
}

QStringList TestConsolePanel::Log() const
{
    QStringList lines;
    for (const QString& line : Child<QPlainTextEdit>("txtLog").toPlainText().split(u'\n', Qt::SkipEmptyParts))
        lines << line.mid(9);
    return lines;
}

QString TestConsolePanel::State() const
{
    return Child<QLabel>("lblTalk").text().remove(QChar(0x200b));
}

void TestConsolePanel::WhileWaiting(const std::function<void()>& action, bool whileOpening)
{
    const auto wait = [this, action] {
        bool done = false;
        const qsizetype closed = m_network->Calls.count(QStringLiteral("Close"));
        QTimer::singleShot(0, this, [&done, action] {
            action();
            done = true;
        });
        QVERIFY(QTest::qWaitFor([&done] { return done; }));
        if (m_network->Calls.count(QStringLiteral("Close")) > closed)
            ScriptedNetwork::Raise(QStringLiteral("Closed"));
    };
    if (whileOpening)
        m_network->OnOpen = [wait](const QString&) {
            wait();
            return 0;
        };
    else
        m_network->OnSend = [wait](const QString&, const QString& request) {
            wait();
            return QStringLiteral("Reply to ") + request;
        };
}

void TestConsolePanel::Panel_NoTarget_CannotSend()
{
    m_panel->SetTarget(QString());

    QVERIFY(!Button("cmdSend").isEnabled());
    QVERIFY(!Button("cmdDisconnect").isEnabled());
    QCOMPARE(State(), QStringLiteral("Not connected. There is no target to send a request to."));
    QVERIFY(!m_panel->Send(QStringLiteral("40")));
    QCOMPARE(m_network->Calls, QStringList());
}

void TestConsolePanel::Panel_Offers_TellWordsAndPutTheRequest()
{
    auto& box = Child<QComboBox>("cboRequest");
    QCOMPARE(box.currentText(), QStringLiteral("40"));
    QCOMPARE(box.itemData(0, Qt::AccessibleTextRole).toString(), QStringLiteral("40  identification"));
    QCOMPARE(box.itemData(1, Qt::AccessibleTextRole).toString(), QStringLiteral("03  type"));

    box.showPopup();
    QTest::keyClick(box.view(), Qt::Key_Down);
    QTest::keyClick(box.view(), Qt::Key_Return);

    QCOMPARE(box.currentText(), QStringLiteral("03"));
    box.setEditText(QString());
    QVERIFY(!Button("cmdSend").isEnabled());
}

void TestConsolePanel::Send_FirstRequest_OpensTheTarget()
{
    QCOMPARE(State(), QStringLiteral("Not connected. A request opens the target."));

    Press("cmdSend");

    QCOMPARE(m_network->Calls, (QStringList{"Create Zelka.HVXUtil.1", "Create Zelka.HVXSyncConn.1", "U2A 40",
                                            "Open WP=BUST4,ID=1", "Send |40", "Gone utility"}));
    QCOMPARE(Log(), (QStringList{"> 40", "- connected to WP=BUST4,ID=1", "< Reply to 40"}));
    QCOMPARE(State(), QStringLiteral("Connected to WP=BUST4,ID=1."));
    QVERIFY(Button("cmdDisconnect").isEnabled());
}

void TestConsolePanel::Send_SecondRequest_UsesTheOpenTarget()
{
    SendRequest(QStringLiteral("40"));
    (void)m_network->TakeCalls();

    SendRequest(QStringLiteral("03"));

    QCOMPARE(m_network->Calls, (QStringList{"Create Zelka.HVXUtil.1", "U2A 03", "Send |03", "Gone utility"}));
    QCOMPARE(Log().mid(3), (QStringList{"> 03", "< Reply to 03"}));
}

void TestConsolePanel::Send_OtherTarget_ClosesTheFirst()
{
    SendRequest(QStringLiteral("40"));
    m_panel->SetTarget(QStringLiteral("WP=BUST4,ID=2"));
    QCOMPARE(State(), QStringLiteral("Connected to WP=BUST4,ID=1. The next request goes to the new target."));
    (void)m_network->TakeCalls();

    SendRequest(QStringLiteral("03"));

    QCOMPARE(m_network->Calls.mid(0, 2), (QStringList{"Close", "Gone connection"}));
    QVERIFY(m_network->Calls.contains(QStringLiteral("Open WP=BUST4,ID=2")));
    QCOMPARE(Log().mid(3),
             (QStringList{"> 03", "- disconnected", "- connected to WP=BUST4,ID=2", "< Reply to 03"}));
}

void TestConsolePanel::Send_EnterInTheBox_Sends()
{
    auto& box = Child<QComboBox>("cboRequest");
    box.setFocus();
    box.lineEdit()->selectAll();

    QTest::keyClicks(box.lineEdit(), QStringLiteral("77"));
    QTest::keyClick(box.lineEdit(), Qt::Key_Return);

    QVERIFY(m_network->Calls.contains(QStringLiteral("Send |77")));
    QVERIFY(box.hasFocus());
}

void TestConsolePanel::Send_ByAccessKey_KeepsTheFocus()
{
    Button("cmdSend").setFocus();

    QTest::keyClick(m_panel->windowHandle(), Qt::Key_N, Qt::AltModifier);

    QTRY_COMPARE(Log().value(2), QStringLiteral("< Reply to 40"));
    QVERIFY(Button("cmdSend").hasFocus());
}

void TestConsolePanel::Send_RequestAbove8Bit_IsAFailure()
{
    m_network->OnConvert = [](const QString&, const QString&) -> QString {
        ScriptedNetwork::Raise(QStringLiteral("No 8-bit character"));
    };

    SendRequest(QStringLiteral("\u20ac"));

    QCOMPARE(Log(), (QStringList{QStringLiteral("> \u20ac"), "! No 8-bit character"}));
    QVERIFY(!m_network->Calls.contains(QStringLiteral("Open WP=BUST4,ID=1")));
    QVERIFY(!Button("cmdDisconnect").isEnabled());
}

void TestConsolePanel::Send_ComponentMissing_IsAFailure_data()
{
    QTest::addColumn<QString>("component");
    QTest::newRow("connection") << HvxSyncConnId;
    QTest::newRow("utility") << HvxUtilityId;
}

void TestConsolePanel::Send_ComponentMissing_IsAFailure()
{
    QFETCH(QString, component);
    m_network->NotCreated << component;

    const std::optional<NodeTalk::Answer> answer = m_panel->Send(QStringLiteral("40"));

    QVERIFY(answer && !answer->good && answer->noNetwork);
    QCOMPARE(Log(), (QStringList{"> 40", "! " + answer->text}));
    QVERIFY(Button("cmdSend").isEnabled());
}

void TestConsolePanel::Send_OpenFails_TellsAndStaysClosed_data()
{
    QTest::addColumn<int>("major");
    QTest::addColumn<bool>("raises");
    QTest::addColumn<bool>("noNetwork");
    QTest::newRow("no gateway") << SyncFailure::Major::Gateway << true << true;
    QTest::newRow("refused") << SyncFailure::Major::Refused << true << false;
    QTest::newRow("not raised") << SyncFailure::Major::Refused << false << false;
}

void TestConsolePanel::Send_OpenFails_TellsAndStaysClosed()
{
    QFETCH(int, major);
    QFETCH(bool, raises);
    m_network->Major = major;
    m_network->Minor = 2;
    m_network->Text = QStringLiteral("Trouble");
    m_network->OnOpen = [raises](const QString&) {
        if (raises)
            ScriptedNetwork::Raise();
        return 7;
    };

    const std::optional<NodeTalk::Answer> answer = m_panel->Send(QStringLiteral("40"));

    QVERIFY(answer && !answer->good);
    QTEST(answer->noNetwork, "noNetwork");
    QCOMPARE(Log(),
             (QStringList{"> 40", QStringLiteral("! Trouble (Major code = %1, Minor code = 2)").arg(major)}));
    QCOMPARE(m_network->Connections, 0);
    QVERIFY(!Button("cmdDisconnect").isEnabled());
    QVERIFY(Button("cmdSend").isEnabled());
}

void TestConsolePanel::Send_RequestFails_StaysOpenOrCloses_data()
{
    QTest::addColumn<int>("major");
    QTest::addColumn<int>("connections");
    QTest::newRow("silent") << SyncFailure::Major::Element << 1;
    QTest::newRow("refused") << SyncFailure::Major::Refused << 1;
    QTest::newRow("lost") << SyncFailure::Major::Gateway << 0;
    QTest::newRow("malformed") << SyncFailure::Major::Protocol << 0;
}

void TestConsolePanel::Send_RequestFails_StaysOpenOrCloses()
{
    QFETCH(int, major);
    m_network->Major = major;
    m_network->Minor = 1;
    m_network->Text = QStringLiteral("Trouble");
    m_network->OnSend = nullptr;

    Press("cmdSend");

    QTEST(m_network->Connections, "connections");
    QCOMPARE(Button("cmdDisconnect").isEnabled(), m_network->Connections == 1);
    QCOMPARE(Log().last(), QStringLiteral("! Trouble (Major code = %1, Minor code = 1)").arg(major));
}

void TestConsolePanel::Disconnect_Pressed_Closes()
{
    Press("cmdSend");
    (void)m_network->TakeCalls();

    Press("cmdDisconnect");

    QCOMPARE(m_network->Calls, (QStringList{"Close", "Gone connection"}));
    QCOMPARE(Log().last(), QStringLiteral("- disconnected"));
    QCOMPARE(State(), QStringLiteral("Not connected. A request opens the target."));
    QVERIFY(!Button("cmdDisconnect").isEnabled());
    QVERIFY(Child<QComboBox>("cboRequest").hasFocus());
}

void TestConsolePanel::Wait_UnderWay_OffersOnlyToDisconnect_data()
{
    QTest::addColumn<bool>("opening");
    QTest::addColumn<QString>("state");
    QTest::newRow("opening") << true << "Connecting to WP=BUST4,ID=1 ...";
    QTest::newRow("asking") << false << "Waiting for the reply of WP=BUST4,ID=1 ...";
}

void TestConsolePanel::Wait_UnderWay_OffersOnlyToDisconnect()
{
    QFETCH(bool, opening);
    QString state;
    bool canSend = true;
    bool canDisconnect = false;
    std::optional<NodeTalk::Answer> second;
    WhileWaiting(
        [&] {
            state = State();
            canSend = Button("cmdSend").isEnabled();
            canDisconnect = Button("cmdDisconnect").isEnabled();
            second = m_panel->Send(QStringLiteral("03"));
        },
        opening);

    Press("cmdSend");

    QTEST(state, "state");
    QVERIFY(!canSend);
    QVERIFY(canDisconnect);
    QVERIFY(!second);
    QCOMPARE(Log().last(), QStringLiteral("< Reply to 40"));
    QVERIFY(Button("cmdSend").isEnabled());
}

void TestConsolePanel::Wait_Disconnected_TellsAndCanSendAgain()
{
    WhileWaiting([this] { Press("cmdDisconnect"); });
    Press("cmdSend");

    QCOMPARE(Log(), (QStringList{"> 40", "- connected to WP=BUST4,ID=1", "- disconnected", "! Closed"}));
    QCOMPARE(m_network->Connections, 0);
    WhileWaiting([] {});
    Press("cmdSend");
    QCOMPARE(Log().last(), QStringLiteral("< Reply to 40"));
}

void TestConsolePanel::Wait_Disconnected_CanSendAtOnce()
{
    bool first = true;
    WhileWaiting([&] {
        if (!std::exchange(first, false))
            return;
        Press("cmdDisconnect");
        SendRequest(QStringLiteral("03"));
    });

    Press("cmdSend");

    QCOMPARE(Log().mid(3),
             (QStringList{"> 03", "- connected to WP=BUST4,ID=1", "< Reply to 03", "! Closed"}));
    // The end of the first wait leaves the second connection alone.
    QCOMPARE(m_network->Connections, 1);
    QCOMPARE(State(), QStringLiteral("Connected to WP=BUST4,ID=1."));
}

void TestConsolePanel::Wait_TargetChanged_StaysWithTheFirst()
{
    WhileWaiting([this] { m_panel->SetTarget(QStringLiteral("WP=BUST4,ID=2")); });

    Press("cmdSend");

    QCOMPARE(Log().last(), QStringLiteral("< Reply to 40"));
    QCOMPARE(State(), QStringLiteral("Connected to WP=BUST4,ID=1. The next request goes to the new target."));
}

void TestConsolePanel::Wait_PanelGone_EndsSafely_data()
{
    QTest::addColumn<bool>("opening");
    QTest::newRow("opening") << true;
    QTest::newRow("asking") << false;
}

void TestConsolePanel::Wait_PanelGone_EndsSafely()
{
    QFETCH(bool, opening);
    WhileWaiting([this] { m_panel.reset(); }, opening);

    Button("cmdSend").click();

    QVERIFY(!m_panel);
    QVERIFY(m_network->Calls.contains(QStringLiteral("Close")));
    QCOMPARE(m_network->Connections, 0);
}

void TestConsolePanel::Log_Text_IsShownAsItIs()
{
    m_network->OnSend = [](const QString&, const QString&) {
        return QStringLiteral("<b>K\u00f6ln</b> &amp;");
    };

    Press("cmdSend");

    QCOMPARE(Child<QPlainTextEdit>("txtLog").toPlainText().split(u'\n').last(),
             QStringLiteral("07:08:09 < <b>K\u00f6ln</b> &amp;"));
}

void TestConsolePanel::Log_NotPrintable_IsShownAsHexToo_data()
{
    QTest::addColumn<QString>("reply");
    QTest::addColumn<QStringList>("lines");
    QTest::newRow("lines") << "a\r\nb" << QStringList{"< a..b", "< hex 61 0D 0A 62"};
    QTest::newRow("zero") << QString(QChar(0)) << QStringList{"< .", "< hex 00"};
    QTest::newRow("control above") << QString(QChar(0x9b)) << QStringList{"< .", "< hex 9B"};
    QTest::newRow("blanks") << "a b" << QStringList{"< a b"};
    QTest::newRow("empty") << "" << QStringList{"< "};
    QTest::newRow("long") << QString(300, u'\r')
                          << QStringList{"< " + QString(300, u'.'),
                                         "< hex " + QStringLiteral("0D ").repeated(256) + "... (300 bytes)"};
}

void TestConsolePanel::Log_NotPrintable_IsShownAsHexToo()
{
    QFETCH(QString, reply);
    m_network->OnSend = [reply](const QString&, const QString&) { return reply; };

    Press("cmdSend");

    QTEST(Log().mid(2), "lines");
}

void TestConsolePanel::Log_ManyLines_KeepsTheNewest()
{
    for (int i = 0; i < ConsolePanel::MostLines; ++i)
        m_panel->Send(QString::number(i));

    const auto& log = Child<QPlainTextEdit>("txtLog");
    QCOMPARE(log.blockCount(), ConsolePanel::MostLines);
    QCOMPARE(Log().last(), QStringLiteral("< Reply to %1").arg(ConsolePanel::MostLines - 1));
}

void TestConsolePanel::Log_Copied_IsOnTheClipboard()
{
    Press("cmdSend");

    Press("cmdCopyLog");

    QCOMPARE(QGuiApplication::clipboard()->text(),
             QStringLiteral("07:08:09 > 40\n07:08:09 - connected to WP=BUST4,ID=1\n07:08:09 < Reply to 40"));
}

void TestConsolePanel::Log_Cleared_IsEmpty()
{
    Press("cmdSend");

    Press("cmdClearLog");

    QCOMPARE(Log(), QStringList());
    QVERIFY(Button("cmdDisconnect").isEnabled());
}

void TestConsolePanel::Controls_All_HaveNamesAndKeys()
{
    for (const char* name : {"cmdSend", "cmdDisconnect", "cmdCopyLog", "cmdClearLog"}) {
        QVERIFY2(!Button(name).toolTip().isEmpty(), name);
        QVERIFY2(!QKeySequence::mnemonic(Button(name).text()).isEmpty(), name);
        QVERIFY2(Button(name).focusPolicy() & Qt::TabFocus, name);
    }
    QVERIFY(!Child<QComboBox>("cboRequest").accessibleName().isEmpty());
    QVERIFY(!Child<QPlainTextEdit>("txtLog").accessibleName().isEmpty());
}

QTEST_MAIN(TestConsolePanel)
#include "TestConsolePanel.moc"
