#include "platform/HelpLinks.h"
#include "support/HelpFile.h"
#include "support/modHTMLHelp.h"

#include <QHelpContentModel>
#include <QHelpIndexModel>
#include <QHelpLink>
#include <QImage>
#include <QRegularExpression>
#include <QTest>

#include <memory>

/// The pages of the built help file: every topic that a program asks for is there, and no link leads nowhere.
class TestHelpPages : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<HelpFile> m_file;

    [[nodiscard]] QList<QUrl> Files(const QString& kind) const
    {
        return m_file->Engine().files(QStringLiteral("zelka.browser4"), QString(), kind);
    }
    [[nodiscard]] QString Text(const QUrl& page) const { return QString::fromUtf8(m_file->Read(page)); }
    /// What `pattern` catches, for all pages: the page and the caught text.
    [[nodiscard]] QList<std::pair<QUrl, QString>> InPages(const char* pattern) const
    {
        const QRegularExpression expression(QString::fromLatin1(pattern));
        QList<std::pair<QUrl, QString>> caught;
        for (const QUrl& page : Files(QStringLiteral("htm"))) {
            QRegularExpressionMatchIterator matches = expression.globalMatch(Text(page));
            while (matches.hasNext())
                caught.append({page, matches.next().captured(1)});
        }
        return caught;
    }
    [[nodiscard]] bool HasPlace(const QUrl& url) const
    {
        const QString mark = QStringLiteral("<a name=\"%1\"></a>").arg(url.fragment());
        return !url.hasFragment() || Text(url.adjusted(QUrl::RemoveFragment)).count(mark) == 1;
    }
    void AddPagesBelow(const QModelIndex& parent, QStringList& pages) const;

private Q_SLOTS:
    void init() { m_file = std::make_unique<HelpFile>(modHTMLHelp::HelpFilePath()); }

    void Topic_AskedFor_IsAPlaceInAPage_data();
    void Topic_AskedFor_IsAPlaceInAPage();
    void Links_OfAllPages_LeadToAPlace();
    void Links_OfAllPages_StayInTheHelp();
    void Pictures_OfAllPages_AreLightAndDark();
    void Pictures_Packed_AreShown();
    void Contents_EveryPage_IsInThem();
    void Keywords_Each_LeadsToOnePlace();
    void Pages_Each_HasItsTitleAsHeading();
};

void TestHelpPages::Topic_AskedFor_IsAPlaceInAPage_data()
{
    QTest::addColumn<QString>("constant");
    QTest::addColumn<QString>("topic");
    const auto add = [](const char* topic, const QString& constant) {
        QTest::newRow(topic) << constant << QString::fromLatin1(topic);
    };
    add("Browser4Scan00000045.htm", HelpLinks::Scan);
    add("Browser4Scan_Busses.htm", HelpLinks::ScanBusses);
    add("Browser4Save_Many_Nodes.htm#SaveManyNodes1", HelpLinks::ScanSaveAll);
    add("Browser4Save_Many_Nodes.htm#SaveManyNodes2", HelpLinks::ScanNotSavedList);
    add("Browser4Save_One_Node.htm#SaveDirect1", HelpLinks::SaveDirectNode);
    add("Browser4Properties00000007.htm", HelpLinks::DatabaseConProp);
    add("Browser4Properties00000036.htm", HelpLinks::DatabaseNodeProp);
    add("Browser4Properties00000007.htm#acf22e1c", HelpLinks::WpProp);
    add("Browser4Connection_Definition.htm", HelpLinks::DirectProp);
    add("Browser4Add00000034.htm#3b49d612", HelpLinks::MngrInfo);
    add("Browser4FE_Parameters.htm", HelpLinks::ChSelPktSize);
    add("Zelka_Connection_Tool_Overview.htm#DatabaseTab1", HelpLinks::DatabaseTab);
    add("Zelka_Connection_Tool_Overview.htm#DirectTab1", HelpLinks::DirectTab);
    add("index.htm", HelpLinks::Contents);
    add("Workstation.htm", HelpLinks::Workstation);
    add("Finding.htm", HelpLinks::Finding);
    add("Other_Workstations.htm", HelpLinks::OtherWorkstations);
    add("Keyboard.htm", HelpLinks::Keyboard);
    add("Messages.htm", HelpLinks::Messages);
    add("Command_Line.htm", HelpLinks::CommandLine);
}

void TestHelpPages::Topic_AskedFor_IsAPlaceInAPage()
{
    QFETCH(const QString, constant);
    QFETCH(const QString, topic);

    QCOMPARE(constant, topic);
    QVERIFY(m_file->Holds(m_file->UrlOf(topic)));
    QVERIFY(HasPlace(m_file->UrlOf(topic)));
}

