#pragma once

#include <QLineEdit>

/// The name box of the connection dialogs.
///
/// A comma never stays in it, as it would break lists: it and all behind it are cut, with the bell. Escape
/// brings back the text that the box had when it got the focus, and goes no further. The text is selected
/// when the box gets the focus.
class ConNameBox : public QLineEdit
{
    Q_OBJECT

public:
    explicit ConNameBox(QWidget* parent = nullptr);

    /// Shows a name, selected, which Escape brings back.
    void ShowName(const QString& name);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void CutAtComma();

    QString m_savedName;
    /// The click that gave the focus sets the caret: the text is selected when the button comes up.
    bool m_selectOnRelease = false;
};
