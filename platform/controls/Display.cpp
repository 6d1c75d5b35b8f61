#include "platform/controls/Display.h"

#include <QGuiApplication>

namespace {

QtMessageHandler otherMessages = nullptr;

/// The offscreen platform tells about each window that it has no frame to resize; nobody can act on that.
void DropNoise(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (!text.startsWith(QStringLiteral("This plugin does not support")))
        otherMessages(type, context, text);
}

} // namespace

void UseOffscreenWithoutDisplay()
{
#if defined(Q_OS_UNIX) && !defined(Q_OS_DARWIN) && !defined(Q_OS_ANDROID)
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        if (!qEnvironmentVariableIsEmpty(name))
            return;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    otherMessages = qInstallMessageHandler(DropNoise);
#endif
}

bool IsOffscreen()
{
    const QString platform = QGuiApplication::platformName();
    return platform == QStringLiteral("offscreen") || platform.startsWith(QStringLiteral("minimal"));
}
