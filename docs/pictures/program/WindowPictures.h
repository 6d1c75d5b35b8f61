#pragma once

#include <QString>

class Camera;
class T4ZelkaBrowser;

/// Finds entries of the demo, some of which the tree has not loaded.
void TakeFindDialogs(T4ZelkaBrowser& browser, const Camera& camera);

/// What stands while connections and nodes are loaded.
void TakeLoads(const QString& database, const Camera& camera);

/// The operator's window, on a database that it is told by the name of a file that everybody could have, and
/// what it tells about itself.
void TakeWorkstation(const QString& database, const Camera& camera);

void TakeNodeManager(const Camera& camera);

/// The help on a page of text, where it is packed already: it shows these pictures itself.
void TakeHelp(const Camera& camera);
