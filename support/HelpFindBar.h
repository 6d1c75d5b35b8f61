#pragma once

#include <QTextDocument>
#include <QWidget>

#include <memory>

class QTextBrowser;

namespace Ui {
class HelpFindBar;
}

/// Finds text in the page that is shown, from the place of the last hit on and around its ends.
class HelpFindBar : public QWidget
{
    Q_OBJECT

public:
    explicit HelpFindBar(QWidget* parent = nullptr);
    ~HelpFindBar() override;

    /// Not owned.
    void SetBrowser(QTextBrowser& browser) { m_browser = &browser; }
    /// Shows the bar with the cursor in its box.
    void Enter();
    void Next() { Find({}); }
    void Previous() { Find(QTextDocument::FindBackward); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void txtFind_Change();
    void Find(QTextDocument::FindFlags flags);

    std::unique_ptr<Ui::HelpFindBar> m_ui;
    QTextBrowser* m_browser = nullptr;
};
