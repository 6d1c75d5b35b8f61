#include "browser/T4ZelkaBrowser.h"
#include "browser/frmConNodesProgress.h"
#include "browser/frmFindElement.h"
#include "browser/frmLoadProgress.h"
#include "browser/frmMngrInfo.h"
#include "browser/frmSelectTreeNode.h"
#include "components/hvxdb/HvxAdministration.h"
#include "dialogs/frmChSelPktSize.h"
#include "dialogs/frmDatabaseConProp.h"
#include "dialogs/frmDatabaseNodeProp.h"
#include "dialogs/frmDirectProp.h"
#include "dialogs/frmSaveDirectNode.h"
#include "dialogs/frmWpProp.h"
#include "host/node-manager/NodeManagerWindow.h"
#include "host/node-manager/StartArguments.h"
#include "host/workstation/WorkstationWindow.h"
#include "host/workstation/frmAbout.h"
#include "model/ConData.h"
#include "model/ModelState.h"
#include "platform/Language.h"
#include "platform/controls/TreeView.h"
#include "scan/FoundNodesGrid.h"
#include "scan/frmBusSelection.h"
#include "scan/frmScan.h"
#include "scan/frmScanNotSavedList.h"
#include "scan/frmScanSaveAll.h"
#include "scan/frmScanSelSaveProgress.h"
#include "support/frmSplash.h"
#include "tests/components/DatabaseFixture.h"
#include "tests/support/RecordingPresenter.h"
#include "tests/translations/Catalogue.h"
#include "tests/translations/WindowTexts.h"

#include <QAbstractButton>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QRegularExpression>
#include <QSettings>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <memory>

namespace {

using Window = std::unique_ptr<QWidget>;

ConData& Connection()
{
    return *Model().ConObject;
}

ConData& Direct()
{
    return *Model().DirectObject;
}

ConData& NewDirect()
{
    return *Model().NewDirectObject;
}

/// Makes a window on the records that are loaded.
struct WindowMaker
{
    const char* name;
    std::function<Window()> make;
};

template <typename Form>
Window Make()
{
    return std::make_unique<Form>();
}

template <typename Form>
Window MakeOnConnection()
{
    return std::make_unique<Form>(Connection(), nullptr);
}

template <typename Form>
Window MakeOnDirect()
{
    return std::make_unique<Form>(Direct(), NewDirect(), nullptr);
}

Window MakeWaypointForm()
{
    Connection().SelectedWpIndx = 1;
    return MakeOnConnection<frmWpProp>();
}

Window MakeNodeManager()
{
    StartArguments arguments;
    arguments.node = QStringLiteral("North");
    return std::make_unique<NodeManagerWindow>(arguments);
}

const std::vector<WindowMaker>& Makers()
{
    static const std::vector<WindowMaker> makers{
        {"loading of a connection's nodes", Make<frmConNodesProgress>},
        {"loading", Make<frmLoadProgress>},
        {"find", Make<frmFindElement>},
        {"found entries", Make<frmSelectTreeNode>},
        {"packet size", Make<frmChSelPktSize>},
        {"connection", MakeOnConnection<frmDatabaseConProp>},
        {"node", MakeOnConnection<frmDatabaseNodeProp>},
        {"manager", MakeOnConnection<frmMngrInfo>},
        {"waypoint", MakeWaypointForm},
        {"direct connection", MakeOnDirect<frmDirectProp>},
        {"direct node", MakeOnDirect<frmSaveDirectNode>},
        {"scan", [] { return std::make_unique<frmScan>(Direct()); }},
        {"buses", [] { return std::make_unique<frmBusSelection>(Direct()); }},
        {"names of found nodes", MakeOnDirect<frmScanSaveAll>},
        {"found nodes", MakeOnDirect<frmScanNotSavedList>},
        {"saving", MakeOnDirect<frmScanSelSaveProgress>},
        {"about", [] { return std::make_unique<frmAbout>(QStringLiteral("Network")); }},
        {"version", Make<frmSplash>},
        {"node manager", MakeNodeManager},
    };
    return makers;
}

/// What the records and definitions of the database say, or is put together from them, and the languages' own
/// names.
bool IsData(const QString& text)
{
    static const QStringList data{"Network",
                                  "North - Zelka Node Manager",
                                  "Network - Zelka Workstation",
                                  "Scan Beta",
                                  "T4 Node",
                                  "MML Network Element",
                                  "SNMP Node",
                                  "Path:",
                                  "Password:",
                                  "Retry Count:",
                                  "Time Out:",
                                  "User Name:",
                                  "Address:",
                                  "Fe Channel:",
                                  "Fe Id:"};
    for (const QString& language : OfferedLanguages()) {
        if (text == LanguageName(language))
            return true;
    }
    static const QRegularExpression version(QStringLiteral("^Version [0-9.]+$"));
    return data.contains(text) || version.match(text).hasMatch();
}

/// The workstation on a small database, in a language; its connection and node Beta and East are loaded.
class Workstation
{
public:
    explicit Workstation(const QString& language)
        : m_settings(m_folder.filePath(QStringLiteral("kept.ini")), QSettings::IniFormat)
    {
        if (!UseLanguage(language))
            qFatal("There is no %s.", qUtf8Printable(language));
        RegisterHvxDatabase();
        SetDataSource(m_database.Source());
        Shown = std::make_unique<WorkstationWindow>(m_settings, QStringLiteral("Network"));
        Shown->show();
        Shown->Start();
        Shown->findChild<QAbstractButton*>(QStringLiteral("optCon"))->click();
        const auto& tree = static_cast<const TreeEntries&>(
            *Shown->findChild<TreeView*>(QStringLiteral("tvwConTree"))->model());
        const TreeEntries::Index beta = tree.FindByText(QStringLiteral("Beta"), false);
        IsLoaded = Connection().SetConDataFromNode(tree, beta) && Direct().SetConDataFromNode(tree, beta) &&
                   Connection().SetNodeDataFromNodeName(QStringLiteral("East")) &&
                   Direct().SetNodeDataFromNodeName(QStringLiteral("East"));
    }
    ~Workstation()
    {
        Shown.reset();
        SetDataSource(QString());
        (void)UseLanguage(QStringLiteral("en"));
    }
    Q_DISABLE_COPY_MOVE(Workstation)

