#include "host/node-manager/NodeManagerWindow.h"
#include "host/node-manager/StartArguments.h"
#include "platform/Language.h"
#include "platform/controls/Display.h"

#include <QApplication>

#include <cstdio>

namespace {

constexpr const char* Usage =
    "Shows for which node it was started, and with which arguments.\n"
    "Usage: zelka-node-manager [-sobriquet NODE] [-device DEVICE] [ARGUMENT ...]\n\n"
    "  --help     Print this help and end\n"
    "  --version  Print the version and end\n\n"
    "Without a display the lines of the window go to standard error, and the program ends.\n";

/// Alone only: the value of an option may be such a word.
bool IsOnlyArgument(int argc, char** argv, QByteArrayView word)
{
    return argc == 2 && QByteArrayView(argv[1]) == word;
}

} // namespace

int main(int argc, char** argv)
{
    if (IsOnlyArgument(argc, argv, "--help")) {
        std::fputs(Usage, stdout);
        return 0;
    }
    if (IsOnlyArgument(argc, argv, "--version")) {
        std::puts("zelka-node-manager " ZELKA_VERSION);
        return 0;
    }
    UseOffscreenWithoutDisplay();
    // The arguments belong to the node; none of them is for Qt.
    int ownArgument = 1;
    const QApplication application(ownArgument, argv);
    QApplication::setApplicationName(QStringLiteral("zelka-node-manager"));
    QApplication::setApplicationVersion(QStringLiteral(ZELKA_VERSION));

    const StartArguments arguments = StartArguments::Read(argc, argv);
    if (IsOffscreen()) {
        std::fprintf(stderr, "%s\n", arguments.Text().toUtf8().constData());
        return 0;
    }
    (void)UseLanguage(ChosenLanguage({}, {}));
    NodeManagerWindow window(arguments);
    window.show();
    return QApplication::exec();
}
