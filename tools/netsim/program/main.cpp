#include "platform/Utf8Locale.h"
#include "tools/netsim/NetsimCommandLine.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>

int main(int argc, char** argv)
{
    ChooseUtf8Locale();
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("zelka-netsim"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ZELKA_VERSION));

    QFile data;
    QFile words;
    if (!data.open(stdout, QIODevice::WriteOnly) || !words.open(stderr, QIODevice::WriteOnly))
        return static_cast<int>(NetsimExit::Refused);
    return static_cast<int>(RunNetsimCommandLine(argc, argv, data, words));
}
