#include "tools/zelka/Assignments.h"

#include "model/TextHelpers.h"
#include "tools/zelka/CommandError.h"

#include <algorithm>
#include <array>

namespace {

std::optional<QString>* FieldOf(RecordChanges& changes, const QString& key)
{
    struct Field
    {
        QLatin1StringView key;
        std::optional<QString>& value;
    };
    const std::array fields = {Field{QLatin1StringView("name"), changes.name},
                               Field{QLatin1StringView("connection"), changes.connection},
                               Field{QLatin1StringView("type"), changes.type},
                               Field{QLatin1StringView("target"), changes.target},
                               Field{QLatin1StringView("manager"), changes.manager},
                               Field{QLatin1StringView("tail"), changes.tail}};
    const auto found = std::find_if(fields.begin(), fields.end(), [&key](const Field& field) {
        return key.compare(field.key, Qt::CaseInsensitive) == 0;
    });
    return found == fields.end() ? nullptr : &found->value;
}

[[noreturn]] void RefuseSecond(const QString& key)
{
    throw CommandError(ExitCode::Usage, QStringLiteral("%1 is given twice.").arg(key));
}

} // namespace

bool RecordChanges::IsEmpty() const
{
    return !name && !connection && !type && !target && !manager && !tail && parameters.empty();
}

void AddAssignments(const std::vector<std::string>& texts, RecordChanges& changes)
{
    for (const std::string& bytes : texts) {
        const QString text = QString::fromStdString(bytes);
        const qsizetype equals = text.indexOf(u'=');
        const QString key = Trim(text.left(std::max(equals, qsizetype{0})));
        if (key.isEmpty())
            throw CommandError(ExitCode::Usage, QStringLiteral("\"%1\" is no KEY=VALUE.").arg(text));
        const QString value = text.mid(equals + 1);
        if (std::optional<QString>* const field = FieldOf(changes, key)) {
            if (*field)
                RefuseSecond(key);
            *field = value;
            continue;
        }
        for (const ParameterAssignment& other : changes.parameters) {
            if (other.key.compare(key, Qt::CaseInsensitive) == 0)
                RefuseSecond(key);
        }
        changes.parameters.push_back({key, value});
    }
}
