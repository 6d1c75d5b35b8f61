#include "tools/netsim/NetsimCommandLine.h"
#include "tools/reference/BashCompletion.h"
#include "tools/reference/ManualPage.h"
#include "tools/zelka/CommandLine.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

namespace {

CommandWords ZelkaCommands()
{
    CommandWords words;
    ReadCommandLine([&words](const CLI::App& app) { words = ReadCommandWords(app); });
    return words;
}

CommandWords NetsimCommands()
{
    CommandWords words;
    ReadNetsimCommandLine([&words](const CLI::App& app) { words = ReadCommandWords(app); });
    return words;
}

const CommandWords* Find(const CommandWords& command, const std::string& path)
{
    if (command.path == path)
        return &command;
    for (const CommandWords& below : command.commands) {
        if (const CommandWords* found = Find(below, path))
            return found;
    }
    return nullptr;
}

ManualWords Words()
{
    return {"do some work", "zelka 1.2.3", {{"ZELKA_X", "A variable."}}, {"one(1)", "other(5)"}};
}

/// A folder with a program `zelka` that lists two connections and a node.
class StoredNames
{
public:
    StoredNames()
    {
        QFile program(m_folder.filePath(QStringLiteral("zelka")));
        QVERIFY2(program.open(QIODevice::WriteOnly), "no program");
        program.write(
            "#!/bin/sh\n"
            "[ \"$2\" = connections ] && printf 'North ring\\nNorth west\\n' || printf 'Node 1\\n'\n");
        program.close();
        program.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    [[nodiscard]] QString Path() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
};

/// What bash offers behind these words, of which the last is being typed.
QStringList Offered(const CommandWords& program, const QStringList& words)
{
    const StoredNames names;
    QString script = QString::fromStdString(BashCompletion(program)) + QStringLiteral("COMP_WORDS=(");
    for (const QString& word : words)
        script += QLatin1Char('"') + word + QStringLiteral("\" ");
    script += QStringLiteral(")\nCOMP_CWORD=%1\n%2\nprintf '%s\\n' \"${COMPREPLY[@]}\"\n")
                  .arg(words.size() - 1)
                  .arg(QStringLiteral("_") + QString::fromStdString(program.path).replace(u'-', u'_'));
    QProcess bash;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("PATH"),
                       names.Path() + u':' + environment.value(QStringLiteral("PATH")));
    bash.setProcessEnvironment(environment);
    bash.start(QStringLiteral("bash"), {QStringLiteral("--norc"), QStringLiteral("-c"), script});
    if (!bash.waitForFinished() || !bash.readAllStandardError().isEmpty())
        return {QStringLiteral("bash failed")};
    return QString::fromUtf8(bash.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
}

} // namespace

/// The texts about the programs' commands, made from what the programs parse.
class TestReference : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Read_Zelka_HasCommandsOptionsAndGroups();
    void Manual_EachProgram_IsCleanRoff_data();
    void Manual_EachProgram_IsCleanRoff();
    void Manual_Text_ShowsEachCommandOnce();
    void Manual_DashesDotsAndBackslashes_StayToTheLetter();
    void Completion_Word_Offers_data();
    void Completion_Word_Offers();
    void Completion_Netsim_OffersItsCommands();
};

void TestReference::Read_Zelka_HasCommandsOptionsAndGroups()
{
    const CommandWords program = ZelkaCommands();

    const CommandWords* node = Find(program, "zelka add node");
    QVERIFY(node);
    const auto named = [node](const std::string& name) {
        return std::count_if(node->arguments.begin(), node->arguments.end(),
                             [&name](const ArgumentWords& one) { return one.names.back() == name; });
    };
    QCOMPARE(named("--connection"), 1);
    QCOMPARE(named("--like"), 1);
    QCOMPARE(named("--help"), 1);
    const CommandWords* import = Find(program, "zelka db import");
    QVERIFY(import);
    const auto conflict = std::find_if(import->arguments.begin(), import->arguments.end(),
                                       [](const auto& one) { return one.names.back() == "--on-conflict"; });
    QVERIFY(conflict != import->arguments.end());
    QCOMPARE(conflict->Choices(), (std::vector<std::string>{"fail", "skip", "update", "rename"}));
}

