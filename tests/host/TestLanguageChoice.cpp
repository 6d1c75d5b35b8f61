#include "host/workstation/LanguageMenu.h"
#include "platform/Language.h"
#include "tests/components/DatabaseFixture.h"
#include "tests/host/RunProgram.h"
#include "tests/support/RecordingPresenter.h"

#include <QAction>
#include <QDir>
#include <QMenu>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

/// How the operator of the workstation chooses a language, and what the choice changes.
class TestLanguageChoice : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void Menu_Made_OffersEachLanguageByItsName();
    void Menu_NothingStored_ShowsTheOneInUse();
    void Menu_Stored_ShowsIt();
    void Menu_StoredIsNotOffered_CountsAsNothing();
    void Menu_Another_IsStoredAndTold();
    void Menu_TheOneInUse_TakesTheChoiceBack();
    void Program_Option_SpeaksIt();
    void Program_Stored_SpeaksIt();
    void Program_OptionAndStored_OptionWins();
    void Program_AnyLanguage_PrintsTheSame();
    void Program_NotOffered_ShowsUsage();

private:
    [[nodiscard]] QAction& Action(const char* name) const
    {
        return *m_menu->findChild<QAction*>(QLatin1String(name));
    }
    void MakeMenu()
    {
        m_menu = std::make_unique<QMenu>();
        new LanguageMenu(*m_menu, *m_settings);
    }
    /// Starts the program, in the folder as home, on a database that does not exist.
    [[nodiscard]] Outcome RunWithoutDatabase(const QStringList& arguments) const;

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<QSettings> m_settings;
    std::unique_ptr<QMenu> m_menu;
    std::unique_ptr<RecordingPresenter> m_boxes;
};

static const QString GermanBox = QStringLiteral("Die HVX-Datenbank kann nicht geöffnet werden");
static const QString FrenchBox = QStringLiteral("Impossible d’ouvrir la base de données HVX");

void TestLanguageChoice::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid() && QDir(m_folder->path()).mkdir(QStringLiteral("temp")));
    m_settings = std::make_unique<QSettings>(
        m_folder->filePath(QStringLiteral("config/Zelka/Workstation.ini")), QSettings::IniFormat);
    m_boxes = std::make_unique<RecordingPresenter>();
}

void TestLanguageChoice::cleanup()
{
    m_menu.reset();
    m_boxes.reset();
    m_settings.reset();
    QVERIFY(UseLanguage(QStringLiteral("en")));
}

Outcome TestLanguageChoice::RunWithoutDatabase(const QStringList& arguments) const
{
    m_settings->sync();
    return RunWithoutDisplay(
        QStringLiteral(ZELKA_WORKSTATION_PROGRAM),
        QStringList{QStringLiteral("--database"), m_folder->filePath(QStringLiteral("missing.mdb"))} +
            arguments,
        m_folder->path());
}

// Menu ------------------------------------------------------------------------------------------------------

void TestLanguageChoice::Menu_Made_OffersEachLanguageByItsName()
{
    MakeMenu();

    QStringList names;
    for (const QAction* action : m_menu->actions())
        names << action->text();
    QCOMPARE(names, QStringList({"English", "Deutsch", QStringLiteral("Français")}));
}

void TestLanguageChoice::Menu_NothingStored_ShowsTheOneInUse()
{
    QVERIFY(UseLanguage(QStringLiteral("de")));

    MakeMenu();

    QVERIFY(Action("mnuLanguage_de").isChecked());
    QVERIFY(!Action("mnuLanguage_en").isChecked());
    QCOMPARE(LanguageMenu::Stored(*m_settings), QString());
}

void TestLanguageChoice::Menu_Stored_ShowsIt()
{
    m_settings->setValue(QStringLiteral("Language"), QStringLiteral("fr"));

    MakeMenu();

    QVERIFY(Action("mnuLanguage_fr").isChecked());
    QCOMPARE(LanguageMenu::Stored(*m_settings), "fr");
}

void TestLanguageChoice::Menu_StoredIsNotOffered_CountsAsNothing()
{
    m_settings->setValue(QStringLiteral("Language"), QStringLiteral("tlh"));

    MakeMenu();

    QVERIFY(Action("mnuLanguage_en").isChecked());
    QCOMPARE(LanguageMenu::Stored(*m_settings), QString());
}

void TestLanguageChoice::Menu_Another_IsStoredAndTold()
{
    MakeMenu();

    Action("mnuLanguage_de").trigger();

    QCOMPARE(LanguageMenu::Stored(*m_settings), "de");
    QVERIFY(Action("mnuLanguage_de").isChecked());
    QCOMPARE(LanguageInUse(), "en");
    QCOMPARE(m_boxes->Boxes.size(), 1U);
    QCOMPARE(m_boxes->Boxes.front().text, "The language changes when the workstation is started again.");
}

void TestLanguageChoice::Menu_TheOneInUse_TakesTheChoiceBack()
{
    m_settings->setValue(QStringLiteral("Language"), QStringLiteral("fr"));
    MakeMenu();

    Action("mnuLanguage_en").trigger();

    QCOMPARE(LanguageMenu::Stored(*m_settings), "en");
    QVERIFY(m_boxes->Boxes.empty());
}

// Program ---------------------------------------------------------------------------------------------------

void TestLanguageChoice::Program_Option_SpeaksIt()
{
    const Outcome outcome = RunWithoutDatabase({QStringLiteral("--language"), QStringLiteral("de")});

    QCOMPARE(outcome.code, 3);
    QVERIFY2(outcome.errors.contains(GermanBox), qUtf8Printable(outcome.errors));
}

void TestLanguageChoice::Program_Stored_SpeaksIt()
{
    m_settings->setValue(QStringLiteral("Language"), QStringLiteral("fr"));

    const Outcome outcome = RunWithoutDatabase({});

    QCOMPARE(outcome.code, 3);
    QVERIFY2(outcome.errors.contains(FrenchBox), qUtf8Printable(outcome.errors));
}

void TestLanguageChoice::Program_OptionAndStored_OptionWins()
{
    m_settings->setValue(QStringLiteral("Language"), QStringLiteral("fr"));

    const Outcome outcome = RunWithoutDatabase({QStringLiteral("--language"), QStringLiteral("de")});

    QVERIFY2(outcome.errors.contains(GermanBox), qUtf8Printable(outcome.errors));
}

void TestLanguageChoice::Program_AnyLanguage_PrintsTheSame()
{
    const DatabaseFixture database;
    const auto run = [&](const QString& language) {
        return RunWithoutDisplay(
            QStringLiteral(ZELKA_WORKSTATION_PROGRAM),
            {QStringLiteral("--database"), database.Source(), QStringLiteral("--screenshots"),
             m_folder->filePath(QStringLiteral("pictures")), QStringLiteral("--language"), language},
            m_folder->path());
    };

    const Outcome english = run(QStringLiteral("en"));
    const Outcome german = run(QStringLiteral("de"));

    QVERIFY2(english.output.startsWith(QStringLiteral("WP=")), qUtf8Printable(english.errors));
    QCOMPARE(german.output, english.output);
    QCOMPARE(german.code, english.code);
}

void TestLanguageChoice::Program_NotOffered_ShowsUsage()
{
    const Outcome outcome = RunWithoutDatabase({QStringLiteral("--language"), QStringLiteral("tlh")});

    QCOMPARE(outcome.code, 2);
    QVERIFY2(outcome.errors.contains(QStringLiteral("--language")), qUtf8Printable(outcome.errors));
}

QTEST_MAIN(TestLanguageChoice)
#include "TestLanguageChoice.moc"
