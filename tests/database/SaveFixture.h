#pragma once

#include "database/NodeSave.h"
#include "model/ConData.h"
#include "model/GridTexts.h"
#include "model/TreeEntries.h"
#include "tests/support/GatewayFixture.h"

#include <QStringList>

#include <functional>

/// An open database with a few records, the trees of a control that shows them, and a working copy, for tests
/// of the saves.
///
/// Connections: "Alpha" (T4 Bus), "Beta" (T4 Bus over TCP/IP), "Gamma" (SNMP Direct, without nodes). Nodes:
/// "North" (manager 1, tail "-port 1") and "South" (tail "-port 2") on Alpha, "East" on Beta. All connections
/// show their nodes. The module's ConObject is the working copy; the objects of the Direct tab are there, and
/// empty.
class SaveFixture : public GatewayFixture
{
public:
    static const QString AlphaTarget;
    static const QString BetaTarget;
    static const QString GammaTarget;
    static const QString NorthTarget;
    static const QString SouthTarget;
    static const QString EastTarget;

    /// On the tests' own database, filled; or on the component that `useOther` registers, as it is.
    explicit SaveFixture(const std::function<void()>& useOther = {});
    ~SaveFixture();
    SaveFixture(const SaveFixture&) = delete;
    SaveFixture& operator=(const SaveFixture&) = delete;

    TreeEntries ConTree;
    TreeEntries NodesTree;
    /// Values of the page that the node dialog shows.
    GridTexts Grid;
    /// Most transaction levels that were open while a box stood open.
    int LevelsUnderBoxes = 0;

    [[nodiscard]] ConData& Con() const;
    [[nodiscard]] ConData& Direct() const;
    [[nodiscard]] ConData& NewDirect() const;

    /// What the commands do before they show a dialog. Forgets what was recorded.
    void EditConnection(const QString& name);
    void AddConnection();
    void EditNode(const QString& name);
    void AddNode(const QString& templateNode);
    /// The trees in ConObject, as while a dialog is open.
    void TakeTrees();
    /// What choosing a connection on the Direct tab does; a copy of it that no record is behind.
    void EditDirect(const QString& name);
    void AddDirect(const QString& templateName, const QString& name);

    bool Save(QString name);
    /// `conName`: empty for the one that the node has.
    bool SaveNodeAs(QString name, const QString& conName = QString());

    /// Forgets what was recorded, commits too.
    void ForgetAll();

    bool SaveDirect(QString name);

    /// A value of the first waypoint of the Direct tab's connection.
    void SetDirectValue(int row, const QString& value);
    /// A value of the first waypoint, as an operator enters it.
    void SetValue(int row, const QString& value);
    /// The full target that the working copy composes.
    [[nodiscard]] QString Target() const;

    /// Calls without those that begin and end an operation inside the transaction; "Begin", "Commit" and
    /// "Rollback" are those of the save.
    [[nodiscard]] QStringList Steps() const;
    /// Entries of both trees, as a view shows them; with their handles.
    [[nodiscard]] QStringList Trees() const;
    /// The same without handles, and what it would be if the trees were filled now.
    [[nodiscard]] QStringList TreeContents() const;
    [[nodiscard]] static QStringList FreshTreeContents();
    /// Connections and nodes with all they hold but their ids, users texts, Journal.
    [[nodiscard]] QStringList Records() const;
    /// What a refused save leaves as it was.
    [[nodiscard]] QStringList Flags() const;

    [[nodiscard]] qint32 IdOfConnection(const QString& name) const;
    [[nodiscard]] qint32 IdOfNode(const QString& name) const;
    /// What another application does.
    void ChangeElsewhere(const QString& name) { TakeNewId(name); }
    void RemoveElsewhere(const QString& name);

private:
    QString m_directTypeLongName;

    void FillStore();
    void TakeNewId(const QString& name);
};
