#pragma once

#include <QMainWindow>
#include <QUrl>

#include <memory>

class HelpFile;
class QHelpContentWidget;
class QHelpIndexWidget;

namespace Ui {
class HelpWindow;
}

/// The one window of the help: contents, keywords and search beside the page.
///
/// It is not modal, and takes input beside every modal window: it goes with whichever of these is in front.
/// Its size, its place and the size of the text are kept from one program to the next.
class HelpWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// The window on a help file, made where it is missing. Raises a ComponentError when the file cannot be
    /// used; a window that is there stays as it is then.
    static HelpWindow& Open(const QString& file);
    /// Null: none has been made.
    [[nodiscard]] static HelpWindow* Current();
    /// Ends the window and lets go of its file.
    static void End();

    ~HelpWindow() override;

    /// Shows a page, scrolled to the place in it that the topic names, and brings the window to the front.
    void ShowTopic(const QString& topic);
    [[nodiscard]] HelpFile& File() { return *m_file; }
    [[nodiscard]] QUrl Page() const;

protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    explicit HelpWindow(std::unique_ptr<HelpFile> file);

    void Connect();
    void AddWaysIn();
    void AddKeys();
    void ShowPage(const QUrl& page);
    void txtPage_Change(const QUrl& page);
    void txtIndex_Enter();
    /// Another way into the help is in front: it gets the keyboard, but from the tabs themselves.
    void tabHelp_Change();
    void EscapePressed();
    /// Behind a modal window no other takes input but those that belong to it.
    void FollowModalWindow();
    void RestorePlace();
    void SavePlace();

    std::unique_ptr<HelpFile> m_file;
    std::unique_ptr<Ui::HelpWindow> m_ui;
    QHelpContentWidget* m_contents = nullptr;
    QHelpIndexWidget* m_index = nullptr;
};
