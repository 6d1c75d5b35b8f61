#pragma once

#include "platform/MsgBox.h"

#include <QString>
#include <QStringList>
#include <QTest>

#include <deque>
#include <functional>
#include <optional>
#include <vector>

/// One box that the program showed.
struct RecordedBox
{
    QString text;
    int flags = BoxFlags::Plain;
    QString title;

    bool operator==(const RecordedBox&) const = default;

    /// A plain box with the application's title.
    static RecordedBox Plain(const QString& text) { return {text, BoxFlags::Plain, ApplicationTitle()}; }
    static RecordedBox Error(const QString& text) { return {text, ErrorBoxFlags(), ErrorBoxTitle()}; }
};

/// Lets QCOMPARE show what differs.
inline char* toString(const RecordedBox& box)
{
    return QTest::toString(
        QStringLiteral("{\"%1\", %2, \"%3\"}").arg(box.text).arg(box.flags).arg(box.title));
}

/// Stands for the operator: records each box and answers from a queue. Installed as long as it lives; the
/// presenter that was there before comes back afterwards.
class RecordingPresenter : public BoxPresenter
{
public:
    RecordingPresenter() : m_before(SetBoxPresenter(this)) {}
    ~RecordingPresenter() override { SetBoxPresenter(m_before); }
    RecordingPresenter(const RecordingPresenter&) = delete;
    RecordingPresenter& operator=(const RecordingPresenter&) = delete;

    /// What was shown, in order; input boxes with their prompt as text and flags -1.
    std::vector<RecordedBox> Boxes;
    /// Answers to the next message boxes; when empty: OK, and No where a box offers only Yes and No.
    std::deque<BoxAnswer> Answers;
    /// Answers to the next input boxes; nothing, or an empty queue, is Cancel.
    std::deque<std::optional<QString>> Inputs;
    /// Runs while a message box stands open, before it is answered.
    std::function<void(const RecordedBox& box)> WhileOpen;
    /// The same for input boxes.
    std::function<void()> WhileInput;

    static constexpr int InputBoxFlags = -1;

    [[nodiscard]] QStringList Texts() const
    {
        QStringList texts;
        for (const RecordedBox& box : Boxes)
            texts << box.text;
        return texts;
    }

    BoxAnswer ShowMsgBox(const QString& text, int flags, const QString& title) override
    {
        const RecordedBox box{text, flags, title};
        Boxes.push_back(box);
        if (WhileOpen)
            WhileOpen(box);
        if (Answers.empty())
            return (flags & BoxFlags::ButtonMask) == BoxFlags::YesNo ? BoxAnswer::No : BoxAnswer::Ok;
        const BoxAnswer answer = Answers.front();
        Answers.pop_front();
        return answer;
    }

    bool ShowInputBox(const QString& prompt, const QString& title, QString& value) override
    {
        Boxes.push_back({prompt, InputBoxFlags, title});
        if (WhileInput)
            WhileInput();
        if (Inputs.empty())
            return false;
        const std::optional<QString> answer = Inputs.front();
        Inputs.pop_front();
        if (!answer)
            return false;
        value = *answer;
        return true;
    }

private:
    BoxPresenter* m_before;
};
