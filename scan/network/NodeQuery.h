#pragma once

#include <QString>

class HvxUtility;
class SyncConnection;

/// Asks the node at one address of an opened connection who it is. `target`: AddressTarget.
///
/// True: it answered; its identification and its type, which is empty when it does not tell that one. False:
/// nobody answered, both texts are empty. What the components raise is silence; nothing else is caught. Waits
/// as the connection does, with events running.
[[nodiscard]] bool QueryNode(SyncConnection& connection, HvxUtility& utility, const QString& target,
                             QString& type, QString& identification);
