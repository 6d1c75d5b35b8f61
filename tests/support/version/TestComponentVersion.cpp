#include "support/ComponentVersion.h"
#include "tests/support/version/NamedValuesStore.h"

#include <QFileInfo>
#include <QPluginLoader>
#include <QTest>
#include <QVersionNumber>

#include <memory>

/// Which file is registered for a component, and its version.
class TestComponentVersion : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_store = std::make_unique<NamedValuesStore>(); }
    void cleanup() { m_store.reset(); }

    void GetComponentPath_Registered_GivesTheFile_data();
    void GetComponentPath_Registered_GivesTheFile();
    void GetComponentPath_StoreIsDamaged_IsEmpty();
    void GetComponentPath_StoreIsAFolder_IsEmpty();
    void GetComponentFileVersion_PluginWithVersion_IsFormatted();
    void GetComponentFileVersion_Plugin_IsNotLoaded();
    void GetComponentFileVersion_NoRecord_SaysSo_data();
    void GetComponentFileVersion_NoRecord_SaysSo();
    void GetComponentFileDetails_Plugin_TellsItsQt();
    void GetComponentFileDetails_NoRecord_IsEmpty();
    void FormattedVersion_AnyNumbers_PadsMinorAndBuild_data();
    void FormattedVersion_AnyNumbers_PadsMinorAndBuild();
    void RegisterControl_Other_TakesItsPlace();
    void RegisterControl_StoreCannotBeWritten_LeavesNothing();
    void RegisterControlOnce_None_Registers();
    void RegisterControlOnce_OtherIsThere_StaysRegistered();
    void RegisterControlOnce_OtherIsGone_TakesItsPlace();
    void RegisterControlOnce_MachineHasOne_LeavesTheUserAlone();

private:
    QTemporaryDir m_files;
    std::unique_ptr<NamedValuesStore> m_store;
};

void TestComponentVersion::GetComponentPath_Registered_GivesTheFile_data()
{
    QTest::addColumn<QStringList>("values");
    QTest::addColumn<QString>("path");
    const QString clsid = "HKEY_CLASSES_ROOT/A.B/Clsid={1}";
    const QString inproc = "HKEY_CLASSES_ROOT/CLSID/{1}/InprocServer32=";
    const QString local = "HKEY_CLASSES_ROOT/CLSID/{1}/LocalServer32=";
    QTest::newRow("nothing") << QStringList{} << "";
    QTest::newRow("class identifier alone") << QStringList{clsid} << "";
    QTest::newRow("library") << QStringList{clsid, inproc + "/lib/a.so"} << "/lib/a.so";
    QTest::newRow("program") << QStringList{clsid, local + "/bin/a"} << "/bin/a";
    QTest::newRow("both") << QStringList{clsid, inproc + "/lib/a.so", local + "/bin/a"} << "/lib/a.so";
    QTest::newRow("library empty") << QStringList{clsid, inproc, local + "/bin/a"} << "/bin/a";
    QTest::newRow("blanks, comma") << QStringList{clsid, inproc + "/my programs, old/a.so"}
                                   << "/my programs, old/a.so";
    QTest::newRow("no class identifier") << QStringList{inproc + "/lib/a.so"} << "";
    QTest::newRow("class identifier empty")
        << QStringList{"HKEY_CLASSES_ROOT/A.B/Clsid=", "HKEY_CLASSES_ROOT/CLSID//InprocServer32=/lib/a.so"}
        << "";
    QTest::newRow("other class") << QStringList{"HKEY_CLASSES_ROOT/A.B/Clsid={2}", inproc + "/lib/a.so"}
                                 << "";
    QTest::newRow("other component") << QStringList{"HKEY_CLASSES_ROOT/A.C/Clsid={1}", inproc + "/lib/a.so"}
                                     << "";
}

void TestComponentVersion::GetComponentPath_Registered_GivesTheFile()
{
    QFETCH(QStringList, values);
    NamedValues store;
    for (const QString& value : values)
        store.Write(value.section('=', 0, 0), value.section('=', 1));

    QTEST(GetComponentPath("A.B"), "path");
    QCOMPARE(GetComponentPath(""), QString());
}

void TestComponentVersion::GetComponentPath_StoreIsDamaged_IsEmpty()
{
    QVERIFY(QFileInfo::exists(MadeFile(m_store->UsersFile(), QByteArray(4096, '\0'))));

    QCOMPARE(GetComponentPath(ControlProgId), QString());
}

void TestComponentVersion::GetComponentPath_StoreIsAFolder_IsEmpty()
{
    QVERIFY(QDir().mkpath(m_store->UsersFile()));

    QCOMPARE(GetComponentPath(ControlProgId), QString());
}

void TestComponentVersion::GetComponentFileVersion_PluginWithVersion_IsFormatted()
{
    QCOMPARE(GetComponentFileVersion(PLUGIN_WITH_VERSION), "1.00.0000");
}

void TestComponentVersion::GetComponentFileVersion_Plugin_IsNotLoaded()
{
    (void)GetComponentFileVersion(PLUGIN_WITH_VERSION);
    (void)GetComponentFileDetails(PLUGIN_WITH_VERSION);

    QVERIFY(!QPluginLoader(PLUGIN_WITH_VERSION).isLoaded());
}

