#include "tests/browser/ControlOnDatabase.h"

#include <QTest>

class TestBrowserOnDatabase : public QObject
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
        ControlOnDatabase f;
        f.Start();
        f.Click("tvwNodesTree", node, true);
        QCOMPARE(f.HostTarget(), target);
        QCOMPARE(f.Find<QLineEdit>("txtTarget").text(), target);
        QCOMPARE(f.Control->Sobriquet(), node);
        QCOMPARE(f.Operator.Texts(), QStringList());
    }

    void ManagedNode_Clicked_OffersItsManager()
    {
        ControlOnDatabase f;
        f.Start();
        f.Click("tvwNodesTree", QStringLiteral("North"), true);
        QVERIFY(f.Control->NodeManagerExists());
        QVERIFY(f.Find<QPushButton>("cmdDatabaseManage").isEnabled());
        QCOMPARE(f.Control->CommandLine(), QStringLiteral("-port 1"));
        f.Click("tvwNodesTree", QStringLiteral("East"), true);
        QVERIFY(!f.Control->NodeManagerExists());
        QVERIFY(!f.Find<QPushButton>("cmdDatabaseManage").isEnabled());
    }

    void SnmpConnection_Clicked_OffersNoScan()
    {
        ControlOnDatabase f;
        f.Start();
        f.Find<QRadioButton>("optCon").setChecked(true);
        f.Click("tvwConTree", QStringLiteral("Gamma"), false);
        QCOMPARE(f.Find<CaptionFrame>("fraConData").Caption(), QStringLiteral("SNMP Direct: Gamma"));
        QVERIFY(!f.Find<QPushButton>("cmdDbScan").isEnabled());
        f.Click("tvwConTree", QStringLiteral("Alpha"), false);
        QVERIFY(f.Find<QPushButton>("cmdDbScan").isEnabled());
        QCOMPARE(f.HostTarget(), QStringLiteral("WP=BUST4,ID=254"));
    }

    void ChangeByAnotherProgram_ClickOnTheEntry_IsToldAndShown()
    {
        ControlOnDatabase f;
        f.Start();
        const auto other = f.Database.OpenComponent();
        other->ReplaceNodeTarget(QStringLiteral("North"), QStringLiteral("Beta"),
                                 QStringLiteral("WP=NET4,ADDR=99"));
        f.Click("tvwNodesTree", QStringLiteral("North"), true);
        QCOMPARE(f.Operator.Texts(),
                 QStringList{
                     QStringLiteral("Node North cannot be accessed, because another application has changed "
                                    "it. Automatic update follows, try again.")});
        f.Click("tvwNodesTree", QStringLiteral("North"), true);
        QCOMPARE(f.HostTarget(), QStringLiteral("WP=SOCKET,HOST=gateway-2,WP=BUST4,ID=7,WP=NET4,ADDR=99"));
        QCOMPARE(f.Operator.Boxes.size(), std::size_t(1));
    }

    void Click_NoTransactionStaysOpen_AnotherProgramCanWrite()
    {
        ControlOnDatabase f;
        f.Start();
        f.Click("tvwNodesTree", QStringLiteral("North"), true);
        const auto other = f.Database.OpenComponent();
        other->SaveParent(QStringLiteral("Delta"), QString::fromLatin1(DatabaseFixture::AlphaTarget));
        f.Click("tvwNodesTree", QStringLiteral("South"), true);
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
        ControlOnDatabase f;
        f.Start();
        if (tree == QLatin1String("tvwConTree")) {
            f.Find<QRadioButton>("optCon").setChecked(true);
            f.Find<QCheckBox>("chkViewNodes").setChecked(viewNodes);
        }
        const bool isNode = text == QLatin1String("North");
        if (isNode && viewNodes) {
            f.Click("tvwConTree", QStringLiteral("Alpha"), false);
            QTest::keyClick(&f.Find<TreeView>("tvwConTree"), Qt::Key_Return);
        }
        const qint64 before = f.Component->StatementCount();
        qint64 tripsToTarget = 0;
        connect(&f.Find<QLineEdit>("txtTarget"), &QLineEdit::textChanged, this, [&](const QString& target) {
            if (!target.isEmpty())
                tripsToTarget = f.Component->StatementCount() - before;
        });
        f.Click(qPrintable(tree), text, isNode);
        const qint64 trips = f.Component->StatementCount() - before;
        QCOMPARE(f.Control->Sobriquet(), text);
        QVERIFY2(tripsToTarget >= 1 && tripsToTarget <= 3, qPrintable(QString::number(tripsToTarget)));
        // Whether a closed connection has nodes to load is counted behind that.
        QVERIFY2(trips <= (viewNodes && !isNode ? 4 : 3), qPrintable(QString::number(trips)));
    }
};

QTEST_MAIN(TestBrowserOnDatabase)
#include "TestBrowserOnDatabase.moc"
