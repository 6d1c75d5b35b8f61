#include "tests/browser/BrowserTestSupport.h"
#include "tests/components/DatabaseFixture.h"

#include <QFile>
#include <QTabWidget>
#include <QTest>

namespace {

/// A control on a database file.
class SqliteFixture
{
public:
    SqliteFixture()
    {
        ResetModuleState();
        SetSource(Database.Source());
        Browser().BrowserTabIndex = 0;
    }
    ~SqliteFixture()
    {
        Control.reset();
        ResetModuleState();
        RegisterComponent(HvxDatabaseId, nullptr);
    }
    SqliteFixture(const SqliteFixture&) = delete;
    SqliteFixture& operator=(const SqliteFixture&) = delete;

    DatabaseFixture Database;
    RecordingPresenter Operator;
    std::unique_ptr<T4ZelkaBrowser> Control;
    /// The component that the control uses.
    HvxDatabaseComponent* Component = nullptr;

    void SetSource(const QString& source)
    {
        RegisterComponent(HvxDatabaseId, [this, source] {
            auto component = std::make_unique<HvxDatabaseComponent>(source);
            Component = component.get();
            return component;
        });
    }
    void Start()
    {
        Control = std::make_unique<T4ZelkaBrowser>();
        Control->resize(500, 420);
        Control->show();
    }
    template <typename Widget>
    Widget& Find(const char* name) const
    {
        return Child<Widget>(*Control, name);
    }
    TreeEntries& Entries(const char* tree) const
    {
        return static_cast<TreeEntries&>(*Find<TreeView>(tree).model());
    }
    void Click(const char* tree, const char* text, bool isNode) const
    {
        auto& view = Find<TreeView>(tree);
        const QModelIndex index =
            Entries(tree).ModelIndex(Entries(tree).FindByText(QString::fromUtf8(text), isNode));
        view.scrollTo(index);
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(index).center());
    }
    [[nodiscard]] QString HostTarget() const
    {
        QString target;
        return Control->GetTarget(target) ? target : QStringLiteral("refused");
    }
    [[nodiscard]] QByteArray FileBytes() const
    {
        QFile file(Database.Source());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
};

} // namespace

