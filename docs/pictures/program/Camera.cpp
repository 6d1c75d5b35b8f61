#include "docs/pictures/program/Camera.h"

#include "docs/pictures/program/Stage.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QProgressBar>
#include <QTimer>

#include <cstdio>
#include <utility>

namespace {

/// Follows the bar of progress of each window that is shown.
class BarWatch : public QObject
{
public:
    explicit BarWatch(std::function<void(const QProgressBar& bar)> look) : m_look(std::move(look))
    {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const auto* window = event->type() == QEvent::Show ? qobject_cast<const QDialog*>(watched) : nullptr;
        if (auto* bar = window ? window->findChild<QProgressBar*>() : nullptr)
            connect(bar, &QProgressBar::valueChanged, this, [this, bar] { m_look(*bar); });
        return QObject::eventFilter(watched, event);
    }

private:
    std::function<void(const QProgressBar& bar)> m_look;
};

} // namespace

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
    BarWatch watch([&](const QProgressBar& bar) {
        if (shown || 2 * bar.value() < bar.minimum() + bar.maximum())
            return;
        shown = true;
        Take(*bar.window(), name);
    });
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
