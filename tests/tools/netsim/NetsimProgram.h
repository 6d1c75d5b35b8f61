#pragma once

#include <QByteArray>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

/// What one run of the program gave.
struct NetsimResult
{
    int code = -1;
    QByteArray data;
    QByteArray words;
};

/// Runs the built program, with a folder of its own for what it keeps; one network at a time can run in the
/// background.
class NetsimProgram
{
public:
    ~NetsimProgram();

    /// Runs it to its end.
    NetsimResult Run(const QStringList& arguments) const;

    /// Starts "serve", on a port that is free unless one is named, and waits until it is ready.
    void Serve(const QStringList& further = {}, const QString& listen = QStringLiteral("127.0.0.1:0"));
    /// "127.0.0.1:39461"
    [[nodiscard]] const QString& Place() const { return m_place; }
    [[nodiscard]] quint16 Port() const { return m_place.section(u':', 1).toUShort(); }
    [[nodiscard]] qint64 Id() const { return m_server.processId(); }
    /// Sends a command to it.
    NetsimResult Control(const QStringList& command) const;
    /// Waits for its end.
    NetsimResult WaitForEnd();

    /// Writes a file into the folder and gives its path.
    [[nodiscard]] QString Write(const QString& name, const QByteArray& text) const;
    [[nodiscard]] QString Path(const QString& name) const { return m_folder.filePath(name); }

private:
    void Prepare(QProcess& process) const;
    static NetsimResult ResultOf(QProcess& process);

    QTemporaryDir m_folder;
    QProcess m_server;
    QString m_place;
};
