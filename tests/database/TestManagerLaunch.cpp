#include "database/DatabaseTexts.h"
#include "database/ManagerLaunch.h"
#include "tests/support/GatewayFixture.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

/// Reading and starting the manager of a node.
class TestManagerLaunch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void CommandLine_Stored_HasItsParts_data();
    void CommandLine_Stored_HasItsParts();
    void Text_WithoutExtra_EndsWithTheDevice();
    void Text_WithExtra_EndsWithIt();
    void Text_OptionsInValues_StayBetweenQuotes();
    void Arguments_StayWhole_data();
    void Arguments_StayWhole();
    void Read_ManagerWithText_GivesItsCommand();
    void Read_ManagerWithoutText_EndsWithTheDevice();
    void Read_Refused_TellsWhy_data();
    void Read_Refused_TellsWhy();
    void Read_FailingCall_IsToldAndLeavesNothingOpen_data();
    void Read_FailingCall_IsToldAndLeavesNothingOpen();
    void Read_BoxWaitsForTheEndOfTheTransaction();
    void Read_NoSession_IsRefused();
    void Launch_StartsTheProgramWithAList();
    void Launch_Fails_TellsTheCommandLine();
    void Launch_RealProgram_GetsEachArgumentAsOne();
    void Launch_MissingProgram_IsTold();
};

namespace {

const QString Unfitting = QStringLiteral("unchanged");

/// An open session with the node "Tower" of device "Radio", which has a manager.
class ManagerFixture : public GatewayFixture
{
public:
    explicit ManagerFixture(const QString& device = QStringLiteral("Radio"))
    {
        Component.Store.AddConnection(QStringLiteral("Bus"), QStringLiteral("WP=BUST4,ID=1"));
        Component.Store.AddNode(QStringLiteral("Tower"), QStringLiteral("Bus"), device,
                                QStringLiteral("WP=NET4,ADDR=1"), QStringLiteral("1|-own"));
        Component.Answer(QStringLiteral("GetNMAInfo(Radio)"), {"/opt/radio", "-view full", "1"});
        Open();
    }

    bool Read(const QString& node = QStringLiteral("Tower")) { return ReadManagerCommand(node, Command); }

    ManagerCommand Command{Unfitting, {}};
};

/// Writes a program that puts its arguments, one a line, into a file beside itself.
QString WriteProgram(const QTemporaryDir& folder, const QString& name)
{
    QFile file(folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly) ||
        file.write("#!/bin/sh\nprintf '%s\\n' \"$@\" > \"$0.part\"\nmv \"$0.part\" \"$0.arguments\"\n") < 0)
        qFatal("%s", qUtf8Printable(file.errorString()));
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return file.fileName();
}

