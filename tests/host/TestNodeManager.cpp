#include "host/node-manager/NodeManagerWindow.h"
#include "host/node-manager/StartArguments.h"
#include "tests/host/RunProgram.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

/// The example manager of nodes: what it reads, shows and prints.
class TestNodeManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Read_Arguments_FindsNodeAndDevice_data();
    void Read_Arguments_FindsNodeAndDevice();
    void Window_ShowsNodeDeviceAndArguments();
    void Window_WithoutNode_KeepsItsTitle();
    void Window_TabOrder_EachNamed();
    void Copy_PutsAllOnTheClipboard();
    void Close_ClosesTheWindow_data();
    void Close_ClosesTheWindow();
    void Program_HelpAndVersion_PrintAndEnd_data();
    void Program_HelpAndVersion_PrintAndEnd();
    void Program_WithoutDisplay_TellsItsArguments();
};

namespace {

StartArguments Read(const QStringList& texts)
{
    QByteArrayList bytes{"zelka-node-manager"};
    for (const QString& text : texts)
        bytes << text.toUtf8();
    std::vector<const char*> argv;
    for (const QByteArray& text : bytes)
        argv.push_back(text.constData());
    return StartArguments::Read(static_cast<int>(argv.size()), argv.data());
}

const QStringList Started{QStringLiteral("-sobriquet"), QStringLiteral("Żurawin \"塔\""),
                          QStringLiteral("-device"), QStringLiteral("cdfq01"), QStringLiteral("-view a b")};

} // namespace

void TestNodeManager::Read_Arguments_FindsNodeAndDevice_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("node");
    QTest::addColumn<QString>("device");
    QTest::newRow("all") << Started << QStringLiteral("Żurawin \"塔\"") << "cdfq01";
    QTest::newRow("none") << QStringList{} << ""
                          << "";
    QTest::newRow("other order") << QStringList{"-device", "d", "-x", "-sobriquet", "n"} << "n"
                                 << "d";
    QTest::newRow("node like an option") << QStringList{"-sobriquet", "-device", "-device", "d"} << "-device"
                                         << "d";
    QTest::newRow("option without a value") << QStringList{"-x", "-sobriquet"} << ""
                                            << "";
    QTest::newRow("empty values") << QStringList{"-sobriquet", "", "-device", ""} << ""
                                  << "";
}

void TestNodeManager::Read_Arguments_FindsNodeAndDevice()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, node);
    QFETCH(QString, device);

    const StartArguments read = Read(arguments);

    QCOMPARE(read.node, node);
    QCOMPARE(read.device, device);
    QCOMPARE(read.all, arguments);
}

void TestNodeManager::Window_ShowsNodeDeviceAndArguments()
{
    const NodeManagerWindow window(Read(Started));

    QCOMPARE(window.windowTitle(), QStringLiteral("Żurawin \"塔\" - Zelka Node Manager"));
    QCOMPARE(window.findChild<QLineEdit*>("txtNode")->text(), QStringLiteral("Żurawin \"塔\""));
    QCOMPARE(window.findChild<QLineEdit*>("txtDevice")->text(), "cdfq01");
    auto* const text = window.findChild<QPlainTextEdit*>("txtArguments");
    QCOMPARE(text->toPlainText(), Started.join(u'\n'));
    QVERIFY(text->isReadOnly());
}

void TestNodeManager::Window_WithoutNode_KeepsItsTitle()
{
    const NodeManagerWindow window(Read({"-x"}));

    QCOMPARE(window.windowTitle(), "Zelka Node Manager");
}

void TestNodeManager::Window_TabOrder_EachNamed()
{
    NodeManagerWindow window(Read(Started));
    window.show();
    window.activateWindow();
    window.findChild<QLineEdit*>("txtNode")->setFocus();
    QStringList order;
    for (int i = 0; i < 5; ++i) {
        const QWidget* const control = window.focusWidget();
        QVERIFY(!control->accessibleName().isEmpty());
        order << control->objectName();
        QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(order, (QStringList{"txtNode", "txtDevice", "txtArguments", "cmdCopy", "cmdClose"}));
}

void TestNodeManager::Copy_PutsAllOnTheClipboard()
{
    NodeManagerWindow window(Read(Started));
    window.show();

    QTest::mouseClick(window.findChild<QPushButton*>("cmdCopy"), Qt::LeftButton);

    QCOMPARE(QGuiApplication::clipboard()->text(),
             QStringLiteral("Node: Żurawin \"塔\"\nDevice: cdfq01\n") + Started.join(u'\n'));
}

void TestNodeManager::Close_ClosesTheWindow_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("button") << false;
    QTest::newRow("Esc") << true;
}

void TestNodeManager::Close_ClosesTheWindow()
{
    QFETCH(bool, byKey);
    NodeManagerWindow window(Read(Started));
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));

    if (byKey)
        QTest::keyClick(&window, Qt::Key_Escape);
    else
        QTest::mouseClick(window.findChild<QPushButton*>("cmdClose"), Qt::LeftButton);

    QVERIFY(!window.isVisible());
}

void TestNodeManager::Program_HelpAndVersion_PrintAndEnd_data()
{
    QTest::addColumn<QString>("argument");
    QTest::addColumn<QString>("part");
    QTest::newRow("help") << "--help"
                          << "Usage: zelka-node-manager";
    QTest::newRow("version") << "--version"
                             << "zelka-node-manager 4.2.0\n";
}

void TestNodeManager::Program_HelpAndVersion_PrintAndEnd()
{
    QFETCH(QString, argument);
    QFETCH(QString, part);
    const QTemporaryDir home;

    const Outcome outcome = RunWithoutDisplay(ZELKA_NODE_MANAGER_PROGRAM, {argument}, home.path());

    QCOMPARE(outcome.code, 0);
    QVERIFY2(outcome.output.contains(part), qUtf8Printable(outcome.output));
}

void TestNodeManager::Program_WithoutDisplay_TellsItsArguments()
{
    const QTemporaryDir home;
    const QStringList arguments{"-sobriquet", "--help", "-device", "cdfq01",
                                "-platform",  "none",   "-x",      QStringLiteral("塔 a  b")};

    const Outcome outcome = RunWithoutDisplay(ZELKA_NODE_MANAGER_PROGRAM, arguments, home.path());

    QCOMPARE(outcome.code, 0);
    QCOMPARE(outcome.output, "");
    QVERIFY2(outcome.errors.endsWith(QStringLiteral("Node: --help\nDevice: cdfq01\n") +
                                     arguments.join(u'\n') + u'\n'),
             qUtf8Printable(outcome.errors));
}

QTEST_MAIN(TestNodeManager)
#include "TestNodeManager.moc"
