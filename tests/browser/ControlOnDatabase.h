#pragma once

#include "tests/browser/BrowserTestSupport.h"
#include "tests/components/DatabaseFixture.h"

/// A control on a database, on the Database page, with an operator who is recorded; the module state is
/// clean before and after.
class ControlOnDatabase
{
public:
    ControlOnDatabase()
    {
        ResetModuleState();
        SetSource(Database.Source());
        Browser().BrowserTabIndex = 0;
        const auto cancel = [](ConData&, QWidget*) {};
        Opening().ConnectionProperties = cancel;
        Opening().NodeProperties = cancel;
        Opening().DirectProperties = cancel;
        Opening().Scan = cancel;
    }
    ~ControlOnDatabase()
    {
        Control.reset();
        ResetModuleState();
        RegisterComponent(HvxDatabaseId, nullptr);
    }
    ControlOnDatabase(const ControlOnDatabase&) = delete;
    ControlOnDatabase& operator=(const ControlOnDatabase&) = delete;

    DatabaseFixture Database;
    RecordingPresenter Operator;
    std::unique_ptr<T4ZelkaBrowser> Control;
    /// The component that the control uses.
    HvxDatabaseComponent* Component = nullptr;

    /// From now on a command shows its dialog and waits; before, the operator cancels each at once.
    void ShowRealDialogs() { Opening() = DialogOpening(); }

    /// The source of the next start. The component waits for nobody.
    void SetSource(const QString& source)
    {
        RegisterComponent(HvxDatabaseId, [this, source] {
            auto component = std::make_unique<HvxDatabaseComponent>(source);
            component->SetBusyTimeout(0);
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
    void ShowConnections() const { Find<QRadioButton>("optCon").setChecked(true); }
    void Click(const char* tree, const QString& text, bool isNode) const
    {
        auto& view = Find<TreeView>(tree);
        const QModelIndex index = Entries(tree).ModelIndex(Entries(tree).FindByText(text, isNode));
        view.scrollTo(index);
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(index).center());
    }
    void ClickNode(const QString& name) const { Click("tvwNodesTree", name, true); }
    void ClickConnection(const QString& name) const { Click("tvwConTree", name, false); }
    [[nodiscard]] QString HostTarget() const
    {
        QString target;
        return Control->GetTarget(target) ? target : QStringLiteral("refused");
    }
};
