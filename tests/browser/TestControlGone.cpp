#include "browser/ProgressForm.h"
#include "tests/browser/BrowserTestSupport.h"

#include <QTest>
#include <QTimer>

namespace {

/// A control on a connection with more nodes than a first load takes, which the host destroys as soon as a
/// progress form, or a box over it, stands open.
class GoneFixture : public BrowserFixture, public QObject
{
public:
    explicit GoneFixture(int nodes = 300)
    {
        Component.Store.MaxRows = 32001;
        Component.Store.AddConnection(QStringLiteral("Alpha"), QStringLiteral("WP=BUST4,ID=254"));
        AddNodes(QStringLiteral("Alpha"), nodes);
    }
    ~GoneFixture() override { qApp->removeEventFilter(this); }

    /// From now on. `underQuestion`: under the question whether to stop the load.
    void DestroyUnderLoad(bool underQuestion = false)
    {
        m_underQuestion = underQuestion;
        qApp->installEventFilter(this);
        Operator.WhileOpen = [this](const RecordedBox&) { Control.reset(); };
    }

    [[nodiscard]] bool IsGone() const
    {
        return !Control && Browser().Busy == 0 && Component.Store.Levels() == 0 && !Load().LoadTree;
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        auto* const form = qobject_cast<ProgressForm*>(watched);
        if (!form || event->type() != QEvent::Show)
            return false;
        ++Forms;
        QTimer::singleShot(0, this, [this, form = QPointer<ProgressForm>(form)] {
            if (form && m_underQuestion)
                form->reject();
            else
                Control.reset();
        });
        return false;
    }

    int Forms = 0;

private:
    bool m_underQuestion = false;
};

} // namespace

/// The host destroys the control while a load shows its progress.
class TestControlGone : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Start_ControlDestroyed_Ends_data();
    void Start_ControlDestroyed_Ends();
    void Reload_ControlDestroyed_Ends_data();
    void Reload_ControlDestroyed_Ends();
    void LoadMore_ControlDestroyed_Ends();
    void NodesOfAConnection_ControlDestroyed_End_data();
    void NodesOfAConnection_ControlDestroyed_End();
};

static void AddWays()
{
    QTest::addColumn<bool>("underQuestion");
    QTest::newRow("under the load") << false;
    QTest::newRow("under the question to stop it") << true;
}

void TestControlGone::Start_ControlDestroyed_Ends_data()
{
    AddWays();
}

void TestControlGone::Start_ControlDestroyed_Ends()
{
    QFETCH(bool, underQuestion);
    GoneFixture f;
    f.Control = std::make_unique<T4ZelkaBrowser>();
    f.DestroyUnderLoad(underQuestion);

    f.Control->UserControl_InitProperties();

    QCOMPARE(f.Forms, 1);
    QVERIFY(f.IsGone());
}

void TestControlGone::Reload_ControlDestroyed_Ends_data()
{
    AddWays();
}

void TestControlGone::Reload_ControlDestroyed_Ends()
{
    QFETCH(bool, underQuestion);
    GoneFixture f;
    f.StartOnDatabasePage();
    Load().ReloadDue = true;
    f.DestroyUnderLoad(underQuestion);

    QTest::mouseClick(&f.Find<QPushButton>("cmdRefresh"), Qt::LeftButton);

    QCOMPARE(f.Forms, 1);
    QVERIFY(f.IsGone());
}

void TestControlGone::LoadMore_ControlDestroyed_Ends()
{
    GoneFixture f(5100);
    f.StartOnDatabasePage();
    f.DestroyUnderLoad();

    QTest::mouseClick(&f.Find<QPushButton>("cmdLoadMore"), Qt::LeftButton);

    QCOMPARE(f.Forms, 1);
    QVERIFY(f.IsGone());
}

void TestControlGone::NodesOfAConnection_ControlDestroyed_End_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("double click") << false;
    QTest::newRow("Enter") << true;
}

void TestControlGone::NodesOfAConnection_ControlDestroyed_End()
{
    QFETCH(bool, byKey);
    GoneFixture f;
    f.StartOnDatabasePage();
    f.ShowConnections();
    f.Find<QCheckBox>("chkViewNodes").setChecked(true);
    const TreeEntries::Index alpha = f.ConEntries().FindByText(QStringLiteral("Alpha"), false);
    f.Click("tvwConTree", alpha);
    f.DestroyUnderLoad();

    if (byKey)
        QTest::keyClick(&f.Find<TreeView>("tvwConTree"), Qt::Key_Return);
    else
        f.DoubleClick("tvwConTree", alpha);

    QCOMPARE(f.Forms, 1);
    QVERIFY(f.IsGone());
}

QTEST_MAIN(TestControlGone)
#include "TestControlGone.moc"
