#include "tools/reference/BashCompletion.h"

#include <algorithm>
#include <sstream>

namespace {

/// How the values of an argument are found.
std::string WayOf(const std::string& command, const ArgumentWords& argument)
{
    if (!argument.Choices().empty())
        return {};
    const std::string name = argument.positional ? argument.names.front() : argument.names.back().substr(2);
    if (name == "connection" || argument.value == "CONNECTION")
        return "connections";
    if (argument.value == "NAME") {
        const bool isNew = argument.positional && command.find(" add ") != std::string::npos;
        return isNew                             ? "nothing"
               : name != "like"                  ? "records"
               : command.ends_with("connection") ? "connections"
                                                 : "nodes";
    }
    const bool isFile = argument.value.starts_with("FILE") || argument.value == "SOURCE" ||
                        argument.value == "FROM" || argument.value == "TO" || name == "file";
    return isFile ? "files" : "nothing";
}

std::string Joined(const std::vector<std::string>& words)
{
    std::string all;
    for (const std::string& word : words)
        all += (all.empty() ? "" : " ") + word;
    return all;
}

/// Cases "path:option" of the values of options, and of the words that can stand elsewhere.
void WriteCases(std::ostream& script, const CommandWords& command)
{
    std::vector<std::string> words;
    std::string way = "nothing";
    for (const CommandWords& below : command.commands)
        words.push_back(below.Name());
    for (const ArgumentWords& argument : command.arguments) {
        if (argument.positional) {
            if (const std::string found = WayOf(command.path, argument); way == "nothing" && !found.empty())
                way = found;
            for (const std::string& choice : argument.Choices())
                words.push_back(choice);
            continue;
        }
        words.insert(words.end(), argument.names.begin(), argument.names.end());
        if (argument.value.empty())
            continue;
        script << "    ";
        const char* between = "";
        for (const std::string& name : argument.names) {
            script << between << '"' << command.path << ':' << name << '"';
            between = " | ";
        }
        const std::vector<std::string> choices = argument.Choices();
        script << ")\n        ";
        if (choices.empty())
            script << "way=" << WayOf(command.path, argument) << " ;;\n";
        else
            script << "words=\"" << Joined(choices) << "\" ;;\n";
    }
    script << "    \"" << command.path << ":\"*)\n        words=\"" << Joined(words) << "\" way=" << way
           << " ;;\n";
    for (const CommandWords& below : command.commands)
        WriteCases(script, below);
}

void CollectPaths(const CommandWords& command, std::vector<std::string>& paths)
{
    for (const CommandWords& below : command.commands) {
        paths.push_back(below.path);
        CollectPaths(below, paths);
    }
}

std::string FunctionName(std::string program)
{
    std::replace(program.begin(), program.end(), '-', '_');
    return "_" + program;
}

} // namespace

std::string BashCompletion(const CommandWords& program)
{
    const std::string function = FunctionName(program.path);
    std::vector<std::string> paths;
    CollectPaths(program, paths);

    std::ostringstream script;
    script << "# Completion of " << program.path << " for bash.\n" << function << "()\n{\n";
    script << "    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]}\n"
              "    local path=\""
           << program.path
           << "\" words= way=nothing word\n"
              "    for word in \"${COMP_WORDS[@]:1:COMP_CWORD-1}\"; do\n"
              "        case \"$path $word\" in\n";
    for (const std::string& path : paths)
        script << "        \"" << path << "\") path=\"" << path << "\" ;;\n";
    script << "        esac\n    done\n    case \"$path:$previous\" in\n";
    WriteCases(script, program);
    script << "    esac\n"
              "    COMPREPLY=($(compgen -W \"$words\" -- \"$current\"))\n"
              "    case $way in\n"
              "    files)\n"
              "        compopt -o filenames 2>/dev/null\n"
              "        COMPREPLY+=($(compgen -f -- \"$current\")) ;;\n"
              "    connections | nodes | records)\n"
              "        local name IFS=$'\\n' kinds=$way\n"
              "        [[ $way == records ]] && kinds=$'connections\\nnodes'\n"
              "        while read -r name; do\n"
              "            [[ $name == \"$current\"* ]] && COMPREPLY+=(\"$(printf %q \"$name\")\")\n"
              "        done < <(for name in $kinds; do zelka list \"$name\" 2>/dev/null; done | head -n "
              "1000) ;;\n"
              "    esac\n"
              "}\ncomplete -F "
           << function << ' ' << program.path << '\n';
    return script.str();
}