void TestHelpPages::Links_OfAllPages_LeadToAPlace()
{
    const auto links = InPages("<a href=\"([^\"]*)\"");
    QVERIFY(!links.isEmpty());
    for (const auto& [page, link] : links) {
        const QUrl url = page.resolved(QUrl(link));
        QVERIFY2(m_file->Holds(url) && HasPlace(url), qPrintable(page.fileName() + QLatin1Char(' ') + link));
    }
}

void TestHelpPages::Links_OfAllPages_StayInTheHelp()
{
    for (const auto& [page, link] : InPages("(?:href|src)=\"([^\"]*)\""))
        QVERIFY2(QUrl(link).isRelative(), qPrintable(page.fileName() + QLatin1Char(' ') + link));
}

void TestHelpPages::Pictures_OfAllPages_AreLightAndDark()
{
    const auto pictures = InPages("<img src=\"([^\"]*)\"");
    QVERIFY(!pictures.isEmpty());
    for (const auto& [page, name] : pictures) {
        QString dark = name;
        dark.replace(QStringLiteral("-light."), QStringLiteral("-dark."));
        QVERIFY2(dark != name, qPrintable(name));
        for (const QString& picture : {name, dark})
            QVERIFY2(!QImage::fromData(m_file->Read(page.resolved(QUrl(picture)))).isNull(),
                     qPrintable(picture));
    }
    QCOMPARE(InPages("<img src=\"[^\"]*\" alt=\"([^\"]+)\">").size(), pictures.size());
}

void TestHelpPages::Pictures_Packed_AreShown()
{
    QStringList shown;
    for (const auto& [page, name] : InPages("<img src=\"pictures/([^\"]*)-light.png\""))
        shown << name;
    for (const QUrl& picture : Files(QStringLiteral("png"))) {
        const QString name = picture.fileName().section(QLatin1Char('-'), 0, -2);
        // One window has the same parts as another that is shown.
        const bool isShown = shown.contains(name) || name == QStringLiteral("connection-modem");
        QVERIFY2(isShown, qPrintable(picture.fileName()));
    }
}

void TestHelpPages::AddPagesBelow(const QModelIndex& parent, QStringList& pages) const
{
    const QHelpContentModel& contents = *m_file->Engine().contentModel();
    for (int row = 0; row < contents.rowCount(parent); ++row) {
        const QModelIndex entry = contents.index(row, 0, parent);
        const QUrl url = contents.contentItemAt(entry)->url();
        QVERIFY2(m_file->Holds(url) && HasPlace(url), qPrintable(url.toString()));
        pages << url.fileName();
        AddPagesBelow(entry, pages);
    }
}

void TestHelpPages::Contents_EveryPage_IsInThem()
{
    QTRY_VERIFY(m_file->Engine().contentModel()->rowCount(QModelIndex()) > 0);
    QStringList listed;
    AddPagesBelow(QModelIndex(), listed);

    const QList<QUrl> pages = Files(QStringLiteral("htm"));
    QCOMPARE_GT(pages.size(), 15);
    for (const QUrl& page : pages)
        QVERIFY2(listed.contains(page.fileName()), qPrintable(page.fileName()));
}

void TestHelpPages::Keywords_Each_LeadsToOnePlace()
{
    QTRY_VERIFY(m_file->Engine().indexModel()->rowCount() > 0);
    const QStringList keywords = m_file->Engine().indexModel()->stringList();
    QCOMPARE_GT(keywords.size(), 40);
    for (const QString& keyword : keywords) {
        const QList<QHelpLink> places = m_file->Engine().documentsForKeyword(keyword, QString());
        QVERIFY2(places.size() == 1, qPrintable(keyword));
        QVERIFY2(m_file->Holds(places.first().url) && HasPlace(places.first().url), qPrintable(keyword));
    }
}

void TestHelpPages::Pages_Each_HasItsTitleAsHeading()
{
    for (const QUrl& page : Files(QStringLiteral("htm"))) {
        const QRegularExpression both(QStringLiteral("<title>([^<]+)</title>.*<h1>([^<]+)</h1>"),
                                      QRegularExpression::DotMatchesEverythingOption);
        const QRegularExpressionMatch found = both.match(Text(page));
        QVERIFY2(found.hasMatch(), qPrintable(page.fileName()));
        QCOMPARE(found.captured(1), found.captured(2));
    }
}

QTEST_MAIN(TestHelpPages)
#include "TestHelpPages.moc"
