#include "tests/support/help/OpenHelp.h"

#include <QAction>
#include <QDesktopServices>
#include <QHelpContentWidget>
#include <QHelpIndexWidget>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QSplitter>
#include <QStatusBar>
#include <QTabBar>
#include <QTabWidget>
#include <QToolButton>

#include <memory>

/// The help window by itself.
class TestHelpWindow : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<OpenHelp> m_help;
    int m_opened = 0;

    /// The entry of the contents with this title.
    [[nodiscard]] static QModelIndex Entry(const QString& title)
    {
        const QAbstractItemModel& contents = *OpenHelp::Find<QHelpContentWidget>("tvwContents").model();
        QModelIndexList found;
        (void)QTest::qWaitFor([&] {
            if (contents.rowCount() > 0)
                found = contents.match(contents.index(0, 0), Qt::DisplayRole, title, 1,
                                       Qt::MatchExactly | Qt::MatchRecursive);
            return !found.isEmpty();
        });
        if (found.isEmpty())
            qFatal("The contents do not have %s.", qPrintable(title));
        return found.first();
    }
    [[nodiscard]] static bool IsEnabled(const char* action)
    {
        return OpenHelp::Find<QAction>(action).isEnabled();
    }

private Q_SLOTS:
    void init() { m_help = std::make_unique<OpenHelp>(); }
    void cleanup() { m_help.reset(); }

    void ShowTopic_Page_IsShownFromItsTop();
    void ShowTopic_Place_IsScrolledTo_data();
    void ShowTopic_Place_IsScrolledTo();
    void ShowTopic_Again_UsesTheSameWindow();
    void ShowTopic_Unknown_TellsSoInThePage();
    void Steps_BackForwardHome_ShowTheirPages();
    void Contents_Entry_FollowsThePage();
    void Contents_Enter_ShowsThePage();
    void Index_TypedAndEnter_ShowsThePage();
    void Tabs_KeyOfOne_LeadsIntoIt();
    void Tabs_Arrow_StaysOnThem();
    void Search_Word_FindsItsPages();
    void Search_AskedForAtOnce_RunsWhenThePagesAreRead();
    void Search_NoHit_TellsSo();
    void FindInPage_Typed_SelectsTheHits();
    void FindInPage_NoHit_TellsSo();
    void Zoom_Keys_ChangeTheText();
    void Link_ToAnotherPage_IsFollowedByKeyboard();
    void Link_OutOfTheHelp_IsNotOpened();
    void Page_FromOutside_IsNeverRead();
    void Escape_FindBarOpen_ClosesThatFirst();
    void F6_PageAndWaysIn_TakeTurns();
    void Place_OfTheWindow_ComesBack();
    void Palette_Dark_TakesDarkColoursAndPictures();
    void Controls_All_HaveNames();
    void Quit_HelpOpen_IsNotHeldUp();
    void openUrl(const QUrl&) { ++m_opened; }
};

void TestHelpWindow::ShowTopic_Page_IsShownFromItsTop()
{
    const HelpWindow& window = OpenHelp::Show(QStringLiteral("Browser4Scan00000045.htm"));

    QCOMPARE(window.windowTitle(), "Scanning a connection - Help");
    QVERIFY(OpenHelp::Page().toPlainText().startsWith(QStringLiteral("Scanning a connection")));
    QCOMPARE(OpenHelp::Page().verticalScrollBar()->value(), 0);
    QVERIFY(!window.isModal());
    QVERIFY(OpenHelp::Page().hasFocus());
    QCOMPARE(m_help->Boxes.Texts(), QStringList());
}

