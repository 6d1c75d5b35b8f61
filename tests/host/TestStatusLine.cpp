#include "browser/BrowserStatus.h"
#include "host/workstation/StatusLine.h"
#include "platform/controls/ElidedLabel.h"
#include "tests/browser/CommandFixture.h"

#include <QLabel>

/// The line below the operator's window.
class TestStatusLine : public QObject
{
    Q_OBJECT

private:
    /// A line over a control on a small database.
    struct Fixture : CommandFixture
    {
        explicit Fixture(bool edit = true) : CommandFixture(edit)
        {
            Line.Follow(Status, [this] { return Name; });
            Line.resize(800, Line.sizeHint().height());
            Line.show();
        }

        QString Name = QStringLiteral("/srv/Dbs.mdb");
        BrowserStatus Status{*Control};
        StatusLine Line;

        [[nodiscard]] QString Text(const char* label) const { return Child<QLabel>(Line, label).text(); }
        [[nodiscard]] QString Age() const { return Text("lblStatusAge"); }
    };

private Q_SLOTS:
    void Follow_Database_TellsAll()
    {
        const Fixture f;
        QCOMPARE(f.Text("lblStatusDatabase"), QStringLiteral("/srv/Dbs.mdb"));
        QCOMPARE(f.Text("lblStatusCounts"), QStringLiteral("Loaded: 3 nodes, connections not loaded"));
        QCOMPARE(f.Text("lblStatusRights"), QStringLiteral("Rights: scan, change"));
        QCOMPARE(f.Age(), QStringLiteral("As of less than a minute ago"));
    }

    void Connections_Shown_AreCounted()
    {
        const Fixture f;
        f.ShowConnections();
        QTRY_COMPARE(f.Text("lblStatusCounts"), QStringLiteral("Loaded: 3 nodes, 2 connections"));
    }

    void Rights_ReadOnlyOperator_AreTold()
    {
        const Fixture f(false);
        QCOMPARE(f.Text("lblStatusRights"), QStringLiteral("Rights: scan"));
        Database().ScanRight = false;
        f.Control->FreeObjects();
        QTRY_VERIFY(!Child<QLabel>(f.Line, "lblStatusRights").isVisible());
    }

    void Minute_Passes_AgeGrows()
    {
        const Fixture f;
        const QDateTime later = BrowserStatus::AsOf().addSecs(125);
        Machine().WallClock = [later] { return later; };
        auto& minute = *f.Line.findChild<QTimer*>(QStringLiteral("tmrAge"));
        QCOMPARE(minute.interval(), 60'000);
        QVERIFY(minute.isActive());
        minute.setInterval(0);
        QTRY_COMPARE(f.Age(), QStringLiteral("As of 2 min ago"));
    }

    void Refresh_DatabaseAway_TellsThatItCannotBeRead()
    {
        Fixture f;
        f.Component.Fail(QStringLiteral("BeginTransaction"));
        f.Find<QPushButton>("cmdRefresh").click();
        QTRY_COMPARE(f.Age(), QStringLiteral("Cannot be read; as of less than a minute ago"));
    }

    void FreeObjects_Called_LeavesTheDatabaseTextAlone()
    {
        Fixture f;
        f.Name = QStringLiteral("No database");
        f.Control->FreeObjects();
        QTRY_COMPARE(f.Text("lblStatusDatabase"), QStringLiteral("No database"));
        QVERIFY(!Child<QLabel>(f.Line, "lblStatusAge").isVisible());
        QVERIFY(!Child<QLabel>(f.Line, "lblStatusCounts").isVisible());
    }

    void AgeText_AnyAge_IsInWords_data()
    {
        QTest::addColumn<qint64>("seconds");
        QTest::addColumn<QString>("text");
        const auto row = [](qint64 seconds, const char* text) {
            QTest::addRow("%lld", static_cast<long long>(seconds)) << seconds << QString::fromLatin1(text);
        };
        row(-5, "less than a minute ago");
        row(59, "less than a minute ago");
        row(60, "1 min ago");
        row(3599, "59 min ago");
        row(3600, "1 h ago");
        row(86399, "23 h ago");
        row(3 * 86400, "3 days ago");
    }
    void AgeText_AnyAge_IsInWords()
    {
        QFETCH(const qint64, seconds);
        QFETCH(const QString, text);
        const QDateTime time(QDate(2024, 5, 6), QTime(7, 8, 9));
        QCOMPARE(StatusLine::AgeText(time, time.addSecs(seconds)), text);
        QVERIFY(StatusLine::AgeText({}, time).isEmpty());
    }

    void Labels_AreToldToThoseWhoListen()
    {
        const Fixture f;
        for (const char* name : {"lblStatusDatabase", "lblStatusAge", "lblStatusCounts", "lblStatusRights"}) {
            const auto& label = Child<QLabel>(f.Line, name);
            QVERIFY2(!label.accessibleDescription().isEmpty() && label.isVisible(), name);
        }
    }
};

QTEST_MAIN(TestStatusLine)
#include "TestStatusLine.moc"
