#include "platform/controls/WindowBoxPresenter.h"

#include "platform/MachineSeams.h"

#include <QApplication>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>

namespace {

/// Beyond this a text is shown shortened, since a box that leaves the screen cannot be answered.
constexpr qsizetype LongestText = 2000;
/// A label breaks lines at blanks only; a longer run without one gets places to break.
constexpr qsizetype LongestRun = 80;

QWidget* ActiveParent()
{
    if (QWidget* modal = QApplication::activeModalWidget())
        return modal;
    return QApplication::activeWindow();
}

/// Puts the normal pointer over a wait cursor as long as it lives.
class NormalPointer
{
public:
    NormalPointer() : m_shown(QApplication::overrideCursor() != nullptr)
    {
        if (m_shown)
            QApplication::setOverrideCursor(Qt::ArrowCursor);
    }
    ~NormalPointer()
    {
        if (m_shown)
            QApplication::restoreOverrideCursor();
    }
    Q_DISABLE_COPY_MOVE(NormalPointer)

private:
    bool m_shown;
};

QString Breakable(const QString& text)
{
    constexpr QChar zeroWidthSpace(0x200B);
    QString result;
    qsizetype run = 0;
    for (const QChar c : text) {
        run = c.isSpace() ? 0 : run + 1;
        if (run > LongestRun && !c.isLowSurrogate()) {
            result += zeroWidthSpace;
            run = 1;
        }
        result += c;
    }
    return result;
}

QMessageBox::Icon Icon(int flags)
{
    switch (flags & ~BoxFlags::ButtonMask) {
    case BoxFlags::Critical:
        return QMessageBox::Critical;
    case BoxFlags::Question:
        return QMessageBox::Question;
    case BoxFlags::Exclamation:
        return QMessageBox::Warning;
    case BoxFlags::Information:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

struct Buttons
{
    QMessageBox::StandardButtons all;
    QMessageBox::StandardButton first;
    QMessageBox::StandardButton escape;
};

Buttons ButtonsOf(int flags)
{
    switch (flags & BoxFlags::ButtonMask) {
    case BoxFlags::OkCancel:
        return {QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Ok, QMessageBox::Cancel};
    case BoxFlags::YesNoCancel:
        return {QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Yes,
                QMessageBox::Cancel};
    case BoxFlags::YesNo:
        return {QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes, QMessageBox::No};
    default:
        return {QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok};
    }
}

BoxAnswer Answer(int button)
{
    switch (button) {
    case QMessageBox::Yes:
        return BoxAnswer::Yes;
    case QMessageBox::No:
        return BoxAnswer::No;
    case QMessageBox::Cancel:
        return BoxAnswer::Cancel;
    default:
        return BoxAnswer::Ok;
    }
}

void ShowText(QMessageBox& box, const QString& text)
{
    box.setTextFormat(Qt::PlainText);
    if (text.size() <= LongestText) {
        box.setText(Breakable(text));
        return;
    }
    box.setText(Breakable(text.left(LongestText)) + QChar(0x2026));
    box.setDetailedText(text);
}

} // namespace

BoxAnswer WindowBoxPresenter::ShowMsgBox(const QString& text, int flags, const QString& title)
{
    const NormalPointer pointer;
    const Buttons buttons = ButtonsOf(flags);

    // The parent may go while the box is open and takes the box along.
    const QPointer<QMessageBox> box = new QMessageBox(ActiveParent());
    box->setWindowTitle(title);
    box->setIcon(Icon(flags));
    ShowText(*box, text);
    box->setStandardButtons(buttons.all);
    box->setDefaultButton(buttons.first);
    box->setEscapeButton(buttons.escape);

    const int pressed = box->exec();
    if (!box)
        return Answer(buttons.escape);
    delete box;
    return Answer(pressed);
}

bool WindowBoxPresenter::ShowInputBox(const QString& prompt, const QString& title, QString& value)
{
    const NormalPointer pointer;

    const QPointer<QInputDialog> box = new QInputDialog(ActiveParent());
    box->setInputMode(QInputDialog::TextInput);
    box->setWindowTitle(title);
    box->setLabelText(Breakable(prompt));
    box->setTextValue(value);
    const QList<QLabel*> labels = box->findChildren<QLabel*>();
    for (QLabel* label : labels)
        label->setTextFormat(Qt::PlainText);

    const bool accepted = box->exec() == QDialog::Accepted;
    if (!box)
        return false;
    if (accepted)
        value = box->textValue();
    delete box;
    return accepted;
}

void InstallWindowSeams()
{
    Machine().ShowBusyPointer = [shown = false](bool busy) mutable {
        if (busy == shown || !qApp)
            return;
        shown = busy;
        if (busy)
            QApplication::setOverrideCursor(Qt::WaitCursor);
        else
            QApplication::restoreOverrideCursor();
    };
    Machine().Beep = [] { QApplication::beep(); };
}
