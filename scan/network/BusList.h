#pragma once

#include <QString>
#include <QStringList>

class HvxUtility;
class SyncConnection;

/// What the far end of a connection answers to the question for its buses.

/// Target of bus discovery from the full target of the connection: one with "WP=KD7" is led to the broadcast
/// bus 254 and the highest address 4094, all others go out unchanged.
[[nodiscard]] QString ConvertBusTarget(const QString& target);

/// Every occurrence of a character replaced by a text.
[[nodiscard]] QString ReplaceCharacter(const QString& text, QChar character, const QString& by);

/// Buses from the answer: its lines without the first, which repeats the request, and without a last one of
/// 254, which is the bus itself. False: the answer cannot be split.
[[nodiscard]] bool ParseBusList(const QString& text, int& count, QStringList& items);

/// Sends the question over an opened connection and gives the answer as text. Raises what the components
/// raise.
[[nodiscard]] QString AskForBuses(SyncConnection& connection, HvxUtility& utility);
