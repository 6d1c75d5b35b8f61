#include "tests/host/RunProgram.h"

#include <QProcess>

QProcessEnvironment EnvironmentWithoutDisplay(const QString& home, const QString& source)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name :
         {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "ZELKA_DBS32", "ZELKA_GATEWAY", "ZELKA_LANGUAGE"})
        environment.remove(QLatin1String(name));
    environment.insert(QStringLiteral("HOME"), home);
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), home + QStringLiteral("/config"));
    environment.insert(QStringLiteral("XDG_DATA_HOME"), home + QStringLiteral("/data"));
    environment.insert(QStringLiteral("TMPDIR"), home + QStringLiteral("/temp"));
    if (!source.isEmpty())
        environment.insert(QStringLiteral("ZELKA_DBS32"), source);
    return environment;
}

Outcome RunWithoutDisplay(const QString& program, const QStringList& arguments, const QString& home,
                          const QString& source)
{
    QProcess process;
    process.setProcessEnvironment(EnvironmentWithoutDisplay(home, source));
    process.start(program, arguments);
    constexpr int longest = 60000;
    if (!process.waitForFinished(longest)) {
        process.kill();
        process.waitForFinished();
        return {-1, QString(), QStringLiteral("did not end: ") + process.errorString()};
    }
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}
