#include "platform/MsgBox.h"

#include <cstdio>
#include <utility>

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

/// Runs a copy, since the procedure may replace itself.
void TellObserver()
{
    if (const std::function<void()> observer = Observer())
        observer();
}

} // namespace

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
    TellObserver();
    return current->ShowMsgBox(text, flags, title.isEmpty() ? ApplicationTitle() : title);
}

bool InputBox(const QString& prompt, const QString& title, QString& value)
{
    TellObserver();
    return current->ShowInputBox(prompt, title.isEmpty() ? ApplicationTitle() : title, value);
}

QString ApplicationTitle()
{
    return QStringLiteral("Zelka Connection Browser");
}

QString ErrorBoxTitle()
{
    return ApplicationTitle() + QStringLiteral(" - Error");
}

void ErrorBox(const QString& text)
{
    MsgBox(text, ErrorBoxFlags(), ErrorBoxTitle());
}
