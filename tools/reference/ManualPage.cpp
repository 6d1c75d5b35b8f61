#include "tools/reference/ManualPage.h"

#include <sstream>

namespace {

/// A text as roff shows it to the letter.
std::string Escaped(const std::string& text)
{
    std::string result;
    bool lineBegins = true;
    for (const char letter : text) {
        if (lineBegins && (letter == '.' || letter == '\''))
            result += "\\&";
        if (letter == '\\')
            result += "\\e";
        else if (letter == '-')
            result += "\\-";
        else
            result += letter;
        lineBegins = letter == '\n';
    }
    return result;
}

/// One sentence, which more can follow.
std::string Sentence(const std::string& text)
{
    const bool ends = text.empty() || std::string(".:;!?").find(text.back()) != std::string::npos;
    return Escaped(text) + (ends ? "" : ".");
}

std::string Capitals(std::string text)
{
    for (char& letter : text)
        letter = letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
    return text;
}

void WriteArgument(std::ostream& page, const ArgumentWords& argument)
{
    page << ".TP\n";
    if (argument.positional) {
        page << "\\fI" << Escaped(argument.names.front()) << "\\fR\n";
    } else {
        const char* between = "";
        for (const std::string& name : argument.names) {
            page << between << "\\fB" << Escaped(name) << "\\fR";
            between = ", ";
        }
        if (!argument.value.empty())
            page << " \\fI" << Escaped(argument.value) << "\\fR";
        page << '\n';
    }
    page << Sentence(argument.description);
    if (argument.required && !argument.positional)
        page << " Required.";
    page << '\n';
}

void WriteSynopsis(std::ostream& page, const CommandWords& command)
{
    page << "\\fB" << Escaped(command.path) << "\\fR";
    if (!command.commands.empty())
        page << " \\fICOMMAND\\fR ...";
    for (const ArgumentWords& argument : command.arguments) {
        if (argument.positional || !argument.required)
            continue;
        page << " \\fB" << Escaped(argument.names.back()) << "\\fR \\fI" << Escaped(argument.value) << "\\fR";
    }
    if (command.commands.empty() && !command.arguments.empty())
        page << " [\\fIOPTION\\fR ...]";
    for (const ArgumentWords& argument : command.arguments) {
        if (argument.positional)
            page << (argument.required ? " \\fI" : " [\\fI") << Escaped(argument.names.front())
                 << (argument.required ? "\\fR" : "\\fR]");
    }
    page << '\n';
}

void WriteCommand(std::ostream& page, const CommandWords& command)
{
    if (command.commands.empty()) {
        page << ".SS \"" << Escaped(command.path) << "\"\n";
        WriteSynopsis(page, command);
        page << ".PP\n" << Sentence(command.description) << '\n';
        for (const ArgumentWords& argument : command.arguments) {
            // Every command has it; it is told of once.
            if (argument.names.back() != "--help")
                WriteArgument(page, argument);
        }
        if (!command.footer.empty())
            page << ".PP\n.nf\n" << Escaped(command.footer) << "\n.fi\n";
    }
    for (const CommandWords& below : command.commands)
        WriteCommand(page, below);
}

} // namespace

std::string ManualPage(const CommandWords& program, const ManualWords& words)
{
    std::ostringstream page;
    page << ".TH " << Capitals(Escaped(program.path)) << " 1 \"\" \"" << Escaped(words.version)
         << "\" \"User Commands\"\n";
    page << ".SH NAME\n" << Escaped(program.path) << " \\- " << Escaped(words.summary) << '\n';
    page << ".SH SYNOPSIS\n";
    WriteSynopsis(page, program);
    page << ".SH DESCRIPTION\n" << Escaped(program.description) << '\n';
    page << ".SH OPTIONS\n";
    for (const ArgumentWords& argument : program.arguments)
        WriteArgument(page, argument);
    if (!program.commands.empty())
        page << ".SH COMMANDS\n";
    for (const CommandWords& command : program.commands)
        WriteCommand(page, command);
    if (!program.footer.empty())
        page << ".SH NOTES\n.nf\n" << Escaped(program.footer) << "\n.fi\n";
    if (!words.environment.empty())
        page << ".SH ENVIRONMENT\n";
    for (const auto& [name, meaning] : words.environment)
        page << ".TP\n\\fB" << Escaped(name) << "\\fR\n" << Escaped(meaning) << '\n';
    if (!words.seeAlso.empty())
        page << ".SH SEE ALSO\n";
    const char* before = "";
    for (const std::string& other : words.seeAlso) {
        const std::size_t section = other.find('(');
        page << before << ".BR " << Escaped(other.substr(0, section)) << ' ' << other.substr(section);
        before = " ,\n";
    }
    if (!words.seeAlso.empty())
        page << '\n';
    return page.str();
}
