#pragma once

#include <QDateTime>
#include <QObject>
#include <QTimer>

class BrowserControl;
class T4ZelkaBrowser;
class TreeEntries;

/// What a host may tell its operator beside a control: the database's state, how much of it is loaded, and
/// what the operator may do.
class BrowserStatus : public QObject
{
    Q_OBJECT

public:
    /// `control` is not owned and outlives it.
    explicit BrowserStatus(T4ZelkaBrowser& control);

    [[nodiscard]] static bool IsDatabaseOpen();
    /// When the trees were last known to be what the database holds; invalid: never.
    [[nodiscard]] static QDateTime AsOf();
    /// The database could not be read when it was last tried.
    [[nodiscard]] static bool IsOutdated();
    [[nodiscard]] static bool MayScan();
    [[nodiscard]] static bool MayEdit();

    /// Negative: the connections have not been loaded yet.
    [[nodiscard]] int Connections() const;
    [[nodiscard]] int NodesLoaded() const;
    /// Nodes that the database held when they were counted, before they were loaded.
    [[nodiscard]] int NodesTotal() const;

Q_SIGNALS:
    /// Something of the above may have changed; once for all that happens in one pass of the event loop.
    void Changed();

private:
    const BrowserControl& m_control;
    const TreeEntries& m_connections;
    const TreeEntries& m_nodes;
    QTimer m_tell;
};
