#include "tools/zelka/CommandOutput.h"

#include "tools/zelka/CommandError.h"

#include <QFileDevice>
#include <QJsonDocument>

#include <poll.h>

namespace {

CommandError WriteFailed(const QIODevice& device)
{
    return {ExitCode::Refused, QStringLiteral("The output cannot be written: %1.").arg(device.errorString())};
}

} // namespace

CommandOutput::CommandOutput(QIODevice& data, QIODevice& words) : m_data(data), m_words(words) {}

void CommandOutput::Write(const QByteArray& bytes)
{
    if (!m_readerHasGone && m_data.write(bytes) != bytes.size())
        throw WriteFailed(m_data);
}

void CommandOutput::Line(const QString& text)
{
    Write(text.toUtf8() + '\n');
}

void CommandOutput::Bytes(const QByteArray& bytes)
{
    Write(bytes);
}

void CommandOutput::Object(const QJsonObject& object)
{
    m_document = Document::Complete;
    Write(QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n');
}

void CommandOutput::ObjectLine(const QJsonObject& object)
{
    Object(object);
    m_document = Document::Lines;
}

void CommandOutput::BeginArray()
{
    m_document = Document::Array;
    m_firstItem = true;
    Write("[");
}

void CommandOutput::Item(const QJsonObject& object)
{
    Write((m_firstItem ? "\n" : ",\n") + QJsonDocument(object).toJson(QJsonDocument::Compact));
    m_firstItem = false;
}

void CommandOutput::EndArray()
{
    Write(m_firstItem ? "]\n" : "\n]\n");
    m_document = Document::Complete;
}

void CommandOutput::Words(const QString& text)
{
    // Not simplified(): runs of blanks may belong to a quoted name.
    QString line = text;
    line.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
    for (QChar& character : line) {
        if (character == u'\n' || character == u'\r')
            character = u' ';
    }
    m_words.write("zelka: " + line.toUtf8() + '\n');
    if (auto* file = qobject_cast<QFileDevice*>(&m_words))
        file->flush();
}

void CommandOutput::Failure(const QString& text, bool told)
{
    if (!told)
        Words(text);
    if (!m_json)
        return;
    if (m_document == Document::None || m_document == Document::Lines)
        Object({{QStringLiteral("error"), text}});
    else if (m_document == Document::Array)
        EndArray();
}

void CommandOutput::Flush()
{
    if (m_readerHasGone)
        return;
    if (auto* file = qobject_cast<QFileDevice*>(&m_data); file && !file->flush())
        throw WriteFailed(m_data);
}

bool CommandOutput::ReaderHasGone()
{
    if (auto* file = qobject_cast<QFileDevice*>(&m_data)) {
        pollfd state{file->handle(), 0, 0};
        if (::poll(&state, 1, 0) > 0 && (state.revents & (POLLERR | POLLHUP)) != 0)
            m_readerHasGone = true;
    }
    return m_readerHasGone;
}