void TestHelpWindow::ShowTopic_Place_IsScrolledTo_data()
{
    QTest::addColumn<QString>("topic");
    QTest::addColumn<QString>("heading");
    QTest::newRow("Direct tab") << "Zelka_Connection_Tool_Overview.htm#DirectTab1"
                                << "The Direct tab";
    QTest::newRow("waypoints") << "Browser4Properties00000007.htm#acf22e1c"
                               << "Waypoint parameters";
    QTest::newRow("list") << "Browser4Save_Many_Nodes.htm#SaveManyNodes2"
                          << "What is not saved yet";
}

void TestHelpWindow::ShowTopic_Place_IsScrolledTo()
{
    QFETCH(const QString, topic);
    QFETCH(const QString, heading);

    OpenHelp::Show(topic);

    QVERIFY(OpenHelp::Page().verticalScrollBar()->value() > 0);
    const QTextCursor top = OpenHelp::Page().cursorForPosition(QPoint(20, 6));
    QCOMPARE(top.block().text(), heading);
}

void TestHelpWindow::ShowTopic_Again_UsesTheSameWindow()
{
    const HelpWindow* first = &OpenHelp::Show();
    HelpWindow::Current()->close();

    QCOMPARE(&OpenHelp::Show(QStringLiteral("Finding.htm")), first);
    QVERIFY(first->isVisible());
    QCOMPARE(OpenHelp::Shown(), "Finding.htm");
}

void TestHelpWindow::ShowTopic_Unknown_TellsSoInThePage()
{
    OpenHelp::Show(QStringLiteral("Missing.htm"));

    QVERIFY(OpenHelp::Page().toPlainText().contains(QStringLiteral("The help has no page \"Missing.htm\".")));
    QCOMPARE(m_help->Boxes.Texts(), QStringList());
}

