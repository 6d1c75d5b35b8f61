#pragma once

#include <QString>
#include <QStringList>

/// The lines by which a log of talks with network elements tells what went to and fro.
namespace TalkLog {

/// Where a line comes from.
enum class Mark
{
    Request,
    Reply,
    Failure,
    /// Connected to, disconnected from.
    Note,
};

/// Bytes beyond these are not shown as hexadecimal digits.
constexpr int MostHexBytes = 256;

/// One line with the time on the wall, a mark (">", "<", "!", "-") and the text, in which characters that
/// cannot be printed are dots. A reply that holds such characters gets a second line with its bytes in
/// hexadecimal.
[[nodiscard]] QStringList Lines(Mark mark, const QString& text);

} // namespace TalkLog
