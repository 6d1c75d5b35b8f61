#include "platform/HelpHook.h"
#include "platform/ModuleFolder.h"
#include "tests/support/help/OpenHelp.h"

#include <QApplication>
#include <QDir>
#include <QFile>

#include <memory>

/// How a topic gets to the help window, and what happens without a help file.
class TestModHtmlHelp : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<OpenHelp> m_help;
    std::unique_ptr<QTemporaryDir> m_folder;

    [[nodiscard]] QString Write(const QString& name, const QByteArray& content) const
    {
        const QString path = m_folder->filePath(name);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("Cannot write %s.", qPrintable(path));
        return path;
    }

private Q_SLOTS:
    void init()
    {
        m_help = std::make_unique<OpenHelp>();
        m_folder = std::make_unique<QTemporaryDir>();
    }
    void cleanup()
    {
        Help() = HelpHook();
        m_help.reset();
    }

    void ShowTopicOf_FileMissing_ShowsNothing()
    {
        modHTMLHelp::ShowTopicOf(m_folder->filePath(QStringLiteral("Browser4.qch")),
                                 QStringLiteral("index.htm"));

        QVERIFY(!HelpWindow::Current());
        QCOMPARE(QApplication::topLevelWidgets().size(), 0);
        QCOMPARE(m_help->Boxes.Texts(), QStringList());
    }

    void ShowTopicOf_FileDamaged_TellsItInAnErrorBox()
    {
        const QString file = Write(QStringLiteral("Browser4.qch"), "no help at all");

        modHTMLHelp::ShowTopicOf(file, QStringLiteral("index.htm"));

        QVERIFY(!HelpWindow::Current());
        QCOMPARE(m_help->Boxes.Boxes.size(), 1U);
        QCOMPARE(m_help->Boxes.Boxes.front(),
                 RecordedBox::Error(QStringLiteral("The help file %1 cannot be used.").arg(file)));
    }

    void ShowTopicOf_FileDamagedLater_KeepsTheWindow()
    {
        const HelpWindow& window = OpenHelp::Show(QStringLiteral("Finding.htm"));

        modHTMLHelp::ShowTopicOf(Write(QStringLiteral("Other.qch"), "no help at all"),
                                 QStringLiteral("index.htm"));

        QCOMPARE(HelpWindow::Current(), &window);
        QCOMPARE(OpenHelp::Shown(), "Finding.htm");
    }

    void ReportHelpError_KnownNumber_ShowsItsTextAlone()
    {
        modHTMLHelp::ReportHelpError(
            {HelpErrors::UnusableFile, QStringLiteral("modHTMLHelp"), QStringLiteral("It is damaged.")});
        modHTMLHelp::ReportHelpError({HelpErrors::NoWorkingFolder, QStringLiteral("modHTMLHelp"),
                                      QStringLiteral("The disk is full.")});

        QCOMPARE(m_help->Boxes.Boxes, std::vector({RecordedBox::Error(QStringLiteral("It is damaged.")),
                                                   RecordedBox::Error(QStringLiteral("The disk is full."))}));
    }

    void ReportHelpError_OtherNumber_ShowsItAfterTheText()
    {
        modHTMLHelp::ReportHelpError({0x80040001, QStringLiteral("other"), QStringLiteral("It failed.")});

        QCOMPARE(m_help->Boxes.Texts(), QStringList{"It failed.(80040001)"});
    }

    void HelpFileOf_EachPlace_IsFound_data()
    {
        QTest::addColumn<QString>("control");
        QTest::addColumn<QString>("file");
        QTest::newRow("beside it") << "bin"
                                   << "bin/Browser4.qch";
        QTest::newRow("beside the programs' folder") << "bin"
                                                     << "share/zelka-browser/help/Browser4.qch";
        QTest::newRow("of a kind of machine") << "lib/x86"
                                              << "share/zelka-browser/help/Browser4.qch";
    }
    void HelpFileOf_EachPlace_IsFound()
    {
        QFETCH(const QString, control);
        QFETCH(const QString, file);
        const QString path = Write(file, "x");
        QVERIFY(QDir(m_folder->path()).mkpath(control));

        QCOMPARE(modHTMLHelp::HelpFileOf(m_folder->filePath(control)), path);
    }

    void HelpFileOf_NoFile_NamesTheOneBesideTheControl()
    {
        QCOMPARE(modHTMLHelp::HelpFileOf(m_folder->path()),
                 m_folder->filePath(QStringLiteral("Browser4.qch")));
    }

    void HelpFilePath_BuiltProgram_HasItBesideIt()
    {
        QCOMPARE(ModuleFolder(), QFileInfo(QCoreApplication::applicationFilePath()).canonicalPath());
        QCOMPARE(modHTMLHelp::HelpFilePath(), ModuleFolder() + QStringLiteral("/Browser4.qch"));
        QVERIFY(QFileInfo::exists(modHTMLHelp::HelpFilePath()));
    }

    void OfferHelp_Called_DialogsReachTheWindow()
    {
        OfferHelp();

        ShowHelpTopic(QStringLiteral("Browser4Scan_Busses.htm"));

        QVERIFY(HelpWindow::Current() && HelpWindow::Current()->isVisible());
        QCOMPARE(OpenHelp::Shown(), "Browser4Scan_Busses.htm");
        QCOMPARE(Help().HelpFilePath(), modHTMLHelp::HelpFilePath());
    }
};

QTEST_MAIN(TestModHtmlHelp)
#include "TestModHtmlHelp.moc"
