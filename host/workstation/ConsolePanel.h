#pragma once

#include "host/workstation/NodeTalk.h"
#include "host/workstation/TalkLog.h"

#include <QWidget>

#include <memory>
#include <optional>

namespace Ui {
class ConsolePanel;
}

/// Sends requests to the target that the host has got and keeps a log of what was said.
///
/// A target is opened by the first request to it and stays open until a request to another one. While a reply
/// is waited for the window lives, and the panel may be destroyed.
class ConsolePanel : public QWidget
{
    Q_OBJECT

public:
    /// Lines of the log; the oldest go first.
    static constexpr int MostLines = 2000;

    explicit ConsolePanel(QWidget* parent = nullptr);
    ~ConsolePanel() override;

    /// Sends a request, as the operator does by the button, and gives the answer; nothing while there is no
    /// target or a reply is waited for.
    std::optional<NodeTalk::Answer> Send(const QString& request);
    /// Ends a wait as well.
    void Disconnect();

public Q_SLOTS:
    /// Target of the next request; empty: there is none.
    void SetTarget(const QString& target);

private:
    void cmdSend_Click();
    void cmdDisconnect_Click();
    void cmdCopyLog_Click();
    [[nodiscard]] bool IsWaiting() const;
    void ShowState();
    void ShowChange();
    [[nodiscard]] QString StateText() const;
    void Log(TalkLog::Mark mark, const QString& text);

    std::unique_ptr<Ui::ConsolePanel> m_ui;
    QString m_target;
    NodeTalk m_talk;
    NodeTalk::State m_shown = NodeTalk::State::Closed;
};
