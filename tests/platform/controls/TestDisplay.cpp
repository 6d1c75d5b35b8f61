#include "platform/controls/Display.h"

#include <QTest>

namespace {

constexpr const char* Names[] = {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};

} // namespace

/// Which platform a program with windows gets.
class TestDisplay : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();

    void Environment_Examined_ChoosesThePlatform_data();
    void Environment_Examined_ChoosesThePlatform();
    void Platform_Offscreen_IsTold();

private:
    QMap<QByteArray, QByteArray> m_before;
};

void TestDisplay::initTestCase()
{
    for (const char* name : Names) {
        if (qEnvironmentVariableIsSet(name))
            m_before.insert(name, qgetenv(name));
    }
}

void TestDisplay::cleanup()
{
    for (const char* name : Names) {
        if (m_before.contains(name))
            qputenv(name, m_before.value(name));
        else
            qunsetenv(name);
    }
}

void TestDisplay::Environment_Examined_ChoosesThePlatform_data()
{
    QTest::addColumn<QByteArray>("display");
    QTest::addColumn<QByteArray>("wayland");
    QTest::addColumn<QByteArray>("chosen");
    QTest::addColumn<QByteArray>("platform");
    QTest::newRow("nothing") << QByteArray() << QByteArray() << QByteArray() << QByteArray("offscreen");
    QTest::newRow("X") << QByteArray(":0") << QByteArray() << QByteArray() << QByteArray();
    QTest::newRow("Wayland") << QByteArray() << QByteArray("wayland-0") << QByteArray() << QByteArray();
    QTest::newRow("chosen") << QByteArray() << QByteArray() << QByteArray("vnc") << QByteArray("vnc");
    QTest::newRow("chosen on X") << QByteArray(":0") << QByteArray() << QByteArray("minimal")
                                 << QByteArray("minimal");
}

void TestDisplay::Environment_Examined_ChoosesThePlatform()
{
    QFETCH(QByteArray, display);
    QFETCH(QByteArray, wayland);
    QFETCH(QByteArray, chosen);
    QFETCH(QByteArray, platform);
    qputenv("DISPLAY", display);
    qputenv("WAYLAND_DISPLAY", wayland);
    qputenv("QT_QPA_PLATFORM", chosen);

    UseOffscreenWithoutDisplay();

    QCOMPARE(qgetenv("QT_QPA_PLATFORM"), platform);
}

void TestDisplay::Platform_Offscreen_IsTold()
{
    QCOMPARE(QGuiApplication::platformName(), QStringLiteral("offscreen"));
    QVERIFY(IsOffscreen());
}

QTEST_MAIN(TestDisplay)
#include "TestDisplay.moc"