QStringList WrittenArguments(const QString& program)
{
    QFile file(program + QStringLiteral(".arguments"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n');
    lines.removeLast();
    return lines;
}

} // namespace

void TestManagerLaunch::CommandLine_Stored_HasItsParts_data()
{
    QTest::addColumn<QString>("commandLine");
    QTest::addColumn<QString>("index");
    QTest::addColumn<QString>("tail");
    QTest::newRow("both") << "12|-port 1"
                          << "12"
                          << "-port 1";
    QTest::newRow("tail alone") << "-port 1"
                                << ""
                                << "-port 1";
    QTest::newRow("bar alone") << "|"
                               << ""
                               << "";
    QTest::newRow("two bars") << "12|a|b"
                              << "12"
                              << "a|b";
    QTest::newRow("empty") << ""
                           << ""
                           << "";
}

void TestManagerLaunch::CommandLine_Stored_HasItsParts()
{
    QFETCH(QString, commandLine);
    QFETCH(QString, index);
    QFETCH(QString, tail);

    QCOMPARE(ManagerIndexOf(commandLine), index);
    QCOMPARE(ManagerTailOf(commandLine), tail);
}

void TestManagerLaunch::Text_WithoutExtra_EndsWithTheDevice()
{
    QCOMPARE(ComposeManagerCommand("/opt/radio", "North mast", "").Text(),
             R"(/opt/radio -sobriquet "North mast" -device "cdfq01")");
}

void TestManagerLaunch::Text_WithExtra_EndsWithIt()
{
    QCOMPARE(ComposeManagerCommand("/opt/radio", "Tower", "-view full").Text(),
             R"(/opt/radio -sobriquet "Tower" -device "cdfq01" "-view full")");
}

void TestManagerLaunch::Text_OptionsInValues_StayBetweenQuotes()
{
    QCOMPARE(ComposeManagerCommand("/opt/radio", "-sobriquet", "-device").Text(),
             R"(/opt/radio -sobriquet "-sobriquet" -device "cdfq01" "-device")");
}

void TestManagerLaunch::Arguments_StayWhole_data()
{
    QTest::addColumn<QString>("node");
    QTest::addColumn<QString>("extra");
    QTest::newRow("plain") << "Tower"
                           << "";
    QTest::newRow("blanks") << "  North  mast "
                            << " ";
    QTest::newRow("quotes") << R"("North" 'mast' \")"
                            << R"(-title "a b")";
    QTest::newRow("dashes") << "--help"
                            << "-rf /";
    QTest::newRow("shell characters") << "$(id);`id`|x>y&*"
                                      << "%PATH% $HOME";
    QTest::newRow("not only ASCII") << QStringLiteral("Żurawin 塔 😀") << QStringLiteral("-имя „а б“");
}

void TestManagerLaunch::Arguments_StayWhole()
{
    QFETCH(QString, node);
    QFETCH(QString, extra);

    const ManagerCommand command = ComposeManagerCommand("/opt/a radio", node, extra);

    QStringList expected{"-sobriquet", node, "-device", "cdfq01"};
    if (!extra.isEmpty())
        expected << extra;
    QCOMPARE(command.program, "/opt/a radio");
    QCOMPARE(command.arguments, expected);
}

void TestManagerLaunch::Read_ManagerWithText_GivesItsCommand()
{
    ManagerFixture fixture;

    QVERIFY(fixture.Read());

    QCOMPARE(fixture.Command.program, "/opt/radio");
    QCOMPARE(fixture.Command.arguments,
             (QStringList{"-sobriquet", "Tower", "-device", "cdfq01", "-view full"}));
    QCOMPARE(fixture.Component.Calls,
             (QStringList{"BeginTransaction()", "BeginTransaction()", "GetNodeEx(Tower)",
                          "CommitTransaction(1)", "BeginTransaction()", "GetNMAInfo(Radio)",
                          "CommitTransaction(1)", "CommitTransaction(1)"}));
    QCOMPARE(fixture.Component.Store.Levels(), 0);
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
}

void TestManagerLaunch::Read_ManagerWithoutText_EndsWithTheDevice()
{
    ManagerFixture fixture;
    fixture.Component.Answer("GetNMAInfo(Radio)", {"/opt/radio", "", "1"});

    QVERIFY(fixture.Read());

    QCOMPARE(fixture.Command.Text(), R"(/opt/radio -sobriquet "Tower" -device "cdfq01")");
}

void TestManagerLaunch::Read_Refused_TellsWhy_data()
{
    QTest::addColumn<QString>("device");
    QTest::addColumn<QString>("node");
    QTest::addColumn<RecordedBox>("box");
    const RecordedBox missing =
        RecordedBox::Plain(QStringLiteral("Missing Device Name, manager cannot be launched."));
    QTest::newRow("no device") << ""
                               << "Tower" << missing;
    QTest::newRow("blank device") << "  "
                                  << "Tower" << missing;
    QTest::newRow("unknown device") << "Sonde"
                                    << "Tower"
                                    << RecordedBox::Plain(QStringLiteral(
                                           "Device Name Sonde not found, manager cannot be launched."));
    QTest::newRow("node gone") << "Radio"
                               << "Mast"
                               << RecordedBox::Error(
                                      QStringLiteral("Failure to get node data from database."));
}

void TestManagerLaunch::Read_Refused_TellsWhy()
{
    QFETCH(QString, device);
    QFETCH(QString, node);
    QFETCH(RecordedBox, box);
    ManagerFixture fixture(device);

    QVERIFY(!fixture.Read(node));

    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{box});
    QCOMPARE(fixture.Component.Store.Levels(), 0);
    QCOMPARE(fixture.Component.Calls.last(), "RollbackTransaction()");
    QCOMPARE(fixture.Command.program, Unfitting);
}

