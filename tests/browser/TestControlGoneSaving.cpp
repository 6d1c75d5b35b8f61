#include "tests/browser/ScanSavingFixture.h"

namespace {

/// The host destroys the control, or the window around it, while found nodes are on their way into the
/// database.
class GoneFixture : public ScanSavingFixture
{
public:
    explicit GoneFixture(bool inWindow)
    {
        if (!inWindow)
            return;
        m_window = std::make_unique<QWidget>();
        Control->setParent(m_window.get());
        m_window->show();
        Control->show();
    }
    ~GoneFixture() { Destroy(); }
    GoneFixture(const GoneFixture&) = delete;
    GoneFixture& operator=(const GoneFixture&) = delete;

    void Destroy()
    {
        if (!IsGone())
            BoxesBefore = Operator.Texts();
        if (m_window)
            (void)Control.release();
        m_window.reset();
        Control.reset();
    }
    [[nodiscard]] bool IsGone() const { return !Control; }
    /// What was told until then.
    QStringList BoxesBefore;

    // Where it happens -------------------------------------------------------------------------------------

    [[nodiscard]] std::function<void(QDialog& form)> Here()
    {
        return [this](QDialog&) { Destroy(); };
    }
    void UnderBox(const QString& part)
    {
        Operator.WhileOpen = [this, part](const RecordedBox& box) {
            if (!IsGone() && box.text.contains(part))
                Destroy();
        };
    }

    // Ways there -------------------------------------------------------------------------------------------

    void Press(const char* button, int row = 1) const
    {
        InScan(row, [button](QDialog& scan) {
            FindIn<QWidget>(scan, button).setEnabled(true);
            ClickIn(scan, button);
        });
    }
    /// The same through a connection that is not in the database as it was scanned.
    void PressUnsaved(const char* button) const
    {
        InScan(1, [button](QDialog& scan) {
            FindIn<QLineEdit>(scan, "txtBus").setText(QStringLiteral("7"));
            ClickIn(scan, button);
        });
    }
    void SaveAllTo(const std::function<void(QDialog& list)>& work) const
    {
        InScan(1, [work](QDialog& scan) {
            InNextDialog([work](QDialog& naming) {
                FindIn<QLineEdit>(naming, "txtPrefix").setText(QString(40, u'x'));
                FindIn<QAbstractButton>(naming, "optNodeId").click();
                InNextDialog(work);
                ClickIn(naming, "cmdOK");
            });
            ClickIn(scan, "cmdSaveAll");
        });
    }
    static void SaveList(QDialog& list)
    {
        ClickIn(list, "cmdSelectAll");
        ClickIn(list, "cmdReplace");
    }

private:
    std::unique_ptr<QWidget> m_window;
};

struct Place
{
    const char* name;
    void (*reach)(GoneFixture& f);
    /// Boxes until the control is gone.
    int boxes;
};

const QString OnlyDirect = QStringLiteral("Connection used in scanning must be saved");
const QString Replace = QStringLiteral("Do you want to replace it");

void ClickSave(QDialog& form)
{
    ModalForms::ClickIn(form, "cmdSave");
}

const std::vector<Place>& Places()
{
    static const std::vector<Place> places{
        // One node
        {"connection question",
         [](GoneFixture& f) {
             f.UnderBox(OnlyDirect);
             f.PressUnsaved("cmdSave");
         },
         1},
        {"connection dialog",
         [](GoneFixture& f) {
             f.Operator.WhileOpen = [&f](const RecordedBox&) { f.InNextDialog(f.Here()); };
             f.PressUnsaved("cmdSave");
         },
         1},
        {"replace connection",
         [](GoneFixture& f) {
             f.Operator.WhileOpen = [&f](const RecordedBox&) {
                 f.UnderBox(Replace);
                 f.InNextDialog(ClickSave);
             };
             f.PressUnsaved("cmdSave");
         },
         2},
        {"nothing selected",
         [](GoneFixture& f) {
             f.UnderBox(QStringLiteral("Nothing selected."));
             f.Press("cmdSave", 0);
         },
         1},
        {"node type",
         [](GoneFixture& f) {
             f.Component.Fail(QStringLiteral("GetNodeTypeId"));
             f.UnderBox(QStringLiteral("NET4 not found"));
             f.Press("cmdSave");
         },
         1},
        {"select, node type",
         [](GoneFixture& f) {
             f.Component.Fail(QStringLiteral("GetNodeTypeId"));
             f.UnderBox(QStringLiteral("NET4 not found"));
             f.Press("cmdSelect");
         },
         1},
        {"unknown class",
         [](GoneFixture& f) {
             f.Component.Fail(QStringLiteral("GetNodeTypeLongName"));
             f.UnderBox(QStringLiteral("Unknown node type:"));
             f.Press("cmdSave");
         },
         1},
        {"node dialog",
         [](GoneFixture& f) {
             f.InNextScanForm(f.Here());
             f.Press("cmdSave");
         },
         0},
        {"manager of the node",
         [](GoneFixture& f) {
             f.InNextScanForm([&f](QDialog& node) {
                 f.InNextDialog(f.Here());
                 f.ClickIn(node, "cmdManager");
             });
             f.Press("cmdSave");
         },
         0},
        {"node refused",
         [](GoneFixture& f) {
             f.UnderBox(QStringLiteral("Give node name."));
             f.InNextScanForm(ClickSave);
             f.Press("cmdSave", 3);
         },
         1},
        {"replace node",
         [](GoneFixture& f) {
             f.UnderBox(Replace);
             f.InNextScanForm(ClickSave);
             f.Press("cmdSave", 2);
         },
         1},
        // All nodes
        {"all, connection question",
         [](GoneFixture& f) {
             f.UnderBox(OnlyDirect);
             f.PressUnsaved("cmdSaveAll");
         },
         1},
        {"all, connection dialog",
         [](GoneFixture& f) {
             f.Operator.WhileOpen = [&f](const RecordedBox&) { f.InNextDialog(f.Here()); };
             f.PressUnsaved("cmdSaveAll");
         },
         1},
        {"all, node type",
         [](GoneFixture& f) {
             f.Component.Fail(QStringLiteral("GetNodeTypeId"));
             f.UnderBox(QStringLiteral("NET4 not found"));
             f.Press("cmdSaveAll");
         },
         1},
        {"naming",
         [](GoneFixture& f) {
             f.InNextScanForm(f.Here());
             f.Press("cmdSaveAll");
         },
         0},
        {"list", [](GoneFixture& f) { f.SaveAllTo(f.Here()); }, 0},
        {"name check",
         [](GoneFixture& f) {
             f.Component.Fail(QStringLiteral("NodeNameExist"));
             f.UnderBox(QStringLiteral("connection to database broken"));
             f.SaveAllTo([](QDialog& list) { list.reject(); });
         },
         3},
        {"rename",
         [](GoneFixture& f) {
             f.Operator.WhileInput = [&f] { f.Destroy(); };
             f.SaveAllTo([](QDialog& list) { ModalForms::ClickIn(list, "cmdRename"); });
         },
         1},
        {"refused name",
         [](GoneFixture& f) {
             f.UnderBox(QStringLiteral("Invalid characters"));
             f.Operator.Inputs = {QStringLiteral("O'Hara"), QStringLiteral("West 2")};
             f.SaveAllTo([](QDialog& list) { ModalForms::ClickIn(list, "cmdRename"); });
         },
         2},
        {"manager of all",
         [](GoneFixture& f) {
             f.SaveAllTo([&f](QDialog& list) {
                 f.InNextDialog(f.Here());
                 f.ClickIn(list, "cmdManager");
             });
         },
         0},
        {"run",
         [](GoneFixture& f) {
             f.SaveAllTo([&f](QDialog& list) {
                 f.InNextDialog(f.Here(), 0);
                 f.SaveList(list);
             });
         },
         0},
        {"interrupt question",
         [](GoneFixture& f) {
             f.UnderBox(QStringLiteral("Do you want to interrupt"));
             f.SaveAllTo([&f](QDialog& list) {
                 f.InNextDialog([](QDialog& run) { ModalForms::ClickIn(run, "cmdLoadStop"); }, 0);
                 f.SaveList(list);
             });
         },
         1},
        {"run denied",
         [](GoneFixture& f) {
             f.UnderBox(QStringLiteral("Database access is denied"));
             f.SaveAllTo([&f](QDialog& list) {
                 f.Component.Fail(QStringLiteral("BeginTransaction"));
                 f.SaveList(list);
             });
         },
         1},
        {"connection changed",
         [](GoneFixture& f) {
             f.UnderBox(QStringLiteral("Node saving is prevented"));
             f.SaveAllTo([&f](QDialog& list) {
                 f.Component.Store.ReplaceParentTarget(QStringLiteral("Alpha"), QStringLiteral("WP=BUST4"));
                 f.SaveList(list);
             });
         },
         1},
    };
    return places;
}

} // namespace

