#include "support/ComponentVersion.h"
#include "support/frmSplash.h"
#include "tests/support/RecordingPresenter.h"
#include "tests/support/version/NamedValuesStore.h"

#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <memory>

/// The version display.
class TestFrmSplash : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void Show_NothingRegistered_TellsTheProgramsVersion();
    void Show_ClassWithoutFile_TellsTheProgramsVersion();
    void Show_FileRegistered_TellsItsVersionAndTheRest();
    void Show_FileIsGone_TellsThatItHasNone();
    void Show_RegisteredWhileItStands_FollowsWhenActivated();
    void Text_IsGrey();
    void Key_OkOrEscape_Closes_data();
    void Key_OkOrEscape_Closes();

private:
    [[nodiscard]] QLabel& Version() const { return *m_form->findChild<QLabel*>("lblVersion"); }
    [[nodiscard]] QString ShownVersion() const;

    std::unique_ptr<NamedValuesStore> m_store;
    std::unique_ptr<RecordingPresenter> m_boxes;
    std::unique_ptr<frmSplash> m_form;
};

void TestFrmSplash::init()
{
    m_store = std::make_unique<NamedValuesStore>();
    m_boxes = std::make_unique<RecordingPresenter>();
    m_form = std::make_unique<frmSplash>();
}

void TestFrmSplash::cleanup()
{
    m_form.reset();
    QVERIFY(m_boxes->Boxes.empty());
    m_boxes.reset();
    m_store.reset();
}

QString TestFrmSplash::ShownVersion() const
{
    m_form->show();
    return QTest::qWaitForWindowActive(m_form.get()) ? Version().text() : QString();
}

void TestFrmSplash::Show_NothingRegistered_TellsTheProgramsVersion()
{
    QCOMPARE(ShownVersion(), "Version 4.02.0000");
}

void TestFrmSplash::Show_ClassWithoutFile_TellsTheProgramsVersion()
{
    NamedValues().Write("HKEY_CLASSES_ROOT/" + ControlProgId + "/Clsid", ControlClassId);

    QCOMPARE(ShownVersion(), "Version 4.02.0000");
}

void TestFrmSplash::Show_FileRegistered_TellsItsVersionAndTheRest()
{
    RegisterControl(PLUGIN_WITH_VERSION);

    QCOMPARE(ShownVersion(), "Version 1.00.0000, " + GetComponentFileDetails(PLUGIN_WITH_VERSION));
}

void TestFrmSplash::Show_FileIsGone_TellsThatItHasNone()
{
    RegisterControl("/gone/libzelkabrowser.so.4");

    QCOMPARE(ShownVersion(), "Version No Version Info available!");
}

void TestFrmSplash::Show_RegisteredWhileItStands_FollowsWhenActivated()
{
    QCOMPARE(ShownVersion(), "Version 4.02.0000");
    RegisterControl(PLUGIN_WITH_VERSION);

    QEvent activated(QEvent::WindowActivate);
    QCoreApplication::sendEvent(m_form.get(), &activated);

    QVERIFY(Version().text().startsWith("Version 1.00.0000, "));
}

void TestFrmSplash::Text_IsGrey()
{
    QCOMPARE(Version().palette().color(QPalette::WindowText), QColor(100, 100, 100));
}

void TestFrmSplash::Key_OkOrEscape_Closes_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("OK") << int(Qt::Key_Return);
    QTest::newRow("Escape") << int(Qt::Key_Escape);
}

void TestFrmSplash::Key_OkOrEscape_Closes()
{
    QFETCH(int, key);
    QVERIFY(!ShownVersion().isEmpty());

    QTest::keyClick(m_form.get(), static_cast<Qt::Key>(key));

    QVERIFY(!m_form->isVisible());
}

QTEST_MAIN(TestFrmSplash)
#include "TestFrmSplash.moc"
