#pragma once

#include "database/DatabaseState.h"
#include "dialogs/DialogState.h"
#include "model/ModelState.h"
#include "platform/HelpHook.h"
#include "tests/scan/network/SaveListFixture.h"
#include "tests/support/ModalForms.h"

#include <QPointer>
#include <QPushButton>

/// The forms that save found nodes, driven by clicks and keys.
class SaveFormsFixture : public SaveListFixture, public ModalForms
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
    [[nodiscard]] Widget& Find(const char* name) const
    {
        return FindIn<Widget>(*Form, name);
    }
    [[nodiscard]] bool Enabled(const char* control) const { return Find<QWidget>(control).isEnabled(); }
    void Click(const char* button) const { QTest::mouseClick(&Find<QPushButton>(button), Qt::LeftButton); }
};