class TestControlGoneSaving : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Saving_ControlDestroyed_Ends_data();
    void Saving_ControlDestroyed_Ends();
};

void TestControlGoneSaving::Saving_ControlDestroyed_Ends_data()
{
    QTest::addColumn<int>("place");
    QTest::addColumn<bool>("inWindow");
    for (int place = 0; place < static_cast<int>(Places().size()); ++place) {
        const char* const name = Places()[static_cast<std::size_t>(place)].name;
        QTest::newRow(name) << place << false;
        QTest::addRow("%s, with its window", name) << place << true;
    }
}
void TestControlGoneSaving::Saving_ControlDestroyed_Ends()
{
    QFETCH(const int, place);
    QFETCH(const bool, inWindow);
    const Place& tried = Places()[static_cast<std::size_t>(place)];
    GoneFixture f(inWindow);

    tried.reach(f);

    QVERIFY(f.IsGone());
    QCOMPARE(int(f.BoxesBefore.size()), tried.boxes);
    QCOMPARE(f.Operator.Texts(), f.BoxesBefore);
    QVERIFY(!QApplication::activeModalWidget());
    QVERIFY(f.IsQuiet());
    QVERIFY(!Model().ScanDirectObject);
    QVERIFY(!Model().ConObject || (!Model().ConObject->ConTree && !Model().ConObject->SaveFromScan));
    // Rows that are saved stay so, and each is whole.
    for (const auto& node : f.Component.Store.Now.nodes)
        QVERIFY2(node.target.startsWith(QLatin1String("WP=NET4,ADDR=")), qPrintable(node.target));
}

QTEST_MAIN(TestControlGoneSaving)
#include "TestControlGoneSaving.moc"
