#include "components/hvxutil/HvxUtilityComponent.h"
#include "components/syncconn/SyncConnectionComponent.h"
#include "platform/Utf8Locale.h"
#include "tools/zelka/CommandLine.h"

#include <QCoreApplication>
#include <QFile>
#include <QLoggingCategory>

#include <cstdio>

int main(int argc, char** argv)
{
    ChooseUtf8Locale();
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("zelka"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ZELKA_VERSION));

    // Failures are told in one line of this program's own; warnings of the libraries would stand around it.
    QLoggingCategory::setFilterRules(QStringLiteral("*.warning=false"));

    QFile data;
    QFile words;
    if (!data.open(stdout, QIODevice::WriteOnly) || !words.open(stderr, QIODevice::WriteOnly))
        return static_cast<int>(ExitCode::Refused);
    RegisterSyncConnections();
    RegisterHvxUtility();
    return static_cast<int>(RunCommandLine(argc, argv, data, words));
}
