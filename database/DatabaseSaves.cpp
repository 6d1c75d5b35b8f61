#include "database/DatabaseClass.h"
#include "database/DatabaseState.h"
#include "model/TextHelpers.h"

// A save leaves the users text of a record as it was, whatever the component does with it meanwhile: it is
// read before the save, and read and written again behind it, each in a transaction of its own.

bool DatabaseClass::SaveWithUsersList(const QString& name, const QString& kind, const Work& save)
{
    // Each call works on a copy, so that a call that fails halfway leaves the member as it was.
    const auto readUsers = [&](HvxDatabase& component) {
        QString users = m_usersList;
        component.GetUsersList(name, kind, users);
        m_usersList = users;
    };
    const auto renewUsers = [&](HvxDatabase& component) {
        readUsers(component);
        component.UpdateUsersList(name, kind, m_usersList);
    };
    return RunInSession(readUsers) && RunWriteInSession(save) && RunWriteInSession(renewUsers);
}

bool DatabaseClass::SaveParentDb(const QString& name, const QString& target)
{
    const QString trimmed = Trim(name);
    return SaveWithUsersList(trimmed, QStringLiteral("Parent"),
                             [&](HvxDatabase& component) { component.SaveParent(trimmed, target); });
}

bool DatabaseClass::SaveNodeDb(const QString& name, const QString& nodeType, const QString& target,
                               const QString& conName, const QString& commandTail)
{
    return SaveWithUsersList(name, QStringLiteral("NodeWP"), [&](HvxDatabase& component) {
        component.SaveNode(name, nodeType, target, conName, commandTail);
    });
}