class TestBrowserOnSqlite : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Nodes_Clicked_GiveTheHostTheirTargets_data()
    {
        QTest::addColumn<QString>("node");
        QTest::addColumn<QString>("target");
        QTest::newRow("North") << QStringLiteral("North")
                               << QStringLiteral("WP=BUST4,ID=254,WP=NET4,ADDR=17");
        QTest::newRow("East") << QStringLiteral("East")
                              << QStringLiteral("WP=SOCKET,HOST=gateway-2,WP=BUST4,ID=7,WP=NET4,ADDR=4094");
    }
    void Nodes_Clicked_GiveTheHostTheirTargets()
    {
        QFETCH(const QString, node);
        QFETCH(const QString, target);
        SqliteFixture f;
        f.Start();
        f.Click("tvwNodesTree", qPrintable(node), true);
        QCOMPARE(f.HostTarget(), target);
        QCOMPARE(f.Find<QLineEdit>("txtTarget").text(), target);
        QCOMPARE(f.Control->Sobriquet(), node);
        QCOMPARE(f.Operator.Texts(), QStringList());
    }

    void ManagedNode_Clicked_OffersItsManager()
    {
        SqliteFixture f;
        f.Start();
        f.Click("tvwNodesTree", "North", true);
        QVERIFY(f.Control->NodeManagerExists());
        QVERIFY(f.Find<QPushButton>("cmdDatabaseManage").isEnabled());
        QCOMPARE(f.Control->CommandLine(), QStringLiteral("-port 1"));
        f.Click("tvwNodesTree", "East", true);
        QVERIFY(!f.Control->NodeManagerExists());
        QVERIFY(!f.Find<QPushButton>("cmdDatabaseManage").isEnabled());
    }

    void SnmpConnection_Clicked_OffersNoScan()
    {
        SqliteFixture f;
        f.Start();
        f.Find<QRadioButton>("optCon").setChecked(true);
        f.Click("tvwConTree", "Gamma", false);
        QCOMPARE(f.Find<CaptionFrame>("fraConData").Caption(), QStringLiteral("SNMP Direct: Gamma"));
        QVERIFY(!f.Find<QPushButton>("cmdDbScan").isEnabled());
        f.Click("tvwConTree", "Alpha", false);
        QVERIFY(f.Find<QPushButton>("cmdDbScan").isEnabled());
        QCOMPARE(f.HostTarget(), QStringLiteral("WP=BUST4,ID=254"));
    }

    void ChangeByAnotherProgram_ClickOnTheEntry_IsToldAndReloaded()
    {
        SqliteFixture f;
        f.Start();
        const auto other = f.Database.OpenComponent();
        other->ReplaceNodeTarget(QStringLiteral("North"), QStringLiteral("Beta"),
                                 QStringLiteral("WP=NET4,ADDR=99"));
        f.Click("tvwNodesTree", "North", true);
        QCOMPARE(f.Operator.Texts(),
                 QStringList{
                     QStringLiteral("Node North cannot be accessed, because another application has changed "
                                    "it. Automatic update follows, try again.")});
        f.Click("tvwNodesTree", "North", true);
        QCOMPARE(f.HostTarget(), QStringLiteral("WP=SOCKET,HOST=gateway-2,WP=BUST4,ID=7,WP=NET4,ADDR=99"));
        QCOMPARE(f.Operator.Boxes.size(), std::size_t(1));
    }

    void Click_NoTransactionStaysOpen_AnotherProgramCanWrite()
    {
        SqliteFixture f;
        f.Start();
        f.Click("tvwNodesTree", "North", true);
        const auto other = f.Database.OpenComponent();
        other->SaveParent(QStringLiteral("Delta"), QString::fromLatin1(DatabaseFixture::AlphaTarget));
        f.Click("tvwNodesTree", "South", true);
        QCOMPARE(f.Control->Sobriquet(), QStringLiteral("South"));
    }

    void Click_AnyEntry_CostsAtMostThreeRoundTrips_data()
    {
        QTest::addColumn<QString>("tree");
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("viewNodes");
        QTest::newRow("node") << QStringLiteral("tvwNodesTree") << QStringLiteral("North") << false;
        QTest::newRow("connection") << QStringLiteral("tvwConTree") << QStringLiteral("Alpha") << false;
        QTest::newRow("closed connection, nodes chosen")
            << QStringLiteral("tvwConTree") << QStringLiteral("Beta") << true;
        QTest::newRow("node below") << QStringLiteral("tvwConTree") << QStringLiteral("North") << true;
    }
    void Click_AnyEntry_CostsAtMostThreeRoundTrips()
    {
        QFETCH(const QString, tree);
        QFETCH(const QString, text);
        QFETCH(const bool, viewNodes);
        SqliteFixture f;
        f.Start();
        if (tree == QLatin1String("tvwConTree")) {
            f.Find<QRadioButton>("optCon").setChecked(true);
            f.Find<QCheckBox>("chkViewNodes").setChecked(viewNodes);
        }
        const bool isNode = text == QLatin1String("North");
        if (isNode && viewNodes) {
            f.Click("tvwConTree", "Alpha", false);
            QTest::keyClick(&f.Find<TreeView>("tvwConTree"), Qt::Key_Return);
        }
        const qint64 before = f.Component->StatementCount();
        qint64 tripsToTarget = 0;
        connect(&f.Find<QLineEdit>("txtTarget"), &QLineEdit::textChanged, this, [&](const QString& target) {
            if (!target.isEmpty())
                tripsToTarget = f.Component->StatementCount() - before;
        });
        f.Click(qPrintable(tree), qPrintable(text), isNode);
        const qint64 trips = f.Component->StatementCount() - before;
        QCOMPARE(f.Control->Sobriquet(), text);
        QVERIFY2(tripsToTarget >= 1 && tripsToTarget <= 3, qPrintable(QString::number(tripsToTarget)));
        // Whether a closed connection has nodes to load is counted behind that.
        QVERIFY2(trips <= (viewNodes && !isNode ? 4 : 3), qPrintable(QString::number(trips)));
    }

    void StrangeNames_Selected_GiveTheirTargets_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("quotes") << QStringLiteral("O'Neill \"north\"");
        QTest::newRow("comma") << QStringLiteral("a, b");
        QTest::newRow("emoji") << QStringLiteral("mast \U0001F4E1");
        QTest::newRow("ampersand") << QStringLiteral("R&D");
        QTest::newRow("10,000 characters") << QString(10000, QLatin1Char('n'));
    }
    void StrangeNames_Selected_GiveTheirTargets()
    {
        QFETCH(const QString, name);
        SqliteFixture f;
        QString inSql = name;
        inSql.replace(QLatin1Char('\''), QLatin1String("''"));
        f.Database.RunSql(
            QStringLiteral("UPDATE node SET name = '%1', name_key = lower('%1') WHERE name = 'North'")
                .arg(inSql));
        f.Start();
        const TreeEntries& entries = f.Entries("tvwNodesTree");
        QVERIFY(entries.FindByText(name, true) != 0);
        f.Click("tvwNodesTree", qPrintable(name), true);
        QCOMPARE(f.Control->Sobriquet(), name);
        QCOMPARE(f.HostTarget(), QStringLiteral("WP=BUST4,ID=254,WP=NET4,ADDR=17"));
    }

    void NoUsableFile_Start_IsDirectOnlyAndHarmsNothing_data()
    {
        QTest::addColumn<QByteArray>("contents");
        QTest::newRow("zeros") << QByteArray(8192, '\0');
        QTest::newRow("text") << QByteArray("This is a letter and no database.\n");
    }
    void NoUsableFile_Start_IsDirectOnlyAndHarmsNothing()
    {
        QFETCH(const QByteArray, contents);
        SqliteFixture f;
        QFile file(f.Database.Source());
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(contents);
        file.close();
        f.Start();
        QVERIFY(!f.Operator.Boxes.empty());
        QVERIFY(f.Operator.Boxes[0].text.startsWith(QLatin1String("Unable to open HVX Database")));
        QCOMPARE(f.Find<QTabWidget>("tabMain").currentIndex(), 1);
        QVERIFY(!f.Find<QTabWidget>("tabMain").isTabEnabled(0));
        QCOMPARE(f.FileBytes(), contents);
    }

    void MissingFile_Start_MakesNone()
    {
        SqliteFixture f;
        f.SetSource(f.Database.Folder() + QStringLiteral("/none.mdb"));
        f.Start();
        QCOMPARE(
            f.Operator.Texts().value(0),
            QStringLiteral("Unable to open HVX Database, because the database file (Dbs.mdb) is missing or "
                           "ODBC DSN DBS32 is not set to the database."));
        QVERIFY(!QFile::exists(f.Database.Folder() + QStringLiteral("/none.mdb")));
    }
};

QTEST_MAIN(TestBrowserOnSqlite)
#include "TestBrowserOnSqlite.moc"
