#include "tools/netsim/NetsimCommandLine.h"
#include "tools/reference/BashCompletion.h"
#include "tools/reference/ManualPage.h"
#include "tools/zelka/CommandLine.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>
#include <iostream>

namespace {

const std::pair<std::string, std::string> DatabaseVariable = {
    "ZELKA_DBS32", "The database to work on: a file, or the postgresql:// URL of a server's database."};
const std::pair<std::string, std::string> GatewayVariable = {
    "ZELKA_GATEWAY", "HOST:PORT of the gateway through which the network is reached."};

ManualWords ZelkaWords()
{
    return {"work on the database of connections and nodes from the command line",
            "zelka " ZELKA_VERSION,
            {DatabaseVariable, GatewayVariable},
            {"zelka-workstation(1)", "zelka-netsim(1)"}};
}

ManualWords NetsimWords()
{
    return {"simulate a network of buses and nodes", "zelka-netsim " ZELKA_VERSION, {}, {"zelka(1)"}};
}

int Usage()
{
    std::cerr << "usage: zelka-reference man|bash zelka|zelka-netsim\n";
    return 2;
}

} // namespace

/// Prints the manual page or the shell completion of a program, made from what the program itself parses its
/// arguments with.
int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const std::string kind = argc == 3 ? argv[1] : "";
    const std::string program = argc == 3 ? argv[2] : "";
    const bool isNetsim = program == "zelka-netsim";
    if ((kind != "man" && kind != "bash") || (program != "zelka" && !isNetsim))
        return Usage();
    const auto print = [&](const CLI::App& app) {
        const CommandWords words = ReadCommandWords(app);
        std::cout << (kind == "bash" ? BashCompletion(words)
                                     : ManualPage(words, isNetsim ? NetsimWords() : ZelkaWords()));
    };
    if (isNetsim)
        ReadNetsimCommandLine(print);
    else
        ReadCommandLine(print);
    return std::cout.flush() ? EXIT_SUCCESS : EXIT_FAILURE;
}