void TestManagerLaunch::Read_FailingCall_IsToldAndLeavesNothingOpen_data()
{
    QTest::addColumn<int>("call");
    QTest::addColumn<QString>("text");
    const QString node = QStringLiteral("Failure to get node data from database.");
    const QString manager = QStringLiteral("Device Name Radio not found, manager cannot be launched.");
    QTest::newRow("begin") << 1 << DatabaseText::AccessDenied();
    QTest::newRow("begin of the node's read") << 2 << node;
    QTest::newRow("the node's read") << 3 << node;
    QTest::newRow("commit of the node's read") << 4 << node;
    QTest::newRow("begin of the manager's read") << 5 << manager;
    QTest::newRow("the manager's read") << 6 << manager;
    QTest::newRow("commit of the manager's read") << 7 << manager;
    QTest::newRow("commit") << 8 << DatabaseText::CommitFailure();
}

void TestManagerLaunch::Read_FailingCall_IsToldAndLeavesNothingOpen()
{
    QFETCH(int, call);
    QFETCH(QString, text);
    ManagerFixture fixture;
    fixture.Component.FailCall(call);

    QVERIFY(!fixture.Read());

    QVERIFY(!fixture.Operator.Boxes.empty());
    QCOMPARE(fixture.Operator.Boxes.back().text, text);
    QCOMPARE(fixture.Component.Store.Levels(), 0);
    QCOMPARE(fixture.Command.program, Unfitting);
}

void TestManagerLaunch::Read_BoxWaitsForTheEndOfTheTransaction()
{
    ManagerFixture fixture("");
    int levels = -1;
    fixture.Operator.WhileOpen = [&](const RecordedBox&) { levels = fixture.Component.Store.Levels(); };

    QVERIFY(!fixture.Read());

    QCOMPARE(levels, 0);
}

void TestManagerLaunch::Read_NoSession_IsRefused()
{
    GatewayFixture fixture;
    fixture.Component.CreationFailure = DatabaseErrorNumber::Refused;
    ManagerCommand command{Unfitting, {}};

    QVERIFY(!ReadManagerCommand("Tower", command));

    QCOMPARE(fixture.Operator.Boxes,
             std::vector<RecordedBox>{RecordedBox::Error(DatabaseText::AccessDenied())});
    QCOMPARE(command.program, Unfitting);
}

void TestManagerLaunch::Launch_StartsTheProgramWithAList()
{
    ManagerFixture fixture;
    QStringList started;
    Machine().StartProgram = [&](const QString& program, const QStringList& arguments) {
        started = QStringList{program} + arguments;
        return true;
    };

    QVERIFY(LaunchManager(ComposeManagerCommand("/opt/radio", "North mast", "-a \"b\"")));

    QCOMPARE(started,
             (QStringList{"/opt/radio", "-sobriquet", "North mast", "-device", "cdfq01", "-a \"b\""}));
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
    QCOMPARE(fixture.Component.Calls, QStringList{});
}

void TestManagerLaunch::Launch_Fails_TellsTheCommandLine()
{
    const ManagerFixture fixture;
    Machine().StartProgram = [](const QString&, const QStringList&) { return false; };

    QVERIFY(!LaunchManager(ComposeManagerCommand("/opt/radio", "North mast", "-a")));

    const QString text = QStringLiteral("Manager Launch Error with Command Line:"
                                        "/opt/radio -sobriquet \"North mast\" -device \"cdfq01\" \"-a\"");
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{RecordedBox::Plain(text)});
}

void TestManagerLaunch::Launch_RealProgram_GetsEachArgumentAsOne()
{
    const QTemporaryDir folder;
    const QString program = WriteProgram(folder, QStringLiteral("my \"radio\" $manager"));
    const QString node = QStringLiteral("-Żurawin  \"塔\" '$(id)' *");
    const QString extra = QStringLiteral("--title \"a  b\"; exit 1 ");

    QVERIFY(LaunchManager(ComposeManagerCommand(program, node, extra)));

    QTRY_COMPARE_WITH_TIMEOUT(WrittenArguments(program),
                              (QStringList{"-sobriquet", node, "-device", "cdfq01", extra}), 20'000);
}

void TestManagerLaunch::Launch_MissingProgram_IsTold()
{
    const QTemporaryDir folder;
    const RecordingPresenter person;
    const QString program = folder.filePath("missing");

    QVERIFY(!LaunchManager(ComposeManagerCommand(program, "Tower", "")));

    QCOMPARE(person.Texts(), QStringList{"Manager Launch Error with Command Line:" + program +
                                         " -sobriquet \"Tower\" -device \"cdfq01\""});
}

QTEST_GUILESS_MAIN(TestManagerLaunch)
#include "TestManagerLaunch.moc"
