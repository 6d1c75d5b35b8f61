#include "platform/Language.h"
#include "platform/MsgBox.h"
#include "platform/Words.h"

#include <QTest>

/// Which language is used, and what it changes.
class TestLanguage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void UseLanguage_Never_SpeaksEnglish();
    void UseLanguage_Offered_SpeaksIt_data();
    void UseLanguage_Offered_SpeaksIt();
    void UseLanguage_Another_TakesItsPlace();
    void UseLanguage_EnglishAgain_SpeaksEnglish();
    void UseLanguage_NotOffered_ChangesNothing();
    void LanguageName_IsInTheLanguageItself();
    void ChosenLanguage_Choices_FirstOfferedWins_data();
    void ChosenLanguage_Choices_FirstOfferedWins();
};

void TestLanguage::cleanup()
{
    qunsetenv("ZELKA_LANGUAGE");
    QVERIFY(UseLanguage(QStringLiteral("en")));
}

void TestLanguage::UseLanguage_Never_SpeaksEnglish()
{
    QCOMPARE(LanguageInUse(), "en");
    QCOMPARE(Words::tr("Nothing selected."), "Nothing selected.");
}

void TestLanguage::UseLanguage_Offered_SpeaksIt_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("button");
    QTest::newRow("en") << "Zelka Connection Browser - Error"
                        << "Cancel";
    QTest::newRow("de") << "Zelka Connection Browser - Fehler"
                        << "Abbrechen";
    QTest::newRow("fr") << "Zelka Connection Browser - Erreur"
                        << "Annuler";
}

void TestLanguage::UseLanguage_Offered_SpeaksIt()
{
    QFETCH(QString, title);
    QFETCH(QString, button);
    const QString language = QString::fromLatin1(QTest::currentDataTag());

    QVERIFY(UseLanguage(language));

    QCOMPARE(LanguageInUse(), language);
    QCOMPARE(ErrorBoxTitle(), title);
    QCOMPARE(QCoreApplication::translate("QPlatformTheme", "Cancel"), button);
}

void TestLanguage::UseLanguage_Another_TakesItsPlace()
{
    QVERIFY(UseLanguage(QStringLiteral("de")));

    QVERIFY(UseLanguage(QStringLiteral("fr")));

    QCOMPARE(Words::tr("Yes"), "Oui");
}

void TestLanguage::UseLanguage_EnglishAgain_SpeaksEnglish()
{
    QVERIFY(UseLanguage(QStringLiteral("de")));
    QCOMPARE(Words::tr("Yes"), "Ja");

    QVERIFY(UseLanguage(QStringLiteral("en")));

    QCOMPARE(Words::tr("Yes"), "Yes");
    QCOMPARE(QCoreApplication::translate("QPlatformTheme", "Cancel"), "Cancel");
}

void TestLanguage::UseLanguage_NotOffered_ChangesNothing()
{
    QVERIFY(UseLanguage(QStringLiteral("de")));

    QVERIFY(!UseLanguage(QStringLiteral("tlh")));
    QVERIFY(!UseLanguage(QString()));

    QCOMPARE(LanguageInUse(), "de");
    QCOMPARE(Words::tr("Yes"), "Ja");
}

void TestLanguage::LanguageName_IsInTheLanguageItself()
{
    QCOMPARE(OfferedLanguages(), QStringList({"en", "de", "fr"}));
    QCOMPARE(LanguageName(QStringLiteral("en")), "English");
    QCOMPARE(LanguageName(QStringLiteral("de")), "Deutsch");
    QCOMPARE(LanguageName(QStringLiteral("fr")), QStringLiteral("Français"));
    QCOMPARE(LanguageName(QStringLiteral("tlh")), QString());
}

void TestLanguage::ChosenLanguage_Choices_FirstOfferedWins_data()
{
    QTest::addColumn<QString>("commandLine");
    QTest::addColumn<QString>("environment");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("chosen");
    const auto row = [](const char* name, const char* commandLine, const char* environment,
                        const char* stored, const char* chosen) {
        QTest::newRow(name) << QString::fromLatin1(commandLine) << QString::fromLatin1(environment)
                            << QString::fromLatin1(stored) << QString::fromLatin1(chosen);
    };
    row("nothing", "", "", "", "en");
    row("stored", "", "", "fr", "fr");
    row("environment before stored", "", "de", "fr", "de");
    row("command line first", "en", "de", "fr", "en");
    row("not offered is passed over", "tlh", "", "fr", "fr");
    row("none offered", "tlh", "x", "y", "en");
    row("with a country", "", "de_AT.UTF-8", "", "de");
    row("with a country behind a dash", "fr-CH", "", "", "fr");
    row("large letters", "DE", "", "", "de");
    row("a code that only begins so", "deu", "", "", "en");
}

void TestLanguage::ChosenLanguage_Choices_FirstOfferedWins()
{
    QFETCH(QString, commandLine);
    QFETCH(QString, environment);
    QFETCH(QString, stored);
    qputenv("ZELKA_LANGUAGE", environment.toUtf8());

    QTEST(ChosenLanguage(commandLine, stored), "chosen");
}

QTEST_GUILESS_MAIN(TestLanguage)
#include "TestLanguage.moc"
