#pragma once

#include "tests/components/FreshSource.h"

#include <QByteArray>
#include <QJsonDocument>
#include <QProcess>
#include <QString>
#include <QStringList>

/// What one run of the program gave.
struct ZelkaResult
{
    int code = -1;
    QByteArray data;
    QByteArray words;

    /// The document on standard output; null when it is no JSON.
    [[nodiscard]] QJsonDocument Json() const { return QJsonDocument::fromJson(data); }
    [[nodiscard]] QStringList Lines() const;
    [[nodiscard]] QString Words() const { return QString::fromUtf8(words); }
};

/// Runs the built program in a folder of its own, with no setting of the machine in reach.
class ZelkaRunner
{
public:
    /// A path in the folder.
    [[nodiscard]] QString Path(const QString& name) const { return m_place.Folder() + u'/' + name; }
    /// The database that runs use unless their arguments name another; on the engine of the run.
    [[nodiscard]] QString Database() const { return m_place.Source(); }

    ZelkaResult Run(const QStringList& arguments, const QByteArray& input = {}) const;

    /// The same through a shell command line, in which "$@" stands for the program and its arguments.
    ZelkaResult RunInShell(const QString& line, const QStringList& arguments,
                           const QByteArray& input = {}) const;

    /// Starts it and comes back while it runs.
    void Start(QProcess& process, const QStringList& arguments) const;

    /// Makes the database with one connection "Bus" that has the node "Tower", and one manager, "Radio".
    void MakeSmallDatabase() const;
    void MakeDemoDatabase() const;

    /// Writes a file into the folder and gives its path.
    QString Write(const QString& name, const QByteArray& text) const;
    static QByteArray Read(const QString& path);
    /// Runs SQL on the database behind the program's back.
    void Sql(const QByteArray& text) const;
    /// The first value that a query of the database gives, as text; empty when there is none.
    [[nodiscard]] QByteArray Query(const QByteArray& text) const;
    /// The same of all rows, joined by commas.
    [[nodiscard]] QByteArray Rows(const QByteArray& text) const;

private:
    /// The folder and the environment of a run.
    void Prepare(QProcess& process) const;
    ZelkaResult RunProgram(const QString& program, const QStringList& arguments,
                           const QByteArray& input) const;

    FreshSource m_place;
};
