#include "host/workstation/WorkstationOptions.h"

#include "platform/Language.h"
#include "platform/controls/Theme.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <string>
#include <vector>

namespace {

std::string NotEmpty(const std::string& value)
{
    return value.empty() ? "it must not be empty" : std::string();
}

} // namespace

std::optional<int> ReadOptions(int argc, char** argv, WorkstationOptions& options)
{
    CLI::App app("Shows the connection browser and hands over the target that is selected in it.",
                 "zelka-workstation");
    app.footer(
        "Without a display the program selects the first node, prints its target, asks the node for its\n"
        "identification and prints that, and writes pictures of its pages to a folder that it names on\n"
        "standard error. Where no gateway can be reached it says so and goes on without.\n\n"
        "Exit codes: 0 done, 1 refused, no node or no answer, 2 usage, 3 database unavailable.");
    app.set_version_flag("-V,--version", "zelka-workstation " ZELKA_VERSION, "Print the version and end");

    std::string database;
    std::string screenshots;
    std::string language;
    app.add_option("-d,--database", database,
                   "Database to open; else the one that ZELKA_DBS32 or the machine's settings name")
        ->type_name("SOURCE")
        ->check(NotEmpty);
    app.add_option("--screenshots", screenshots,
                   "Do what is done without a display, writing the pictures to this folder")
        ->type_name("FOLDER")
        ->check(NotEmpty);
    std::vector<std::string> languages;
    for (const QString& code : OfferedLanguages())
        languages.push_back(code.toStdString());
    app.add_option(
           "--language", language,
           "Language of the windows; else the one that ZELKA_LANGUAGE names or that was chosen in the menu")
        ->type_name("LANGUAGE")
        ->check(CLI::IsMember(languages));
    std::vector<std::string> themes;
    for (const QString& name : ThemeNames())
        themes.push_back(name.toStdString());
    std::string theme;
    app.add_option("--theme", theme, "Colours of the windows, for this run; else those last chosen")
        ->type_name("NAME")
        ->check(CLI::IsMember(themes));

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (app.exit(error) == 0)
            return ExitCode::Done;
        std::cerr << app.help();
        return ExitCode::Usage;
    }
    options.database = QString::fromStdString(database);
    options.screenshots = QString::fromStdString(screenshots);
    options.language = QString::fromStdString(language);
    options.theme = QString::fromStdString(theme);
    return std::nullopt;
}
