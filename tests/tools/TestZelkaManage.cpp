#include "ZelkaRunner.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonObject>
#include <QTest>

/// `zelka manage`: the manager of a node, printed and started.
class TestZelkaManage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Print_GivesTheCommandLine();
    void Print_Json_GivesTheArguments();
    void Manage_StartsTheProgram();
    void Manage_Refused_TellsWhy_data();
    void Manage_Refused_TellsWhy();
    void Manage_MissingProgram_IsTold();

private:
    /// The small database, in which the device Radio is managed by a program that writes its arguments.
    static QString MakeManagedDatabase(const ZelkaRunner& zelka, const QStringList& text);
};

QString TestZelkaManage::MakeManagedDatabase(const ZelkaRunner& zelka, const QStringList& text)
{
    zelka.MakeSmallDatabase();
    const QString program =
        zelka.Write(QStringLiteral("my manager"),
                    "#!/bin/sh\nprintf '%s\\n' \"$@\" > \"$0.part\"\nmv \"$0.part\" \"$0.arguments\"\n");
    QFile(program).setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    zelka.Sql("UPDATE manager SET path = '" + program.toUtf8() + "', command_text = '" +
              text.join(u' ').toUtf8() + "';");
    return program;
}

void TestZelkaManage::Print_GivesTheCommandLine()
{
    const ZelkaRunner zelka;
    const QString program = MakeManagedDatabase(zelka, {});

    const ZelkaResult result = zelka.Run({"manage", "tower", "--print"});

    QCOMPARE(result.words, QByteArray());
    QCOMPARE(result.code, 0);
    QCOMPARE(result.Lines(), QStringList{program + " -sobriquet \"Tower\" -device \"cdfq01\""});
    QVERIFY(!QFile::exists(program + ".arguments"));
}

void TestZelkaManage::Print_Json_GivesTheArguments()
{
    const ZelkaRunner zelka;
    const QString program = MakeManagedDatabase(zelka, {"-view", "full"});

    QCOMPARE(
        zelka.Run({"manage", "Tower", "--print", "--json"}).Json().object(),
        (QJsonObject{{"name", "Tower"},
                     {"program", program},
                     {"arguments", QJsonArray{"-sobriquet", "Tower", "-device", "cdfq01", "-view full"}},
                     {"commandLine", program + " -sobriquet \"Tower\" -device \"cdfq01\" \"-view full\""},
                     {"started", false}}));
}

void TestZelkaManage::Manage_StartsTheProgram()
{
    const ZelkaRunner zelka;
    const QString program = MakeManagedDatabase(zelka, {"-view", "\"$HOME\"", "*"});
    const QString name = QStringLiteral("Žurawin \"塔\" $(id)");
    QCOMPARE(zelka.Run({"set", "Tower", "name=" + name}).code, 0);

    const ZelkaResult result = zelka.Run({"manage", name});

    QCOMPARE(result.code, 0);
    QCOMPARE(result.Lines(),
             QStringList{QStringLiteral("Started the manager of the node \"%1\".").arg(name)});
    const QString written = program + QStringLiteral(".arguments");
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(written), 20'000);
    QCOMPARE(QString::fromUtf8(ZelkaRunner::Read(written)),
             QStringLiteral("-sobriquet\n%1\n-device\ncdfq01\n-view \"$HOME\" *\n").arg(name));
}

void TestZelkaManage::Manage_Refused_TellsWhy_data()
{
    QTest::addColumn<QString>("node");
    QTest::addColumn<QByteArray>("change");
    QTest::addColumn<QString>("text");
    QTest::newRow("unknown node") << "Mast" << QByteArray() << "There is no node \"Mast\".";
    QTest::newRow("connection") << "Bus" << QByteArray() << "There is no node \"Bus\".";
    QTest::newRow("no device") << "Tower" << QByteArray("UPDATE node SET node_type = ' ';")
                               << "Missing Device Name, manager cannot be launched.";
    QTest::newRow("no manager") << "Tower" << QByteArray("UPDATE node SET node_type = 'Gauge';")
                                << "Device Name Gauge not found, manager cannot be launched.";
}

void TestZelkaManage::Manage_Refused_TellsWhy()
{
    QFETCH(QString, node);
    QFETCH(QByteArray, change);
    QFETCH(QString, text);
    const ZelkaRunner zelka;
    zelka.MakeSmallDatabase();
    zelka.Sql(change);

    for (const QStringList& options : {QStringList{}, QStringList{"--print"}}) {
        const ZelkaResult result = zelka.Run(QStringList{"manage", node, "--json"} + options);
        QCOMPARE(result.code, 1);
        QCOMPARE(result.Words(), QStringLiteral("zelka: %1\n").arg(text));
        QCOMPARE(result.Json().object(), (QJsonObject{{"error", text}}));
    }
}

void TestZelkaManage::Manage_MissingProgram_IsTold()
{
    const ZelkaRunner zelka;
    const QString program = MakeManagedDatabase(zelka, {});
    QVERIFY(QFile::remove(program));

    const ZelkaResult result = zelka.Run({"manage", "Tower"});

    QCOMPARE(result.code, 1);
    QCOMPARE(result.Words(), QStringLiteral("zelka: Manager Launch Error with Command Line:%1 -sobriquet "
                                            "\"Tower\" -device \"cdfq01\"\n")
                                 .arg(program));
}

QTEST_GUILESS_MAIN(TestZelkaManage)
#include "TestZelkaManage.moc"