    std::unique_ptr<WorkstationWindow> Shown;
    bool IsLoaded = false;

private:
    DatabaseFixture m_database;
    QTemporaryDir m_folder;
    QSettings m_settings;
    RecordingPresenter m_boxes;
};

} // namespace

/// Every window in every language: all of it is translated, fits, and is reached by a key of its own.
class TestTranslatedWindows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        // The direct connection outlives its window, so that only the first one begins without.
        const Workstation first(QStringLiteral("en"));
        QVERIFY(first.IsLoaded);
    }
    void cleanup()
    {
        QApplication::setFont(m_font);
        QApplication::setLayoutDirection(Qt::LeftToRight);
    }

    void Windows_Translated_SayNothingInEnglish_data() { Languages({"de", "fr"}); }
    void Windows_Translated_SayNothingInEnglish();
    void Windows_Laid_ClipNoText_data();
    void Windows_Laid_ClipNoText();
    void Windows_Captions_HaveAccessKeysOfTheirOwn_data() { Languages({"de", "fr"}); }
    void Windows_Captions_HaveAccessKeysOfTheirOwn();
    void Menus_Items_HaveAccessKeysOfTheirOwn_data() { Languages({"de", "fr"}); }
    void Menus_Items_HaveAccessKeysOfTheirOwn();
    void ClippedTexts_NarrowCaptions_AreTold();
    void SharedAccessKeys_OnePage_AreTold();

private:
    static void Languages(std::initializer_list<const char*> languages)
    {
        QTest::addColumn<QString>("language");
        for (const char* language : languages)
            QTest::newRow(language) << QString::fromLatin1(language);
    }
    /// The texts of all windows, by window and place.
    static QMap<QString, QString> AllTexts(const QString& language);
    /// Runs `look` on each window in a language and expects it to find nothing.
    static void CheckEach(const QString& language, const std::function<QStringList(QWidget& window)>& look);

    QFont m_font = QApplication::font();
};

QMap<QString, QString> TestTranslatedWindows::AllTexts(const QString& language)
{
    QMap<QString, QString> all;
    const auto add = [&all](const char* window, const QWidget& shown) {
        const QMap<QString, QString> texts = TextsOf(shown);
        for (auto text = texts.begin(); text != texts.end(); ++text)
            all.insert(QString::fromLatin1(window) + text.key(), text.value());
    };
    const Workstation workstation(language);
    add("workstation", *workstation.Shown);
    for (const WindowMaker& maker : Makers())
        add(maker.name, *maker.make());
    return workstation.IsLoaded ? all : QMap<QString, QString>();
}

void TestTranslatedWindows::CheckEach(const QString& language,
                                      const std::function<QStringList(QWidget& window)>& look)
{
    const Workstation workstation(language);
    QVERIFY(workstation.IsLoaded);
    QStringList found = look(*workstation.Shown);
    for (const WindowMaker& maker : Makers()) {
        const Window window = maker.make();
        for (const QString& each : look(*window))
            found << QStringLiteral("%1: %2").arg(QString::fromLatin1(maker.name), each);
    }
    for (const QString& each : std::as_const(found))
        qWarning("%s", qUtf8Printable(each));
    QVERIFY(found.isEmpty());
}

