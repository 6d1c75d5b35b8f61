#pragma once

#include <QApplication>
#include <QDialog>
#include <QTest>
#include <QTimer>

#include <functional>

/// An operator's hands in the forms that a command shows modally.
class ModalForms
{
public:
    template <typename Widget>
    [[nodiscard]] static Widget& FindIn(const QWidget& form, const char* name)
    {
        auto* widget = form.findChild<Widget*>(QString::fromLatin1(name));
        if (!widget)
            qFatal("There is no %s.", name);
        return *widget;
    }
    static void ClickIn(const QDialog& form, const char* button)
    {
        QTest::mouseClick(&FindIn<QWidget>(form, button), Qt::LeftButton);
    }

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
