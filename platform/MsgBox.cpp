#include "platform/MsgBox.h"

#include "platform/Words.h"

#include <cstdio>
#include <utility>
#include <vector>

namespace {

class StandardErrorPresenter : public BoxPresenter
{
public:
    BoxAnswer ShowMsgBox(const QString& text, int flags, const QString&) override
    {
        std::fprintf(stderr, "%s\n", qUtf8Printable(text));
        switch (flags & BoxFlags::ButtonMask) {
        case BoxFlags::OkCancel:
        case BoxFlags::YesNoCancel:
            return BoxAnswer::Cancel;
        case BoxFlags::YesNo:
            return BoxAnswer::No;
        default:
            return BoxAnswer::Ok;
        }
    }

    bool ShowInputBox(const QString& prompt, const QString&, QString&) override
    {
        std::fprintf(stderr, "%s\n", qUtf8Printable(prompt));
        return false;
    }
};

StandardErrorPresenter standardError;
BoxPresenter* current = &standardError;

std::function<void()>& Observer()
{
    static std::function<void()> observer;
    return observer;
}

struct HeldBox
{
    QString text;
    int flags;
    QString title;
};

/// Scopes of the thread that hold boxes back, and what they hold.
thread_local int holders = 0;

std::vector<HeldBox>& Held()
{
    thread_local std::vector<HeldBox> boxes;
    return boxes;
}

bool OnlyTells(int flags)
{
    return (flags & BoxFlags::ButtonMask) == BoxFlags::Plain;
}

/// Runs a copy, since the procedure may replace itself.
void TellObserver()
{
    if (const std::function<void()> observer = Observer())
        observer();
}

void ShowHeldBoxes()
{
    const std::vector<HeldBox> boxes = std::exchange(Held(), {});
    for (const HeldBox& box : boxes) {
        TellObserver();
        current->ShowMsgBox(box.text, box.flags, box.title);
    }
}

} // namespace

HeldBoxes::HeldBoxes()
{
    ++holders;
}

HeldBoxes::~HeldBoxes()
{
    if (--holders == 0)
        ShowHeldBoxes();
}

void HeldBoxes::Show()
{
    if (holders == 1)
        ShowHeldBoxes();
}

BoxPresenter* SetBoxPresenter(BoxPresenter* presenter)
{
    BoxPresenter* before = current == &standardError ? nullptr : current;
    current = presenter ? presenter : &standardError;
    return before;
}

std::function<void()> SetBoxObserver(std::function<void()> observer)
{
    return std::exchange(Observer(), std::move(observer));
}

BoxAnswer MsgBox(const QString& text, int flags, const QString& title)
{
    const QString shownTitle = title.isEmpty() ? ApplicationTitle() : title;
    if (holders > 0 && OnlyTells(flags)) {
        Held().push_back({text, flags, shownTitle});
        return BoxAnswer::Ok;
    }
    ShowHeldBoxes();
    TellObserver();
    return current->ShowMsgBox(text, flags, shownTitle);
}

bool InputBox(const QString& prompt, const QString& title, QString& value)
{
    ShowHeldBoxes();
    TellObserver();
    return current->ShowInputBox(prompt, title.isEmpty() ? ApplicationTitle() : title, value);
}

QString ApplicationTitle()
{
    return QStringLiteral("Zelka Connection Browser");
}

QString ErrorBoxTitle()
{
    return Words::tr("%1 - Error").arg(ApplicationTitle());
}

void ErrorBox(const QString& text)
{
    MsgBox(text, ErrorBoxFlags(), ErrorBoxTitle());
}
