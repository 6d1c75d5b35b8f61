#include "tools/netsim/NetsimContext.h"

#include "tools/netsim/HostAndPort.h"

#include <QFileDevice>

namespace {

bool Push(QIODevice& device, const QByteArray& bytes)
{
    auto* file = qobject_cast<QFileDevice*>(&device);
    return device.write(bytes) == bytes.size() && (file == nullptr || file->flush());
}

std::string CheckListen(const std::string& text)
{
    return HostAndPort::Read(QString::fromStdString(text)) ? "" : "'" + text + "' is no HOST:PORT";
}

} // namespace

void NetsimContext::Line(const QString& text) const
{
    Bytes(text.toUtf8() + '\n');
}

void NetsimContext::Bytes(const QByteArray& bytes) const
{
    if (!Push(data, bytes))
        throw NetsimError(QStringLiteral("The output cannot be written: %1.").arg(data.errorString()));
}

void NetsimContext::Words(const QString& text) const
{
    const QStringList lines = text.split(u'\n');
    for (const QString& line : lines)
        (void)Push(words, "zelka-netsim: " + line.toUtf8() + '\n');
}

void AddListenOption(CLI::App& command, std::string& listen, const std::string& description)
{
    listen = DefaultGateway;
    command.add_option("--listen", listen, description + " (default: " + DefaultGateway + ")")
        ->type_name("HOST:PORT")
        ->check(CheckListen);
}
