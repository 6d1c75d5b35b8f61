// A host whose window was drawn in Qt Designer. The control starts with the form's properties when it is
// first shown.
//
//   host-form [--database FILE-OR-URL] [--self-test]

#include "../SelfTest.h"
#include "HostWindow.h"

#include <QApplication>
#include <QCommandLineParser>

#include <ZelkaBrowser/Zelka.h>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOptions({{"database", "Database to show.", "source"}, {"self-test", "Pick a node and end."}});
    parser.process(application);
    if (parser.isSet("database"))
        Zelka::ChooseDatabase(parser.value("database"));

    HostWindow window;
    window.show();
    if (parser.isSet("self-test"))
        SelfTest::Run(window.Browser());
    return QApplication::exec();
}
