#pragma once

#include <QDialog>

#include <functional>

class ConData;
class ConNameBox;
class NodePages;
class QPushButton;

/// What the dialogs of one node share: its name, its waypoints, its manager, and how a save begins and ends.
///
/// A dialog makes its controls, hands them over with UseControls and fills them. Thread: the control's.
class NodeDialog : public QDialog
{
    Q_OBJECT

public:
    ~NodeDialog() override;

protected:
    struct Controls
    {
        ConNameBox* name = nullptr;
        NodePages* pages = nullptr;
        QPushButton* manager = nullptr;
        QPushButton* save = nullptr;
        QPushButton* cancel = nullptr;
        QPushButton* help = nullptr;
    };

    /// `con` outlives the dialog.
    NodeDialog(ConData& con, const QString& helpTopic, QWidget* parent);
    /// Once, when the controls are there and still empty.
    void UseControls(const Controls& controls);
    /// A slot that runs the handler; an error that it raises ends in an error box.
    template <typename Dialog>
    [[nodiscard]] std::function<void()> Guarded(void (Dialog::*handler)())
    {
        auto* dialog = static_cast<Dialog*>(this);
        return [dialog, handler] { RunHandler([dialog, handler] { (dialog->*handler)(); }); };
    }

    /// Enables what the operator's rights allow; the controls are filled.
    void ApplyRights();
    virtual void Form_Activate();
    virtual void cmdSave_Click();
    /// Saves the node; blanks at the ends of the name go. True: it is saved.
    [[nodiscard]] virtual bool SaveRecord(QString& name) = 0;

    /// The dialog has been activated; before, it is not ready for choices.
    [[nodiscard]] bool IsReady() const { return m_isReady; }
    [[nodiscard]] ConData& Con() const { return m_con; }
    [[nodiscard]] NodePages& Pages() const { return *m_controls.pages; }

    bool event(QEvent* event) override;

private:
    static void RunHandler(const std::function<void()>& handler);
    void cmdManager_Click();
    void cmdHelp_Click() const;

    ConData& m_con;
    QString m_helpTopic;
    Controls m_controls;
    bool m_isReady = false;
};