void TestHelpWindow::Steps_BackForwardHome_ShowTheirPages()
{
    OpenHelp::Show(QStringLiteral("Finding.htm"));
    QVERIFY(!IsEnabled("mnuBack") && !IsEnabled("mnuForward"));
    OpenHelp::Show(QStringLiteral("Keyboard.htm"));

    OpenHelp::Key(Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(OpenHelp::Shown(), "Finding.htm");
    OpenHelp::Key(Qt::Key_Right, Qt::AltModifier);
    QCOMPARE(OpenHelp::Shown(), "Keyboard.htm");
    OpenHelp::Key(Qt::Key_Home, Qt::AltModifier);
    QCOMPARE(OpenHelp::Shown(), "index.htm");
    QVERIFY(IsEnabled("mnuBack") && !IsEnabled("mnuForward"));
}

void TestHelpWindow::Contents_Entry_FollowsThePage()
{
    OpenHelp::Show();
    const QModelIndex finding = Entry(QStringLiteral("Finding entries"));
    const QModelIndex direct = Entry(QStringLiteral("The Direct tab"));
    const auto& contents = OpenHelp::Find<QHelpContentWidget>("tvwContents");

    OpenHelp::Show(QStringLiteral("Finding.htm"));
    QCOMPARE(contents.currentIndex(), finding);
    OpenHelp::Show(QStringLiteral("Zelka_Connection_Tool_Overview.htm#DirectTab1"));
    QCOMPARE(contents.currentIndex(), direct);
}

void TestHelpWindow::Contents_Enter_ShowsThePage()
{
    OpenHelp::Show();
    const QModelIndex entry = Entry(QStringLiteral("Keyboard"));
    auto& contents = OpenHelp::Find<QHelpContentWidget>("tvwContents");
    contents.setFocus();
    contents.setCurrentIndex(entry);

    OpenHelp::Key(Qt::Key_Return);
    QCOMPARE(OpenHelp::Shown(), "Keyboard.htm");

    const QModelIndex other = Entry(QStringLiteral("Messages"));
    contents.scrollTo(other);
    QTest::mouseClick(contents.viewport(), Qt::LeftButton, {}, contents.visualRect(other).center());
    QCOMPARE(OpenHelp::Shown(), "Messages.htm");
}

void TestHelpWindow::Index_TypedAndEnter_ShowsThePage()
{
    OpenHelp::Show();
    OpenHelp::Find<QTabWidget>("tabHelp").setCurrentIndex(1);
    OpenHelp::Find<QLineEdit>("txtIndex").setFocus();
    const auto& keywords = OpenHelp::Find<QHelpIndexWidget>("lstIndex");
    QTRY_VERIFY(keywords.model()->rowCount() > 1);

    OpenHelp::Type(QStringLiteral("packet"));
    QCOMPARE(keywords.model()->rowCount(), 1);
    OpenHelp::Key(Qt::Key_Return);

    QCOMPARE(OpenHelp::Shown(), "Browser4FE_Parameters.htm");
}

void TestHelpWindow::Tabs_KeyOfOne_LeadsIntoIt()
{
    HelpWindow& window = OpenHelp::Show();
    OpenHelp::Page().setFocus();
    QTest::keyClick(&window, Qt::Key_A, Qt::AltModifier);
    QVERIFY(OpenHelp::Find<QLineEdit>("txtSearch").hasFocus());
    QTest::keyClick(&window, Qt::Key_X, Qt::AltModifier);
    QVERIFY(OpenHelp::Find<QLineEdit>("txtIndex").hasFocus());
    QTest::keyClick(&window, Qt::Key_C, Qt::AltModifier);
    QVERIFY(OpenHelp::Find<QHelpContentWidget>("tvwContents").hasFocus());
}

void TestHelpWindow::Tabs_Arrow_StaysOnThem()
{
    OpenHelp::Show();
    auto& tabs = OpenHelp::Find<QTabWidget>("tabHelp");
    tabs.tabBar()->setFocus();
    QTest::keyClick(tabs.tabBar(), Qt::Key_Right);
    QCOMPARE(tabs.currentIndex(), 1);
    QVERIFY(tabs.tabBar()->hasFocus());
}

void TestHelpWindow::Search_Word_FindsItsPages()
{
    OpenHelp::Show();
    OpenHelp::Key(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    OpenHelp::Type(QStringLiteral("clipboard"));
    OpenHelp::Key(Qt::Key_Return);
    auto& found = OpenHelp::Find<QListWidget>("lstFound");
    QTRY_COMPARE(found.count(), 1);
    QCOMPARE(found.item(0)->text(), "The workstation");
    QVERIFY(found.hasFocus());

    OpenHelp::Key(Qt::Key_Return);

    QCOMPARE(OpenHelp::Shown(), "Workstation.htm");
}

void TestHelpWindow::Search_AskedForAtOnce_RunsWhenThePagesAreRead()
{
    OpenHelp::Show();
    OpenHelp::Find<QLineEdit>("txtSearch").setText(QStringLiteral("gateway"));
    OpenHelp::Find<QPushButton>("cmdSearch").click();

    QTRY_VERIFY(OpenHelp::Find<QListWidget>("lstFound").count() > 0);
}

void TestHelpWindow::Search_NoHit_TellsSo()
{
    OpenHelp::Show();
    QVERIFY(!OpenHelp::Find<QPushButton>("cmdSearch").isEnabled());
    OpenHelp::Find<QLineEdit>("txtSearch").setText(QStringLiteral("xyzzy"));
    OpenHelp::Find<QPushButton>("cmdSearch").click();

    QTRY_COMPARE(OpenHelp::Find<QLabel>("lblFound").text(), "No page holds \"xyzzy\".");
    QCOMPARE(OpenHelp::Find<QListWidget>("lstFound").count(), 0);
}

void TestHelpWindow::FindInPage_Typed_SelectsTheHits()
{
    OpenHelp::Show(QStringLiteral("Browser4FE_Parameters.htm"));
    OpenHelp::Key(Qt::Key_F, Qt::ControlModifier);
    OpenHelp::Type(QStringLiteral("channel"));
    const int first = OpenHelp::Page().textCursor().selectionStart();
    QCOMPARE(OpenHelp::Page().textCursor().selectedText().toLower(), "channel");

    OpenHelp::Key(Qt::Key_Return);
    const int second = OpenHelp::Page().textCursor().selectionStart();
    QVERIFY(second > first);
    OpenHelp::Key(Qt::Key_F3, Qt::ShiftModifier);
    QCOMPARE(OpenHelp::Page().textCursor().selectionStart(), first);
    // Around the beginning.
    OpenHelp::Key(Qt::Key_F3, Qt::ShiftModifier);
    QVERIFY(OpenHelp::Page().textCursor().selectionStart() > second);
    OpenHelp::Key(Qt::Key_F3);
    QCOMPARE(OpenHelp::Page().textCursor().selectionStart(), first);
}

void TestHelpWindow::FindInPage_NoHit_TellsSo()
{
    OpenHelp::Show(QStringLiteral("Browser4FE_Parameters.htm"));
    OpenHelp::Key(Qt::Key_F, Qt::ControlModifier);
    OpenHelp::Type(QStringLiteral("xyzzy"));

    QCOMPARE(OpenHelp::Find<QLabel>("lblOutcome").text(), "Not in this page");
}

void TestHelpWindow::Zoom_Keys_ChangeTheText()
{
    OpenHelp::Show();
    const double normal = OpenHelp::Page().font().pointSizeF();

    OpenHelp::Key(Qt::Key_Plus, Qt::ControlModifier);
    OpenHelp::Key(Qt::Key_Equal, Qt::ControlModifier);
    QCOMPARE(OpenHelp::Page().font().pointSizeF(), normal + 2);
    OpenHelp::Key(Qt::Key_Minus, Qt::ControlModifier);
    QCOMPARE(OpenHelp::Page().font().pointSizeF(), normal + 1);
    OpenHelp::Key(Qt::Key_0, Qt::ControlModifier);
    QCOMPARE(OpenHelp::Page().font().pointSizeF(), normal);
}

void TestHelpWindow::Link_ToAnotherPage_IsFollowedByKeyboard()
{
    OpenHelp::Show(QStringLiteral("Finding.htm"));

    OpenHelp::Key(Qt::Key_Tab);
    OpenHelp::Key(Qt::Key_Return);

    QCOMPARE(OpenHelp::Shown(), "Zelka_Connection_Tool_Overview.htm#DatabaseTab1");
}

void TestHelpWindow::Link_OutOfTheHelp_IsNotOpened()
{
    OpenHelp::Show();
    for (const QString& scheme : {QStringLiteral("http"), QStringLiteral("file")})
        QDesktopServices::setUrlHandler(scheme, this, "openUrl");

    OpenHelp::Page().setSource(QUrl(QStringLiteral("http://example.org/x.htm")));
    QCOMPARE(OpenHelp::Shown(), "index.htm");
    QCOMPARE(OpenHelp::Find<QStatusBar>("barStatus").currentMessage(),
             "http://example.org/x.htm is outside of this help and is not opened.");
    OpenHelp::Page().setSource(QUrl(QStringLiteral("file:///etc/passwd")));
    QCOMPARE(OpenHelp::Shown(), "index.htm");

    for (const QString& scheme : {QStringLiteral("http"), QStringLiteral("file")})
        QDesktopServices::unsetUrlHandler(scheme);
    QCOMPARE(m_opened, 0);
}

void TestHelpWindow::Page_FromOutside_IsNeverRead()
{
    OpenHelp::Show();

    for (const auto type : {QTextDocument::HtmlResource, QTextDocument::ImageResource,
                            QTextDocument::StyleSheetResource, QTextDocument::MarkdownResource})
        QVERIFY(!OpenHelp::Page()
                     .loadResource(type, QUrl::fromLocalFile(QCoreApplication::applicationFilePath()))
                     .isValid());
}

void TestHelpWindow::Escape_FindBarOpen_ClosesThatFirst()
{
    const HelpWindow& window = OpenHelp::Show();
    OpenHelp::Key(Qt::Key_F, Qt::ControlModifier);
    QVERIFY(OpenHelp::Find<QWidget>("barFind").isVisible());

    OpenHelp::Key(Qt::Key_Escape);
    QVERIFY(!OpenHelp::Find<QWidget>("barFind").isVisible());
    QVERIFY(window.isVisible());
    OpenHelp::Key(Qt::Key_Escape);
    QVERIFY(!window.isVisible());
}

void TestHelpWindow::F6_PageAndWaysIn_TakeTurns()
{
    OpenHelp::Show();

    OpenHelp::Key(Qt::Key_F6);
    QVERIFY(!OpenHelp::Page().hasFocus());
    OpenHelp::Key(Qt::Key_F6);
    QVERIFY(OpenHelp::Page().hasFocus());
}

void TestHelpWindow::Place_OfTheWindow_ComesBack()
{
    OpenHelp::Show();
    HelpWindow::Current()->resize(820, 510);
    OpenHelp::Find<QSplitter>("splHelp").setSizes({350, 470});
    OpenHelp::Key(Qt::Key_Plus, Qt::ControlModifier);
    const int width = OpenHelp::Find<QWidget>("tabHelp").width();
    QVERIFY(HelpWindow::Current()->close());
    HelpWindow::End();

    QCOMPARE(OpenHelp::Show().size(), QSize(820, 510));
    QCOMPARE(OpenHelp::Find<QWidget>("tabHelp").width(), width);
    QCOMPARE(OpenHelp::Page().Zoom(), 1);
}

void TestHelpWindow::Palette_Dark_TakesDarkColoursAndPictures()
{
    OpenHelp::Show(QStringLiteral("Browser4FE_Parameters.htm"));
    const QUrl picture =
        HelpWindow::Current()->Page().resolved(QUrl(QStringLiteral("pictures/packet-size-light.png")));
    const auto shown = [&] {
        return OpenHelp::Page().loadResource(QTextDocument::ImageResource, picture).value<QImage>();
    };
    const QImage light = shown();
    QPalette dark(QColor(45, 45, 48));
    dark.setColor(QPalette::Base, QColor(30, 30, 32));

    HelpWindow::Current()->setPalette(dark);

    QVERIFY(shown() != light);
    QVERIFY(qGray(shown().pixel(3, 3)) < qGray(light.pixel(3, 3)));
    // On dark ground the links are light.
    QTextCursor link = OpenHelp::Page().document()->find(QStringLiteral("Node Properties"));
    QVERIFY(!link.isNull() && link.charFormat().isAnchor());
    QVERIFY(link.charFormat().foreground().color().lightnessF() > 0.5F);
}

void TestHelpWindow::Controls_All_HaveNames()
{
    OpenHelp::Show();
    OpenHelp::Find<QWidget>("barFind").show();
    QStringList nameless;
    for (const QWidget* widget : HelpWindow::Current()->findChildren<QWidget*>()) {
        if (widget->focusPolicy() == Qt::NoFocus || widget->objectName().startsWith(QStringLiteral("qt_")))
            continue;
        const QAccessibleInterface* access =
            QAccessible::queryAccessibleInterface(const_cast<QWidget*>(widget));
        if (access && access->text(QAccessible::Name).isEmpty() && !qobject_cast<const QTabBar*>(widget))
            nameless << widget->objectName() + QLatin1Char(' ') + widget->metaObject()->className();
    }
    QCOMPARE(nameless, QStringList());
}

void TestHelpWindow::Quit_HelpOpen_IsNotHeldUp()
{
    QVERIFY(!OpenHelp::Show().testAttribute(Qt::WA_QuitOnClose));
}

QTEST_MAIN(TestHelpWindow)
#include "TestHelpWindow.moc"
