#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// One change that a workstation tried, as a line of its log. Shared by the program that writes it and the
/// test that reads it.
struct LoggedChange
{
    int number = 0;
    /// What was tried, in words.
    QString what;
    bool done = false;
    /// Of a change that was done: "connection" or "node", "saved" or "removed", the name, and the id that the
    /// record has got or had.
    QString kind;
    QString verb;
    qint32 id = 0;
    QString name;
    /// Why it was refused, as the operator was told.
    QString reason;

    [[nodiscard]] QString Line() const
    {
        return QStringList{QStringLiteral("change"),
                           QString::number(number),
                           what,
                           done ? QStringLiteral("done") : QStringLiteral("refused"),
                           kind,
                           verb,
                           QString::number(id),
                           name,
                           reason}
            .join(u'\t');
    }

    /// No value for another line.
    [[nodiscard]] static std::optional<LoggedChange> Parse(const QString& line)
    {
        const QStringList parts = line.split(u'\t');
        if (parts.size() != 9 || parts[0] != u"change")
            return std::nullopt;
        return LoggedChange{parts[1].toInt(), parts[2], parts[3] == u"done",
                            parts[4],         parts[5], parts[6].toInt(),
                            parts[7],         parts[8]};
    }
};
