#include "tools/netsim/FileCommands.h"

#include "tools/netsim/NetworkFile.h"

#include <QFile>
#include <QSaveFile>

FileCommands::FileCommands(CLI::App& app, NetsimContext& context) : m_context(context)
{
    CLI::App& check = *app.add_subcommand("check", "Tell what is wrong with a network file, if anything");
    check.add_option("file", m_file, "Network file")->required();
    check.callback([this] { m_context.chosen = [this] { Check(); }; });
    CLI::App& demo = *app.add_subcommand(
        "demo", "Print the file of the demo network, which fits the database of zelka db init --demo");
    demo.add_option("--output", m_output, "Write it to this file instead")->type_name("FILE");
    demo.callback([this] { m_context.chosen = [this] { Demo(); }; });
}

void FileCommands::Check() const
{
    NetworkDescription network;
    QStringList problems;
    if (!ReadNetworkFile(QString::fromStdString(m_file), network, problems))
        throw NetsimError(problems.join(u'\n'));
    std::size_t nodes = 0;
    for (const auto& bus : network.buses)
        nodes += bus.second.size();
    m_context.Line(QStringLiteral("%1 buses, %2 nodes").arg(network.buses.size()).arg(nodes));
}

void FileCommands::Demo() const
{
    QFile demo(DemoNetworkPath());
    if (!demo.open(QIODevice::ReadOnly))
        throw NetsimError(demo.errorString());
    const QByteArray text = demo.readAll();
    if (m_output.empty())
        return m_context.Bytes(text);
    QSaveFile file(QString::fromStdString(m_output));
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.commit())
        throw NetsimError(file.fileName() + QStringLiteral(": ") + file.errorString());
}
