#pragma once

#include "tools/zelka/CommandLine.h"

#include <QBuffer>
#include <QJsonDocument>
#include <QStringList>

#include <vector>

/// Runs `zelka` commands within the test's own process and keeps what they print.
class ProcessRun
{
public:
    ProcessRun()
    {
        m_data.open(QIODevice::WriteOnly);
        m_words.open(QIODevice::WriteOnly);
    }

    /// Gives the exit code.
    [[nodiscard]] int Run(const QStringList& arguments)
    {
        std::vector<QByteArray> bytes{"zelka"};
        for (const QString& argument : arguments)
            bytes.push_back(argument.toUtf8());
        std::vector<const char*> argv;
        for (const QByteArray& argument : bytes)
            argv.push_back(argument.constData());
        return static_cast<int>(RunCommandLine(static_cast<int>(argv.size()), argv.data(), m_data, m_words));
    }

    [[nodiscard]] QStringList Lines() const { return LinesOf(m_data); }
    [[nodiscard]] QStringList Words() const { return LinesOf(m_words); }
    /// Null when the data are no JSON.
    [[nodiscard]] QJsonDocument Json() const { return QJsonDocument::fromJson(m_data.data()); }

private:
    static QStringList LinesOf(const QBuffer& buffer)
    {
        return QString::fromUtf8(buffer.data()).split(u'\n', Qt::SkipEmptyParts);
    }

    QBuffer m_data;
    QBuffer m_words;
};
