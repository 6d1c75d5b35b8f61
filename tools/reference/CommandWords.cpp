#include "tools/reference/CommandWords.h"

#include <algorithm>
#include <sstream>

namespace {

std::string ValueOf(const CLI::Option& option)
{
    if (option.get_items_expected_max() == 0)
        return {};
    if (!option.get_option_text().empty())
        return option.get_option_text();
    // A range stands behind the name of the value: "BUS:INT in [0 - 9]".
    const std::string type = option.get_type_name();
    return type.substr(0, type.find(':'));
}

ArgumentWords WordsOf(const CLI::Option& option)
{
    ArgumentWords words;
    words.positional = option.get_positional();
    if (words.positional) {
        words.names = {option.get_single_name()};
    } else {
        for (const std::string& name : option.get_snames())
            words.names.push_back("-" + name);
        for (const std::string& name : option.get_lnames())
            words.names.push_back("--" + name);
    }
    words.value = ValueOf(option);
    words.description = option.get_description();
    words.required = option.get_required();
    return words;
}

void Add(ArgumentWords words, std::vector<ArgumentWords>& arguments)
{
    // A group of options has a help of its own.
    const bool known = std::any_of(arguments.begin(), arguments.end(),
                                   [&words](const ArgumentWords& one) { return one.names == words.names; });
    if (!known)
        arguments.push_back(std::move(words));
}

void AddArguments(const CLI::App& app, std::vector<ArgumentWords>& arguments)
{
    for (const CLI::Option* option : app.get_options())
        Add(WordsOf(*option), arguments);
    // A group of options is a command without a name.
    for (const CLI::App* group :
         app.get_subcommands([](const CLI::App* one) { return one->get_name().empty(); }))
        AddArguments(*group, arguments);
}

CommandWords Read(const CLI::App& app, const std::string& above)
{
    CommandWords words;
    words.path = above + app.get_name();
    words.description = app.get_description();
    words.footer = app.get_footer();
    AddArguments(app, words.arguments);
    for (const CLI::App* command :
         app.get_subcommands([](const CLI::App* one) { return !one->get_name().empty(); }))
        words.commands.push_back(Read(*command, words.path + ' '));
    return words;
}

} // namespace

std::vector<std::string> ArgumentWords::Choices() const
{
    std::vector<std::string> choices;
    if (value.find('|') == std::string::npos)
        return choices;
    std::istringstream values(value);
    for (std::string choice; std::getline(values, choice, '|');)
        choices.push_back(choice);
    return choices;
}

std::string CommandWords::Name() const
{
    return path.substr(path.rfind(' ') + 1);
}

CommandWords ReadCommandWords(const CLI::App& app)
{
    return Read(app, {});
}
