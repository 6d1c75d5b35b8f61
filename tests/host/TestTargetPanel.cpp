#include "host/workstation/TargetPanel.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

/// The panel that shows what a host gets.
class TestTargetPanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void Panel_NotAskedYet_SaysWhatToDo();
    void Panel_Idle_NeverAsks();
    void ReadTarget_Valid_ShowsItAndOffersTheCopy();
    void ReadTarget_Refused_ShowsAClearStateAndNoTarget();
    void ReadTarget_CannotBeAsked_SaysSo();
    void ReadTarget_RefusedAfterValid_TakesTheOldOneAway();
    void ReadTarget_LooksLikeMarkup_IsShownAsItIs();
    void Copy_Clicked_PutsTheTargetOnTheClipboard();

private:
    [[nodiscard]] QPushButton& Button(const char* name) const
    {
        return *m_panel->findChild<QPushButton*>(QLatin1String(name));
    }
    [[nodiscard]] QString State() const
    {
        return m_panel->findChild<QLabel*>(QStringLiteral("lblState"))->text();
    }
    void Answer(bool result, const QString& target);

    std::unique_ptr<TargetPanel> m_panel;
    int m_asked = 0;
};

void TestTargetPanel::init()
{
    m_asked = 0;
    m_panel = std::make_unique<TargetPanel>();
    m_panel->show();
}

void TestTargetPanel::cleanup()
{
    m_panel.reset();
}

void TestTargetPanel::Answer(bool result, const QString& target)
{
    m_panel->SetReader([this, result, target](QString& answer) {
        ++m_asked;
        answer = target;
        return result;
    });
    QTest::mouseClick(&Button("cmdReadTarget"), Qt::LeftButton);
}

void TestTargetPanel::Panel_NotAskedYet_SaysWhatToDo()
{
    QVERIFY(m_panel->Target().isEmpty());
    QCOMPARE(State(), QStringLiteral("Select a connection or a node, or type a target, then read it."));
    QVERIFY(!Button("cmdReadTarget").isEnabled());
    QVERIFY(!Button("cmdCopy").isEnabled());
}

void TestTargetPanel::Panel_Idle_NeverAsks()
{
    m_panel->SetReader([this](QString&) {
        ++m_asked;
        return false;
    });
    m_panel->hide();
    m_panel->show();
    m_panel->activateWindow();
    QTest::qWait(20);

    QCOMPARE(m_asked, 0);
    QVERIFY(Button("cmdReadTarget").isEnabled());
}

void TestTargetPanel::ReadTarget_Valid_ShowsItAndOffersTheCopy()
{
    Answer(true, QStringLiteral("WP=BUST4,ID=254"));

    QCOMPARE(m_asked, 1);
    QCOMPARE(m_panel->Target(), QStringLiteral("WP=BUST4,ID=254"));
    QCOMPARE(State(), QStringLiteral("This is what the host gets."));
    QVERIFY(Button("cmdCopy").isEnabled());
}

void TestTargetPanel::ReadTarget_Refused_ShowsAClearStateAndNoTarget()
{
    Answer(false, QString());

    QVERIFY(m_panel->Target().isEmpty());
    QVERIFY(State().startsWith(QStringLiteral("There is no valid target.")));
    QVERIFY(!Button("cmdCopy").isEnabled());
}

void TestTargetPanel::ReadTarget_CannotBeAsked_SaysSo()
{
    m_panel->SetReader([](QString&) { return false; });

    m_panel->ReadTarget();

    QVERIFY(m_panel->Target().isEmpty());
    QCOMPARE(State(), QStringLiteral("The target could not be checked."));
}

void TestTargetPanel::ReadTarget_RefusedAfterValid_TakesTheOldOneAway()
{
    Answer(true, QStringLiteral("WP=BUST4,ID=254"));
    Answer(false, QString());

    QVERIFY(m_panel->Target().isEmpty());
    QVERIFY(!Button("cmdCopy").isEnabled());
}

void TestTargetPanel::ReadTarget_LooksLikeMarkup_IsShownAsItIs()
{
    Answer(true, QStringLiteral("WP=SOCKET,HOST=<b>a&amp;b</b>"));

    QCOMPARE(m_panel->Target(), QStringLiteral("WP=SOCKET,HOST=<b>a&amp;b</b>"));
}

void TestTargetPanel::Copy_Clicked_PutsTheTargetOnTheClipboard()
{
    QGuiApplication::clipboard()->setText(QStringLiteral("before"));
    Answer(true, QStringLiteral("WP=BUST4,ID=254"));

    QTest::mouseClick(&Button("cmdCopy"), Qt::LeftButton);

    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("WP=BUST4,ID=254"));
}

QTEST_MAIN(TestTargetPanel)
#include "TestTargetPanel.moc"
