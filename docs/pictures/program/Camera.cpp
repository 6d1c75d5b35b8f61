#include "docs/pictures/program/Camera.h"

#include "docs/pictures/program/Stage.h"

#include <QApplication>
#include <QDialog>
#include <QProgressBar>
#include <QTimer>

#include <cstdio>
#include <utility>

Camera::Camera(QString folder, QString look) : m_folder(std::move(folder)), m_look(std::move(look)) {}

void Camera::Take(QWidget& widget, const QString& name) const
{
    const QString file = QStringLiteral("%1/%2-%3.png").arg(m_folder, name, m_look);
    if (widget.grab().save(file))
        return;
    std::fprintf(stderr, "cannot write %s\n", qUtf8Printable(file));
    m_allTaken = false;
}

void Camera::WithProgress(const std::function<void()>& opening, const QString& name) const
{
    bool shown = false;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &look, [&] {
        QWidget* const window = QApplication::activeModalWidget();
        const auto* bar = window ? window->findChild<QProgressBar*>() : nullptr;
        if (shown || !bar || 2 * bar->value() < bar->minimum() + bar->maximum())
            return;
        shown = true;
        Take(*window, name);
    });
    look.start();
    opening();
    TellShown(shown, name);
}

void Camera::TellShown(bool shown, const QString& name) const
{
    if (shown)
        return;
    std::fprintf(stderr, "%s was not shown\n", qUtf8Printable(name));
    m_allTaken = false;
}

void Camera::WithDialog(const std::function<void()>& opening, const QString& name,
                        const std::function<void(QDialog& dialog)>& work,
                        const std::function<void(QDialog& dialog)>& end) const
{
    bool shown = false;
    QTimer::singleShot(PaintMs, [&] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        shown = true;
        if (work)
            work(*dialog);
        QApplication::processEvents();
        Take(*dialog, name);
        if (end)
            end(*dialog);
        dialog->reject();
    });
    opening();
    TellShown(shown, name);
}
