#include "tests/translations/Catalogue.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <functional>

/// The catalogues against the sources, and each translation against its text.
class TestCatalogues : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Catalogue_Updated_StaysAsItIs_data() { Languages(); }
    void Catalogue_Updated_StaysAsItIs();
    void Entries_AllOfThem_AreTranslated_data() { Languages(); }
    void Entries_AllOfThem_AreTranslated();
    void Entries_Places_AreTheSame_data() { Languages(); }
    void Entries_Places_AreTheSame();
    void Entries_BlanksAtTheEnds_AreTheSame_data() { Languages(); }
    void Entries_BlanksAtTheEnds_AreTheSame();
    void Entries_DotsAtTheEnd_AreTheSame_data() { Languages(); }
    void Entries_DotsAtTheEnd_AreTheSame();
    void Entries_AccessKeys_StandWhereTheTextHasOne_data() { Languages(); }
    void Entries_AccessKeys_StandWhereTheTextHasOne();
    void Entries_SameTextInTwoWindows_IsSaidAlike_data() { Languages(); }
    void Entries_SameTextInTwoWindows_IsSaidAlike();
    void CaptionsOfAScan_TellItsState_data() { Languages(); }
    void CaptionsOfAScan_TellItsState();

private:
    static void Languages();
    /// Fails with the first entry that breaks a rule.
    static void CheckEach(const std::function<bool(const CatalogueEntry& entry)>& rule);
};

void TestCatalogues::Languages()
{
    QTest::addColumn<QString>("language");
    for (const char* language : {"de", "fr"})
        QTest::newRow(language) << QString::fromLatin1(language);
}

void TestCatalogues::CheckEach(const std::function<bool(const CatalogueEntry& entry)>& rule)
{
    QFETCH(QString, language);
    const QList<CatalogueEntry> entries = ReadCatalogue(CataloguePath(language));
    QVERIFY(!entries.isEmpty());
    for (const CatalogueEntry& entry : entries)
        QVERIFY2(rule(entry), qUtf8Printable(entry.Place() + QStringLiteral(" -> ") + entry.translation));
}

void TestCatalogues::Catalogue_Updated_StaysAsItIs()
{
    QFETCH(QString, language);
    const auto contents = [](const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    };
    const QTemporaryDir folder;
    const QString copy = folder.filePath(QFileInfo(CataloguePath(language)).fileName());
    QVERIFY(QFile::copy(CataloguePath(language), copy));

    QProcess update;
    update.start(QStringLiteral(ZELKA_UPDATE_TRANSLATIONS), {copy});
    QVERIFY(update.waitForFinished(120'000));

    QCOMPARE(update.exitCode(), 0);
    // A text that has no class to belong to is told here and gets no entry.
    QCOMPARE(QString::fromUtf8(update.readAllStandardError()), QString());
    QVERIFY2(contents(copy) == contents(CataloguePath(language)), "run make translations and translate");
}

void TestCatalogues::Entries_AllOfThem_AreTranslated()
{
    QFETCH(QString, language);
    CheckEach([&](const CatalogueEntry& entry) {
        return !entry.isUnfinished && !entry.translation.isEmpty() &&
               (entry.translation != entry.source || MaySayTheSame(language, entry.source));
    });
}

void TestCatalogues::Entries_Places_AreTheSame()
{
    const auto places = [](const QString& text) {
        static const QRegularExpression place(QStringLiteral("%[1-9n]"));
        QStringList found;
        for (auto matches = place.globalMatch(text); matches.hasNext();)
            found << matches.next().captured();
        found.sort();
        return found;
    };
    CheckEach([&](const CatalogueEntry& entry) { return places(entry.source) == places(entry.translation); });
}

void TestCatalogues::Entries_BlanksAtTheEnds_AreTheSame()
{
    const auto blanks = [](const QString& text) {
        const qsizetype trimmed = text.trimmed().size();
        const qsizetype leading = text.indexOf(text.trimmed());
        return std::pair(leading, text.size() - trimmed - leading);
    };
    CheckEach([&](const CatalogueEntry& entry) { return blanks(entry.source) == blanks(entry.translation); });
}

void TestCatalogues::Entries_DotsAtTheEnd_AreTheSame()
{
    const auto end = [](const QString& text) {
        static const QRegularExpression dots(QStringLiteral("( ?\\.{2,}|:)$"));
        return dots.match(text).captured();
    };
    CheckEach([&](const CatalogueEntry& entry) { return end(entry.source) == end(entry.translation); });
}

void TestCatalogues::Entries_AccessKeys_StandWhereTheTextHasOne()
{
    CheckEach([](const CatalogueEntry& entry) {
        return AccessKey(entry.source).isNull() == AccessKey(entry.translation).isNull() &&
               entry.source.count(u'&') == entry.translation.count(u'&');
    });
}

void TestCatalogues::Entries_SameTextInTwoWindows_IsSaidAlike()
{
    QHash<QString, QString> said;
    CheckEach([&](const CatalogueEntry& entry) {
        const QString words = QString(entry.translation).remove(u'&');
        return said.value(entry.source, words) == words && (said.insert(entry.source, words), true);
    });
}

void TestCatalogues::CaptionsOfAScan_TellItsState()
{
    QFETCH(QString, language);
    QStringList captions;
    for (const CatalogueEntry& entry : ReadCatalogue(CataloguePath(language))) {
        if (entry.context == u"Words" && QStringList({"S&tart", "Stop", "Stop ..."}).contains(entry.source))
            captions << entry.translation.toLower();
    }

    QCOMPARE(captions.size(), 3);
    QCOMPARE(captions.removeDuplicates(), 0);
}

QTEST_GUILESS_MAIN(TestCatalogues)
#include "TestCatalogues.moc"
