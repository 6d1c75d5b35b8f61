#include "host/node-manager/StartArguments.h"

StartArguments StartArguments::Read(int argc, const char* const* argv)
{
    StartArguments read;
    for (int i = 1; i < argc; ++i)
        read.all << QString::fromUtf8(argv[i]);
    // The value of an option may look like an option.
    for (qsizetype i = 0; i + 1 < read.all.size(); ++i) {
        if (read.all.at(i) == u"-sobriquet")
            read.node = read.all.at(++i);
        else if (read.all.at(i) == u"-device")
            read.device = read.all.at(++i);
    }
    return read;
}

QString StartArguments::Text() const
{
    return (QStringList{QStringLiteral("Node: ") + node, QStringLiteral("Device: ") + device} + all)
        .join(u'\n');
}
