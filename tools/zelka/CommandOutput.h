#pragma once

#include <QIODevice>
#include <QJsonObject>
#include <QString>

/// Where a command prints: data to one device, as lines or as one JSON document, and words about failures to
/// another.
///
/// In JSON form exactly one document is printed: an object, an array whose items are written as they come,
/// or `{"error": …}`; only what may never end is printed as an object a line. Nothing is lost in silence: a
/// write that fails raises CommandError (Refused).
class CommandOutput
{
public:
    CommandOutput(QIODevice& data, QIODevice& words);

    void SetJson(bool json) { m_json = json; }
    [[nodiscard]] bool Json() const { return m_json; }

    /// One line of data; only in text form.
    void Line(const QString& text);
    /// Bytes of data as they are; only in text form.
    void Bytes(const QByteArray& bytes);
    /// The whole document; only in JSON form.
    void Object(const QJsonObject& object);

    /// One of any number of objects, a line each; only in JSON form.
    void ObjectLine(const QJsonObject& object);

    void BeginArray();
    void Item(const QJsonObject& object);
    void EndArray();

    /// One line of words, with the program's name in front; line breaks inside become blanks.
    void Words(const QString& text);
    /// Tells why the command failed: words (unless `told`) and, in JSON form, the document that says so. An
    /// array that has been begun is ended instead.
    void Failure(const QString& text, bool told);

    /// Pushes everything out.
    void Flush();

    /// True when nobody can read the data any more, because the other end of a pipe has gone. From then on
    /// data are dropped.
    [[nodiscard]] bool ReaderHasGone();

private:
    void Write(const QByteArray& bytes);

    enum class Document
    {
        None,
        Array,
        Lines,
        Complete,
    };
    QIODevice& m_data;
    QIODevice& m_words;
    bool m_json = false;
    bool m_firstItem = true;
    bool m_readerHasGone = false;
    Document m_document = Document::None;
};