void TestComponentVersion::GetComponentFileVersion_NoRecord_SaysSo_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("no name") << "";
    QTest::newRow("missing") << "/nowhere/libzelkabrowser.so.4";
    QTest::newRow("folder") << "/";
    QTest::newRow("text") << MadeFile(m_files.filePath("notes.so"), "These are notes.\n");
    QTest::newRow("empty file") << MadeFile(m_files.filePath("empty.so"), "");
    QTest::newRow("library of others") << FILE_WITHOUT_RECORD;
    QFile plugin(PLUGIN_WITH_VERSION);
    QVERIFY(plugin.open(QIODevice::ReadOnly));
    QByteArray contents = plugin.readAll();
    QTest::newRow("cut off") << MadeFile(m_files.filePath("cut.so"), contents.left(contents.size() / 8));
    // The name in the record; what follows it is no version of this component any more.
    QTest::newRow("no version") << MadeFile(m_files.filePath("nameless.so"),
                                            contents.replace("Version", "Verslon"));
}

void TestComponentVersion::GetComponentFileVersion_NoRecord_SaysSo()
{
    QFETCH(QString, path);

    QCOMPARE(GetComponentFileVersion(path), "No Version Info available!");
}

void TestComponentVersion::GetComponentFileDetails_Plugin_TellsItsQt()
{
    const QString details = GetComponentFileDetails(PLUGIN_WITH_VERSION);

    QVERIFY2(details.startsWith(QStringLiteral("Qt %1.%2").arg(QT_VERSION_MAJOR).arg(QT_VERSION_MINOR)),
             qUtf8Printable(details));
}

void TestComponentVersion::GetComponentFileDetails_NoRecord_IsEmpty()
{
    QCOMPARE(GetComponentFileDetails(""), QString());
    QCOMPARE(GetComponentFileDetails(FILE_WITHOUT_RECORD), QString());
}

void TestComponentVersion::FormattedVersion_AnyNumbers_PadsMinorAndBuild_data()
{
    QTest::addColumn<QString>("version");
    QTest::addColumn<QString>("text");
    QTest::newRow("small") << "4.2.0"
                           << "4.02.0000";
    QTest::newRow("full") << "12.34.5678"
                          << "12.34.5678";
    QTest::newRow("large") << "4.123.12345"
                           << "4.123.12345";
    QTest::newRow("major alone") << "4"
                                 << "4.00.0000";
    QTest::newRow("four numbers") << "1.2.3.4"
                                  << "1.02.0003";
}

void TestComponentVersion::FormattedVersion_AnyNumbers_PadsMinorAndBuild()
{
    QFETCH(QString, version);

    QTEST(FormattedVersion(QVersionNumber::fromString(version)), "text");
}

void TestComponentVersion::RegisterControl_Other_TakesItsPlace()
{
    RegisterControl("/old/libzelkabrowser.so.4");

    RegisterControl("/new/libzelkabrowser.so.4");

    QCOMPARE(GetComponentPath(ControlProgId), "/new/libzelkabrowser.so.4");
}

void TestComponentVersion::RegisterControl_StoreCannotBeWritten_LeavesNothing()
{
    QVERIFY(QDir().mkpath(m_store->UsersFile()));

    RegisterControl(PLUGIN_WITH_VERSION);

    QCOMPARE(GetComponentPath(ControlProgId), QString());
}

void TestComponentVersion::RegisterControlOnce_None_Registers()
{
    RegisterControlOnce(PLUGIN_WITH_VERSION);

    QCOMPARE(GetComponentPath(ControlProgId), PLUGIN_WITH_VERSION);
}

void TestComponentVersion::RegisterControlOnce_OtherIsThere_StaysRegistered()
{
    RegisterControl(PLUGIN_WITH_VERSION);

    RegisterControlOnce(FILE_WITHOUT_RECORD);

    QCOMPARE(GetComponentPath(ControlProgId), PLUGIN_WITH_VERSION);
}

void TestComponentVersion::RegisterControlOnce_OtherIsGone_TakesItsPlace()
{
    RegisterControl("/gone/libzelkabrowser.so.4");

    RegisterControlOnce(PLUGIN_WITH_VERSION);

    QCOMPARE(GetComponentPath(ControlProgId), PLUGIN_WITH_VERSION);
}

void TestComponentVersion::RegisterControlOnce_MachineHasOne_LeavesTheUserAlone()
{
    RegisterControl(PLUGIN_WITH_VERSION);
    QVERIFY(QDir().mkpath(QFileInfo(m_store->MachinesFile()).path()));
    QVERIFY(QFile::rename(m_store->UsersFile(), m_store->MachinesFile()));

    RegisterControlOnce(FILE_WITHOUT_RECORD);

    QCOMPARE(GetComponentPath(ControlProgId), PLUGIN_WITH_VERSION);
    QVERIFY(!QFileInfo::exists(m_store->UsersFile()));
}

QTEST_MAIN(TestComponentVersion)
#include "TestComponentVersion.moc"
