#pragma once

#include "browser/ProgressForm.h"
#include "platform/controls/IntervalTimer.h"
#include "tests/browser/CommandTexts.h"
#include "tests/browser/ControlOnDatabase.h"
#include "tests/components/StoredTrees.h"
#include "tests/support/ShownTrees.h"

#include <QTimer>

/// A control with automatic refresh on a database, that shows its connections with their nodes, Alpha and
/// Beta open. The calls of its component can be met and made to fail (Calls).
///
/// Other applications work by components of their own and by plain SQL.
class RefreshedControl : public ControlOnDatabase
{
public:
    RefreshedControl() : RefreshedControl(QString()) {}
    /// `source`: such a database elsewhere; empty: the fixture's own.
    explicit RefreshedControl(const QString& source)
        : Source(source.isEmpty() ? Database.Source() : source), m_real(Source)
    {
        m_real.SetBusyTimeout(0);
        Calls.Backing = &m_real;
        Component = &m_real;
        Start();
        Control->SetRefreshTimer(true);
        ShowConnections();
        Find<QCheckBox>("chkViewNodes").setChecked(true);
        Open("Alpha");
        Open("Beta");
        Tick();
        // Nobody stops a load.
        Operator.WhileOpen = [this](const RecordedBox& box) {
            if (box.title == QLatin1String("Interrupt Loading"))
                Operator.Answers = {BoxAnswer::Cancel};
        };
        // A dialog is given up; a load's form stands until it is closed when it was denied.
        QObject::connect(&m_closer, &QTimer::timeout, &m_closer, [this] {
            auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            const bool goesOn =
                qobject_cast<ProgressForm*>(dialog) && !Operator.Texts().endsWith(DeniedText());
            if (dialog && !goesOn)
                dialog->reject();
        });
        m_closer.start(0);
    }
    ~RefreshedControl()
    {
        Control.reset();
        ResetModuleState();
    }
    RefreshedControl(const RefreshedControl&) = delete;
    RefreshedControl& operator=(const RefreshedControl&) = delete;

    const QString Source;
    ScriptedDatabase Calls;

    void Tick() const { Q_EMIT Find<IntervalTimer>("tmrRefreshTimer").Timer(); }
    [[nodiscard]] QLabel& Line() const { return Find<QLabel>("lblAsOf"); }
    [[nodiscard]] bool TimerOn() const { return Find<IntervalTimer>("tmrRefreshTimer").Enabled(); }
    void Open(const char* connection) const
    {
        ClickConnection(QString::fromLatin1(connection));
        auto& view = Find<TreeView>("tvwConTree");
        QTest::mouseDClick(view.viewport(), Qt::LeftButton, {},
                           view.visualRect(view.SelectedIndex()).center());
    }

    [[nodiscard]] QStringList Shown() const
    {
        return ShownTrees(Entries("tvwConTree"), Entries("tvwNodesTree"),
                          Find<QCheckBox>("chkViewNodes").isChecked());
    }
    /// How the trees differ from the tables; empty: not at all.
    [[nodiscard]] QString Difference() const { return StoredTrees(Source).Difference(Shown()); }
    [[nodiscard]] bool Shows(const char* node) const
    {
        const QString text = QString::fromLatin1(node);
        return Entries("tvwNodesTree").FindByText(text, true) != 0 &&
               Entries("tvwConTree").FindByText(text, true) != 0;
    }

    // Other applications -----------------------------------------------------------------------------------

    [[nodiscard]] std::unique_ptr<HvxDatabaseComponent> Other() const
    {
        auto component = std::make_unique<HvxDatabaseComponent>(Source);
        component->SetBusyTimeout(0);
        component->OpenDatabase();
        return component;
    }
    QVariant Sql(const QString& text) const { return PlainSql(Source).Run(text); }
    /// Plain SQL that adds a node on a connection.
    static QString NewNode(const QString& name, const QString& connection = QStringLiteral("Alpha"))
    {
        return QStringLiteral("INSERT INTO node (name, target, connection_key)"
                              " SELECT '%1', 'WP=NET4,ADDR=7', row_key FROM connection WHERE name = '%2'")
            .arg(name, connection);
    }
    void AddNode(const char* name) const { Sql(NewNode(QString::fromLatin1(name))); }
    /// Adds, changes, moves, renames and removes records.
    void ChangeMuch() const
    {
        const auto other = Other();
        other->SaveParent(QStringLiteral("Delta"), QString::fromLatin1(DatabaseFixture::GammaTarget));
        other->SaveNode(QStringLiteral("West"), QString(), QString::fromLatin1(DatabaseFixture::EastTarget),
                        QStringLiteral("Beta"), QString());
        other->ReplaceNodeTarget(QStringLiteral("North"), QStringLiteral("Alpha"),
                                 QString::fromLatin1(DatabaseFixture::SouthTarget));
        other->ReplaceNodeTarget(QStringLiteral("South"), QStringLiteral("Beta"),
                                 QString::fromLatin1(DatabaseFixture::SouthTarget));
        other->ReplaceNodeName(QStringLiteral("South"), QStringLiteral("Arctic"));
        other->DeleteNode(QStringLiteral("East"));
        other->DeleteParent(QStringLiteral("Gamma"), true);
    }
    /// Keeps the newest records of the Journal only. False: the database is in use.
    [[nodiscard]] bool Trim(qint32 recordsToKeep = 1) const
    {
        const auto other = Other();
        return DatabaseFixture::ErrorOf([&] { other->JournalClearByRecordLimit(1, recordsToKeep); }) == 0;
    }
    [[nodiscard]] qint32 LastId() const { return Sql(QStringLiteral("SELECT max(id) FROM journal")).toInt(); }
    /// Journal ids go on behind that one.
    void JumpTo(qint64 id) const
    {
        Sql(DatabaseFixture::OnServer()
                ? QStringLiteral("SELECT setval('journal_sequence', %1)").arg(id)
                : QStringLiteral("INSERT INTO journal (id, record_type, text1) VALUES (%1, 99, 'Jump')")
                      .arg(id));
    }
    /// Does something once, before the next call of that method.
    void Before(const QString& method, const std::function<void()>& act)
    {
        Calls.BeforeCall = [this, method, act](const QString& call) {
            if (!call.startsWith(method + u'('))
                return;
            const auto once = act;
            Calls.BeforeCall = nullptr;
            once();
        };
    }

    /// The same in the next reload.
    void BeforeInReload(const QString& method, const std::function<void()>& act)
    {
        Operator.WhileOpen = [this, method, act, meanwhile = Operator.WhileOpen,
                              due = true](const RecordedBox& box) mutable {
            if (meanwhile)
                meanwhile(box);
            if (due && box.text == ReloadText()) {
                due = false;
                Before(method, act);
            }
        };
    }
    static QString ReloadText()
    {
        return QStringLiteral("Connections and nodes must be reloaded, because of changes made by another "
                              "application. Automatic reload follows.");
    }

private:
    static QString DeniedText()
    {
        return QStringLiteral("Database access is denied, because another application is using it.");
    }

    HvxDatabaseComponent m_real;
    QTimer m_closer;
};
