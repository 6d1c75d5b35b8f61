#include "platform/JsonText.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSet>

#include <vector>

namespace {

/// Offset behind the closing quote of the text that begins at `at`.
qsizetype EndOfText(const QByteArray& json, qsizetype at)
{
    ++at;
    while (at < json.size() && json.at(at) != '"')
        at += json.at(at) == '\\' ? 2 : 1;
    return at + 1;
}

/// The text of a JSON string, escapes resolved.
QString TextOf(const QByteArray& quoted)
{
    return QJsonDocument::fromJson('[' + quoted + ']').array().at(0).toString();
}

bool IsKey(const QByteArray& json, qsizetype behind)
{
    while (behind < json.size() && QByteArrayView(" \t\r\n").contains(json.at(behind)))
        ++behind;
    return behind < json.size() && json.at(behind) == ':';
}

} // namespace

DoubledKey FindDoubledKey(const QByteArray& json)
{
    std::vector<QSet<QString>> open;
    for (qsizetype at = 0; at < json.size(); ++at) {
        const char character = json.at(at);
        if (character == '{') {
            open.emplace_back();
        } else if (character == '}' && !open.empty()) {
            open.pop_back();
        } else if (character == '"') {
            const qsizetype end = EndOfText(json, at);
            if (!open.empty() && IsKey(json, end)) {
                const QString key = TextOf(json.mid(at, end - at));
                if (open.back().contains(key))
                    return {key, at};
                open.back().insert(key);
            }
            at = end - 1;
        }
    }
    return {};
}

QString LineAndColumn(const QByteArray& text, qsizetype offset)
{
    const QByteArray before = text.left(offset);
    const qsizetype lastLine = before.lastIndexOf('\n') + 1;
    return QStringLiteral("line %1, column %2")
        .arg(before.count('\n') + 1)
        .arg(QString::fromUtf8(before.mid(lastLine)).size() + 1);
}
