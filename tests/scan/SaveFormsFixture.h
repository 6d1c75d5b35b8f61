#pragma once

#include "database/DatabaseState.h"
#include "dialogs/DialogState.h"
#include "model/ModelState.h"
#include "platform/HelpHook.h"
#include "tests/scan/network/SaveListFixture.h"

#include <QApplication>
#include <QDialog>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>

/// The forms that save found nodes, driven by clicks and keys.
class SaveFormsFixture : public SaveListFixture
{
public:
    explicit SaveFormsFixture(const std::function<void()>& useOther = {}) : SaveListFixture(useOther)
    {
        Database().EditRight = true;
        Dialogs() = DialogState();
        Help().ShowHelpTopic = [this](const QString& topic) { Topics << topic; };
    }
    ~SaveFormsFixture()
    {
        Form.reset();
        Dialogs() = DialogState();
        Help() = HelpHook();
    }
    SaveFormsFixture(const SaveFormsFixture&) = delete;
    SaveFormsFixture& operator=(const SaveFormsFixture&) = delete;

    std::unique_ptr<QDialog> Form;
    /// Help topics that were shown.
    QStringList Topics;

    template <typename Dialog>
    Dialog& Show()
    {
        auto form = std::make_unique<Dialog>(Direct, NewDirect);
        Dialog& shown = *form;
        Form = std::move(form);
        Form->show();
        if (!QTest::qWaitForWindowActive(Form.get()))
            qFatal("The dialog does not become active.");
        return shown;
    }

    template <typename Widget>
    [[nodiscard]] static Widget& FindIn(const QWidget& form, const char* name)
    {
        auto* widget = form.findChild<Widget*>(QString::fromLatin1(name));
        if (!widget)
            qFatal("There is no %s.", name);
        return *widget;
    }
    template <typename Widget>
    [[nodiscard]] Widget& Find(const char* name) const
    {
        return FindIn<Widget>(*Form, name);
    }
    [[nodiscard]] bool Enabled(const char* control) const { return Find<QWidget>(control).isEnabled(); }
    void Click(const char* button) const { QTest::mouseClick(&Find<QPushButton>(button), Qt::LeftButton); }

    /// Works in the next dialog that is shown modally, once it is there and has loaded.
    static void InNextDialog(const std::function<void(QDialog& dialog)>& work, int passes = PassesUntilLoaded)
    {
        QTimer::singleShot(0, qApp, [work, passes] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            const bool isThere = dialog && dialog->isVisible();
            if (isThere && passes == 0)
                work(*dialog);
            else
                InNextDialog(work, isThere ? passes - 1 : passes);
        });
    }

private:
    /// Passes of the event loop.
    static constexpr int PassesUntilLoaded = 2;
};
