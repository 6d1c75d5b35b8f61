#include "platform/controls/SettingsPropertyBag.h"

#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

/// Properties in a settings file, read back as another run of the program would.
class TestSettingsPropertyBag : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void Read_NothingStored_GivesTheDefault();
    void Read_AfterWrite_GivesTheValueInTheDefaultsKind_data();
    void Read_AfterWrite_GivesTheValueInTheDefaultsKind();
    void Read_StoredTextOfAnotherKind_GivesTheDefault_data();
    void Read_StoredTextOfAnotherKind_GivesTheDefault();
    void Write_ValueIsTheDefault_StoresNothing();
    void Write_ValueIsTheDefaultAgain_RemovesWhatWasStored();
    void Write_WithoutDefault_AlwaysStores();
    void Groups_SameName_StayApart();
    void File_CannotBeWritten_NextRunGetsTheDefault();

private:
    [[nodiscard]] QString File() const { return m_folder->filePath(QStringLiteral("kept.ini")); }
    /// Writes what is pending and opens the file anew, as the next run does.
    void NextRun();

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<QSettings> m_settings;
};

void TestSettingsPropertyBag::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    m_settings = std::make_unique<QSettings>(File(), QSettings::IniFormat);
}

void TestSettingsPropertyBag::NextRun()
{
    m_settings.reset();
    m_settings = std::make_unique<QSettings>(File(), QSettings::IniFormat);
}

void TestSettingsPropertyBag::Read_NothingStored_GivesTheDefault()
{
    const SettingsPropertyBag bag(*m_settings, QStringLiteral("Browser"));

    QCOMPARE(bag.ReadProperty(QStringLiteral("RefreshInterval"), 30000), QVariant(30000));
    QVERIFY(!bag.Holds(QStringLiteral("RefreshInterval")));
}

void TestSettingsPropertyBag::Read_AfterWrite_GivesTheValueInTheDefaultsKind_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QVariant>("defaultValue");
    QTest::newRow("true") << QVariant(true) << QVariant(false);
    QTest::newRow("false") << QVariant(false) << QVariant(true);
    QTest::newRow("number") << QVariant(60000) << QVariant(30000);
    QTest::newRow("negative") << QVariant(-1) << QVariant(2);
    QTest::newRow("text") << QVariant(QStringLiteral("Harbour 7")) << QVariant(QString());
    QTest::newRow("text with separators")
        << QVariant(QStringLiteral("a, b; \"c\" = %1 <d>")) << QVariant(QString());
    QTest::newRow("text of a number") << QVariant(QStringLiteral("0017")) << QVariant(QString());
    QTest::newRow("text beyond ASCII") << QVariant(QStringLiteral("Jyväskylä 📡")) << QVariant(QString());
    QTest::newRow("empty text") << QVariant(QString("")) << QVariant(QStringLiteral("x"));
}

void TestSettingsPropertyBag::Read_AfterWrite_GivesTheValueInTheDefaultsKind()
{
    QFETCH(QVariant, value);
    QFETCH(QVariant, defaultValue);

    SettingsPropertyBag(*m_settings, QStringLiteral("Browser"))
        .WriteProperty(QStringLiteral("P"), value, defaultValue);
    NextRun();

    const QVariant read = SettingsPropertyBag(*m_settings, QStringLiteral("Browser"))
                              .ReadProperty(QStringLiteral("P"), defaultValue);
    QCOMPARE(read.metaType(), defaultValue.metaType());
    QCOMPARE(read, value);
}

void TestSettingsPropertyBag::Read_StoredTextOfAnotherKind_GivesTheDefault_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QVariant>("defaultValue");
    QTest::newRow("word for a number") << "often" << QVariant(30000);
    QTest::newRow("empty for a number") << "" << QVariant(30000);
    QTest::newRow("number out of range") << "99999999999" << QVariant(30000);
    QTest::newRow("word for a Boolean") << "perhaps" << QVariant(false);
    QTest::newRow("empty for a Boolean") << "" << QVariant(true);
}

void TestSettingsPropertyBag::Read_StoredTextOfAnotherKind_GivesTheDefault()
{
    QFETCH(QString, stored);
    QFETCH(QVariant, defaultValue);

    m_settings->setValue(QStringLiteral("Browser/P"), stored);
    NextRun();

    const SettingsPropertyBag bag(*m_settings, QStringLiteral("Browser"));
    QCOMPARE(bag.ReadProperty(QStringLiteral("P"), defaultValue), defaultValue);
}

void TestSettingsPropertyBag::Write_ValueIsTheDefault_StoresNothing()
{
    SettingsPropertyBag bag(*m_settings, QStringLiteral("Browser"));

    bag.WriteProperty(QStringLiteral("P"), 2, 2);

    QVERIFY(m_settings->allKeys().isEmpty());
}

void TestSettingsPropertyBag::Write_ValueIsTheDefaultAgain_RemovesWhatWasStored()
{
    SettingsPropertyBag bag(*m_settings, QStringLiteral("Browser"));

    bag.WriteProperty(QStringLiteral("P"), 5, 2);
    QVERIFY(bag.Holds(QStringLiteral("P")));
    bag.WriteProperty(QStringLiteral("P"), 2, 2);

    QVERIFY(!bag.Holds(QStringLiteral("P")));
    QCOMPARE(bag.ReadProperty(QStringLiteral("P"), 2), QVariant(2));
}

void TestSettingsPropertyBag::Write_WithoutDefault_AlwaysStores()
{
    SettingsPropertyBag bag(*m_settings, QStringLiteral("Browser"));

    bag.WriteProperty(QStringLiteral("RefreshInterval"), 30000);

    QVERIFY(bag.Holds(QStringLiteral("RefreshInterval")));
}

void TestSettingsPropertyBag::Groups_SameName_StayApart()
{
    SettingsPropertyBag left(*m_settings, QStringLiteral("Left"));
    SettingsPropertyBag right(*m_settings, QStringLiteral("Right"));

    left.WriteProperty(QStringLiteral("P"), 1, 0);
    right.WriteProperty(QStringLiteral("P"), 2, 0);

    QCOMPARE(left.ReadProperty(QStringLiteral("P"), 0), QVariant(1));
    QCOMPARE(right.ReadProperty(QStringLiteral("P"), 0), QVariant(2));
}

void TestSettingsPropertyBag::File_CannotBeWritten_NextRunGetsTheDefault()
{
    m_settings = std::make_unique<QSettings>(m_folder->filePath(QStringLiteral("kept.ini/below.ini")),
                                             QSettings::IniFormat);
    QFile plain(File());
    QVERIFY(plain.open(QIODevice::WriteOnly));
    plain.close();

    SettingsPropertyBag(*m_settings, QStringLiteral("Browser")).WriteProperty(QStringLiteral("P"), 5, 2);
    m_settings->sync();
    QCOMPARE(m_settings->status(), QSettings::AccessError);
    NextRun();

    const SettingsPropertyBag bag(*m_settings, QStringLiteral("Browser"));
    QCOMPARE(bag.ReadProperty(QStringLiteral("P"), 2), QVariant(2));
}

QTEST_GUILESS_MAIN(TestSettingsPropertyBag)
#include "TestSettingsPropertyBag.moc"
