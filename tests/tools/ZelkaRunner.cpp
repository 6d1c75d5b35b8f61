#include "ZelkaRunner.h"

#include <QFile>
#include <QProcessEnvironment>

QStringList ZelkaResult::Lines() const
{
    QStringList lines = QString::fromUtf8(data).split(u'\n');
    if (lines.last().isEmpty())
        lines.removeLast();
    return lines;
}

ZelkaResult ZelkaRunner::Run(const QStringList& arguments, const QByteArray& input) const
{
    return RunProgram(QStringLiteral(ZELKA_PROGRAM), arguments, input);
}

ZelkaResult ZelkaRunner::RunInShell(const QString& line, const QStringList& arguments,
                                    const QByteArray& input) const
{
    const QStringList shell{QStringLiteral("-c"), line, QStringLiteral("sh"), QStringLiteral(ZELKA_PROGRAM)};
    return RunProgram(QStringLiteral("/bin/sh"), shell + arguments, input);
}

void ZelkaRunner::Prepare(QProcess& process) const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("ZELKA_DBS32"), Database());
    for (const char* folder : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CONFIG_DIRS"})
        environment.insert(QString::fromUtf8(folder), m_place.Folder());
    environment.remove(QStringLiteral("ZELKA_GATEWAY"));
    // As in a scheduled script; names are UTF-8 all the same.
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C"));
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(m_place.Folder());
}

void ZelkaRunner::Start(QProcess& process, const QStringList& arguments) const
{
    Prepare(process);
    process.start(QStringLiteral(ZELKA_PROGRAM), arguments);
}

ZelkaResult ZelkaRunner::RunProgram(const QString& program, const QStringList& arguments,
                                    const QByteArray& input) const
{
    QProcess process;
    Prepare(process);
    process.start(program, arguments);
    process.write(input);
    process.closeWriteChannel();
    if (!process.waitForFinished(100'000))
        qFatal("zelka did not end: %s", qUtf8Printable(arguments.join(u' ')));
    ZelkaResult result;
    result.code = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    result.data = process.readAllStandardOutput();
    result.words = process.readAllStandardError();
    return result;
}

void ZelkaRunner::MakeSmallDatabase() const
{
    const QByteArray records = "kind,name,target,connection,manager,command\n"
                               "connection,Bus,\"WP=BUST4,ID=254,SPEED=9600,WP=OPT,PR=T4DT\",,,\n"
                               "node,Tower,\"WP=NET4,ADDR=4094,PRIO=NORMAL,WP=OPT,PR=T4DT\",Bus,Radio,1|-x\n";
    const QList<QStringList> commands = {{"db", "init"}, {"db", "managers", "add", "Radio", "/opt/radio"}};
    for (const QStringList& command : commands) {
        if (const ZelkaResult result = Run(command); result.code != 0)
            qFatal("%s", result.words.constData());
    }
    if (const ZelkaResult result = Run({"db", "import", "-"}, records); result.code != 0)
        qFatal("%s", result.words.constData());
}

void ZelkaRunner::MakeDemoDatabase() const
{
    if (const ZelkaResult result = Run({"db", "init", "--demo"}); result.code != 0)
        qFatal("%s", result.words.constData());
}

QString ZelkaRunner::Write(const QString& name, const QByteArray& text) const
{
    QFile file(Path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        qFatal("%s", qUtf8Printable(file.errorString()));
    return file.fileName();
}

QByteArray ZelkaRunner::Read(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

void ZelkaRunner::Sql(const QByteArray& text) const
{
    // The driver of files runs one statement at a time.
    const PlainSql database(Database());
    const QStringList statements = QString::fromUtf8(text).split(u';', Qt::SkipEmptyParts);
    for (const QString& statement : statements)
        database.Run(statement);
}

QByteArray ZelkaRunner::Query(const QByteArray& text) const
{
    return PlainSql(Database()).Run(QString::fromUtf8(text)).toByteArray();
}

QByteArray ZelkaRunner::Rows(const QByteArray& text) const
{
    return PlainSql(Database()).Rows(QString::fromUtf8(text)).join(u',').toUtf8();
}
