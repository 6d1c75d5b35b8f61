#pragma once

#include <QString>
#include <QStringList>

/// What a manager is told at its start: "-sobriquet", the node's name, "-device", the device, and whatever
/// its own text adds. Unknown arguments are kept and do no harm.
struct StartArguments
{
    /// Empty: not told.
    QString node;
    QString device;
    /// All of them, without the program's name.
    QStringList all;

    /// `argv` as `main` gets it, in UTF-8.
    [[nodiscard]] static StartArguments Read(int argc, const char* const* argv);

    /// Node, device and all arguments, each on a line of its own.
    [[nodiscard]] QString Text() const;
};
