#pragma once

#include <QStatusBar>
#include <QTimer>

#include <functional>

class BrowserStatus;
class ElidedLabel;
class QLabel;

/// The line below the operator's window: the database in use, how old what is shown of it is, how much is
/// loaded, and the operator's rights.
class StatusLine : public QStatusBar
{
    Q_OBJECT

public:
    explicit StatusLine(QWidget* parent = nullptr);

    /// From now on tells what `status` tells; it is not owned and outlives the line. `database`: the one in
    /// use as the operator is told it.
    void Follow(const BrowserStatus& status, std::function<QString()> database);

    /// How long ago a time was, in words; empty for one that is invalid.
    [[nodiscard]] static QString AgeText(const QDateTime& time, const QDateTime& now);

private:
    void ShowStatus();
    void ShowAge();

    ElidedLabel* m_lblDatabase;
    QLabel* m_lblAge;
    QLabel* m_lblCounts;
    QLabel* m_lblRights;
    /// What is shown grows old by itself.
    QTimer m_tmrAge;
    const BrowserStatus* m_status = nullptr;
    std::function<QString()> m_database;
};