void TestReference::Manual_EachProgram_IsCleanRoff_data()
{
    QTest::addColumn<bool>("netsim");
    QTest::newRow("zelka") << false;
    QTest::newRow("zelka-netsim") << true;
}

void TestReference::Manual_EachProgram_IsCleanRoff()
{
    QFETCH(bool, netsim);
    QProcess groff;

    groff.start(QStringLiteral("groff"),
                {QStringLiteral("-man"), QStringLiteral("-ww"), QStringLiteral("-Tutf8"),
                 QStringLiteral("-K"), QStringLiteral("utf8"), QStringLiteral("-z")});
    QVERIFY(groff.waitForStarted());
    groff.write(QByteArray::fromStdString(ManualPage(netsim ? NetsimCommands() : ZelkaCommands(), Words())));
    groff.closeWriteChannel();

    QVERIFY(groff.waitForFinished());
    QCOMPARE(groff.exitCode(), 0);
    QCOMPARE(QString::fromUtf8(groff.readAllStandardError()), QString());
}

void TestReference::Manual_Text_ShowsEachCommandOnce()
{
    const QString page = QString::fromStdString(ManualPage(ZelkaCommands(), Words()));

    QVERIFY(page.startsWith(QStringLiteral(".TH ZELKA 1 \"\" \"zelka 1.2.3\" \"User Commands\"\n")));
    QVERIFY(page.contains(QStringLiteral(".SH NAME\nzelka \\- do some work\n")));
    QCOMPARE(page.count(QStringLiteral(".SS \"zelka db import\"\n")), 1);
    QCOMPARE(page.count(QStringLiteral(".SS \"zelka scan\"\n")), 1);
    QVERIFY(!page.contains(QStringLiteral(".SS \"zelka db\"\n")));
    QVERIFY(page.contains(QStringLiteral("\\fBzelka scan\\fR \\fB\\-\\-from\\fR \\fIADDRESS\\fR")));
    QVERIFY(page.contains(QStringLiteral("\\fBZELKA_X\\fR\nA variable.\n")));
    QVERIFY(page.endsWith(QStringLiteral(".SH SEE ALSO\n.BR one (1) ,\n.BR other (5)\n")));
}

void TestReference::Manual_DashesDotsAndBackslashes_StayToTheLetter()
{
    CLI::App app("first\n.second 'x' a-b\n'third c\\d", "zelka");

    const QString page = QString::fromStdString(ManualPage(ReadCommandWords(app), Words()));

    QVERIFY(page.contains(QStringLiteral("first\n\\&.second 'x' a\\-b\n\\&'third c\\ed")));
}

void TestReference::Completion_Word_Offers_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<QStringList>("offered");
    QTest::newRow("a command") << QStringList{"zelka", "sc"} << QStringList{"scan"};
    QTest::newRow("a command below one") << QStringList{"zelka", "db", "imp"} << QStringList{"import"};
    QTest::newRow("an option") << QStringList{"zelka", "scan", "--dr"} << QStringList{"--dry-run"};
    QTest::newRow("values of an option")
        << QStringList{"zelka", "scan", "--on-conflict", "s"} << QStringList{"skip"};
    QTest::newRow("a connection") << QStringList{"zelka", "scan", "North r"} << QStringList{"North\\ ring"};
    QTest::newRow("a record") << QStringList{"zelka", "show", "No"}
                              << QStringList{"North\\ ring", "North\\ west", "Node\\ 1"};
    QTest::newRow("a new name") << QStringList{"zelka", "add", "node", "No"} << QStringList{};
    QTest::newRow("behind an option")
        << QStringList{"zelka", "list", "nodes", "--json", "--so"} << QStringList{"--source"};
}

void TestReference::Completion_Word_Offers()
{
    QFETCH(QStringList, words);
    QFETCH(QStringList, offered);

    QCOMPARE(Offered(ZelkaCommands(), words), offered);
}

void TestReference::Completion_Netsim_OffersItsCommands()
{
    QCOMPARE(Offered(NetsimCommands(), {"zelka-netsim", "se"}), QStringList{"serve"});
}

QTEST_GUILESS_MAIN(TestReference)
#include "TestReference.moc"
