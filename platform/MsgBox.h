#pragma once

#include <QString>

#include <functional>

/// The one gate for modal boxes. Who shows them (windows, a terminal, a test) is the presenter's business.

/// Flags of a box; values may be combined.
namespace BoxFlags {
constexpr int Plain = 0;
constexpr int OkCancel = 1;
constexpr int YesNoCancel = 3;
constexpr int YesNo = 4;
constexpr int Critical = 16;
constexpr int Question = 32;
constexpr int Exclamation = 48;
constexpr int Information = 64;
/// Bits that choose the buttons; the rest chooses the icon.
constexpr int ButtonMask = 7;
} // namespace BoxFlags

/// What the operator chose.
enum class BoxAnswer
{
    Ok = 1,
    Cancel = 2,
    Yes = 6,
    No = 7,
};

/// Shows boxes and asks for a line of text.
///
/// Thread: the control's. Both calls return when the operator has answered.
class BoxPresenter
{
public:
    virtual ~BoxPresenter() = default;

    virtual BoxAnswer ShowMsgBox(const QString& text, int flags, const QString& title) = 0;
    /// False when the operator pressed Cancel; `value` holds the default text before and the answer after.
    virtual bool ShowInputBox(const QString& prompt, const QString& title, QString& value) = 0;
};

/// Installs `presenter` (not owned; null brings back the built-in one, which writes to standard error,
/// answers OK to information and declines questions). Gives the one installed before.
BoxPresenter* SetBoxPresenter(BoxPresenter* presenter);

/// Installs a procedure that runs before any box or input box is presented, for example to let go of what
/// must not be held while the operator thinks; null removes it. Gives the one installed before. The procedure
/// may install another.
std::function<void()> SetBoxObserver(std::function<void()> observer);

/// Shows a box and gives the answer.
BoxAnswer MsgBox(const QString& text, int flags = BoxFlags::Plain, const QString& title = QString());

/// Asks for a line of text. False: Cancel, `value` as it was.
bool InputBox(const QString& prompt, const QString& title, QString& value);

/// Keeps back the boxes that only tell something, so that none stands open while it lives, for example while
/// a transaction is open. They are shown, in order, by Show, when it ends, or before a box that asks. Scopes
/// may nest: only the outermost shows.
class HeldBoxes
{
public:
    HeldBoxes();
    ~HeldBoxes();
    HeldBoxes(const HeldBoxes&) = delete;
    HeldBoxes& operator=(const HeldBoxes&) = delete;

    /// Shows what was kept back; later boxes are kept back again.
    void Show();
};

/// The application's title, which boxes without a title of their own carry.
QString ApplicationTitle();

/// Title of every error box: the application's title followed by " - Error".
QString ErrorBoxTitle();

/// Flags of every error box: critical icon, OK button.
constexpr int ErrorBoxFlags()
{
    return BoxFlags::Critical;
}

/// Shows `text` in an error box.
void ErrorBox(const QString& text);