void TestTranslatedWindows::Windows_Translated_SayNothingInEnglish()
{
    QFETCH(QString, language);
    const QMap<QString, QString> english = AllTexts(QStringLiteral("en"));
    const QMap<QString, QString> translated = AllTexts(language);
    const auto hasLetters = [](const QString& text) {
        return std::any_of(text.begin(), text.end(), [](QChar c) { return c.isLetter(); });
    };

    QStringList left;
    for (auto text = english.begin(); text != english.end(); ++text) {
        if (translated.value(text.key(), text.value()) == text.value() && hasLetters(text.value()) &&
            !MaySayTheSame(language, text.value()) && !IsData(text.value()))
            left << text.key() + QStringLiteral(": ") + text.value();
    }

    QVERIFY(!english.isEmpty());
    for (const QString& each : std::as_const(left))
        qWarning("%s", qUtf8Printable(each));
    QVERIFY(left.isEmpty());
}

void TestTranslatedWindows::Windows_Laid_ClipNoText_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<int>("percent");
    QTest::addColumn<bool>("rightToLeft");
    for (const char* language : {"en", "de", "fr"}) {
        for (const int percent : {100, 200}) {
            QTest::addRow("%s %d", language, percent) << QString::fromLatin1(language) << percent << false;
        }
        QTest::addRow("%s 150 right to left", language) << QString::fromLatin1(language) << 150 << true;
    }
}

void TestTranslatedWindows::Windows_Laid_ClipNoText()
{
    QFETCH(QString, language);
    QFETCH(const int, percent);
    QFETCH(const bool, rightToLeft);
    QFont font = m_font;
    font.setPointSizeF(font.pointSizeF() * percent / 100);
    QApplication::setFont(font);
    QApplication::setLayoutDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    CheckEach(language, ClippedTexts);
}

void TestTranslatedWindows::Windows_Captions_HaveAccessKeysOfTheirOwn()
{
    QFETCH(QString, language);
    CheckEach(language, SharedAccessKeys);
}

void TestTranslatedWindows::Menus_Items_HaveAccessKeysOfTheirOwn()
{
    QFETCH(QString, language);
    const Workstation workstation(language);
    frmScan scan(Direct());
    QList<QMenu*> menus = workstation.Shown->findChildren<QMenu*>();
    const qsizetype barred = menus.size();
    for (TreeView* tree : workstation.Shown->findChildren<TreeView*>()) {
        Q_EMIT tree->ContextMenu(QPoint());
        menus << tree->findChildren<QMenu*>();
    }
    auto& grid = *scan.findChild<FoundNodesGrid*>();
    Q_EMIT grid.ContextMenu(QPoint());
    menus << grid.findChildren<QMenu*>();
    QCOMPARE(menus.size(), barred + 3);
    for (const QMenu* menu : std::as_const(menus)) {
        QMap<QChar, QString> claimed;
        for (const QAction* action : menu->actions()) {
            const QChar key = AccessKey(action->text());
            QVERIFY2(key.isNull() || !claimed.contains(key),
                     qUtf8Printable(claimed.value(key) + QStringLiteral(" / ") + action->text()));
            claimed.insert(key, action->text());
        }
    }
}

// The looks themselves -------------------------------------------------------------------------------------

void TestTranslatedWindows::ClippedTexts_NarrowCaptions_AreTold()
{
    QWidget window;
    QLabel fits(QStringLiteral("Fits"), &window);
    fits.setFixedSize(fits.sizeHint());
    QLabel label(QStringLiteral("Far too long for its place"), &window);
    label.setFixedWidth(label.sizeHint().width() - 1);
    QPushButton button(QStringLiteral("Far too long for its place"), &window);
    button.setFixedWidth(button.sizeHint().width() / 2);
    QLabel wrapped(QStringLiteral("Donaudampfschifffahrt is long"), &window);
    wrapped.setWordWrap(true);
    wrapped.setFixedSize(wrapped.fontMetrics().horizontalAdvance(QStringLiteral("is long")) + 2, 500);

    const QStringList clipped = ClippedTexts(window);

    QCOMPARE(clipped.size(), 3);
    QVERIFY(clipped.filter(QStringLiteral("Fits")).isEmpty());
}

void TestTranslatedWindows::SharedAccessKeys_OnePage_AreTold()
{
    QTabWidget window;
    auto* first = new QWidget;
    auto* second = new QWidget;
    window.addTab(first, QStringLiteral("One"));
    window.addTab(second, QStringLiteral("Two"));
    const QPushButton save(QStringLiteral("&Save"), first);
    const QPushButton stop(QStringLiteral("&Stop"), first);
    const QPushButton start(QStringLiteral("&Start"), second);

    QCOMPARE(SharedAccessKeys(window), QStringList{"&Save / &Stop"});
}

QTEST_MAIN(TestTranslatedWindows)
#include "TestTranslatedWindows.moc"
