#include "tools/zelka/CommandLine.h"

#include <QCoreApplication>
#include <QFile>
#include <QLoggingCategory>

#include <clocale>
#include <cstdio>
#include <langinfo.h>
#include <string_view>

namespace {

/// Names and targets are UTF-8 whatever the shell says; scheduled scripts often run without a locale.
void ChooseUtf8Locale()
{
    std::setlocale(LC_CTYPE, "");
    if (std::string_view(nl_langinfo(CODESET)) != "UTF-8")
        qputenv("LC_ALL", "C.UTF-8");
}

} // namespace

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
    return static_cast<int>(RunCommandLine(argc, argv, data, words));
}
